#pragma once

#include <QTest>

#include <tuple>

namespace KOLT::Test {

/// The data of a test: in its _data function, row("name", values ...) adds one row after another.
template <typename... Values>
class Rows
{
public:
    Rows() { QTest::addColumn<std::tuple<Values...>>("row"); }

    void operator()(const char* name, const Values&... values) const
    {
        QTest::newRow(name) << std::tuple<Values...>(values...);
    }
};

/// What the current row holds, to be taken apart; its types are those of the Rows.
template <typename... Values>
std::tuple<Values...> fetchRow()
{
    using Row = std::tuple<Values...>;
    QFETCH(Row, row);
    return row;
}

} // namespace KOLT::Test
