#include "resources/SvgPath.h"

#include <QString>
#include <QTransform>
#include <QtMath>

#include <algorithm>
#include <array>
#include <cmath>

namespace KOLT {

namespace {

/// Takes numbers and commands from a text, one after the other.
class Scanner
{
public:
    explicit Scanner(QStringView text)
        : m_text(text)
    {
    }

    bool isAtEnd()
    {
        skipBlanks();
        return m_at == m_text.size();
    }

    /// A letter at the present place, else null.
    char command()
    {
        skipBlanks();
        if (m_at == m_text.size() || !m_text[m_at].isLetter())
            return 0;
        return m_text[m_at++].toLatin1();
    }

    std::optional<double> number()
    {
        skipBlanks();
        const qsizetype begin = m_at;
        if (isOneOf(u"+-"))
            ++m_at;
        skipDigits();
        if (isOneOf(u"."))
            ++m_at;
        skipDigits();
        if (m_at > begin && isOneOf(u"eE")) {
            ++m_at;
            if (isOneOf(u"+-"))
                ++m_at;
            skipDigits();
        }
        bool isNumber = false;
        const double value = m_text.mid(begin, m_at - begin).toDouble(&isNumber);
        return isNumber ? std::optional(value) : std::nullopt;
    }

    /// A flag of an arc, which may stand before the next number without a blank.
    std::optional<double> flag()
    {
        skipBlanks();
        if (!isOneOf(u"01"))
            return std::nullopt;
        return m_text[m_at++] == u'1' ? 1.0 : 0.0;
    }

private:
    bool isOneOf(QStringView characters) const
    {
        return m_at < m_text.size() && characters.contains(m_text[m_at]);
    }

    void skipBlanks()
    {
        while (isOneOf(u" ,\t\n\r"))
            ++m_at;
    }

    void skipDigits()
    {
        while (isOneOf(u"0123456789"))
            ++m_at;
    }

    QStringView m_text;
    qsizetype m_at = 0;
};

struct Arc
{
    QPointF radii;
    double rotation = 0.0; ///< degrees
    bool isLarge = false;
    bool isClockwise = false;
    QPointF end;
};

/// Appends an arc from the path's present place. The ellipse becomes the unit circle first: there
/// the centre lies on the perpendicular of the chord.
void appendArc(QPainterPath& path, const Arc& arc)
{
    const QPointF begin = path.currentPosition();
    if (begin == arc.end)
        return;
    if (arc.radii.x() == 0.0 || arc.radii.y() == 0.0) {
        path.lineTo(arc.end);
        return;
    }
    QTransform ellipse;
    ellipse.rotate(arc.rotation);
    ellipse.scale(std::abs(arc.radii.x()), std::abs(arc.radii.y()));
    const QTransform toCircle = ellipse.inverted();
    const QPointF from = toCircle.map(begin);
    const QPointF to = toCircle.map(arc.end);
    const QPointF chord = to - from;
    const double halfLength = std::hypot(chord.x(), chord.y()) / 2.0;
    const double radius = std::max(1.0, halfLength); // too small ones grow until they reach
    const double distance = std::sqrt(std::max(0.0, radius * radius - halfLength * halfLength));
    const double side = arc.isLarge == arc.isClockwise ? -1.0 : 1.0; // of the chord
    const QPointF normal = QPointF(-chord.y(), chord.x()) / (2.0 * halfLength);
    const QPointF center = (from + to) / 2.0 + side * distance * normal;
    const auto angle = [&](const QPointF& point) {
        return std::atan2(point.y() - center.y(), point.x() - center.x());
    };
    const double first = angle(from);
    double sweep = angle(to) - first;
    if (arc.isClockwise && sweep < 0.0)
        sweep += 2.0 * M_PI;
    else if (!arc.isClockwise && sweep > 0.0)
        sweep -= 2.0 * M_PI;
    // A curve for each quarter of a turn is off by less than a thousandth of the radius.
    const int pieces = std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / M_PI_2 - 1e-9)));
    const double step = sweep / pieces;
    const double reach = 4.0 / 3.0 * std::tan(step / 4.0);
    for (int i = 0; i < pieces; ++i) {
        const auto place = [&](double at) { return QPointF(std::cos(at), std::sin(at)) * radius; };
        const auto along = [&](double at) { return QPointF(-std::sin(at), std::cos(at)) * radius; };
        const double begins = first + i * step;
        const double ends = begins + step;
        path.cubicTo(ellipse.map(center + place(begins) + reach * along(begins)),
                     ellipse.map(center + place(ends) - reach * along(ends)),
                     i + 1 == pieces ? arc.end : ellipse.map(center + place(ends)));
    }
}

