#pragma once

#include <QTest>

#include <tuple>

namespace KOLT::Test {

/// Test data: creates the columns and then adds rows. With column names, fetch the values with
/// QFETCH; without names, the whole row with fetchRow(). Values are converted to the column types.
template <typename... Values>
class Rows
{
public:
    Rows() { QTest::addColumn<std::tuple<Values...>>("row"); }

    template <typename... Names>
    explicit Rows(const char* first, Names... rest)
        : m_hasNames(true)
    {
        addColumns(first, rest...);
    }

    void operator()(const char* name, const Values&... values) const
    {
        QTestData& row = QTest::newRow(name);
        if (m_hasNames)
            static_cast<void>((row << ... << values));
        else
            row << std::tuple<Values...>(values...);
    }

    /// A row named by its first value.
    void operator()(const Values&... values) const
    {
        const auto& first = std::get<0>(std::tie(values...));
        (*this)(qPrintable(QString(first)), values...);
    }

private:
    template <typename... Names>
    static void addColumns(Names... names)
    {
        (QTest::addColumn<Values>(names), ...);
    }

    bool m_hasNames = false;
};

/// The values of the current row, for a structured binding; the types are those of Rows.
template <typename... Values>
std::tuple<Values...> fetchRow()
{
    using Row = std::tuple<Values...>;
    QFETCH(Row, row);
    return row;
}

} // namespace KOLT::Test
