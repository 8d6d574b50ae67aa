#include "map/ui/FlightPanel.h"

#include "base/NumberText.h"
#include "map/ui/OutlinedLabel.h"

#include <QCoreApplication>
#include <QGridLayout>

namespace KOLT {

namespace {

constexpr int margin = 5;
constexpr int columnGap = 12;
constexpr int outline = 6; ///< around a text

} // namespace

FlightPanel::FlightPanel(const Profile& profile, QWidget* parent)
    : m_profile(profile)
    , m_panel(new QWidget(parent))
{
    m_panel->setAttribute(Qt::WA_StyledBackground);
    m_panel->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_panel->setStyleSheet(
        QStringLiteral(".QWidget{background-color: #66000000;border-radius:10px;}"));
    m_panel->setObjectName(QStringLiteral("flightPanel"));
    m_panel->setAccessibleName(QCoreApplication::translate("FlightPanel", "Flight"));
    m_panel->hide();
    auto* const grid = new QGridLayout(m_panel);
    grid->setContentsMargins(2 * margin, margin, 2 * margin, margin);
    grid->setHorizontalSpacing(columnGap);
    grid->setVerticalSpacing(0);
    const QStringList names{QCoreApplication::translate("FlightPanel", "Altitude"),
                            QCoreApplication::translate("FlightPanel", "Speed"),
                            QCoreApplication::translate("FlightPanel", "Heading")};
    for (std::size_t i = 0; i < m_values.size(); ++i) {
        const int column = static_cast<int>(i);
        grid->addWidget(new OutlinedLabel(names[column], m_panel), 0, column);
        m_values[i] = new OutlinedLabel(QString(), m_panel);
        m_values[i]->setAccessibleName(names[column]);
        grid->addWidget(m_values[i], 1, column);
    }
}

QString FlightPanel::textOf(Role role, double metric, bool isKnown) const
{
    const ProfileParameter* const parameter = m_profile.parameterByRole(role);
    if (parameter == nullptr || !isKnown)
        return QStringLiteral("---");
    const bool isConverted = m_profile.isConverted(*parameter);
    const double value = isConverted ? m_profile.convertUnit(*parameter, metric) : metric;
    const QString& unit = m_profile.unitLabel(*parameter);
    const QString number = fixedText(value, 0);
    return unit.isEmpty() ? number : number + QLatin1Char(' ') + unit;
}

void FlightPanel::fit(int room)
{
    m_room = room;
    m_panel->setVisible(m_isKnown && m_panel->sizeHint().width() <= room);
}

void FlightPanel::show(const TrackPoint* point)
{
    m_isKnown = point != nullptr;
    fit(m_room);
    if (point == nullptr)
        return;
    const QStringList widest{QStringLiteral("00000 ft"), QStringLiteral("000 km/h"),
                             QStringLiteral("000.0")};
    for (std::size_t i = 0; i < m_values.size(); ++i) { // so that the panel keeps its size
        OutlinedLabel* const label = m_values[i];
        label->ensurePolished();
        label->setMinimumWidth(
            label->fontMetrics().horizontalAdvance(widest[static_cast<qsizetype>(i)]) + outline);
    }
    // Across a gap nothing is known: the track's points there are interpolated.
    const bool isKnown = point->hasFix && !point->isInGap;
    m_values[0]->setText(textOf(Role::Altitude, point->altitude, isKnown && point->hasAltitude));
    m_values[1]->setText(textOf(Role::GroundSpeed, point->groundSpeed, isKnown));
    m_values[2]->setText(textOf(Role::Track, point->heading, isKnown));
}

} // namespace KOLT