/// Follows the commands of a path.
class PathReader
{
public:
    explicit PathReader(QStringView text)
        : m_scanner(text)
    {
    }

    std::optional<QPainterPath> read()
    {
        char command = 0;
        while (!m_scanner.isAtEnd()) {
            if (const char next = m_scanner.command(); next != 0)
                command = next;
            else if (command == 'M' || command == 'm')
                command = command == 'M' ? 'L' : 'l'; // further points of a move are lines
            else if (command == 'Z' || command == 'z' || command == 0)
                return std::nullopt;
            if (!step(command))
                return std::nullopt;
            m_lastCommand = command;
        }
        return m_path;
    }

private:
    bool step(char command)
    {
        m_origin = command >= 'a' ? m_path.currentPosition() : QPointF();
        switch (command & ~0x20) {
        case 'M':
            return withPoints<1>([this](const auto& points) { m_path.moveTo(points[0]); });
        case 'L':
            return withPoints<1>([this](const auto& points) { m_path.lineTo(points[0]); });
        case 'H':
        case 'V':
            return along((command & ~0x20) == 'H');
        case 'C':
            return withPoints<3>(
                [this](const auto& points) { curve(points[0], points[1], points[2]); });
        case 'S':
            return withPoints<2>(
                [this](const auto& points) { curve(mirrored(), points[0], points[1]); });
        case 'A':
            return arc();
        case 'Z':
            m_path.closeSubpath();
            return true;
        default:
            return false;
        }
    }

    template <std::size_t count, typename Use>
    bool withPoints(Use&& use)
    {
        std::array<QPointF, count> points;
        for (QPointF& point : points) {
            const auto x = m_scanner.number();
            const auto y = m_scanner.number();
            if (!x || !y)
                return false;
            point = m_origin + QPointF(*x, *y);
        }
        use(points);
        return true;
    }

    bool along(bool isHorizontal)
    {
        const auto value = m_scanner.number();
        if (!value)
            return false;
        const QPointF now = m_path.currentPosition();
        m_path.lineTo(isHorizontal ? QPointF(m_origin.x() + *value, now.y())
                                   : QPointF(now.x(), m_origin.y() + *value));
        return true;
    }

    void curve(const QPointF& first, const QPointF& second, const QPointF& end)
    {
        m_path.cubicTo(first, second, end);
        m_control = second;
    }

    /// The last control point on the other side; the present place after other commands.
    QPointF mirrored() const
    {
        const QPointF now = m_path.currentPosition();
        const char last = static_cast<char>(m_lastCommand & ~0x20);
        return last == 'C' || last == 'S' ? 2.0 * now - m_control : now;
    }

    bool arc()
    {
        const auto radiusX = m_scanner.number();
        const auto radiusY = m_scanner.number();
        const auto rotation = m_scanner.number();
        const auto isLarge = m_scanner.flag();
        const auto isClockwise = m_scanner.flag();
        if (!radiusX || !radiusY || !rotation || !isLarge || !isClockwise)
            return false;
        return withPoints<1>([&](const auto& points) {
            appendArc(m_path, {QPointF(*radiusX, *radiusY), *rotation, *isLarge != 0.0,
                               *isClockwise != 0.0, points[0]});
        });
    }

    Scanner m_scanner;
    QPainterPath m_path;
    QPointF m_origin; ///< of the coordinates in this step
    QPointF m_control;
    char m_lastCommand = 0;
};

} // namespace

std::optional<std::vector<double>> svgNumbers(QStringView text)
{
    Scanner scanner(text);
    std::vector<double> numbers;
    while (!scanner.isAtEnd()) {
        const auto number = scanner.number();
        if (!number)
            return std::nullopt;
        numbers.push_back(*number);
    }
    return numbers;
}

std::optional<QPainterPath> svgPath(QStringView text)
{
    return PathReader(text).read();
}

} // namespace KOLT
