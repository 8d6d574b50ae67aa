#include "libs/zinc/expression/ExpressionCompiler.h"

#include "libs/zinc/expression/ExpressionTypes.h"
#include "libs/zinc/expression/VariableTable.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <span>
#include <string_view>

namespace Zinc2D {

namespace {

using Operation = Expression::Operation;

constexpr qsizetype maxLength = 4096;
constexpr int maxNesting = 50;
constexpr std::size_t maxInstructions = 2048;

struct Operator
{
    std::string_view sign;
    Operation operation;
    int level; ///< higher binds tighter
};

/// A sign comes before those that are its prefixes.
constexpr auto operators = std::to_array<Operator>({
    {"||", Operation::Or, 0},
    {"or", Operation::Or, 0},
    {"&&", Operation::And, 1},
    {"and", Operation::And, 1},
    {"==", Operation::Equal, 2},
    {"!=", Operation::NotEqual, 2},
    {"<=", Operation::LessOrEqual, 3},
    {">=", Operation::GreaterOrEqual, 3},
    {"<", Operation::Less, 3},
    {">", Operation::Greater, 3},
    {"+", Operation::Add, 4},
    {"-", Operation::Subtract, 4},
    {"*", Operation::Multiply, 5},
    {"/", Operation::Divide, 5},
    {"%", Operation::Remainder, 5},
});
constexpr int levels = 6;

struct Function
{
    std::string_view name;
    Operation operation;
    int least;
    int most;
};

constexpr int many = 16;

constexpr auto functions = std::to_array<Function>({
    {"abs", Operation::Absolute, 1, 1},
    {"min", Operation::Minimum, 1, many},
    {"max", Operation::Maximum, 1, many},
    {"avg", Operation::Average, 1, many},
    {"round", Operation::Round, 1, 1},
    {"floor", Operation::Floor, 1, 1},
    {"ceil", Operation::Ceiling, 1, 1},
    {"sqrt", Operation::Root, 1, 1},
    {"clamp", Operation::Clamp, 3, 3},
    {"isset", Operation::IsSet, 1, 1},
    {"first", Operation::First, 1, many},
});

QLatin1StringView latin(std::string_view text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

bool startsName(QChar character)
{
    return character.isLetter() || character == u'_';
}

bool continuesName(QChar character)
{
    return character.isLetterOrNumber() || character == u'_' || character == u'.';
}

/// Recursive-descent parser that emits the program as it reads.
class Compiler
{
public:
    Compiler(const QString& text, VariableTable& variables)
        : m_text(text)
        , m_variables(variables)
    {
        if (text.size() > maxLength)
            fail(QStringLiteral("the expression is too long"));
    }

    std::variant<Expression, ExpressionError> single()
    {
        Expression expression = next();
        if (!isAtEnd())
            failAtNext();
        if (m_error)
            return *m_error;
        return expression;
    }

    std::variant<std::vector<Expression>, ExpressionError> points()
    {
        std::vector<Expression> coordinates;
        do {
            coordinates.push_back(coordinate());
            if (!take(","))
                fail(QStringLiteral("a point needs \"x, y\""));
            coordinates.push_back(coordinate());
        } while (take(";") && !isAtEnd() && !m_error);
        if (!isAtEnd())
            failAtNext();
        if (m_error)
            return *m_error;
        return coordinates;
    }

private:
    Expression coordinate()
    {
        const qsizetype start = nextPosition();
        Expression expression = next();
        if (!m_error && (expression.types() & numberType) == 0) {
            m_position = start;
            fail(QStringLiteral("a number is expected here"));
        }
        return expression;
    }

    Expression next()
    {
        m_program.clear();
        m_texts = std::make_shared<std::vector<QString>>();
        m_texts->reserve(static_cast<std::size_t>(m_text.count(u'\'')) / 2); // values point into it
        m_types.clear();
        parseChoice();
        return {std::move(m_program), std::move(m_texts), m_types.empty() ? 0 : m_types.back()};
    }

    void fail(const QString& message)
    {
        if (!m_error)
            m_error = ExpressionError{m_position, message};
        m_position = m_text.size(); // ends all loops
    }

    void failAtNext()
    {
        skipBlanks();
        if (m_position >= m_text.size())
            fail(QStringLiteral("the expression ends too early"));
        else
            fail(QStringLiteral("\"%1\" is not expected here").arg(m_text[m_position]));
    }

    void skipBlanks()
    {
        while (m_position < m_text.size() && m_text[m_position].isSpace())
            ++m_position;
    }

    bool isAtEnd()
    {
        skipBlanks();
        return m_position >= m_text.size();
    }

    qsizetype nextPosition()
    {
        skipBlanks();
        return m_position;
    }

    QChar peek()
    {
        skipBlanks();
        return m_position < m_text.size() ? m_text[m_position] : QChar();
    }

    /// Consumes the sign if it comes next; a word only if it is not the start of a longer name.
    bool take(std::string_view sign)
    {
        skipBlanks();
        const auto size = static_cast<qsizetype>(sign.size());
        if (!QStringView(m_text).mid(m_position).startsWith(latin(sign)))
            return false;
        const qsizetype end = m_position + size;
        if (startsName(QLatin1Char(sign[0])) && end < m_text.size() && continuesName(m_text[end]))
            return false;
        m_position = end;
        return true;
    }

    void expect(std::string_view sign)
    {
        if (!m_error && !take(sign))
            failAtNext();
    }

    /// Emits a constant or variable.
    void push(Operation operation, int slot, Value value, ValueTypes types)
    {
        m_types.push_back(types);
        add({operation, slot, value});
    }

    /// Emits an operation on the topmost values of the stack. `position` and `sign`: for the report
    /// if their types do not fit.
    void apply(Operation operation, int operands, qsizetype position, std::string_view sign)
    {
        if (m_error)
            return;
        const std::span<const ValueTypes> types =
            std::span(m_types).last(static_cast<std::size_t>(operands));
        if (!canTake(operation, types)) {
            m_position = position;
            fail(isEquality(operation)
                     ? QStringLiteral("a text is never equal to a number")
                     : QStringLiteral("\"%1\" does not take texts").arg(latin(sign)));
            return;
        }
        const ValueTypes result = resultOf(operation, types);
        m_types.resize(m_types.size() - static_cast<std::size_t>(operands));
        m_types.push_back(result);
        add({operation, operands, {}});
    }

    void add(const Expression::Instruction& instruction)
    {
        if (m_types.size() > Expression::maxDepth || m_program.size() >= maxInstructions)
            fail(QStringLiteral("the expression is too long"));
        else
            m_program.push_back(instruction);
    }

    void parseChoice()
    {
        if (++m_nesting > maxNesting)
            fail(QStringLiteral("too many parentheses"));
        parseLevel(0);
        const qsizetype position = nextPosition();
        if (!m_error && take("?")) {
            parseChoice();
            expect(":");
            parseChoice();
            apply(Operation::Select, 3, position, "?");
        }
        --m_nesting;
    }

    const Operator* takeOperator(int level)
    {
        for (const Operator& candidate : operators) {
            if (candidate.level == level && take(candidate.sign))
                return &candidate;
        }
        return nullptr;
    }

    void parseLevel(int level)
    {
        if (m_error)
            return;
        if (level == levels) {
            parseUnary();
            return;
        }
        parseLevel(level + 1);
        qsizetype position = nextPosition();
        while (const Operator* found = m_error ? nullptr : takeOperator(level)) {
            parseLevel(level + 1);
            apply(found->operation, 2, position, found->sign);
            position = nextPosition();
        }
    }

    void parseUnary()
    {
        std::vector<std::pair<Operation, qsizetype>> signs;
        while (true) {
            const qsizetype position = nextPosition();
            if (take("-"))
                signs.emplace_back(Operation::Negate, position);
            else if (take("!") || take("not"))
                signs.emplace_back(Operation::Not, position);
            else if (!take("+"))
                break;
        }
        parseOperand();
        for (auto sign = signs.rbegin(); sign != signs.rend(); ++sign)
            apply(sign->first, 1, sign->second, sign->first == Operation::Not ? "not" : "-");
    }

    void parseOperand()
    {
        const QChar character = peek();
        if (character == u'(') {
            take("(");
            parseChoice();
            expect(")");
        } else if (character == u'[') {
            parseBracketedName();
        } else if (character == u'\'') {
            parseText();
        } else if (character == u'#') {
            parseColor();
        } else if (character.isDigit() || character == u'.') {
            parseNumber();
        } else if (startsName(character)) {
            parseName();
        } else {
            failAtNext();
        }
    }

    void addVariable(const QString& name)
    {
        const int slot = m_variables.slot(name);
        push(Operation::Variable, slot, {}, m_variables.types(slot));
    }

    void parseBracketedName()
    {
        const qsizetype end = m_text.indexOf(u']', m_position);
        const QString name = m_text.mid(m_position + 1, end - m_position - 1).trimmed();
        if (end < 0) {
            fail(QStringLiteral("\"]\" is missing"));
        } else if (name.isEmpty()) {
            fail(QStringLiteral("there is no name between the brackets"));
        } else {
            m_position = end + 1;
            addVariable(name);
        }
    }

    void parseText()
    {
        const qsizetype end = m_text.indexOf(u'\'', m_position + 1);
        if (end < 0) {
            fail(QStringLiteral("the closing ' is missing"));
            return;
        }
        m_texts->push_back(m_text.mid(m_position + 1, end - m_position - 1));
        m_position = end + 1;
        push(Operation::Constant, 0, Value(&m_texts->back()), textType);
    }

    void parseColor()
    {
        qsizetype end = m_position + 1;
        while (end < m_text.size() && m_text[end].isLetterOrNumber())
            ++end;
        bool isHexadecimal = false;
        const QStringView digits = QStringView(m_text).mid(m_position + 1, end - m_position - 1);
        const uint color = digits.toUInt(&isHexadecimal, 16);
        if (!isHexadecimal || (digits.size() != 6 && digits.size() != 8)) {
            fail(QStringLiteral("a colour is written as #rrggbb or #aarrggbb"));
            return;
        }
        m_position = end;
        push(Operation::Constant, 0,
             Value(static_cast<double>(digits.size() == 6 ? color | 0xFF000000U : color)),
             colorType);
    }

    void parseNumber()
    {
        const QByteArray rest = m_text.mid(m_position).toLatin1();
        double number = 0.0;
        const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), number,
                                                  std::chars_format::general);
        if (error != std::errc()) {
            fail(QStringLiteral("this is not a number"));
            return;
        }
        m_position += end - rest.data();
        push(Operation::Constant, 0, Value(number), numberType);
    }

