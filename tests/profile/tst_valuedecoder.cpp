#include "profile/ValueDecoder.h"
#include "tests/support/ProfileFixture.h"

#include <QTest>

#include <bit>
#include <cmath>

using namespace KOLT;
using namespace KOLT::Test;

namespace {

MessageData bytes(const QByteArray& hex)
{
    const QByteArray raw = QByteArray::fromHex(hex);
    MessageData data{};
    std::copy_n(raw.begin(), std::min<qsizetype>(8, raw.size()), data.begin());
    return data;
}

/// Eight bytes with a FLOAT at the start.
MessageData floatBytes(float value)
{
    MessageData data{};
    const auto word = std::bit_cast<std::uint32_t>(value);
    for (int i = 0; i < 4; ++i)
        data[i] = static_cast<unsigned char>(word >> (8 * i));
    return data;
}

} // namespace

class TestValueDecoder : public QObject
{
    Q_OBJECT

private slots:
    void decodes_data();
    void decodes();
    void typesThatDoNotDecode();
    void floatsAreText_data();
    void floatsAreText();
    void unitSystemChangesTextOnly();
    void gradesTheMetricNumber();
    void positionBecomesDegrees_data();
    void positionBecomesDegrees();
    void positionFilterRejectsJumps();
    void longitudeLimitGrowsWithLatitude();
};

void TestValueDecoder::decodes_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<double>("number");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("writtenBack");

    const auto row = [](const char* name, const char* attributes, const char* data, double number,
                        const char* text, const char* writtenBack) {
        QTest::newRow(name) << QByteArray(attributes) << QByteArray(data) << number << QString(text)
                            << QByteArray(writtenBack);
    };
    row("LONG, truncated", "dataType='LONG' factor='0.1'", "d204000011223344", 123, "123",
        "7b00000011223344");
    row("LONG, towards zero", "dataType='LONG' factor='0.1'", "2efbffff00000000", -123, "-123",
        "85ffffff00000000");
    row("LONG, saturated", "dataType='LONG' factor='1000'", "ffffff7f00000000", 2147483647,
        "2147483647", "ffffff7f00000000");
    row("SHORT at 6", "dataType='SHORT' startByte='6' offset='-1'", "000000000000feff", -3, "-3",
        "000000000000fdff");
    row("SHORT_2 is SHORT", "dataType='SHORT_2' startByte='6' offset='-1'", "000000000000feff", -3,
        "-3", "000000000000fdff");
    row("SHORT wraps", "dataType='SHORT' offset='1'", "ff7f", -32768, "-32768", "0080000000000000");
    row("USHORT", "dataType='USHORT'", "ffff", 65535, "65535", "ffff000000000000");
    row("USHORT below zero", "dataType='USHORT_2' offset='-2'", "0100", 65535, "65535",
        "ffff000000000000");
    row("CHAR", "dataType='CHAR' startByte='7'", "0000000000000080", -128, "-128",
        "0000000000000080");
    row("CHAR_4 keeps the low bits", "dataType='CHAR_4' factor='3'", "64", 44, "44",
        "2c00000000000000");
    row("UCHAR_3", "dataType='UCHAR_3' startByte='1'", "00ff", 255, "255", "00ff000000000000");
    row("ULONG, text of the double", "dataType='ULONG' factor='0.5' precision='2'", "03000000", 1,
        "1.50", "0100000000000000");
    row("ULONG below zero", "dataType='ULONG' offset='-1' precision='0'", "00000000", 4294967295.0,
        "-1", "ffffffff00000000");
    row("ULONG saturated", "dataType='ULONG' factor='2' precision='1'", "ffffffff", 4294967295.0,
        "8589934590.0", "ffffffff00000000");
    row("factor NaN gives 0", "dataType='ULONG' factor='nan'", "05000000", 0, "nan",
        "0000000000000000");
    row("ties are exact", "dataType='ULONG' factor='0.5' precision='0'", "05000000", 2, "2",
        "0200000000000000");

    row("BSHORT bits", "dataType='BSHORT' startBit='4' endBit='7' factor='9' enumId='E'", "a500",
        10, "10: ten", "0a00000000000000");
    row("BSHORT ends at 16", "dataType='BSHORT' startBit='12' endBit='31' enumId='E'", "00a0ffff",
        10, "10: ten", "0a00ffff00000000");
    row("BSHORT shifted out", "dataType='BSHORT' startBit='20' endBit='21'", "ffff", 0,
        "0: Invalid ENUM Type", "0000000000000000");
    row("BLONG, all 32", "dataType='BLONG' startBit='0' endBit='31' enumId='E'", "ffffffff",
        4294967295.0, "-1: minus", "ffffffff00000000");
    row("BLONG, wider than 32", "dataType='BLONG' startBit='0' endBit='99' enumId='E'", "02000000",
        2, "2: Invalid ENUM Value", "0200000000000000");
    row("BLONG, no width", "dataType='BLONG' startBit='5' endBit='4' enumId='E'", "ffffffff", 0,
        "0: Invalid ENUM Value", "00000000");
    row("BLONG, shift modulo 32",
        "dataType='BLONG' startByte='4' startBit='33' endBit='33' enumId='E'", "0000000002000000",
        1, "1: one", "0000000001000000");
    row("BLONG, extreme bits", "dataType='BLONG' startBit='-2147483648' endBit='2147483647'",
        "07000000", 7, "7: Invalid ENUM Type", "07000000");
}

