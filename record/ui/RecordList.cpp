#include "record/ui/RecordList.h"

#include "record/CardContainer.h"
#include "record/ClockTime.h"
#include "ui/PaintedIcon.h"

#include <algorithm>
#include <initializer_list>
#include <set>

namespace KOLT {

namespace {

constexpr int pathRole = Qt::UserRole;

const auto dateTimeFormat = QStringLiteral("d.M.yyyy h:mm:ss");

QString timeText(double seconds)
{
    return clockTime(seconds).toString(QStringLiteral("hh:mm:ss"));
}

void addDetail(QTreeWidgetItem* file, const QString& label, const QString& value)
{
    auto* const item = new QTreeWidgetItem(file);
    item->setText(0, QStringLiteral("%1: %2").arg(label, value));
    item->setFlags(Qt::ItemIsEnabled); // for reading only: it cannot be selected
    item->setFirstColumnSpanned(true);
}

void addDetails(QTreeWidgetItem* file, const RecordInfo& info)
{
    addDetail(file, RecordList::tr("Date"), info.dateTime.toString(dateTimeFormat));
    addDetail(file, RecordList::tr("Start Time"), timeText(info.startSeconds));
    addDetail(file, RecordList::tr("Stop Time"), timeText(info.stopSeconds));
    addDetail(file, RecordList::tr("Bus Type"), QString::number(info.busType));
    addDetail(file, RecordList::tr("ECU Serial Number"), QString::number(info.ecuSerialNumber));
    addDetail(file, RecordList::tr("Software Part Nr. A"), info.softwarePartA);
    addDetail(file, RecordList::tr("Software Part Nr. B"), info.softwarePartB);
    addDetail(file, RecordList::tr("ECU Type"), info.ecuType);
    addDetail(file, RecordList::tr("EMU SW Version"), info.emuVersion);
    addDetail(file, RecordList::tr("Engine Serial Nr."), info.engineSerial);
    addDetail(file, RecordList::tr("Engine Type"), info.engineType);
    addDetail(file, RecordList::tr("Samples Total"), QString::number(info.sampleCount));
}

} // namespace

RecordList::RecordList(QWidget* parent)
    : CardList(parent)
{
    tree().setObjectName(QStringLiteral("rawDataTree"));
    tree().setAccessibleName(tr("Raw Data"));
    tree().setSelectionMode(QAbstractItemView::ExtendedSelection);
}

void RecordList::fillTree(const CardContainer& card)
{
    m_items.clear();
    m_findings.clear();
    QFont highlight = font();
    highlight.setWeight(QFont::Bold);
    const QIcon icon = lookIcon(QStringLiteral("file"));
    for (const auto& [name, file] : card.files()) {
        const RecordInfo& info = file.info();
        QTreeWidgetItem* const item = addEntry(info.dateTime.date());
        item->setText(0, file.path().section(QLatin1Char('/'), -1) + QStringLiteral("   ") +
                             info.dateTime.toString(dateTimeFormat));
        item->setIcon(0, icon);
        item->setData(0, pathRole, file.path());
        item->setData(0, pathRole + 1, -1); // fixed for files
        if (info.dateInvalid)
            item->setFont(0, highlight);
        item->setToolTip(0, tr("Start Time: ") + timeText(info.startSeconds) + QLatin1Char('\n') +
                                tr("Stop Time: ") + timeText(info.stopSeconds));
        addDetails(item, info);
        m_items[name] = item;
    }
}

QString RecordList::fileOf(const QTreeWidgetItem& item)
{
    return item.data(0, pathRole).toString().section(QLatin1Char('/'), -1);
}

void RecordList::setTrust(unsigned int cycle, const std::vector<TrustFinding>& findings)
{
    std::vector<TrustFinding>& known = m_findings[cycle];
    std::set<QString> files; // those that were named, too: their marks may have to go
    for (const auto* const some :
         std::initializer_list<const std::vector<TrustFinding>*>{&known, &findings}) {
        for (const TrustFinding& finding : *some)
            files.insert(finding.files.begin(), finding.files.end());
    }
    known = findings;
    for (const QString& file : files) {
        if (const auto found = m_items.find(file); found != m_items.end())
            showTrust(*found->second, findingsOf(file));
    }
}

RecordList::Findings RecordList::findingsOf(const QString& file) const
{
    Findings found;
    for (const auto& [cycle, findings] : m_findings) {
        for (const TrustFinding& finding : findings) {
            // Neighbouring cycles may tell the same of the files between them.
            const bool isTold =
                std::ranges::find(found, finding.text, &TrustFinding::text) != found.end();
            if (!isTold && std::ranges::find(finding.files, file) != finding.files.end())
                found.push_back(&finding);
        }
    }
    return found;
}

std::list<QString> RecordList::selectedPaths() const
{
    std::list<QString> paths;
    for (const QTreeWidgetItem* item : tree().selectedItems())
        paths.push_back(item->data(0, pathRole).toString());
    return paths;
}

QList<QTreeWidgetItem*> RecordList::itemsOf(const std::list<QString>& paths) const
{
    QList<QTreeWidgetItem*> items;
    for (int i = 0; i < tree().topLevelItemCount(); ++i) {
        QTreeWidgetItem* const item = tree().topLevelItem(i);
        if (std::ranges::find(paths, item->data(0, pathRole).toString()) != paths.end())
            items.push_back(item);
    }
    return items;
}

} // namespace KOLT
