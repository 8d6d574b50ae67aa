#include "map/ui/MapLabels.h"

#include <QCoreApplication>
#include <QFile>
#include <QFontDatabase>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace KOLT {

namespace {

constexpr int fontPixels = 14;
constexpr double textHeight = 18.0;
constexpr double edge = 5.0; ///< around the window and within plates
constexpr double textMargin = 3.0;
constexpr QColor textColor(20, 24, 30);
constexpr QColor plateColor(255, 255, 255, 190);
constexpr QColor gridColor(20, 24, 30, 60);
constexpr QColor gridTextColor(20, 24, 30, 170);
constexpr double gridTextRoom = 60.0; ///< from the window's edges, where there are other texts
constexpr double compassRadius = 26.0;

/// The font from the program's resources; none when it cannot be read.
std::optional<QFont> loadFont()
{
    QFile file(QStringLiteral(":monofont.ttf"));
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    static const int id = QFontDatabase::addApplicationFontFromData(file.readAll());
    const QStringList families = QFontDatabase::applicationFontFamilies(id);
    if (families.isEmpty())
        return std::nullopt;
    QFont font(families.front());
    font.setPixelSize(fontPixels);
    return font;
}

} // namespace

MapLabels::MapLabels(TUSK::OpenGL::GlHandler& handler, double pixelRatio)
    : m_handler(handler)
{
    if (const auto font = loadFont())
        m_font.emplace(*font, pixelRatio);
}

double MapLabels::textWidth(const QString& text) const
{
    return m_font ? m_font->width(text) : 0.0;
}

QStringList MapLabels::attributionLines(const QString& attribution, double windowWidth) const
{
    const auto fits = [&](const QString& line) {
        return textWidth(line) + 2.0 * (edge + textMargin) <= windowWidth;
    };
    qsizetype end = attribution.size();
    while (end > 0 && !fits(attribution.left(end)))
        end = attribution.lastIndexOf(QLatin1Char(' '), end - 1);
    if (end <= 0 || end == attribution.size())
        return {attribution};
    return {attribution.left(end), attribution.mid(end + 1)};
}

QRectF MapLabels::attributionRect(const QString& attribution, double windowWidth) const
{
    double width = 0.0;
    const QStringList lines = attributionLines(attribution, windowWidth);
    for (const QString& line : lines)
        width = std::max(width, textWidth(line) + 2.0 * textMargin);
    return {windowWidth - edge - width, edge, width,
            textHeight * static_cast<double>(lines.size())};
}

void MapLabels::draw(const Contents& contents, double windowWidth)
{
    if (!m_font)
        return;
    const QRectF attribution = attributionRect(contents.attribution, windowWidth);
    // In a narrow map the scale bar goes above the attribution.
    const bool isWide = contents.scale.pixels + attribution.width() + 8.0 * edge < windowWidth;
    const double bottom = isWide ? edge : attribution.bottom() + edge;
    drawScaleBar(contents.scale, bottom);
    drawLegend(contents.legend, bottom);
    const double right = attribution.right() - textMargin;
    double y = attribution.top() + textHeight / 2.0;
    const QStringList lines = attributionLines(contents.attribution, windowWidth);
    for (auto line = lines.rbegin(); line != lines.rend(); ++line, y += textHeight)
        drawTextUpTo(right, y, *line);
    drawTextUpTo(right, y + edge, contents.note);
}

void MapLabels::drawRectangle(const QRectF& area, const QColor& color)
{
    const auto left = static_cast<float>(area.left());
    const auto right = static_cast<float>(area.right());
    const auto low = static_cast<float>(area.top());
    const auto high = static_cast<float>(area.bottom());
    m_handler.draw(GL_TRIANGLE_FAN, std::array{left, low, right, low, right, high, left, high},
                   color);
}

void MapLabels::drawTextUpTo(double right, double y, const QString& text)
{
    if (text.isEmpty())
        return;
    const double width = textWidth(text) + 2.0 * textMargin;
    drawRectangle({right + textMargin - width, y - textHeight / 2.0, width, textHeight},
                  plateColor);
    m_font->draw(m_handler, text, right, y, textColor, true);
}

void MapLabels::drawScaleBar(const ScaleBar& bar, double bottom)
{
    if (!(bar.pixels > 0.0))
        return;
    const double left = 2.0 * edge;
    const double width = std::max(bar.pixels, textWidth(bar.text)) + 2.0 * edge;
    drawRectangle({edge, bottom, width, textHeight + 10.0}, plateColor);
    m_font->draw(m_handler, bar.text, left, bottom + 10.0 + textHeight / 2.0, textColor);
    drawRectangle({left, bottom + 4.0, bar.pixels, 2.0}, textColor);
    drawRectangle({left, bottom + 4.0, 2.0, 7.0}, textColor);
    drawRectangle({left + bar.pixels - 2.0, bottom + 4.0, 2.0, 7.0}, textColor);
}

