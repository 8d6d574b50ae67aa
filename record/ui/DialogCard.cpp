#include "record/ui/DialogCard.h"

#include "record/CardContainer.h"
#include "record/ui/CycleList.h"
#include "record/ui/RecordList.h"

#include <QFileInfo>
#include <QShortcut>
#include <QTabWidget>
#include <QVBoxLayout>

namespace KOLT {

namespace {

constexpr int settlingMilliseconds = 500;
constexpr QSize iconSize(16, 16);

} // namespace

DialogCard::DialogCard(CardContainer& card, QWidget* parent)
    : QWidget(parent)
    , m_card(card)
    , m_tabs(new QTabWidget(this))
    , m_cycles(new CycleList(this))
    , m_records(new RecordList(this))
{
    m_tabs->setIconSize(iconSize);
    m_tabs->addTab(m_cycles, tr("Cycles"));
    m_tabs->addTab(m_records, tr("Raw Data"));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_tabs);

    for (QTimer* timer : {&m_recordTimer, &m_cycleTimer}) {
        timer->setSingleShot(true);
        timer->setTimerType(Qt::PreciseTimer); // a coarse timer may fire early
        timer->setInterval(settlingMilliseconds);
    }
    connect(&m_recordTimer, &QTimer::timeout, this, &DialogCard::slotTimeout);
    connect(&m_cycleTimer, &QTimer::timeout, this, &DialogCard::slotTimeoutLoadCycle);
    const QTreeWidget& records = m_records->tree();
    connect(&records, &QTreeWidget::itemSelectionChanged, this, &DialogCard::slotSelect);
    connect(&records, &QTreeWidget::itemPressed, this, [this](const QTreeWidgetItem* item) {
        if (isRepeated(item))
            slotSelect();
    });
    const QTreeWidget& cycles = m_cycles->tree();
    connect(&cycles, &QTreeWidget::itemSelectionChanged, this, &DialogCard::slotSelectCycle);
    connect(&cycles, &QTreeWidget::itemPressed, this, [this](const QTreeWidgetItem* item) {
        if (isRepeated(item))
            slotSelectCycle();
    });
    for (QTreeWidget* tree : {&m_records->tree(), &m_cycles->tree()}) {
        auto* const escape = new QShortcut(Qt::Key_Escape, tree);
        escape->setContext(Qt::WidgetShortcut);
        connect(escape, &QShortcut::activated, this, &DialogCard::signalOverview);
    }
    connect(m_cycles, &CardList::signalMark, this, [this](const QTreeWidgetItem* item) {
        const CycleList::Choice choice = CycleList::choiceOf(*item);
        emit signalCycleMark(choice.cycle, choice.flight);
    });
    connect(m_records, &CardList::signalMark, this, [this](const QTreeWidgetItem* item) {
        emit signalFileMark(RecordList::fileOf(*item));
    });
    refresh();
}

void DialogCard::addTab(QWidget* page, const QString& text)
{
    m_tabs->addTab(page, text);
}

void DialogCard::refresh()
{
    forgetChoice();
    m_hasFailed = false;
    const QString note = whyEmpty();
    m_records->fill(m_card, note);
    m_cycles->fill(m_card, note);
}

void DialogCard::setMissingFolder(const QString& folder)
{
    m_missingFolder = folder;
    refresh();
}

QString DialogCard::whyEmpty() const
{
    const QString folder = m_card.folder();
    if (folder.isEmpty())
        return m_missingFolder.isEmpty()
                   ? tr("No folder is open. Choose one with \"Open Data Folder\".")
                   : tr("The folder\n%1\ncannot be found. Insert the card, or choose another "
                        "folder with \"Open Data Folder\".")
                         .arg(m_missingFolder);
    const QFileInfo info(folder);
    if (!info.isDir())
        return tr("The folder no longer exists.");
    if (!info.isReadable() || !info.isExecutable())
        return tr("The folder cannot be read. Please check its permissions.");
    if (folder == QLatin1String(".")) // the default of the settings
        return tr("No folder is open yet.");
    return tr("No record files in this folder: their names end with .CAN, .can or .xcb. Folders "
              "inside it are not searched.");
}

void DialogCard::listFlights(unsigned int cycle)
{
    m_cycles->listFlights(cycle, m_card.flightsOf(static_cast<int>(cycle)));
}

void DialogCard::setMarks(unsigned int cycle, StateMark mark, const std::vector<StateMark>& flights)
{
    m_cycles->setMarks(cycle, mark, flights);
}

void DialogCard::setTrust(unsigned int cycle, const std::vector<TrustFinding>& findings)
{
    m_cycles->setTrust(cycle, findings);
    m_records->setTrust(cycle, findings);
}

void DialogCard::forgetChoice()
{
    m_cycleTimer.stop();
    m_recordTimer.stop();
}

void DialogCard::showFiles(const std::list<QString>& paths)
{
    showNothing();
    m_records->selectOnly(m_records->itemsOf(paths));
}

void DialogCard::showCycle(unsigned int cycle, int flight)
{
    showNothing();
    QTreeWidgetItem* const item = m_cycles->itemOf({cycle, flight});
    if (item != nullptr)
        m_cycles->selectOnly({item});
}

void DialogCard::showNothing()
{
    forgetChoice();
    m_cycles->selectOnly({});
    m_records->selectOnly({});
}

bool DialogCard::isRepeated(const QTreeWidgetItem* pressed) const
{
    // A choice that failed can be repeated, as the card may have been inserted since. A choice that
    // is loaded is left alone, which also keeps the current time.
    return m_hasFailed && pressed->isSelected();
}

void DialogCard::choose(QTimer& timer, CardList& other)
{
    forgetChoice(); // one choice at a time
    other.selectOnly({});
    timer.start();
}

void DialogCard::slotSelect()
{
    m_hasFailed = false;
    if (m_records->selectedPaths().empty()) // a click beside the files chooses nothing
        m_recordTimer.stop();
    else
        choose(m_recordTimer, *m_cycles);
}

void DialogCard::slotSelectCycle()
{
    m_hasFailed = false;
    if (!m_cycles->selected())
        m_cycleTimer.stop();
    else
        choose(m_cycleTimer, *m_records);
}

void DialogCard::slotTimeout()
{
    emit signalLoadRecord(m_records->selectedPaths());
}

void DialogCard::slotTimeoutLoadCycle()
{
    const CycleList::Choice choice = m_cycles->selected().value_or(CycleList::Choice{});
    emit signalLoadCycle(choice.cycle, choice.flight);
    if (choice.flight == CycleList::Choice::wholeCycle)
        listFlights(choice.cycle);
}

} // namespace KOLT
