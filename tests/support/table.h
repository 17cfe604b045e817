#pragma once

#include <QTest>

#include <tuple>

/// The rows of a table that begin with `Given`; each of the values `Left` may be left out.
template<typename Given, typename... Left>
class TableRows;

template<typename... Given>
class TableRows<std::tuple<Given...>> {
public:
    void operator()(const char *name, const Given &...values) const
    {
        (QTest::newRow(name) << ... << values);
    }
};

template<typename... Given, typename Next, typename... Left>
class TableRows<std::tuple<Given...>, Next, Left...>
    : public TableRows<std::tuple<Given..., Next>, Left...> {
public:
    using Longer = TableRows<std::tuple<Given..., Next>, Left...>;
    using Longer::operator();
    void operator()(const char *name, const Given &...values) const
    {
        Longer::operator()(name, values..., Next());
    }
};

/// A table of test data: made with the names of its columns, called with the name and the values
/// of each row, of which the last ones may be left out where they are empty.
template<typename... Values>
class Table : public TableRows<std::tuple<>, Values...> {
public:
    template<typename... Names>
    explicit Table(Names... columns)
    {
        (QTest::addColumn<Values>(columns), ...);
    }
};
