#include "libs/zinc/expression/ExpressionCompiler.h"
#include "libs/zinc/expression/VariableTable.h"
#include "libs/zinc/view/NumberFormat.h"
#include "tests/support/Rows.h"

#include <limits>

using namespace Zinc2D;
using KOLT::Test::Rows;

namespace {

QString inWords(const Value& value)
{
    return !value.isSet()   ? QStringLiteral("unset")
           : value.isText() ? QStringLiteral("'%1'").arg(value.text())
                            : QString::number(value.number(), 'g', 12);
}

Expression compiled(const QString& text, VariableTable& variables)
{
    return std::get<Expression>(compileExpression(text, variables));
}

} // namespace

class TestExpression : public QObject
{
    Q_OBJECT

private slots:

    void evaluates_data();
    void evaluates();
    void tellsWhereItIsWrong();
    void points();
    void definitionsFollowWhatTheyNeed();
    void formats();
    void badFormats();
};

void TestExpression::evaluates_data()
{
    const Rows<QString, QString> row("text", "result");
    // rpm = 5600, rpm_STATE = 2, zero = 0, [ECU Lane A/Oil Temp] = -3.5; nothing else is set
    row("1 + 2 * 3", "7");
    row("(1 + 2) * 3", "9");
    row("10 - 4 - 3", "3");
    row("7 % 4", "3");
    row("-2 * -3 + +1", "7");
    row("1.5e2 + .5", "150.5");
    row("rpm > 5500 && rpm_STATE == 2", "1");
    row("rpm > 5500 and not (rpm_STATE == 1)", "1");
    row("rpm < 5500 or rpm_STATE != 2", "0");
    row("rpm <= 5600 && rpm >= 5600", "1");
    row("1 + 1 == 2 && 3 > 2", "1");
    row("1 || 0 && 0", "1");
    row("!zero", "1");
    row("[ECU Lane A/Oil Temp] * 2", "-7");
    row("[ ECU Lane A/Oil Temp ]", "-3.5");
    row("rpm > 5000 ? rpm > 5500 ? 2 : 1 : 0", "2");
    row("zero ? 1 : zero ? 2 : 3", "3");
    row("orange + 1", "8"); // a name that starts with an operator's name
    row("rpm > 1 ? 'psi' : 'bar'", "'psi'");
    row("'a b' == 'a b'", "1");
    row("#ff8000", "4294934528");
    row("#80ff8000 == #ff8000", "0");
    row("abs(-2) + min(4, 2, 3) + max(1, 5) + avg(1, 2, 6)", "12");
    row("round(2.5) + floor(-1.5) + ceil(1.2)", "3");
    row("sqrt(16) + clamp(9, 0, 5) + min(7)", "16");
    row("color(4278255360) == #00ff00", "1");
    // Operands that are not set propagate ...
    row("nothing + 1", "unset");
    row("-nothing", "unset");
    row("nothing == 0", "unset");
    row("nothing ? 1 : 2", "unset");
    row("max(1, nothing)", "unset");
    // ... unless the other operands decide.
    row("nothing && zero", "0");
    row("zero && nothing", "0");
    row("nothing || 1", "1");
    row("nothing && 1", "unset");
    row("nothing || 0", "unset");
    row("zero ? nothing : 4", "4");
    row("isset(nothing)", "0");
    row("isset(zero)", "1");
    row("first(nothing, also nothing, 3)", "error");
    row("first(nothing, [also nothing], 3, 4)", "3");
    // Undefined results
    row("1 / zero", "unset");
    row("5 % zero", "unset");
    row("sqrt(-1)", "unset");
    row("1e308 * 10", "unset");
    row("(rpm > 1 ? 'a' : 1) + 1", "unset"); // a text for this value only
    row("(rpm > 1 ? 'a' : 1) == 'a'", "1");
    // The documented limits, and what exceeds them
    row("49 brackets", QString(49, '(') + "5" + QString(49, ')'), "5");
    row("30 choices", QString("rpm == 1 ? 2 : ").repeated(30) + "3", "3");
    row("16 operands", "max(" + QString("1,").repeated(15) + "4)", "4");
    row("900 sums", QString("1+").repeated(900) + "1", "901");
    row("45 levels", QString("1 + (").repeated(45) + "1" + QString(45, ')'), "46");
    row("200 brackets", QString(200, '(') + "1" + QString(200, ')'), "error");
    row("3000 signs", QString(3000, '-') + "1", "error");
    row("81 operands", "max(" + QString("1,").repeated(80) + "1)", "error");
    row("5000 characters", QString(5000, ' ') + "1", "error");
}

void TestExpression::evaluates()
{
    QFETCH(QString, text);
    QFETCH(QString, result);
    VariableTable variables;
    variables.set("rpm", 5600.0);
    variables.set("rpm_STATE", 2.0);
    variables.set("zero", 0.0);
    variables.set("orange", 7.0);
    variables.set("ECU Lane A/Oil Temp", -3.5);
    const auto expression = compileExpression(text, variables);
    const auto* const good = std::get_if<Expression>(&expression);
    QCOMPARE(good != nullptr ? inWords(good->evaluate(variables)) : QStringLiteral("error"),
             result);
}

