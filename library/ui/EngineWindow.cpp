#include "library/ui/EngineWindow.h"

#include "library/ledger/LedgerText.h"
#include "library/ui/LedgerView.h"
#include "record/ClockTime.h"
#include "ui/EmptyNote.h"
#include "ui/FirstSize.h"
#include "ui/PlainToolTip.h"
#include "ui/StateMark.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace KOLT {

using namespace Library;

namespace {

constexpr QSize firstSize(960, 740);
constexpr int figureMargin = 4;

QTreeWidget* createTable(const QStringList& columns, const char* name)
{
    auto* const table = new QTreeWidget;
    table->setObjectName(QLatin1String(name));
    table->setHeaderLabels(columns);
    table->setRootIsDecorated(false);
    table->setUniformRowHeights(true);
    table->setAllColumnsShowFocus(true);
    return table;
}

StateMark markOf(DueState state)
{
    return state == DueState::Overdue ? StateMark::Limit
           : state == DueState::Soon  ? StateMark::Warning
                                      : StateMark::Good;
}

void fitColumns(QTreeWidget& table)
{
    for (int column = 0; column + 1 < table.columnCount(); ++column)
        table.resizeColumnToContents(column);
}

/// What its widget leaves, scrolled where the window is low.
QScrollArea* scrolled(QWidget* widget)
{
    auto* const area = new QScrollArea;
    area->setWidget(widget);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    return area;
}

} // namespace

EngineWindow::EngineWindow(QWidget* parent)
    : QDialog(parent, Qt::Window)
    , m_engines(new QComboBox)
    , m_state(new QLabel)
    , m_figures(new QWidget)
    , m_figureRows(new QFormLayout(m_figures))
    , m_view(new LedgerView)
    , m_tabs(new QTabWidget)
{
    setWindowTitle(tr("Engine"));
    setObjectName(QStringLiteral("engineWindow"));
    m_engines->setObjectName(QStringLiteral("engineChoice"));
    m_engines->setAccessibleName(tr("Engine"));
    m_engines->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_state->setWordWrap(true);
    m_state->setTextFormat(Qt::PlainText);
    connect(m_engines, &QComboBox::activated, this,
            [this] { emit signalEngine(m_engines->currentText()); });
    auto* const top = new QHBoxLayout;
    top->addWidget(m_engines);
    top->addWidget(m_state, 1);
    auto* const middle = new QHBoxLayout;
    m_figureRows->setContentsMargins(figureMargin, figureMargin, 0, figureMargin);
    m_figureRows->setRowWrapPolicy(QFormLayout::WrapLongRows);
    m_figureArea = scrolled(m_figures);
    middle->addWidget(m_figureArea, 2);
    middle->addWidget(scrolled(m_view), 3);
    m_tabs->addTab(createMaintenance(), tr("Maintenance"));
    m_tabs->addTab(createEpisodes(), tr("Episodes"));
    m_tabs->addTab(createNotes(), tr("Notes"));
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addLayout(middle, 2); // all of the picture in a screen of 768 lines
    layout->addWidget(m_tabs, 1);
    layout->addLayout(createButtons());
    m_ofLedger.insert(m_ofLedger.end(), {m_figures, m_view, m_tabs});
    for (auto* button : findChildren<QPushButton*>())
        button->setAutoDefault(false); // Return opens the chosen line of a table
    resizeForFont(*this, firstSize);
}

QWidget* EngineWindow::createMaintenance()
{
    auto* const page = new QWidget;
    m_limits = createTable({tr("What"), tr("Left"), tr("Due"), tr("Every"), tr("Last done")},
                           "limitTable");
    m_noLimits = new EmptyNote(m_limits);
    const auto button = [this](const QString& text, const QString& tip, auto&& action) {
        auto* const made = new QPushButton(text);
        made->setToolTip(tip);
        connect(made, &QPushButton::clicked, this, action);
        return made;
    };
    QPushButton* const add =
        button(tr("Add..."), tr("A new maintenance limit"), &EngineWindow::addLimit);
    add->setObjectName(QStringLiteral("addLimit"));
    m_ofLimit = {button(tr("Done now"), tr("It was done today, at the present hours"),
                        &EngineWindow::finishLimit),
                 button(tr("Change..."), tr("Change the chosen limit"), &EngineWindow::editLimit),
                 button(tr("Remove"), tr("Remove the chosen limit"), &EngineWindow::removeLimit)};
    m_ofLimit[0]->setObjectName(QStringLiteral("doneLimit"));
    auto* const row = new QHBoxLayout;
    row->addWidget(add);
    for (QPushButton* one : m_ofLimit)
        row->addWidget(one);
    row->addStretch();
    QPushButton* const before =
        button(tr("Hours before..."),
               tr("Hours of the engine at its first recorded run, if they are not those of the "
                  "unit's counter"),
               &EngineWindow::editHours);
    before->setObjectName(QStringLiteral("hoursBefore"));
    row->addWidget(before);
    auto* const layout = new QVBoxLayout(page);
    layout->addWidget(m_limits);
    layout->addLayout(row);
    connect(m_limits, &QTreeWidget::itemSelectionChanged, this, &EngineWindow::showState);
    connect(m_limits, &QTreeWidget::itemActivated, this, &EngineWindow::editLimit);
    return page;
}

