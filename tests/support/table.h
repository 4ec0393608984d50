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

// The row that the test is run for.
template <typename Row> Row tableRow()
{
    QFETCH(Row, row);
    return row;
}
