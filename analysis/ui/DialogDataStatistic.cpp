#include "analysis/ui/DialogDataStatistic.h"

#include "record/ClockTime.h"
#include "record/DataSet.h"
#include "record/FootNotes.h"
#include "record/RecordingTrust.h"
#include "ui/EmptyNote.h"

#include <QLabel>
#include <QLocale>
#include <QTextEdit>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

constexpr int hintMargin = 6;
constexpr int mostNotes = 3;    ///< notes take at most this part of the height
constexpr int mostNotesLow = 5; ///< in a low page
constexpr int lowLines = 28;    ///< a lower page has no room for all texts below the table

QString row(const QString& label, const QString& value)
{
    return QStringLiteral("<tr><td>%1  :  </td><td><b>%2</b></td></tr>").arg(label, value);
}

QString figure(const char* pattern, double value)
{
    return QString::fromLatin1(pattern).arg(value, 0, 'g', QLocale::FloatingPointShortest);
}

/// The figures as one would say them, for a page where those of the table are cut.
QString roundedText(const Flight& flight)
{
    const auto number = [](double value, int decimals) {
        return QString::number(value, 'f', decimals); // as in the table
    };
    return DialogDataStatistic::tr("Rounded: fuel %1 l, altitude %2 to %3 m, climb %4 m at %5 m/s, "
                                   "speed up to %6 km/h, take-off distance %7 m")
        .arg(number(flight.fuel, 1), number(flight.minAltitude, 0), number(flight.maxAltitude, 0),
             number(flight.altitudeGain, 0), number(flight.climbRate, 1),
             number(flight.maxGroundSpeed, 0), number(flight.takeOffDistance, 0));
}

/// A duration in whole seconds; dashes for a ratio that is not finite.
QString timeText(double seconds)
{
    return std::isfinite(seconds) ? durationText(seconds) : QStringLiteral("--:--:--");
}

struct ShownFigure
{
    const char* label; ///< of the table's row
    Figures figures;   ///< that it is made from
};

/// In the order of the table.
constexpr ShownFigure shownFigures[] = {
    {QT_TRANSLATE_NOOP("KOLT::DialogDataStatistic", "Flight Time"), Figure::Start | Figure::End},
    {QT_TRANSLATE_NOOP("KOLT::DialogDataStatistic", "Total Fuel Lane A"), Figure::FuelA},
    {QT_TRANSLATE_NOOP("KOLT::DialogDataStatistic", "Total Fuel Lane B"), Figure::FuelB},
    {QT_TRANSLATE_NOOP("KOLT::DialogDataStatistic", "Total Fuel"), Figure::Fuel},
    {QT_TRANSLATE_NOOP("KOLT::DialogDataStatistic", "Minimum Alt"), Figure::MinAltitude},
    {QT_TRANSLATE_NOOP("KOLT::DialogDataStatistic", "Maximum Alt"), Figure::MaxAltitude},
    {QT_TRANSLATE_NOOP("KOLT::DialogDataStatistic", "Total Climb"), Figure::AltitudeGain},
    {QT_TRANSLATE_NOOP("KOLT::DialogDataStatistic", "Average Climb Rate"), Figure::ClimbRate},
    {QT_TRANSLATE_NOOP("KOLT::DialogDataStatistic", "Average Descend Rate"), Figure::DescentRate},
    {QT_TRANSLATE_NOOP("KOLT::DialogDataStatistic", "Max Ground Speed"), Figure::MaxGroundSpeed},
    {QT_TRANSLATE_NOOP("KOLT::DialogDataStatistic", "Time / 100m"), Figure::TimePer100m},
    {QT_TRANSLATE_NOOP("KOLT::DialogDataStatistic", "Fuel / 100m"), Figure::FuelPer100m},
    {QT_TRANSLATE_NOOP("KOLT::DialogDataStatistic", "Take Off Distance"), Figure::TakeOffDistance},
    {QT_TRANSLATE_NOOP("KOLT::DialogDataStatistic", "Take Off Distance 15m"),
     Figure::TakeOffDistance15m}};

