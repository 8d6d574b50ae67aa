#include "libs/zinc/expression/ExpressionCompiler.h"

#include "libs/zinc/expression/VariableTable.h"

#include <algorithm>
#include <array>
#include <charconv>
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
    int level; ///< the higher, the tighter it binds
};

/// Longer signs before those that they begin with.
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

/// By recursive descent, straight into the program.
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
            coordinates.push_back(next());
            if (!take(","))
                fail(QStringLiteral("a point needs \"x, y\""));
            coordinates.push_back(next());
        } while (take(";") && !isAtEnd() && !m_error);
        if (!isAtEnd())
            failAtNext();
        if (m_error)
            return *m_error;
        return coordinates;
    }

private:
    Expression next()
    {
        m_program.clear();
        m_texts = std::make_shared<std::vector<QString>>();
        m_texts->reserve(static_cast<std::size_t>(m_text.count(u'\'')) / 2); // values point into it
        m_depth = 0;
        parseChoice();
        return {std::move(m_program), std::move(m_texts)};
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

    QChar peek()
    {
        skipBlanks();
        return m_position < m_text.size() ? m_text[m_position] : QChar();
    }

    /// Goes over the sign if it comes next; a word only as a whole.
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

    void emit_(Operation operation, int operands, Value value = {})
    {
        // What takes operands replaces them by one result.
        m_depth += operation <= Operation::Variable ? 1 : 1 - operands;
        if (m_depth > Expression::maxDepth || m_program.size() >= maxInstructions)
            fail(QStringLiteral("the expression is too long"));
        else
            m_program.push_back({operation, operands, value});
    }

    void parseChoice()
    {
        if (++m_nesting > maxNesting)
            fail(QStringLiteral("too many parentheses"));
        parseLevel(0);
        if (!m_error && take("?")) {
            parseChoice();
            expect(":");
            parseChoice();
            emit_(Operation::Select, 3);
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
        while (const Operator* found = m_error ? nullptr : takeOperator(level)) {
            parseLevel(level + 1);
            emit_(found->operation, 2);
        }
    }

    void parseUnary()
    {
        std::vector<Operation> signs;
        while (true) {
            if (take("-"))
                signs.push_back(Operation::Negate);
            else if (take("!") || take("not"))
                signs.push_back(Operation::Not);
            else if (!take("+"))
                break;
        }
        parseOperand();
        for (auto sign = signs.rbegin(); sign != signs.rend(); ++sign)
            emit_(*sign, 1);
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

    void addVariable(const QString& name) { emit_(Operation::Variable, m_variables.slot(name)); }

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
        emit_(Operation::Constant, 0, Value(&m_texts->back()));
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
        emit_(Operation::Constant, 0,
              Value(static_cast<double>(digits.size() == 6 ? color | 0xFF000000U : color)));
    }

    void parseNumber()
    {
        const QByteArray rest = m_text.mid(m_position).toLatin1();
        double number = 0.0;
        const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), number,
                                                  std::chars_format::general);
        if (error != std::errc()) {
            fail(QStringLiteral("this is no number"));
            return;
        }
        m_position += end - rest.data();
        emit_(Operation::Constant, 0, Value(number));
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
        emit_(function->operation, operands);
    }

    const QString& m_text;
    VariableTable& m_variables;
    qsizetype m_position = 0;
    int m_nesting = 0;
    int m_depth = 0; ///< of the stack
    std::vector<Expression::Instruction> m_program;
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
