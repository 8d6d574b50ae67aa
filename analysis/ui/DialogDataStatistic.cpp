#include "analysis/ui/DialogDataStatistic.h"

#include "record/ClockTime.h"
#include "record/DataSet.h"

#include <QLabel>
#include <QLocale>
#include <QTextEdit>
#include <QVBoxLayout>

#include <cmath>

namespace KOLT {

namespace {

constexpr int hintMargin = 6;

QString row(const QString& label, const QString& value)
{
    return QStringLiteral("<tr><td>%1  :  </td><td><b>%2</b></td></tr>").arg(label, value);
}

QString figure(const char* pattern, double value)
{
    return QString::fromLatin1(pattern).arg(value, 0, 'g', QLocale::FloatingPointShortest);
}

/// A duration in whole seconds; dashes for a ratio that is not finite.
QString timeText(double seconds)
{
    return std::isfinite(seconds) ? durationText(seconds) : QStringLiteral("--:--:--");
}

} // namespace

DialogDataStatistic::DialogDataStatistic(QWidget* parent)
    : QWidget(parent)
    , m_text(new QTextEdit(this))
{
    m_text->setReadOnly(true);
    m_text->setLineWrapMode(QTextEdit::NoWrap); // keeps figure and unit on one line
    m_text->setPlaceholderText(tr("Choose a flight on the left to see its figures."));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text);
    m_hint =
        new QLabel(tr("Flight Time runs from 30 s before take-off to 30 s after landing, like the "
                      "loaded data. The day sheet counts from take-off to landing."),
                   this);
    m_hint->setWordWrap(true);
    m_hint->setMargin(hintMargin);
    layout->addWidget(m_hint);
    m_hint->hide();
}

QString DialogDataStatistic::textOf(const Flight& flight)
{
    return QStringLiteral("<table>") +
           row(tr("Flight Time"), timeText(flight.endSeconds - flight.startSeconds)) +
           row(tr("Total Fuel Lane A"), figure("%1 l", flight.fuelA)) +
           row(tr("Total Fuel Lane B"), figure("%1 l", flight.fuelB)) +
           row(tr("Total Fuel"), figure("%1 l", flight.fuel)) +
           row(tr("Minimum Alt"), figure("%1 m", flight.minAltitude)) +
           row(tr("Maximum Alt"), figure("%1 m", flight.maxAltitude)) +
           row(tr("Total Climb"), figure("%1 m", flight.altitudeGain)) +
           row(tr("Average Climb Rate"), figure("%1 m/s", flight.climbRate)) +
           row(tr("Average Descend Rate"), figure("%1 m/s", flight.descentRate)) +
           row(tr("Max Ground Speed"), figure("%1 km/h", flight.maxGroundSpeed)) +
           row(tr("Time / 100m"), timeText(flight.timePer100m)) +
           row(tr("Fuel / 100m"), figure("%1 l", flight.fuelPer100m)) +
           row(tr("Take Off Distance"), figure("%1 m", flight.takeOffDistance)) +
           row(tr("Take Off Distance 15m"), figure("%1 m", flight.takeOffDistance15m)) +
           QStringLiteral("</table>");
}

void DialogDataStatistic::showData(Changes changes)
{
    if (!changes.testFlag(Change::Data) || dataSet() == nullptr)
        return;
    const Flight* const flight = dataSet()->flight();
    m_hint->setVisible(flight != nullptr);
    if (flight == nullptr) {
        m_text->setText(tr("<br><br><b>No flight selected</b>"));
        m_text->selectAll();
        m_text->setAlignment(Qt::AlignCenter);
        m_text->moveCursor(QTextCursor::Start);
        return;
    }
    m_text->setText(textOf(*flight));
}

} // namespace KOLT
