#include "record/ui/DialogCard.h"

#include "record/CardContainer.h"
#include "record/ClockTime.h"

#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QSignalBlocker>
#include <QStackedLayout>
#include <QTabWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <optional>

namespace KOLT {

namespace {

constexpr int settlingMilliseconds = 500;
constexpr int valueRole = Qt::UserRole; ///< cycle number, or path of the file
constexpr int flightRole = Qt::UserRole + 1;
constexpr int wholeCycle = -1;
constexpr int pageMargin = 3;
constexpr int iconPixels = 16;
constexpr int headingPixels = 20;
constexpr int cycleNameWidth = 13;
constexpr QColor headingColor(195, 171, 99);

const auto dateTimeFormat = QStringLiteral("d.M.yyyy h:mm:ss");
const auto timeFormat = QStringLiteral("hh:mm:ss");

QString timeText(double seconds)
{
    return clockTime(seconds).toString(timeFormat);
}

/// A tree whose day headings are filled over the full width.
class DayTree : public QTreeWidget
{
public:
    using QTreeWidget::QTreeWidget;

protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override
    {
        if (!index.flags().testFlag(Qt::ItemIsSelectable) && !index.parent().isValid())
            painter->fillRect(option.rect, headingColor);
        QTreeWidget::drawRow(painter, option, index);
    }
};

/// Inserts a heading before the first entry of each day.
class DayHeadings
{
public:
    explicit DayHeadings(QTreeWidget& tree)
        : m_tree(tree)
    {
    }

    void begin(const QDate& date)
    {
        if (m_previous && *m_previous == date)
            return;
        m_previous = date;
        auto* const item = new QTreeWidgetItem(&m_tree);
        item->setText(0, date.isValid() ? date.toString(QStringLiteral("dd.MM.yyyy"))
                                        : DialogCard::tr("Unknown Date"));
        QFont font = m_tree.font();
        font.setWeight(QFont::Bold);
        font.setPixelSize(headingPixels);
        item->setFont(0, font);
        item->setBackground(0, QBrush(headingColor));
        item->setForeground(0, QBrush(Qt::black));
        item->setFlags(Qt::ItemIsEnabled);
        item->setTextAlignment(0, Qt::AlignCenter);
    }

private:
    QTreeWidget& m_tree;
    std::optional<QDate> m_previous;
};

void addDetail(QTreeWidgetItem* file, const QString& label, const QString& value)
{
    auto* const item = new QTreeWidgetItem(file);
    item->setText(0, QStringLiteral("%1: %2").arg(label, value));
    item->setFlags(Qt::ItemIsEnabled); // for reading only: it cannot be selected
}

void addDetails(QTreeWidgetItem* file, const RecordInfo& info)
{
    addDetail(file, DialogCard::tr("Date"), info.dateTime.toString(dateTimeFormat));
    addDetail(file, DialogCard::tr("Start Time"), timeText(info.startSeconds));
    addDetail(file, DialogCard::tr("Stop Time"), timeText(info.stopSeconds));
    addDetail(file, DialogCard::tr("Bus Type"), QString::number(info.busType));
    addDetail(file, DialogCard::tr("ECU Serial Number"), QString::number(info.ecuSerialNumber));
    addDetail(file, DialogCard::tr("Software Part Nr. A"), info.softwarePartA);
    addDetail(file, DialogCard::tr("Software Part Nr. B"), info.softwarePartB);
    addDetail(file, DialogCard::tr("ECU Type"), info.ecuType);
    addDetail(file, DialogCard::tr("EMU SW Version"), info.emuVersion);
    addDetail(file, DialogCard::tr("Engine Serial Nr."), info.engineSerial);
    addDetail(file, DialogCard::tr("Engine Type"), info.engineType);
    addDetail(file, DialogCard::tr("Samples Total"), QString::number(info.sampleCount));
}

} // namespace

DialogCard::DialogCard(CardContainer& card, QWidget* parent)
    : QWidget(parent)
    , m_card(card)
{
    m_tabs = new QTabWidget(this);
    m_tabs->setIconSize(QSize(iconPixels, iconPixels));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_tabs);
    m_cyclesPage = createPage(tr("Cycles"));
    m_rawDataPage = createPage(tr("Raw Data"));
    m_cyclesPage.tree->setObjectName(QStringLiteral("cyclesTree"));
    m_rawDataPage.tree->setObjectName(QStringLiteral("rawDataTree"));
    m_rawDataPage.tree->setSelectionMode(QAbstractItemView::ExtendedSelection);

