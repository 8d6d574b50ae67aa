#include "analysis/TimeTable.h"
#include "profile/ValueDecoder.h"
#include "tests/support/RecordingFixture.h"

#include <QTest>

#include <cmath>

using namespace KOLT;
using namespace KOLT::Test;

class TestTimeTable : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void rowsAreTheTenthsWithASample();
    void cellsHoldTheLastValue();
    void rowAtTime();
    void jumpsToTheNextChange();
    void stepsBackInTimeAreOrdered();
    void emptyTables();

private:
    TimeTable table() const { return {*m_dataSet, m_columns}; }

    double valueAt(const TimeTable& table, std::size_t row, std::size_t column) const
    {
        const TimeTable::Cell cell = table.cell(row, column);
        return cell.sample != nullptr ? decodeNumber(cell.sample->data, *m_columns[column]) : -1.0;
    }

    Profile m_profile;
    std::unique_ptr<DataSet> m_dataSet;
    std::vector<const ProfileParameter*> m_columns; ///< a and b in one message, c in another
};

void TestTimeTable::init()
{
    QVERIFY(loadProfile(m_profile, device({"name='a' id='1' dataType='FLOAT' precision='1'",
                                           "name='b' id='1' startByte='4' dataType='FLOAT'",
                                           "name='c' id='2' dataType='FLOAT'"})));
    m_dataSet = std::make_unique<DataSet>();
    m_columns.clear();
    for (const ProfileParameter& parameter : m_profile.parameters())
        m_columns.push_back(&parameter);
}

void TestTimeTable::rowsAreTheTenthsWithASample()
{
    for (const double seconds : {1.0, 1.02, 1.04, 1.06, 1.3})
        add(m_dataSet->messages, 1, seconds);
    for (const double seconds : {0.5, 1.1, 1.3, 9.0})
        add(m_dataSet->messages, 2, seconds);
    add(m_dataSet->messages, 3, 5.0); // not a column
    QList<double> rows;
    const TimeTable all = table();
    for (std::size_t row = 0; row < all.rowCount(); ++row)
        rows << all.seconds(row);
    QCOMPARE(rows, (QList<double>{0.5, 1.0, 1.1, 1.3, 9.0}));
    QCOMPARE(TimeTable(*m_dataSet, {m_columns[0]}).rowCount(), 3U);
}

void TestTimeTable::cellsHoldTheLastValue()
{
    add(m_dataSet->messages, 2, 0.5, floats(7));
    add(m_dataSet->messages, 1, 1.00, floats(1, 10));
    add(m_dataSet->messages, 1, 1.04, floats(2, 20));
    add(m_dataSet->messages, 2, 2.0, floats(8));
    const TimeTable all = table();
    QCOMPARE(all.rowCount(), 3U);
    QVERIFY(all.cell(0, 0).sample == nullptr && !all.cell(0, 0).isFresh);
    QCOMPARE(valueAt(all, 1, 0), 2.0); // the last in its tenth
    QCOMPARE(valueAt(all, 1, 1), 20.0);
    QVERIFY(all.cell(1, 0).isFresh && !all.cell(1, 2).isFresh);
    QCOMPARE(valueAt(all, 1, 2), 7.0);
    QCOMPARE(valueAt(all, 2, 1), 20.0);
    QVERIFY(!all.cell(2, 1).isFresh && all.cell(2, 2).isFresh);
}

void TestTimeTable::rowAtTime()
{
    for (const double seconds : {1.0, 2.0, 3.0})
        add(m_dataSet->messages, 1, seconds);
    for (const auto& [seconds, row] : {std::pair(0.0, 0U),
                                       {2.0, 1U},
                                       {2.9, 1U},
                                       {2.9999, 1U}, // not yet the next row
                                       {5.7e11, 2U}})
        QCOMPARE(table().rowAt(seconds), row);
    // Two values of a message and one of another within a tenth.
    for (const auto& [id, seconds, value] :
         {std::tuple(1U, 10.06, 1.0F), {1U, 10.14, 2.0F}, {2U, 10.10, 7.0F}})
        add(m_dataSet->messages, id, seconds, floats(value));
    const TimeTable all = table();
    QCOMPARE(all.lastSeconds(3), 10.14);
    for (const auto& [seconds, row, value, other] : {std::tuple(10.05, 2U, 0.0, -1.0),
                                                     {10.06, 3U, 1.0, -1.0},
                                                     {10.1 + 1e-9, 3U, 1.0, 7.0},
                                                     {10.14 - 1e-9, 3U, 2.0, 7.0}}) {
        QCOMPARE(all.rowAt(seconds), row);
        const auto valueOf = [&, at = seconds](std::size_t column) {
            const StoredSample* const sample = all.cellAt(at, all.rowAt(at), column).sample;
            return sample != nullptr ? decodeNumber(sample->data, *m_columns[column]) : -1.0;
        };
        QCOMPARE(valueOf(0), value);
        QCOMPARE(valueOf(2), other);
    }
}

void TestTimeTable::jumpsToTheNextChange()
{
    const float nan = std::nanf("");
    const QList<float> values{3, 1, 1.04F, 2, 2, nan, nan, 2}; // shown with one decimal
    for (qsizetype i = 0; i < values.size(); ++i)
        add(m_dataSet->messages, 1, 10.0 + static_cast<double>(i), floats(values[i]));
    add(m_dataSet->messages, 2, 5.0); // a row before the first value of a
    add(m_dataSet->messages, 1, 13.02, floats(2));
    const TimeTable all = table();
    QList<qsizetype> forward;
    for (auto row = all.nextChange(m_profile, 0, 0); row; row = all.nextChange(m_profile, *row, 0))
        forward << static_cast<qsizetype>(*row);
    QCOMPARE(forward, (QList<qsizetype>{1, 2, 4, 6, 8}));
    QList<qsizetype> backward;
    for (auto row = all.previousChange(m_profile, 8, 0); row;
         row = all.previousChange(m_profile, *row, 0))
        backward << static_cast<qsizetype>(*row);
    QCOMPARE(backward, (QList<qsizetype>{7, 5, 3, 1})); // includes the first sample
    QVERIFY(!all.nextChange(m_profile, 0, 2));
    QVERIFY(!all.previousChange(m_profile, 0, 0));
}

void TestTimeTable::stepsBackInTimeAreOrdered()
{
    for (const double seconds : {1.0, 2.0, 5.7e11, 3.0, 2.5})
        add(m_dataSet->messages, 1, seconds, floats(static_cast<float>(seconds)));
    const TimeTable all = table();
    QCOMPARE(all.rowCount(), 5U);
    for (const auto& [row, value] : {std::pair{0U, 1.0}, {1U, 2.0}, {2U, 2.5}, {3U, 3.0}})
        QCOMPARE(valueAt(all, row, 0), value);
    QCOMPARE(all.rowAt(1e9), 3U);
}

void TestTimeTable::emptyTables()
{
    QCOMPARE(TimeTable().rowCount(), 0U);
    QCOMPARE(table().rowCount(), 0U);
    QCOMPARE(table().rowAt(3.0), 0U);
    add(m_dataSet->messages, 1, 1.0);
    QCOMPARE(TimeTable(*m_dataSet, {}).rowCount(), 0U);
}

QTEST_GUILESS_MAIN(TestTimeTable)
#include "tst_timetable.moc"
