#pragma once

#include <QTest>

#include <initializer_list>
#include <utility>

// The named rows of a table test; a comparison that fails says in which. Called in the test's _data().
template <typename Row> void tableOf(std::initializer_list<std::pair<const char *, Row>> rows)
{
    QTest::addColumn<Row>("row");
    for (const auto &[name, row] : rows)
        QTest::newRow(name) << row;
}

// Rows that are told by their names alone.
inline void rowsOf(std::initializer_list<const char *> names)
{
    QTest::addColumn<bool>("row");
    for (const char *name : names)
        QTest::newRow(name) << true;
}

// The row that the test is run for.
template <typename Row> Row tableRow()
{
    QFETCH(Row, row);
    return row;
}
