#include "library/ui/LibraryFilterBar.h"

#include "ui/CalendarField.h"
#include "ui/PaintedIcon.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QEvent>
#include <QFormLayout>
#include <QFrame>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace KOLT {

using Library::LibraryFilter;

namespace {

constexpr int settlingMilliseconds = 300;
constexpr int longestMinutes = 600;
constexpr double secondsPerMinute = 60.0;
const QDate firstDate(1990, 1, 1);

/// Opens the calendar of a field without a date at this month, not at the first one that can be
/// chosen.
class CalendarPage : public QObject
{
public:
    explicit CalendarPage(QDateEdit* edit)
        : QObject(edit)
        , m_edit(*edit)
    {
        edit->calendarWidget()->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const QDate today = QDate::currentDate();
        if (event->type() == QEvent::Show && m_edit.date() == firstDate)
            m_edit.calendarWidget()->setCurrentPage(today.year(), today.month());
        return QObject::eventFilter(watched, event);
    }

private:
    QDateEdit& m_edit;
};

QDateEdit* createDate(const QString& any)
{
    auto* const edit = new QDateEdit;
    useCalendar(*edit);
    new CalendarPage(edit); // which owns it
    edit->setMinimumDate(firstDate);
    edit->setSpecialValueText(any);
    edit->setDate(firstDate);
    return edit;
}

QDate dateOf(const QDateEdit& edit)
{
    return edit.date() == firstDate ? QDate() : edit.date();
}

QSpinBox* createMinutes(const QString& any)
{
    auto* const box = new QSpinBox;
    box->setRange(0, longestMinutes);
    box->setSpecialValueText(any);
    box->setSuffix(LibraryFilterBar::tr(" min"));
    return box;
}

} // namespace

LibraryFilterBar::LibraryFilterBar(QWidget* parent)
    : QWidget(parent)
    , m_search(new QLineEdit)
    , m_button(new QToolButton)
{
    m_search->setObjectName(QStringLiteral("librarySearch"));
    m_search->setPlaceholderText(tr("Serial number or date"));
    m_search->setAccessibleName(tr("Search the library"));
    m_search->setToolTip(tr("Part of a serial number of unit or engine, or a day, month or year: "
                            "14.6.2025, 6.2025, 2025"));
    m_search->setClearButtonEnabled(true);
    m_button->setIcon(lookIcon(QStringLiteral("filter")));
    m_button->setCheckable(true);
    m_button->setToolTip(tr("Filter by exceedance, fault, duration, days and notes"));
    m_button->setAccessibleName(tr("Filter"));
    m_more = createMore();
    auto* const row = new QHBoxLayout;
    row->addWidget(m_search, 1);
    row->addWidget(m_button);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(row);
    connectFields();
}

QWidget* LibraryFilterBar::createMore()
{
    auto* const more = new QFrame(this, Qt::Popup);
    more->setFrameShape(QFrame::StyledPanel);
    auto* const form = new QFormLayout(more);
    m_exceeded = new QComboBox;
    m_exceeded->setObjectName(QStringLiteral("libraryExceeded"));
    m_exceeded->addItems({tr("All"), tr("Warning or limit"), tr("Limit")});
    m_quantity = new QLineEdit;
    m_quantity->setPlaceholderText(tr("Any quantity"));
    m_fault = new QLineEdit;
    m_fault->setObjectName(QStringLiteral("libraryFault"));
    m_fault->setPlaceholderText(tr("Part of its name"));
    const QString any = tr("any");
    m_shortest = createMinutes(any);
    m_longest = createMinutes(any);
    m_from = createDate(any);
    m_to = createDate(any);
    m_note = new QCheckBox(tr("With a note"));
    const auto pair = [](QWidget* first, QWidget* second) {
        auto* const row = new QHBoxLayout;
        row->addWidget(first, 1);
        row->addWidget(second, 1);
        return row;
    };
    form->addRow(tr("Exceeded"), m_exceeded);
    form->addRow(tr("Quantity"), m_quantity);
    form->addRow(tr("Fault"), m_fault);
    form->addRow(tr("Flight"), pair(m_shortest, m_longest));
    form->addRow(tr("Days"), pair(m_from, m_to));
    form->addRow(QString(), m_note);
    auto* const all = new QPushButton(tr("Show all"));
    all->setObjectName(QStringLiteral("libraryShowAll"));
    all->setToolTip(tr("Clear the filter and the search"));
    connect(all, &QPushButton::clicked, this, &LibraryFilterBar::clear);
    form->addRow(QString(), all);
    m_shortest->setToolTip(tr("Shortest time from take-off to landing"));
    m_longest->setToolTip(tr("Longest time from take-off to landing"));
    m_from->setToolTip(tr("First day"));
    m_to->setToolTip(tr("Last day"));
    return more;
}