    for (QTimer* timer : {&m_recordTimer, &m_cycleTimer}) {
        timer->setSingleShot(true);
        timer->setTimerType(Qt::PreciseTimer); // a coarse timer may fire early
        timer->setInterval(settlingMilliseconds);
    }
    connect(&m_recordTimer, &QTimer::timeout, this, &DialogCard::slotTimeout);
    connect(&m_cycleTimer, &QTimer::timeout, this, &DialogCard::slotTimeoutLoadCycle);
    connect(m_rawDataPage.tree, &QTreeWidget::itemSelectionChanged, this, &DialogCard::slotSelect);
    connect(m_cyclesPage.tree, &QTreeWidget::itemSelectionChanged, this,
            &DialogCard::slotSelectCycle);
    connect(m_rawDataPage.tree, &QTreeWidget::itemPressed, this,
            [this](QTreeWidgetItem* item) { repeatChoice(*item, false); });
    connect(m_cyclesPage.tree, &QTreeWidget::itemPressed, this,
            [this](QTreeWidgetItem* item) { repeatChoice(*item, true); });
    refresh();
}

DialogCard::Page DialogCard::createPage(const QString& title)
{
    auto* const widget = new QWidget(m_tabs);
    Page page;
    page.name = new QLineEdit(widget);
    page.name->setReadOnly(true);
    page.name->setToolTip(tr("The folder that is open"));
    page.tree = new DayTree(widget);
    page.tree->setHeaderHidden(true);
    page.tree->setSelectionMode(QAbstractItemView::SingleSelection);
    page.empty = new QLabel(widget);
    page.empty->setTextFormat(Qt::PlainText);
    page.empty->setAlignment(Qt::AlignCenter);
    page.empty->setWordWrap(true);
    page.stack = new QStackedLayout;
    page.stack->addWidget(page.tree);
    page.stack->addWidget(page.empty);

    auto* const layout = new QVBoxLayout(widget);
    layout->setContentsMargins(pageMargin, pageMargin, pageMargin, pageMargin);
    layout->addWidget(page.name);
    layout->addLayout(page.stack);
    m_tabs->addTab(widget, title);
    return page;
}

void DialogCard::refresh()
{
    m_recordTimer.stop();
    m_cycleTimer.stop();
    m_hasFailed = false;
    fillRawData();
    fillCycles();
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
                        "folder "
                        "with \"Open Data Folder\".")
                         .arg(m_missingFolder);
    const QFileInfo info(folder);
    if (!info.isDir())
        return tr("The folder no longer exists.");
    if (!info.isReadable() || !info.isExecutable())
        return tr("The folder cannot be read. Please check its permissions.");
    return tr("No record files in this folder");
}

void DialogCard::clear(const Page& page)
{
    const QSignalBlocker blocker(page.tree); // the user deselected nothing
    page.name->setText(m_card.folder());
    page.tree->clear();
    page.empty->setText(whyEmpty());
    page.stack->setCurrentIndex(m_card.files().empty() ? 1 : 0);
}

void DialogCard::fillRawData()
{
    clear(m_rawDataPage);
    QFont highlight = font();
    highlight.setWeight(QFont::Bold);
    const QIcon icon(QStringLiteral(":/icons/file.svg"));
    DayHeadings headings(*m_rawDataPage.tree);
    for (const auto& [name, file] : m_card.files()) {
        const RecordInfo& info = file.info();
        headings.begin(info.dateTime.date());
        auto* const item = new QTreeWidgetItem(m_rawDataPage.tree);
        item->setText(0, file.path().section(QLatin1Char('/'), -1) + QStringLiteral("   ") +
                             info.dateTime.toString(dateTimeFormat));
        item->setIcon(0, icon);
        item->setData(0, valueRole, file.path());
        item->setData(0, flightRole, wholeCycle);
        if (info.dateInvalid)
            item->setFont(0, highlight);
        item->setToolTip(0, tr("Start Time: ") + timeText(info.startSeconds) + QLatin1Char('\n') +
                                tr("Stop Time: ") + timeText(info.stopSeconds));
        addDetails(item, info);
    }
}

void DialogCard::fillCycles()
{
    clear(m_cyclesPage);
    m_cycleItems.clear();
    DayHeadings headings(*m_cyclesPage.tree);
    for (const auto& [number, cycle] : m_card.cycles()) {
        headings.begin(cycle.dateTime.date());
        m_cycleItems[static_cast<unsigned int>(number)] = addCycle(cycle);
    }
}

QTreeWidgetItem* DialogCard::addCycle(const Cycle& cycle)
{
    auto* const item = new QTreeWidgetItem(m_cyclesPage.tree);
    item->setText(0, QStringLiteral("%1 %2 (%3)")
                         .arg(cycle.name.leftJustified(cycleNameWidth),
                              cycle.dateTime.toString(dateTimeFormat),
                              durationText(cycle.durationSeconds())));
    item->setIcon(0, QIcon(QStringLiteral(":/icons/cycle.svg")));
    item->setData(0, valueRole, static_cast<unsigned int>(cycle.number));
    item->setData(0, flightRole, wholeCycle);
    return item;
}