void TestValueDecoder::decodes()
{
    QFETCH(QByteArray, attributes);
    Profile profile;
    QVERIFY(loadProfile(
        profile,
        "<EnumList><Enum name='E'><Value val='1' label='one'/><Value val='10' label='ten'/>"
        "<Value val='-1' label='minus'/></Enum></EnumList>" +
            device({"name='p' " + attributes})));
    const ProfileParameter& parameter = profile.parameters().front();
    QFETCH(QByteArray, data);
    MessageData sample = bytes(data);
    QFETCH(double, number);
    QCOMPARE(decodeNumber(sample, parameter), number);
    const DecodedValue value = decodeValue(profile, parameter, sample);
    QCOMPARE(value.number, number);
    QTEST(value.text, "text");
    QFETCH(QByteArray, writtenBack);
    QVERIFY2(sample == bytes(writtenBack), "the scaled value replaces the raw one");
}

void TestValueDecoder::typesThatDoNotDecode()
{
    Profile profile;
    QByteArray content = "<ThresholdList><Threshold name='T'><Value val='-1' color='red' "
                         "state='LIMIT'/></Threshold></ThresholdList>"
                         "<Device name='D'>";
    const QList<QByteArray> types{"NODATA",  "ERROR",   "BCHAR",   "BSHORT_2", "BCHAR_4",
                                  "BCHAR_2", "MEMID",   "CHKSUM",  "ACHAR",    "ACHAR_2",
                                  "ACHAR_4", "BCHAR_3", "ACHAR_3", "unknown",  "Float"};
    for (const QByteArray& type : types)
        content += "<Parameter name='" + type + "' thresholdId='T' dataType='" + type + "'/>";
    content += "<Parameter name='outside' thresholdId='T' dataType='LONG' startByte='5'/>";
    QVERIFY(loadProfile(profile, content + "</Device>"));
    QCOMPARE(profile.parameters().size(), 16U);
    for (const ProfileParameter& parameter : profile.parameters()) {
        MessageData data = bytes("002affffffffffff");
        const DecodedValue value = decodeValue(profile, parameter, data);
        QCOMPARE(value.text, "Datatype 42 not implemented");
        QCOMPARE(value.number, 0.0);
        QVERIFY(value.grade.state == ThresholdState::Ok &&
                value.grade.color == qRgb(255, 255, 255));
        QVERIFY(data == bytes("002affffffffffff"));
    }
}

void TestValueDecoder::floatsAreText_data()
{
    QTest::addColumn<float>("raw");
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QString>("text");

    QTest::newRow("six decimals") << 1.5F << QByteArray() << "1.500000";
    QTest::newRow("two decimals") << 3.14159F << QByteArray("precision='2'") << "3.14";
    QTest::newRow("a tie goes to the even digit") << 2.5F << QByteArray("precision='0'") << "2";
    QTest::newRow("narrowed to single precision")
        << 1.0F << QByteArray("factor='0.1' precision='10'") << "0.1000000015";
    QTest::newRow("scaled") << 10.0F << QByteArray("factor='2' offset='-0.5' precision='1'")
                            << "19.5";
    QTest::newRow("minus zero") << -0.04F << QByteArray("precision='1'") << "-0.0";
    QTest::newRow("NaN has no sign") << -std::nanf("") << QByteArray() << "nan";
    QTest::newRow("infinite") << -HUGE_VALF << QByteArray() << "-inf";
    QTest::newRow("scaled beyond single precision")
        << 3e38F << QByteArray("factor='1e300'") << "inf";
    QTest::newRow("largest") << 3.4028235e38F << QByteArray("precision='0'")
                             << "340282346638528859811704183484516925440";
}

void TestValueDecoder::floatsAreText()
{
    QFETCH(QByteArray, attributes);
    QFETCH(float, raw);
    Profile profile;
    QVERIFY(loadProfile(profile, device({"name='p' dataType='FLOAT' " + attributes})));
    MessageData data = floatBytes(raw);
    QTEST(decodeValue(profile, profile.parameters().front(), data).text, "text");
}