void LibraryFilterBar::connectFields()
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(settlingMilliseconds);
    connect(&m_timer, &QTimer::timeout, this, &LibraryFilterBar::signalFilter);
    const auto changed = [this] {
        m_button->setChecked(isFiltering());
        m_timer.start();
    };
    for (QLineEdit* edit : {m_search, m_quantity, m_fault})
        connect(edit, &QLineEdit::textChanged, this, changed);
    for (QSpinBox* box : {m_shortest, m_longest})
        connect(box, &QSpinBox::valueChanged, this, changed);
    for (QDateEdit* edit : {m_from, m_to})
        connect(edit, &QDateEdit::dateChanged, this, changed);
    connect(m_exceeded, &QComboBox::currentIndexChanged, this, changed);
    connect(m_note, &QCheckBox::toggled, this, changed);
    connect(m_button, &QToolButton::clicked, this, &LibraryFilterBar::showMore);
}

/// Below the button, and within the screen.
void LibraryFilterBar::showMore()
{
    m_button->setChecked(isFiltering());
    m_more->adjustSize();
    const QRect screen = m_button->screen()->availableGeometry();
    QPoint place = mapToGlobal(QPoint(0, height()));
    place.setX(std::clamp(place.x(), screen.left(),
                          std::max(screen.left(), screen.right() - m_more->width())));
    place.setY(std::clamp(place.y(), screen.top(),
                          std::max(screen.top(), screen.bottom() - m_more->height())));
    m_more->move(place);
    m_more->show();
}

bool LibraryFilterBar::isFiltering() const
{
    LibraryFilter searched;
    readSearch(m_search->text(), searched);
    return withNote() || !(filter() == searched);
}

void LibraryFilterBar::clear()
{
    for (QLineEdit* edit : {m_search, m_quantity, m_fault})
        edit->clear();
    for (QSpinBox* box : {m_shortest, m_longest})
        box->setValue(0);
    for (QDateEdit* edit : {m_from, m_to})
        edit->setDate(firstDate);
    m_exceeded->setCurrentIndex(0);
    m_note->setChecked(false);
}

bool LibraryFilterBar::withNote() const
{
    return m_note->isChecked();
}

LibraryFilter LibraryFilterBar::filter() const
{
    LibraryFilter filter;
    filter.from = dateOf(*m_from);
    filter.to = dateOf(*m_to);
    readSearch(m_search->text(), filter);
    if (m_exceeded->currentIndex() > 0)
        filter.exceeded = static_cast<ThresholdState>(m_exceeded->currentIndex());
    filter.quantity = m_quantity->text().trimmed();
    filter.fault = m_fault->text().trimmed();
    if (m_shortest->value() > 0)
        filter.shortest = m_shortest->value() * secondsPerMinute;
    if (m_longest->value() > 0)
        filter.longest = m_longest->value() * secondsPerMinute;
    return filter;
}

void LibraryFilterBar::readSearch(const QString& text, LibraryFilter& filter)
{
    const QString words = text.trimmed();

    struct Form
    {
        const char* format;
        int months; ///< that it means; 0: one day
    };

    constexpr std::array forms{Form{"d.M.yyyy", 0}, Form{"yyyy-M-d", 0}, Form{"M.yyyy", 1},
                               Form{"yyyy-M", 1}, Form{"yyyy", 12}};
    for (const auto& [format, months] : forms) {
        const QDate day = QDate::fromString(words, QLatin1String(format));
        // Four digits that are no year of a recording may be part of a serial number.
        if (!day.isValid() || day < firstDate || day.year() >= firstDate.year() + 100)
            continue;
        filter.from = day;
        filter.to = months == 0 ? day : day.addMonths(months).addDays(-1);
        return;
    }
    filter.serial = words;
}

} // namespace KOLT