void DialogCard::listFlights(unsigned int cycle)
{
    const auto found = m_cycleItems.find(cycle);
    if (found == m_cycleItems.end())
        return;
    QTreeWidgetItem* const cycleItem = found->second;
    const QSignalBlocker blocker(m_cyclesPage.tree);
    int selected = wholeCycle; // keep a flight selected that the user has picked meanwhile
    for (int i = 0; i < cycleItem->childCount(); ++i) {
        if (cycleItem->child(i)->isSelected())
            selected = i;
    }
    qDeleteAll(cycleItem->takeChildren());
    int index = 0;
    for (const Flight& flight : m_card.flightsOf(static_cast<int>(cycle))) {
        auto* const item = new QTreeWidgetItem(cycleItem);
        item->setText(0, tr("Flight %1 %2 (%3)")
                             .arg(QString::number(index + 1), flight.dateTime.toString(timeFormat),
                                  durationText(flight.endSeconds - flight.startSeconds)));
        item->setIcon(0, QIcon(QStringLiteral(":/icons/flight.svg")));
        item->setData(0, valueRole, cycle);
        item->setData(0, flightRole, index);
        ++index;
    }
    cycleItem->setExpanded(true);
    if (selected >= 0 && selected < index)
        m_cyclesPage.tree->setCurrentItem(cycleItem->child(selected));
}

void DialogCard::deselect(const Page& page)
{
    const QSignalBlocker blocker(page.tree);
    page.tree->clearSelection();
}

void DialogCard::selectOnly(const Page& page, const QList<QTreeWidgetItem*>& items)
{
    deselect(m_cyclesPage);
    deselect(m_rawDataPage);
    const QSignalBlocker blocker(page.tree);
    for (QTreeWidgetItem* item : items) {
        if (item == items.front())
            page.tree->setCurrentItem(item, 0, QItemSelectionModel::NoUpdate);
        item->setSelected(true);
    }
    m_cycleTimer.stop();
    m_recordTimer.stop();
}

void DialogCard::showFiles(const std::list<QString>& paths)
{
    QList<QTreeWidgetItem*> items;
    for (int i = 0; i < m_rawDataPage.tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem* const item = m_rawDataPage.tree->topLevelItem(i);
        if (std::ranges::find(paths, item->data(0, valueRole).toString()) != paths.end())
            items.push_back(item);
    }
    selectOnly(m_rawDataPage, items);
}

void DialogCard::showCycle(unsigned int cycle, int flight)
{
    const auto found = m_cycleItems.find(cycle);
    if (found == m_cycleItems.end()) {
        showNothing();
        return;
    }
    QTreeWidgetItem* const item = found->second;
    const bool isListed = flight >= 0 && flight < item->childCount();
    selectOnly(m_cyclesPage, {isListed ? item->child(flight) : item});
}

void DialogCard::showNothing()
{
    selectOnly(m_cyclesPage, {});
}

void DialogCard::repeatChoice(const QTreeWidgetItem& pressed, bool isCycle)
{
    // Repeats a choice that failed, as the card may have been inserted since. A choice that is
    // loaded is left alone, which also keeps the current time.
    if (!m_hasFailed || !pressed.isSelected())
        return;
    if (isCycle)
        slotSelectCycle();
    else
        slotSelect();
}

void DialogCard::slotSelect()
{
    m_hasFailed = false;
    m_selectedPaths.clear();
    for (const QTreeWidgetItem* item : m_rawDataPage.tree->selectedItems())
        m_selectedPaths.push_back(item->data(0, valueRole).toString());
    // A click beside the files chooses nothing.
    if (m_selectedPaths.empty()) {
        m_recordTimer.stop();
        return;
    }
    deselect(m_cyclesPage); // one choice at a time
    m_cycleTimer.stop();
    m_recordTimer.start();
}

void DialogCard::slotSelectCycle()
{
    m_hasFailed = false;
    m_selectedPaths.clear();
    const QList<QTreeWidgetItem*> selected = m_cyclesPage.tree->selectedItems();
    for (const QTreeWidgetItem* item : selected) {
        m_selectedCycle = item->data(0, valueRole).toUInt();
        m_selectedFlight = item->data(0, flightRole).toInt();
    }
    if (selected.isEmpty()) {
        m_cycleTimer.stop();
        return;
    }
    deselect(m_rawDataPage);
    m_recordTimer.stop();
    m_cycleTimer.start();
}

void DialogCard::slotTimeout()
{
    emit signalLoadRecord(m_selectedPaths);
}

void DialogCard::slotTimeoutLoadCycle()
{
    const unsigned int cycle = m_selectedCycle;
    const int flight = m_selectedFlight;
    emit signalLoadCycle(cycle, flight);
    if (flight == wholeCycle)
        listFlights(cycle);
}

} // namespace KOLT