/// Which figures of the table are marked, and why; empty when none is.
QString notesText(const std::vector<TrustFinding>& findings, std::size_t flight)
{
    Figures shown = 0;
    for (const ShownFigure& figure : shownFigures)
        shown |= figure.figures;
    FootNotes notes;
    const FlightNotes marked = notes.add(findings, flight, shown);
    QStringList figures;
    for (const ShownFigure& figure : shownFigures) {
        const QString marks = marked.marks(figure.figures);
        if (!marks.isEmpty())
            figures << DialogDataStatistic::tr(figure.label) + QLatin1Char(' ') + marks;
    }
    if (figures.isEmpty())
        return {};
    const QString heading = DialogDataStatistic::tr("Figures that may be wrong: %1")
                                .arg(figures.join(QStringLiteral(", ")));
    return heading + QLatin1Char('\n') + notes.lines().join(QLatin1Char('\n'));
}

} // namespace

DialogDataStatistic::DialogDataStatistic(QWidget* parent)
    : QWidget(parent)
    , m_text(new QTextEdit(this))
    , m_notes(new QTextEdit(this))
{
    m_text->setReadOnly(true);
    m_text->setTabChangesFocus(true);
    m_text->setAccessibleName(tr("Tow Statistic"));
    m_notes->setAccessibleName(tr("Marked figures"));
    m_text->setLineWrapMode(QTextEdit::NoWrap); // keeps figure and unit on one line
    m_empty = new EmptyNote(m_text);
    m_empty->showNote(tr("Choose a flight on the left to see its figures."));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text, 1);
    m_rounded = new QLabel(this);
    m_rounded->setTextFormat(Qt::PlainText);
    m_rounded->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_rounded->setWordWrap(true);
    m_rounded->setMargin(hintMargin);
    m_rounded->hide();
    layout->addWidget(m_rounded);
    m_notes->setObjectName(QStringLiteral("figureNotes"));
    m_notes->setReadOnly(true);
    m_notes->setTabChangesFocus(true);
    m_notes->setFrameShape(QFrame::NoFrame);
    m_notes->hide();
    layout->addWidget(m_notes);
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

void DialogDataStatistic::setTrust(std::shared_ptr<const RecordingTrust> trust)
{
    m_trust = std::move(trust);
    showNotes();
}

void DialogDataStatistic::showNotes()
{
    const bool hasFlight =
        m_trust != nullptr && dataSet() != nullptr && dataSet()->flightIndex.has_value();
    const QString text =
        hasFlight ? notesText(m_trust->findings, *dataSet()->flightIndex) : QString();
    m_notes->setPlainText(text);
    m_notes->setVisible(!text.isEmpty());
    fitNotes();
}

/// As high as the text, but never so high that nothing is left of the table. What the hint says is
/// in the table's tool tip too.
void DialogDataStatistic::fitNotes()
{
    const std::unique_ptr<QTextDocument> copy(m_notes->document()->clone());
    copy->setTextWidth(width()); // the shown one keeps the width that its scroll bar leaves
    const auto wanted = static_cast<int>(std::ceil(copy->size().height()));
    const bool isLow = height() < lowLines * fontMetrics().lineSpacing();
    m_notes->setFixedHeight(std::min(wanted, height() / (isLow ? mostNotesLow : mostNotes)));
    m_hint->setVisible(!m_rounded->isHidden() && !isLow);
}

void DialogDataStatistic::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    fitNotes();
}

void DialogDataStatistic::showData(Changes changes)
{
    if (changes.testFlag(Change::Data))
        showNotes();
    if (!changes.testFlag(Change::Data) || dataSet() == nullptr)
        return;
    const Flight* const flight = dataSet()->flight();
    m_empty->showNote({});
    m_rounded->setVisible(flight != nullptr);
    m_text->setToolTip(flight != nullptr ? m_hint->text() : QString());
    fitNotes();
    if (flight == nullptr) {
        m_text->setText(tr("<br><br><b>No flight selected</b>"));
        m_text->selectAll();
        m_text->setAlignment(Qt::AlignCenter);
        m_text->moveCursor(QTextCursor::Start);
        return;
    }
    m_text->setText(textOf(*flight));
    m_rounded->setText(roundedText(*flight));
}

} // namespace KOLT
