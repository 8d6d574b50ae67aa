#pragma once

#include <QTest>

#include <tuple>

namespace KOLT::Test {

/// The data of a test: makes the columns of its table, then takes row after row. Columns that are
/// given names are fetched with QFETCH; without names a row is taken apart by fetchRow(). Values
/// convert to the types of their columns.
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

    /// A row that is called what its first value is.
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

/// What the current row holds, to be taken apart; its types are those of the Rows.
template <typename... Values>
std::tuple<Values...> fetchRow()
{
    using Row = std::tuple<Values...>;
    QFETCH(Row, row);
    return row;
}

} // namespace KOLT::Test