void TestExpression::tellsWhereItIsWrong()
{
    VariableTable variables;
    variables.define("word", compiled("'psi'", variables));
    const std::pair<const char*, std::ptrdiff_t> rows[] = {{"", 0},
                                                           {"   ", 3},
                                                           {"1 +", 3},
                                                           {"1 + * 2", 4},
                                                           {"(1 + 2", 6},
                                                           {"1 2", 2},
                                                           {"a b", 2},
                                                           {"rpm >< 2", 5},
                                                           {"rpm & 2", 4},
                                                           {"[rpm", 0},
                                                           {"1 + []", 4},
                                                           {"'text", 0},
                                                           {"#12", 0},
                                                           {"#12345g", 0},
                                                           {"2 * wrong(1)", 4},
                                                           {"abs(1, 2)", 0},
                                                           {"clamp(1)", 0},
                                                           {"min(1,)", 6},
                                                           {"a ? b", 5},
                                                           {"a ? b : ", 8},
                                                           {"1 = 1", 2},
                                                           {"\u00a7", 0},
                                                           // Texts where they can never be used
                                                           {"'a' + 'b'", 4},
                                                           {"1 - (-'b')", 5},
                                                           {"1 > 0 and not 'a'", 10},
                                                           {"'a' < 'b'", 4},
                                                           {"rpm == 'a'", 4},
                                                           {"2 * max(1, 'a')", 4},
                                                           {"'a' ? 1 : 2", 4},
                                                           {"a + (a ? 'b' : 'c')", 2},
                                                           {"1 + word", 2}};
    for (const auto& [text, offset] : rows) {
        const auto expression = compileExpression(text, variables);
        const auto* const error = std::get_if<ExpressionError>(&expression);
        QVERIFY2(error != nullptr && !error->message.isEmpty(), text);
        QVERIFY2(error->offset == offset, text);
    }
}

void TestExpression::points()
{
    VariableTable variables;
    variables.set("v", 3.0);
    const auto good = compilePoints("0, -1; max(v, 1), v * 2;", variables);
    const auto& coordinates = std::get<std::vector<Expression>>(good);
    QStringList values;
    for (const Expression& coordinate : coordinates)
        values << inWords(coordinate.evaluate(variables));
    QCOMPARE(values.join(' '), "0 -1 3 6");
}

void TestExpression::definitionsFollowWhatTheyNeed()
{
    VariableTable variables;
    variables.define("spread", compiled("max(a, b) - min(a, b)", variables));
    variables.define("isWide", compiled("spread > 10", variables));
    variables.takeChanges();
    QCOMPARE(inWords(variables.value("isWide")), "unset");

    variables.set("a", 20.0);
    variables.set("b", 5.0);
    variables.set("isWide", 7.0); // ignored: it is a definition
    QCOMPARE(variables.takeChanges().size(), 4U);
    QCOMPARE(inWords(variables.value("isWide")), "1");

    variables.set("a", 21.0); // changes the spread, but not "isWide"
    QCOMPARE(variables.takeChanges().size(), 2U);
    variables.set("a", 21.0);
    QVERIFY(!variables.hasChanges());
    variables.set("a", std::numeric_limits<double>::quiet_NaN());
    variables.takeChanges();
    QCOMPARE(inWords(variables.value("isWide")), "unset");
    variables.set("a", 1.0);
    variables.unsetAll();
    variables.takeChanges();
    QCOMPARE(inWords(variables.value("b")), "unset");
}

void TestExpression::formats()
{
    const auto shown = [](const char* format, double number) {
        const std::optional<NumberFormat> parsed = NumberFormat::parse(format);
        return parsed ? parsed->apply(number) + ", " + parsed->dashes() : "no format";
    };
    QCOMPARE(shown("%.1f", 12.34), "12.3, --.-");
    QCOMPARE(shown("%.0f", 5499.6), "5500, ---");
    QCOMPARE(shown("%.2f bar", 3.0), "3.00 bar, --.-- bar");
    QCOMPARE(shown("%d", 2.6), "3, ---");
    QCOMPARE(shown("%04d h", 42.0), "0042 h,  --- h");
    QCOMPARE(shown("%+.1f", 2.0), "+2.0, --.-");
    QCOMPARE(shown("%6.1f|", 2.0), "   2.0|,   --.-|");
    QCOMPARE(shown("%-6.1f|", 2.0), "2.0   |,   --.-|");
    QCOMPARE(shown("%.1f %%", 50.0), "50.0 %, --.- %");
    QCOMPARE(shown("%.1f", -0.04), "0.0, --.-");
    QCOMPARE(shown("%.0f", -0.4), "0, ---");
    QCOMPARE(shown("%d", -0.4), "0, ---");
    QCOMPARE(shown("%x", 255.0), "ff, ---");
    QCOMPARE(shown("%u", -5.0), "0, ---");
    QCOMPARE(shown("%d", 1e300), "9000000000000000000, ---");
    QCOMPARE(shown("%g", 0.5), "0.5, ---");
    QCOMPARE(shown("no number", 3.0), "no number, no number");
}

void TestExpression::badFormats()
{
    const std::pair<const char*, qsizetype> rows[] = {
        {"%s", 0},   {"a %n", 2},           {"%*d", 0},  {"%.f %d", 4}, {"%.31f", 0},
        {"%99d", 0}, {"%999999999999d", 0}, {"%.*f", 0}, {"%ld", 0},    {"%", 0},
        {"50 %.", 3}};
    for (const auto& [format, offset] : rows) {
        qsizetype found = -1;
        QVERIFY2(!NumberFormat::parse(format, &found), format);
        QVERIFY2(found == offset, format);
    }
}

QTEST_MAIN(TestExpression)
#include "tst_expression.moc"