QWidget* EngineWindow::createEpisodes()
{
    m_episodes = createTable(
        {tr("When"), tr("Quantity"), tr("State"), tr("Beyond the warning"), tr("Beyond the limit")},
        "episodeTable");
    m_noEpisodes = new EmptyNote(m_episodes);
    connect(m_episodes, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item) {
        const auto row = static_cast<std::size_t>(m_episodes->indexOfTopLevelItem(item));
        if (row < m_ledger.episodes.size()) {
            const EpisodeRow& episode = m_ledger.episodes[row];
            emit signalOpen(episode.folder, episode.episode.flight.value_or(0));
        }
    });
    return m_episodes;
}

QWidget* EngineWindow::createNotes()
{
    auto* const page = new QWidget;
    m_notes = createTable({tr("When"), tr("Note"), tr("By")}, "noteTable");
    // A long text is cut, not the name of who wrote it.
    m_notes->header()->setStretchLastSection(false);
    for (int column = 0; column < m_notes->columnCount(); ++column)
        m_notes->header()->setSectionResizeMode(
            column, column == 1 ? QHeaderView::Stretch : QHeaderView::ResizeToContents);
    m_noNotes = new EmptyNote(m_notes);
    auto* const add = new QPushButton(tr("Add..."));
    auto* const edit = new QPushButton(tr("Change..."));
    auto* const remove = new QPushButton(tr("Remove"));
    add->setToolTip(tr("A new note on this engine"));
    edit->setToolTip(tr("Change the chosen note"));
    remove->setToolTip(tr("Remove the chosen note"));
    m_ofNote = {edit, remove};
    connect(add, &QPushButton::clicked, this, [this] { editNote(nullptr); });
    connect(edit, &QPushButton::clicked, this, [this] { editNote(chosenNote()); });
    connect(remove, &QPushButton::clicked, this, &EngineWindow::removeNote);
    auto* const row = new QHBoxLayout;
    for (QPushButton* one : {add, edit, remove})
        row->addWidget(one);
    row->addStretch();
    auto* const layout = new QVBoxLayout(page);
    layout->addWidget(m_notes);
    layout->addLayout(row);
    connect(m_notes, &QTreeWidget::itemSelectionChanged, this, &EngineWindow::showState);
    connect(m_notes, &QTreeWidget::itemActivated, this, [this] { editNote(chosenNote()); });
    return page;
}

QLayout* EngineWindow::createButtons()
{
    auto* const row = new QHBoxLayout;
    auto* const print = new QPushButton(tr("Print..."));
    print->setObjectName(QStringLiteral("printLedger"));
    print->setToolTip(tr("Print the ledger, or save it as a PDF file"));
    auto* const copy = new QPushButton(tr("Copy picture"));
    copy->setObjectName(QStringLiteral("copyLedger"));
    copy->setToolTip(tr("Copy months and limit bands as a picture"));
    auto* const close = new QPushButton(tr("Close"));
    connect(print, &QPushButton::clicked, this, &EngineWindow::print);
    connect(copy, &QPushButton::clicked, this, &EngineWindow::copy);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    m_ofLedger.insert(m_ofLedger.end(), {print, copy});
    auto* const installations = new QPushButton(tr("Installations..."));
    installations->setObjectName(QStringLiteral("installations"));
    installations->setToolTip(tr("Say which engine was in which unit from when to when"));
    connect(installations, &QPushButton::clicked, this, &EngineWindow::signalInstallations);
    row->addWidget(installations);
    row->addStretch();
    for (QPushButton* one : {print, copy, close})
        row->addWidget(one);
    return row;
}

