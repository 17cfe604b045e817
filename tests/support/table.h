#pragma once

#include <QTest>

/// A table of test data: made with the names of its columns, called with the name and the values
/// of each row.
template<typename... Values>
class Table {
public:
    template<typename... Names>
    explicit Table(Names... columns)
    {
        (QTest::addColumn<Values>(columns), ...);
    }

    void operator()(const char *name, const Values &...values) const
    {
        (QTest::newRow(name) << ... << values);
    }
};
