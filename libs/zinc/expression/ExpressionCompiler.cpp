#include "libs/zinc/expression/ExpressionCompiler.h"

#include "libs/zinc/expression/ExpressionScanner.h"
#include "libs/zinc/expression/ProgramBuilder.h"
#include "libs/zinc/expression/VariableTable.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace Zinc2D {

namespace {

using Operation = Expression::Operation;

constexpr int maxNesting = 50;

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
    {"color", Operation::Color, 1, 1},
    {"isset", Operation::IsSet, 1, 1},
    {"first", Operation::First, 1, many},
});

QLatin1StringView latin(std::string_view text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

/// Recursive-descent parser that emits the program as it reads.
class Parser
{
public:
    Parser(const QString& text, VariableTable& variables)
        : m_scanner(text)
        , m_variables(variables)
    {
    }

    std::variant<Expression, ExpressionError> single()
    {
        Expression expression = next();
        return finished(std::move(expression));
    }

    std::variant<std::vector<Expression>, ExpressionError> points()
    {
        std::vector<Expression> coordinates;
        do {
            coordinates.push_back(coordinate());
            if (!m_scanner.take(","))
                m_scanner.fail(QStringLiteral("a point needs \"x, y\""));
            coordinates.push_back(coordinate());
        } while (m_scanner.take(";") && !m_scanner.isAtEnd());
        return finished(std::move(coordinates));
    }

private:
    template <typename Result>
    std::variant<Result, ExpressionError> finished(Result result)
    {
        if (!m_scanner.isAtEnd())
            m_scanner.failAtNext();
        if (hasFailed())
            return *m_scanner.error();
        return result;
    }

    bool hasFailed() const { return m_scanner.error().has_value(); }

    Expression next()
    {
        parseChoice();
        return m_builder.take();
    }

    Expression coordinate()
    {
        const qsizetype start = m_scanner.position();
        Expression expression = next();
        if ((expression.types() & numberType) == 0)
            m_scanner.fail(QStringLiteral("a number is expected here"), start);
        return expression;
    }

    void checkLength()
    {
        if (m_builder.isTooLong())
            m_scanner.fail(QStringLiteral("the expression is too long"));
    }

    /// `position` and `sign` of the operation: for the report if its operands do not fit.
    void apply(Operation operation, int operands, qsizetype position, std::string_view sign)
    {
        if (hasFailed())
            return;
        if (m_builder.apply(operation, operands))
            checkLength();
        else if (operation == Operation::Equal || operation == Operation::NotEqual)
            m_scanner.fail(QStringLiteral("a text is never equal to a number"), position);
        else
            m_scanner.fail(QStringLiteral("\"%1\" does not take texts").arg(latin(sign)), position);
    }

    void parseChoice()
    {
        if (++m_nesting > maxNesting)
            m_scanner.fail(QStringLiteral("too many parentheses"));
        parseLevel(0);
        const qsizetype position = m_scanner.position();
        if (m_scanner.take("?")) {
            parseChoice();
            m_scanner.expect(":");
            parseChoice();
            apply(Operation::Select, 3, position, "?");
        }
        --m_nesting;
    }

    const Operator* takeOperator(int level)
    {
        const auto* const found = std::ranges::find_if(operators, [&](const Operator& candidate) {
            return candidate.level == level && m_scanner.take(candidate.sign);
        });
        return found == operators.end() ? nullptr : found;
    }

    void parseLevel(int level)
    {
        if (hasFailed())
            return;
        if (level == levels) {
            parseUnary();
            return;
        }
        parseLevel(level + 1);
        qsizetype position = m_scanner.position();
        while (const Operator* const found = takeOperator(level)) {
            parseLevel(level + 1);
            apply(found->operation, 2, position, found->sign);
            position = m_scanner.position();
        }
    }

    void parseUnary()
    {
        std::vector<std::pair<Operation, qsizetype>> signs;
        while (true) {
            const qsizetype position = m_scanner.position();
            if (m_scanner.take("-"))
                signs.emplace_back(Operation::Negate, position);
            else if (m_scanner.take("!") || m_scanner.take("not"))
                signs.emplace_back(Operation::Not, position);
            else if (!m_scanner.take("+"))
                break;
        }
        parseOperand();
        for (auto sign = signs.rbegin(); sign != signs.rend(); ++sign)
            apply(sign->first, 1, sign->second, sign->first == Operation::Not ? "not" : "-");
    }

    void parseOperand()
    {
        const QChar character = m_scanner.peek();
        if (m_scanner.take("(")) {
            parseChoice();
            m_scanner.expect(")");
            return;
        }
        if (m_scanner.startsName()) {
            parseName();
            return;
        }
        if (character == u'[')
            addVariable(m_scanner.takeBracketedName());
        else if (character == u'\'')
            m_builder.pushText(m_scanner.takeText());
        else if (character == u'#')
            m_builder.pushConstant(m_scanner.takeColor(), colorType);
        else if (character.isDigit() || character == u'.')
            m_builder.pushConstant(m_scanner.takeNumber(), numberType);
        else
            m_scanner.failAtNext();
        checkLength();
    }

    void addVariable(const QString& name)
    {
        if (hasFailed())
            return;
        const int slot = m_variables.slot(name);
        m_builder.pushVariable(slot, m_variables.types(slot));
        checkLength();
    }

    void parseName()
    {
        const qsizetype start = m_scanner.position();
        const QString name = m_scanner.takeName();
        if (!m_scanner.take("(")) {
            addVariable(name);
            return;
        }
        const auto* const function = std::ranges::find_if(
            functions, [&](const Function& known) { return name == latin(known.name); });
        if (function == functions.end()) {
            m_scanner.fail(QStringLiteral("there is no function \"%1\"").arg(name), start);
            return;
        }
        int operands = 0;
        do {
            parseChoice();
            ++operands;
        } while (m_scanner.take(","));
        m_scanner.expect(")");
        if (operands < function->least || operands > function->most)
            m_scanner.fail(
                QStringLiteral("\"%1\" does not take %2 operand(s)").arg(name).arg(operands),
                start);
        apply(function->operation, operands, start, function->name);
    }

    ExpressionScanner m_scanner;
    ProgramBuilder m_builder;
    VariableTable& m_variables;
    int m_nesting = 0;
};

} // namespace

std::variant<Expression, ExpressionError> compileExpression(const QString& text,
                                                            VariableTable& variables)
{
    return Parser(text, variables).single();
}

std::variant<std::vector<Expression>, ExpressionError> compilePoints(const QString& text,
                                                                     VariableTable& variables)
{
    return Parser(text, variables).points();
}

} // namespace Zinc2D
