#include "analysis/ui/DialogEventList.h"

#include "analysis/EventTexts.h"
#include "analysis/ui/EventTable.h"
#include "analysis/ui/GraphAction.h"
#include "analysis/ui/RowPicker.h"
#include "base/Csv.h"
#include "ui/ContentOrNote.h"
#include "ui/DialogFolders.h"
#include "ui/EmptyNote.h"
#include "ui/Messages.h"
#include "ui/PaintedIcon.h"
#include "ui/SaveDialog.h"

#include <QAction>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>

namespace KOLT {

namespace {

constexpr int pageMargin = 3;

} // namespace

DialogEventList::DialogEventList(const Profile& profile, EventScope scope, const QString& heading,
                                 QWidget* parent)
    : QWidget(parent)
    , m_profile(profile)
    , m_scope(scope)
{
    auto* const page = new QWidget(this);
    m_filter = new QLineEdit(page);
    m_filter->setPlaceholderText(tr("Filter the list"));
    m_filter->setClearButtonEnabled(true);
    m_filter->addAction(lookIcon(QStringLiteral("filter")), QLineEdit::LeadingPosition);
    connect(m_filter, &QLineEdit::textChanged, this, [this] {
        fillTable();
        showTime();
    });
    createTable(heading);
    createMenu();
    m_hint = new QLabel(page);
    m_hint->setTextFormat(Qt::PlainText);
    m_hint->setWordWrap(true);
    auto* const layout = new QVBoxLayout(page);
    layout->setContentsMargins(pageMargin, pageMargin, pageMargin, pageMargin);
    layout->addWidget(m_filter);
    m_splitter = new QSplitter(Qt::Vertical, page);
    m_splitter->addWidget(m_table);
    m_splitter->setChildrenCollapsible(false);
    connect(m_splitter, &QSplitter::splitterMoved, this, &DialogEventList::noteCardSize);
    layout->addWidget(m_splitter, 1);
    layout->addWidget(m_hint);
    m_shown = new ContentOrNote(this, page);
    showData(Change::Data);
}

void DialogEventList::createTable(const QString& heading)
{
    m_table = new EventTable(
        heading,
        [this](const Event& event) {
            return descriptionOf(detailsOf(m_profile, *dataSet(), event)) + episodeOf(event);
        },
        this);
    m_noMatch = new EmptyNote(m_table);
    connect(m_table, &QTableWidget::itemSelectionChanged, this, &DialogEventList::slotSelect);
    auto* const picker = new RowPicker(m_table);
    connect(picker, &RowPicker::signalPicked, this, &DialogEventList::report);
    connect(picker, &RowPicker::signalCopy, m_table, &EventTable::copy);
}

QString DialogEventList::episodeOf(const Event& event) const
{
    const EpisodeList found = episodesOf(m_profile, *dataSet());
    const Episode* const episode = found->episodeOf(*event.parameter, event.seconds);
    return episode != nullptr
               ? QLatin1Char('\n') + tr("Belongs to: %1").arg(episodeLine(m_profile, *episode))
               : QString();
}

void DialogEventList::createMenu()
{
    auto* const copyAction = new QAction(lookIcon(QStringLiteral("copy")), tr("Copy"), this);
    copyAction->setShortcut(QKeySequence::Copy); // shown in the menu; the picker handles the key
    copyAction->setShortcutContext(Qt::WidgetShortcut);
    connect(copyAction, &QAction::triggered, m_table, &EventTable::copy);
    auto* const saveAction =
        new QAction(lookIcon(QStringLiteral("export-csv")), tr("Save list as CSV"), this);
    connect(saveAction, &QAction::triggered, this, &DialogEventList::save);
    m_table->setContextMenuPolicy(Qt::ActionsContextMenu);
    QAction* const graphAction = createGraphAction(*m_table);
    connect(graphAction, &QAction::triggered, this, &DialogEventList::showInGraph);
    m_table->addActions({graphAction, copyAction, saveAction});
}

void DialogEventList::setCard(EpisodeView* card, QWidget* widget)
{
    m_card = card;
    m_splitter->addWidget(widget);
    m_splitter->installEventFilter(this);
    widget->hide();
}

void DialogEventList::setCardPercent(int percent)
{
    m_cardPercent = percent;
    placeCard();
}

void DialogEventList::placeCard()
{
    m_splitter->setSizes({m_splitter->height() * (100 - m_cardPercent) / 100,
                          m_splitter->height() * m_cardPercent / 100});
}

bool DialogEventList::eventFilter(QObject* watched, QEvent* event)
{
    // The splitter would give both what they need at least while the page has no size yet.
    if (watched == m_splitter && event->type() == QEvent::Resize)
        placeCard();
    return QWidget::eventFilter(watched, event);
}

void DialogEventList::noteCardSize()
{
    const QList<int> sizes = m_splitter->sizes();
    const int sum = std::max(sizes.front() + sizes.back(), 1);
    m_cardPercent = (200 * sizes.back() + sum) / (2 * sum);
    emit signalCardPercent(m_cardPercent);
}

void DialogEventList::dropData()
{
    dropEpisode();
    m_table->setEvents({});
    m_episodes.reset();
    m_events.reset();
}

void DialogEventList::dropEpisode()
{
    m_episode = nullptr;
    if (m_card == nullptr)
        return;
    m_card->clear();
    m_splitter->widget(1)->hide();
}

void DialogEventList::showEpisode()
{
    const Event* const event = m_table->currentEvent();
    const Episode* const episode = event != nullptr && m_episodes != nullptr
                                       ? m_episodes->episodeOf(*event->parameter, event->seconds)
                                       : nullptr;
    if (episode == m_episode)
        return;
    if (episode == nullptr) {
        dropEpisode();
        return;
    }
    m_episode = episode;
    m_card->showEpisode(*dataSet(), *episode);
    if (m_splitter->widget(1)->isHidden()) {
        m_splitter->widget(1)->show();
        placeCard();
    }
}

void DialogEventList::showData(Changes changes)
{
    if (changes.testAnyFlags(Change::Data | Change::Font))
        m_table->fit();
    if (!changes.testAnyFlags(Change::Data | Change::Units))
        return;
    dropData();
    if (dataSet() != nullptr)
        m_events = eventsOf(m_profile, *dataSet(), m_scope);
    // Now, so that the card appears at once.
    if (dataSet() != nullptr && m_card != nullptr)
        m_episodes = episodesOf(m_profile, *dataSet());
    fillTable();
    const QString text = hint();
    m_hint->setText(text);
    m_hint->setVisible(!text.isEmpty());
    if (m_events == nullptr) {
        m_shown->showNote(tr("Choose a cycle or a flight on the left to see what was exceeded."));
    } else if (m_events->empty()) {
        const QString note = m_scope == EventScope::WarningLamps
                                 ? tr("No lamp came on in this data set")
                                 : tr("No exceedance in this data set");
        m_shown->showNote(text.isEmpty() ? note : note + QLatin1Char('\n') + text);
    } else {
        m_shown->showContent();
    }
}

QString DialogEventList::hint() const
{
    if (dataSet() == nullptr)
        return {};
    QStringList lines;
    if (m_scope == EventScope::WarningLamps) {
        const QStringList lamps = lampsOnFromTheStart(m_profile, *dataSet());
        if (!lamps.isEmpty())
            lines << tr("On from the start: %1").arg(lamps.join(QStringLiteral(", ")));
    }
    const std::size_t leftOut = eventsLeftOut(m_profile, *dataSet(), m_scope).size();
    if (leftOut > 0)
        lines << tr("Only the first %L1 exceedances are listed, %L2 more are left out.")
                     .arg(m_events->size())
                     .arg(leftOut);
    return lines.join(QLatin1Char('\n'));
}

void DialogEventList::fillTable()
{
    std::vector<const Event*> shown;
    const QString wanted = m_filter->text().trimmed();
    if (m_events != nullptr) {
        for (const Event& event : *m_events) {
            if (event.text.contains(wanted, Qt::CaseInsensitive))
                shown.push_back(&event);
        }
    }
    const bool isFiltered = shown.empty() && !wanted.isEmpty();
    m_table->setEvents(std::move(shown));
    m_noMatch->showNote(isFiltered ? tr("No line has this text.") : QString());
}

void DialogEventList::showTime()
{
    m_table->showTime(time());
    showEpisode();
}

void DialogEventList::slotSelect()
{
    const QList<QTableWidgetItem*> selected = m_table->selectedItems();
    if (m_table->isChanging() || selected.isEmpty())
        return;
    showEpisode();
    report(selected.front()->row());
}

void DialogEventList::report(int row)
{
    const double seconds = m_table->secondsOf(row);
    keepTime(seconds);
    emit signalTime(seconds);
}

void DialogEventList::showInGraph()
{
    if (const Event* const event = m_table->currentEvent())
        emit signalShowInGraph(targetOf(m_profile, *dataSet(), *event));
}

void DialogEventList::save()
{
    const auto folderKind = QStringLiteral("List");
    const QString proposed = m_settings.folder + QStringLiteral("/Exceedances.csv");
    const QString path =
        askForSavePath(this, tr("Save list as CSV"), DialogFolders::proposal(folderKind, proposed),
                       tr("CSV Files (*.csv)"), QStringLiteral("csv"));
    DialogFolders::note(folderKind, path);
    if (path.isEmpty() || dataSet() == nullptr)
        return;
    const QString text = csvOf(m_table->events(), m_profile, *dataSet(), m_settings);
    Messages::saveFile(this, path, csvFile(text));
}

} // namespace KOLT
