#include "app/OpenCycleNotice.h"

#include "app/CardSession.h"
#include "library/archive/Archive.h"
#include "ui/NoticeBar.h"

#include <QDir>

namespace KOLT {

using namespace Library;

namespace {

/// Of the folder of a cycle: <archive>/<unit>/<year>/<cycle>.
constexpr int levels = 3;

QSet<QString> filesOf(const ArchivedCycle& cycle)
{
    QSet<QString> files;
    for (const ArchivedFile& file : cycle.files)
        files.insert(file.sha256 + QLatin1Char(' ') + file.name);
    return files;
}

} // namespace

OpenCycleNotice::OpenCycleNotice(CardSession& card, NoticeBar& bar)
    : m_card(card)
    , m_bar(bar)
{
    connect(&card, &CardSession::signalListed, this, &OpenCycleNotice::noteListed);
    connect(&bar, &NoticeBar::signalAction, this, [this] { emit signalShow(m_changed); });
}

void OpenCycleNotice::noteListed()
{
    m_bar.hide();
    m_root.clear();
    m_files.clear();
    const QString path = QDir::cleanPath(m_card.container().folder());
    const QString root = path.section(QLatin1Char('/'), 0, -levels - 1);
    Archive archive;
    if (root.isEmpty() || !Archive::isArchive(root) || !archive.open(root))
        return;
    m_folder = path.section(QLatin1Char('/'), -levels);
    if (const auto cycle = archive.cycle(m_folder)) {
        m_root = root;
        m_files = filesOf(*cycle);
    }
}

void OpenCycleNotice::noteCycle(const ArchivedCycle& cycle)
{
    const QSet<QString> files = filesOf(cycle);
    if (m_root.isEmpty() || !m_files.intersects(files) || files == m_files)
        return;
    m_changed = cycle.folder;
    const auto more = static_cast<int>((files - m_files).size());
    m_bar.showNotice(
        more > 0 ? tr("An import has added %n file(s) to the cycle that is open.", nullptr, more)
                 : tr("An import was taken back: the cycle that is open has fewer "
                      "files now."),
        tr("Show it as it is now"));
}

void OpenCycleNotice::noteRemoved(const QString& folder)
{
    if (m_root.isEmpty() || folder != m_folder)
        return;
    // If it was renamed, this is followed by its new folder.
    m_bar.showNotice(tr("The cycle that is open is no longer in the library. What was loaded of it "
                        "stays until you open something else."));
}

} // namespace KOLT
