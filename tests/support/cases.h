#pragma once

#include "support/table.h"

#include <QByteArrayList>

/// The rows of tests/data/cases/`file`.tsv: name and values between tabs, in UTF-8, with bytes as
/// \n, \r, \t and \xHH.
QList<QByteArrayList> casesIn(const char *file);

template<typename Value>
Value valueOf(const QByteArray &cell)
{
    if constexpr (std::is_same_v<Value, QByteArray>)
        return cell;
    else if constexpr (std::is_integral_v<Value>)
        return static_cast<Value>(cell.toLongLong());
    else
        return cell.isNull() ? Value() : Value(QString::fromUtf8(cell));
}

template<typename... Values, qsizetype... column>
void addCase(const Table<Values...> &table, const QByteArrayList &cells,
             std::integer_sequence<qsizetype, column...>)
{
    table(cells[0].constData(), valueOf<Values>(cells.value(column + 1))...);
}

/// Adds these rows to the table.
template<typename... Values>
void addCases(const Table<Values...> &table, const char *file)
{
    constexpr auto count = static_cast<qsizetype>(sizeof...(Values));
    for (const QByteArrayList &cells : casesIn(file))
        addCase(table, cells, std::make_integer_sequence<qsizetype, count>());
}