void MapLabels::drawLegend(const TrackColors& colors, double bottom)
{
    if (colors.isEmpty())
        return;
    constexpr double cell = 12.0;
    bottom += edge + textHeight + 12.0; // above the scale bar
    const double texts = textWidth(colors.lowText) + textWidth(colors.highText) + 12.0;
    const double inside = std::max({cell * ValueScale::steps, texts, textWidth(colors.name)});
    const double left = 2.0 * edge;
    drawRectangle({edge, bottom, inside + 2.0 * edge, 2.0 * textHeight + 16.0}, plateColor);
    m_font->draw(m_handler, colors.name, left, bottom + textHeight * 1.5 + 14.0, textColor);
    const double step = inside / ValueScale::steps;
    for (int i = 0; i < ValueScale::steps; ++i)
        drawRectangle({left + i * step, bottom + textHeight + 4.0, step, 8.0},
                      trackColorRamp()[static_cast<std::size_t>(i)]);
    const double y = bottom + textHeight / 2.0 + 1.0;
    m_font->draw(m_handler, colors.lowText, left, y, textColor);
    m_font->draw(m_handler, colors.highText, left + inside, y, textColor, true);
}

void MapLabels::drawGrid(const MapGrid& grid, const QSizeF& window, std::span<const QRectF> covered)
{
    const double windowWidth = window.width();
    const double windowHeight = window.height();
    for (const MapGrid::Line& line : grid.upright)
        drawRectangle({std::floor(line.place), 0.0, 1.0, windowHeight}, gridColor);
    for (const MapGrid::Line& line : grid.level)
        drawRectangle({0.0, std::floor(line.place), windowWidth, 1.0}, gridColor);
    if (!m_font)
        return;
    const auto draw = [&](const QString& text, double x, double y) {
        const QRectF place(x, windowHeight - y - textHeight / 2.0, textWidth(text), textHeight);
        if (std::ranges::none_of(covered,
                                 [&](const QRectF& area) { return area.intersects(place); }))
            m_font->draw(m_handler, text, x, y, gridTextColor);
    };
    // The distances are along the lines through the origin, or near the edge beyond which it is.
    const auto within = [](double place, double length) {
        return std::clamp(place, std::min(gridTextRoom, length / 2.0),
                          std::max(length - gridTextRoom, length / 2.0));
    };
    const double y = within(grid.origin.y, windowHeight) + textHeight / 2.0;
    for (const MapGrid::Line& line : grid.upright)
        draw(line.text, line.place + textMargin, y);
    const double x = within(grid.origin.x, windowWidth) + textMargin;
    for (const MapGrid::Line& line : grid.level) {
        if (line.place > gridTextRoom)
            draw(line.text, x, line.place + textHeight / 2.0);
    }
}

QRectF MapLabels::compassRect(const QString& attribution, double windowWidth) const
{
    const QRectF below = attributionRect(attribution, windowWidth);
    constexpr double side = 2.0 * compassRadius;
    return {windowWidth - edge - side,
            below.bottom() + textHeight + 2.0 * edge, // above the note too
            side, side};
}

void MapLabels::drawCompass(const QString& attribution, double windowWidth)
{
    if (!m_font)
        return;
    const QPointF middle = compassRect(attribution, windowWidth).center();
    const double x = middle.x();
    const double y = middle.y();
    constexpr int corners = 48;
    std::vector<float> disc;
    for (int i = 0; i < corners; ++i) {
        const double angle = 2.0 * std::numbers::pi * i / corners;
        disc.push_back(static_cast<float>(x + compassRadius * std::cos(angle)));
        disc.push_back(static_cast<float>(y + compassRadius * std::sin(angle)));
    }
    m_handler.draw(GL_TRIANGLE_FAN, disc, plateColor);
    constexpr double needle = 12.0;
    constexpr double half = 4.0;
    const auto side = [&](double tip, const QColor& color) {
        m_handler.draw(GL_TRIANGLES,
                       std::array{static_cast<float>(x - half), static_cast<float>(y),
                                  static_cast<float>(x + half), static_cast<float>(y),
                                  static_cast<float>(x), static_cast<float>(y + tip)},
                       color);
    };
    side(needle, textColor);
    side(-needle, gridColor);
    const double reach = compassRadius - 7.0;
    const auto letter = [&](const QString& text, double east, double north) {
        m_font->draw(m_handler, text, x + east * reach - textWidth(text) / 2.0, y + north * reach,
                     textColor);
    };
    letter(QCoreApplication::translate("MapLabels", "N", "north"), 0.0, 1.0);
    letter(QCoreApplication::translate("MapLabels", "E", "east"), 1.0, 0.0);
    letter(QCoreApplication::translate("MapLabels", "S", "south"), 0.0, -1.0);
    letter(QCoreApplication::translate("MapLabels", "W", "west"), -1.0, 0.0);
}

} // namespace KOLT