    void parseName()
    {
        const qsizetype start = m_position;
        while (m_position < m_text.size() && continuesName(m_text[m_position]))
            ++m_position;
        const QString name = m_text.mid(start, m_position - start);
        if (peek() != u'(') {
            addVariable(name);
            return;
        }
        const auto* const function = std::ranges::find_if(
            functions, [&](const Function& known) { return name == latin(known.name); });
        if (function == functions.end()) {
            m_position = start;
            fail(QStringLiteral("there is no function \"%1\"").arg(name));
            return;
        }
        take("(");
        int operands = 0;
        do {
            parseChoice();
            ++operands;
        } while (!m_error && take(","));
        expect(")");
        if (!m_error && (operands < function->least || operands > function->most)) {
            m_position = start;
            fail(QStringLiteral("\"%1\" does not take %2 operand(s)").arg(name).arg(operands));
        }
        apply(function->operation, operands, start, function->name);
    }

    const QString& m_text;
    VariableTable& m_variables;
    qsizetype m_position = 0;
    int m_nesting = 0;
    std::vector<Expression::Instruction> m_program;
    std::vector<ValueTypes> m_types; ///< of the values on the stack
    std::shared_ptr<std::vector<QString>> m_texts;
    std::optional<ExpressionError> m_error;
};

} // namespace

std::variant<Expression, ExpressionError> compileExpression(const QString& text,
                                                            VariableTable& variables)
{
    return Compiler(text, variables).single();
}

std::variant<std::vector<Expression>, ExpressionError> compilePoints(const QString& text,
                                                                     VariableTable& variables)
{
    return Compiler(text, variables).points();
}

} // namespace Zinc2D
