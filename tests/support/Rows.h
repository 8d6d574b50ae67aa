#pragma once

#include <QTest>

namespace KOLT::Test {

/// Fills the table of a test: names its columns when it is made, then takes row after row. Values
/// convert to the types of their columns.
template <typename First, typename... Rest>
class Rows
{
public:
    template <typename... Names>
    explicit Rows(const char* first, Names... rest)
    {
        QTest::addColumn<First>(first);
        (QTest::addColumn<Rest>(rest), ...);
    }

    void operator()(const char* name, const First& first, const Rest&... rest) const
    {
        static_cast<void>(((QTest::newRow(name) << first) << ... << rest));
    }

    /// A row that is called what its first value is.
    void operator()(const First& first, const Rest&... rest) const
    {
        (*this)(qPrintable(QString(first)), first, rest...);
    }
};

} // namespace KOLT::Test
