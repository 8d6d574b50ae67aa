#include "profile/ValueDecoder.h"
#include "tests/support/ProfileFixture.h"
#include "tests/support/RecordBytes.h"
#include "tests/support/Rows.h"

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
    void positionBecomesDegrees();
    void positionFilterRejectsJumps();
    void longitudeLimitGrowsWithLatitude();
};

void TestValueDecoder::decodes_data()
{
    // attributes, data, number, text, data as they are written back
    const Rows<QByteArray, QByteArray, double, QString, QByteArray> row;
    row("LONG, truncated", "dataType='LONG' factor='0.1'", "d204000011223344", 123, "123",
        "7b00000011223344");
    row("LONG, towards zero", "dataType='LONG' factor='0.1'", "2efbffff", -123, "-123", "85ffffff");
    row("LONG, saturated", "dataType='LONG' factor='1000'", "ffffff7f", 2147483647, "2147483647",
        "ffffff7f");
    row("SHORT at 6", "dataType='SHORT' startByte='6' offset='-1'", "000000000000feff", -3, "-3",
        "000000000000fdff");
    row("SHORT_2 is SHORT", "dataType='SHORT_2' startByte='6' offset='-1'", "000000000000feff", -3,
        "-3", "000000000000fdff");
    row("SHORT wraps", "dataType='SHORT' offset='1'", "ff7f", -32768, "-32768", "0080");
    row("USHORT", "dataType='USHORT'", "ffff", 65535, "65535", "ffff");
    row("USHORT below zero", "dataType='USHORT_2' offset='-2'", "0100", 65535, "65535", "ffff");
    row("CHAR", "dataType='CHAR' startByte='7'", "0000000000000080", -128, "-128",
        "0000000000000080");
    row("CHAR_4 keeps the low bits", "dataType='CHAR_4' factor='3'", "64", 44, "44", "2c");
    row("UCHAR_3", "dataType='UCHAR_3' startByte='1'", "00ff", 255, "255", "00ff");
    row("ULONG, text of the double", "dataType='ULONG' factor='0.5' precision='2'", "03", 1, "1.50",
        "01");
    row("ULONG below zero", "dataType='ULONG' offset='-1' precision='0'", "00", 4294967295.0, "-1",
        "ffffffff");
    row("ULONG saturated", "dataType='ULONG' factor='2' precision='1'", "ffffffff", 4294967295.0,
        "8589934590.0", "ffffffff");
    row("factor NaN gives 0", "dataType='ULONG' factor='nan'", "05", 0, "nan", "00");
    row("ties are exact", "dataType='ULONG' factor='0.5' precision='0'", "05", 2, "2", "02");

    row("BSHORT bits", "dataType='BSHORT' startBit='4' endBit='7' factor='9' enumId='E'", "a500",
        10, "10: ten", "0a");
    row("BSHORT ends at 16", "dataType='BSHORT' startBit='12' endBit='31' enumId='E'", "00a0ffff",
        10, "10: ten", "0a00ffff");
    row("BSHORT shifted out", "dataType='BSHORT' startBit='20' endBit='21'", "ffff", 0,
        "0: Invalid ENUM Type", "00");
    row("BLONG, all 32", "dataType='BLONG' startBit='0' endBit='31' enumId='E'", "ffffffff",
        4294967295.0, "-1: minus", "ffffffff");
    row("BLONG, wider than 32", "dataType='BLONG' startBit='0' endBit='99' enumId='E'", "02", 2,
        "2: Invalid ENUM Value", "02");
    row("BLONG, no width", "dataType='BLONG' startBit='5' endBit='4' enumId='E'", "ffffffff", 0,
        "0: Invalid ENUM Value", "00");
    row("BLONG, shift modulo 32",
        "dataType='BLONG' startByte='4' startBit='33' endBit='33' enumId='E'", "0000000002", 1,
        "1: one", "0000000001");
    row("BLONG, extreme bits", "dataType='BLONG' startBit='-2147483648' endBit='2147483647'", "07",
        7, "7: Invalid ENUM Type", "07");
}