void EngineWindow::setEngines(const QStringList& engines)
{
    const QString shown = m_engines->currentText();
    m_engines->clear();
    m_engines->addItems(engines);
    m_engines->setCurrentText(shown);
    m_engines->setEnabled(engines.size() > 1);
}

void EngineWindow::setLedger(const EngineLedger& ledger, const QDate& today)
{
    m_ledger = ledger;
    m_today = today;
    m_hasLedger = true;
    m_engines->setCurrentText(ledger.engine.engine);
    m_view->setChart(ledgerChart(ledger));
    fillFigures();
    fillMaintenance();
    fillEpisodes();
    fillNotes();
    showState();
}

void EngineWindow::showNote(const QString& text)
{
    m_ledger = {};
    m_hasLedger = false;
    m_view->setChart({});
    fillFigures();
    fillMaintenance();
    fillEpisodes();
    fillNotes();
    showState();
    m_state->setText(text);
}

void EngineWindow::showState()
{
    for (QWidget* widget : m_ofLedger)
        widget->setEnabled(m_hasLedger);
    for (QPushButton* button : m_ofLimit)
        button->setEnabled(chosenLimit() != nullptr);
    const auto tellEmpty = [this](EmptyNote& note, bool isEmpty, const QString& text) {
        note.showNote(m_hasLedger && isEmpty ? text : QString());
    };
    tellEmpty(*m_noLimits, m_ledger.limits.empty(),
              tr("No maintenance limits yet. Add what is to be done every 100 h or every year."));
    tellEmpty(*m_noEpisodes, m_ledger.episodes.empty(), tr("No quantity was beyond a limit."));
    tellEmpty(*m_noNotes, m_ledger.notes.empty(), tr("No notes on this engine yet."));
    for (QPushButton* button : m_ofNote)
        button->setEnabled(chosenNote() != nullptr);
    QStringList due;
    for (const MaintenanceState& limit : m_ledger.limits) {
        if (limit.state != DueState::Ok)
            due << QStringLiteral("%1: %2").arg(limit.limit.title, dueStateText(limit.state));
    }
    m_state->setText(due.join(QStringLiteral(", ")));
}

void EngineWindow::fillFigures()
{
    while (m_figureRows->rowCount() > 0)
        m_figureRows->removeRow(0);
    if (!m_hasLedger)
        return;
    for (const auto& [name, value] : ledgerFigures(m_ledger)) {
        auto* const label = new QLabel(value);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        m_figureRows->addRow(name, label);
    }
    m_figureArea->setMinimumWidth(m_figures->minimumSizeHint().width() +
                                  m_figureArea->verticalScrollBar()->sizeHint().width());
}

void EngineWindow::fillMaintenance()
{
    m_limits->clear();
    for (const MaintenanceState& state : m_ledger.limits) {
        auto* const item = new QTreeWidgetItem(
            m_limits, {state.limit.title, leftText(state, m_today), dueText(state),
                       intervalText(state.limit), lastDoneText(state.limit)});
        item->setIcon(0, markIcon(markOf(state.state)));
        item->setToolTip(0, dueStateText(state.state));
    }
    fitColumns(*m_limits);
}

void EngineWindow::fillEpisodes()
{
    m_episodes->clear();
    QList<QTreeWidgetItem*> items;
    for (const EpisodeRow& row : m_ledger.episodes) {
        const EpisodeRecord& episode = row.episode;
        const bool isLimit = episode.state == ThresholdState::Limit || episode.isLampOnly;
        auto* const item = new QTreeWidgetItem(
            {row.dateTime.toString(QStringLiteral("d.M.yyyy hh:mm:ss")), episode.quantity,
             isLimit ? tr("limit") : tr("warning"),
             episode.isLampOnly ? QString() : durationText(episode.secondsBeyondWarning),
             episode.isLampOnly ? QString() : durationText(episode.secondsBeyondLimit)});
        item->setIcon(2, markIcon(isLimit ? StateMark::Limit : StateMark::Warning));
        items << item;
    }
    m_episodes->addTopLevelItems(items);
    fitColumns(*m_episodes);
}

void EngineWindow::fillNotes()
{
    m_notes->clear();
    for (const Note& note : m_ledger.notes) {
        const QDateTime time =
            note.place.dateTime.isValid() ? note.place.dateTime : note.item.changed;
        auto* const item =
            new QTreeWidgetItem(m_notes, {time.toString(QStringLiteral("d.M.yyyy hh:mm")),
                                          note.text.simplified(), note.item.author});
        item->setToolTip(1, plainToolTip(note.text));
    }
}

} // namespace KOLT