void TestValueDecoder::unitSystemChangesTextOnly()
{
    Profile profile;
    QVERIFY(loadProfile(
        profile,
        "<UnitConversions><Unit unitMetric='m' unitImperial='ft' "
        "factor='1e300'/></UnitConversions>" +
            device({"name='p' dataType='FLOAT' unitMetric='m' unitImperial='ft' precision='15'",
                    "name='i' dataType='LONG' unitMetric='m' unitImperial='ft'"})));
    profile.setUnitSystem(UnitSystem::Imperial);
    MessageData data = floatBytes(2.0F);
    const DecodedValue value = decodeValue(profile, profile.parameters().front(), data);
    QCOMPARE(value.number, 2.0);
    QCOMPARE(value.text.size(), 301 + 16);
    QVERIFY(data == floatBytes(2.0F));
    data = bytes("02000000");
    QCOMPARE(decodeValue(profile, profile.parameters().back(), data).text, "2");
}

void TestValueDecoder::gradesTheMetricNumber()
{
    Profile profile;
    QVERIFY(loadProfile(
        profile,
        "<UnitConversions><Unit unitMetric='m' unitImperial='ft' factor='3'/></UnitConversions>"
        "<ThresholdList><Threshold name='T'><Value val='10' color='#ff8000' "
        "state='WARNING'/></Threshold></ThresholdList>" +
            device({"name='f' thresholdId='T' dataType='FLOAT' unitMetric='m' unitImperial='ft'",
                    "name='b' thresholdId='T' dataType='BSHORT' startBit='0' endBit='7'"})));
    profile.setUnitSystem(UnitSystem::Imperial);
    const auto stateOf = [&](const ProfileParameter& parameter, MessageData data) {
        return static_cast<int>(decodeValue(profile, parameter, data).grade.state);
    };
    QCOMPARE(stateOf(profile.parameters().front(), floatBytes(9.0F)), 0);
    QCOMPARE(stateOf(profile.parameters().front(), floatBytes(10.0F)), 1);
    QCOMPARE(stateOf(profile.parameters().front(), floatBytes(std::nanf(""))), 0);
    QCOMPARE(stateOf(profile.parameters().back(), bytes("0a00")), 1);
}

void TestValueDecoder::positionBecomesDegrees_data()
{
    QTest::addColumn<float>("raw");
    QTest::addColumn<double>("degrees");

    QTest::newRow("half a degree") << 4830.0F << 48.5;
    QTest::newRow("west") << -1115.0F << -11.25;
    QTest::newRow("minutes with decimals") << 1130.6F << 11.51;
    QTest::newRow("below one degree") << 30.0F << 0.5;
    QTest::newRow("no fix") << 0.0F << 0.0;
}

void TestValueDecoder::positionBecomesDegrees()
{
    Profile profile;
    QVERIFY(loadProfile(profile, device({"name='lat' koltDataType='Latitude' dataType='FLOAT'",
                                         "name='not' koltDataType='latitude' dataType='FLOAT'"})));
    QFETCH(float, raw);
    QFETCH(double, degrees);
    const double decoded = decodeNumber(floatBytes(raw), profile.parameters().front());
    QVERIFY2(std::abs(decoded - degrees) < 2e-6, qPrintable(QString::number(decoded, 'g', 12)));
    QCOMPARE(decodeNumber(floatBytes(raw), profile.parameters().back()), static_cast<double>(raw));
}

void TestValueDecoder::positionFilterRejectsJumps()
{
    PositionFilter filter;
    // Zeros pass and do not warm up; neither is a jump rejected before five positions are in.
    for (int i = 0; i < 10; ++i)
        QCOMPARE(filter.latitude(0.0), 0.0);
    for (const double latitude : {48.0, 50.0, 48.1, 48.2, 48.3})
        QCOMPARE(filter.latitude(latitude), latitude);
    QCOMPARE(filter.latitude(48.5), 48.3);
    QCOMPARE(filter.latitude(0.0), 48.3);
    QCOMPARE(filter.latitude(48.3899), 48.3899);
    QCOMPARE(filter.latitude(48.3), 48.3);
    QCOMPARE(filter.latitude(48.39), 48.3);
    // A broken float must not let go of the last good position.
    const double infinite = PositionFilter::degrees(HUGE_VAL);
    QVERIFY(std::isinf(infinite));
    QCOMPARE(filter.latitude(infinite), 48.3);
    QCOMPARE(filter.latitude(60.0), 48.3);
}

void TestValueDecoder::longitudeLimitGrowsWithLatitude()
{
    const auto jumpAt = [](double latitude, double jump) {
        PositionFilter filter;
        filter.latitude(latitude);
        for (int i = 0; i < 5; ++i)
            filter.longitude(11.0);
        return filter.longitude(11.0 + jump) != 11.0;
    };
    QVERIFY(!jumpAt(0.0, 0.1));
    QVERIFY(jumpAt(0.0, 0.0899));
    QVERIFY(jumpAt(60.0, 0.179));
    QVERIFY(!jumpAt(60.0, 0.181));
}

QTEST_GUILESS_MAIN(TestValueDecoder)
#include "tst_valuedecoder.moc"