void TestValueDecoder::decodes()
{
    const auto [attributes, data, number, text, writtenBack] =
        fetchRow<QByteArray, QByteArray, double, QString, QByteArray>();
    Profile profile;
    QVERIFY(loadProfile(
        profile,
        "<EnumList><Enum name='E'><Value val='1' label='one'/><Value val='10' label='ten'/>"
        "<Value val='-1' label='minus'/></Enum></EnumList>" +
            device({"name='p' " + attributes})));
    const ProfileParameter& parameter = profile.parameters().front();
    MessageData sample = bytes(data);
    QCOMPARE(decodeNumber(sample, parameter), number);
    const DecodedValue value = decodeValue(profile, parameter, sample);
    QCOMPARE(value.number, number);
    QCOMPARE(value.text, text);
    QVERIFY2(sample == bytes(writtenBack), "the scaled value replaces the raw one");
}

void TestValueDecoder::typesThatDoNotDecode()
{
    Profile profile;
    QByteArray content = threshold("T", {"val='-1' color='red' state='LIMIT'"}) +
                         "<Device name='D'><Parameter name='outside' thresholdId='T' "
                         "dataType='LONG' startByte='5'/>";
    for (const char* type :
         {"NODATA", "ERROR", "BCHAR", "BSHORT_2", "BCHAR_4", "BCHAR_2", "MEMID", "CHKSUM", "ACHAR",
          "ACHAR_2", "ACHAR_4", "BCHAR_3", "ACHAR_3", "unknown", "Float"})
        content += QByteArray("<Parameter name='x' thresholdId='T' dataType='") + type + "'/>";
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
    const Rows<float, QByteArray, QString> row; // raw, attributes, text
    row("six decimals", 1.5F, {}, "1.500000");
    row("two decimals", 3.14159F, "precision='2'", "3.14");
    row("a tie goes to the even digit", 2.5F, "precision='0'", "2");
    row("narrowed to single precision", 1.0F, "factor='0.1' precision='10'", "0.1000000015");
    row("scaled", 10.0F, "factor='2' offset='-0.5' precision='1'", "19.5");
    row("minus zero", -0.04F, "precision='1'", "-0.0");
    row("NaN has no sign", -std::nanf(""), {}, "nan");
    row("infinite", -HUGE_VALF, {}, "-inf");
    row("scaled beyond single precision", 3e38F, "factor='1e300'", "inf");
    row("largest", 3.4028235e38F, "precision='0'", "340282346638528859811704183484516925440");
}

void TestValueDecoder::floatsAreText()
{
    const auto [raw, attributes, text] = fetchRow<float, QByteArray, QString>();
    Profile profile;
    QVERIFY(loadProfile(profile, device({"name='p' dataType='FLOAT' " + attributes})));
    MessageData data = floats(raw);
    QCOMPARE(decodeValue(profile, profile.parameters().front(), data).text, text);
}

void TestValueDecoder::unitSystemChangesTextOnly()
{
    Profile profile;
    QVERIFY(loadProfile(
        profile,
        unit("unitMetric='m' unitImperial='ft' factor='1e300'") +
            device({"name='p' dataType='FLOAT' unitMetric='m' unitImperial='ft' precision='15'",
                    "name='i' dataType='LONG' unitMetric='m' unitImperial='ft'"})));
    profile.setUnitSystem(UnitSystem::Imperial);
    MessageData data = floats(2.0F);
    const DecodedValue value = decodeValue(profile, profile.parameters().front(), data);
    QCOMPARE(value.number, 2.0);
    QCOMPARE(value.text.size(), 301 + 16);
    QVERIFY(data == floats(2.0F));
    data = bytes("02000000");
    QCOMPARE(decodeValue(profile, profile.parameters().back(), data).text, "2");
}

