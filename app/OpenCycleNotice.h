#pragma once

#include "library/archive/ArchivedCycle.h"

#include <QObject>
#include <QSet>

namespace KOLT {

class CardSession;
class NoticeBar;

/// Watches the cycle of the library that is open, while an import changes the archive: tells in a
/// bar when it has more files now, also when its folder was renamed after an earlier file, and when
/// it was taken back. What is shown stays until the user wants to see the new state.
class OpenCycleNotice : public QObject
{
    Q_OBJECT

public:
    /// The arguments must outlive it.
    OpenCycleNotice(CardSession& card, NoticeBar& bar);

    /// The archive has another state of this cycle, or has it no more.
    void noteCycle(const KOLT::Library::ArchivedCycle& cycle);
    void noteRemoved(const QString& folder);

signals:
    /// The user wants to see the cycle in this folder of the archive, as it is now.
    void signalShow(const QString& folder);

private:
    void noteListed();

    CardSession& m_card;
    NoticeBar& m_bar;
    QString m_root;        ///< of the archive that the open folder belongs to; empty: none
    QString m_folder;      ///< below it
    QSet<QString> m_files; ///< hashes and names of its files
    QString m_changed;     ///< the folder that the cycle is in now
};

} // namespace KOLT