void TestValueDecoder::gradesTheMetricNumber()
{
    Profile profile;
    QVERIFY(loadProfile(
        profile,
        unit("unitMetric='m' unitImperial='ft' factor='3'") +
            threshold("T", {"val='10' color='#ff8000' state='WARNING'"}) +
            device({"name='f' thresholdId='T' dataType='FLOAT' unitMetric='m' unitImperial='ft'",
                    "name='b' thresholdId='T' dataType='BSHORT' startBit='0' endBit='7'"})));
    profile.setUnitSystem(UnitSystem::Imperial);
    const auto stateOf = [&](const ProfileParameter& parameter, MessageData data) {
        return static_cast<int>(decodeValue(profile, parameter, data).grade.state);
    };
    QCOMPARE(stateOf(profile.parameters().front(), floats(9.0F)), 0);
    QCOMPARE(stateOf(profile.parameters().front(), floats(10.0F)), 1);
    QCOMPARE(stateOf(profile.parameters().front(), floats(std::nanf(""))), 0);
    QCOMPARE(stateOf(profile.parameters().back(), bytes("0a00")), 1);
}

void TestValueDecoder::positionBecomesDegrees()
{
    Profile profile;
    QVERIFY(loadProfile(profile, device({"name='lat' koltDataType='Latitude' dataType='FLOAT'",
                                         "name='not' koltDataType='latitude' dataType='FLOAT'"})));
    const auto decoded = [&](float raw, std::size_t parameter) {
        return decodeNumber(floats(raw), profile.parameters()[parameter]);
    };
    for (const auto& [raw, degrees] : {std::pair(4830.0F, 48.5),
                                       {-1115.0F, -11.25},
                                       {1130.6F, 11.51}, // minutes with decimals
                                       {30.0F, 0.5},     // below one degree
                                       {0.0F, 0.0}}) {   // without a fix
        QVERIFY2(std::abs(decoded(raw, 0) - degrees) < 2e-6, qPrintable(QString::number(raw)));
        QCOMPARE(decoded(raw, 1), static_cast<double>(raw));
    }
}

void TestValueDecoder::positionFilterRejectsJumps()
{
    PositionFilter filter;
    // Zeros pass and are not counted; no jump is rejected before five other positions.
    for (int i = 0; i < 10; ++i)
        QCOMPARE(filter.latitude(0.0), 0.0);
    for (const double latitude : {48.0, 50.0, 48.1, 48.2, 48.3})
        QCOMPARE(filter.latitude(latitude), latitude);
    QCOMPARE(filter.latitude(48.5), 48.3);
    QCOMPARE(filter.latitude(0.0), 48.3);
    QCOMPARE(filter.latitude(48.3899), 48.3899);
    QCOMPARE(filter.latitude(48.3), 48.3);
    QCOMPARE(filter.latitude(48.39), 48.3);
    // Infinity must not replace the last good position.
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

    // Each parameter uses its own axis of the filter.
    Profile profile;
    QVERIFY(loadProfile(profile, device({"name='y' koltDataType='Latitude' dataType='FLOAT'",
                                         "name='x' koltDataType='Longitude' dataType='FLOAT'"})));
    PositionFilter filter;
    const auto position = [&](float y, float x) {
        const double latitude = decodeNumber(floats(y), profile.parameters()[0], &filter);
        return std::pair(latitude, decodeNumber(floats(x), profile.parameters()[1], &filter));
    };
    for (int i = 0; i < 5; ++i)
        position(6000.0F, 1100.0F);
    const auto [latitude, longitude] = position(6009.0F, 1109.0F); // both by 0.15 degrees
    QCOMPARE(latitude, 60.0);
    QVERIFY(std::abs(longitude - 11.15) < 1e-5);
}

QTEST_GUILESS_MAIN(TestValueDecoder)
#include "tst_valuedecoder.moc"
