#include "app/NotesReader.h"

#include "library/ledger/Logbook.h"

#include <utility>

namespace KOLT {

NotesReader::~NotesReader()
{
    if (m_thread.joinable())
        m_thread.join();
}

void NotesReader::read(const QStringList& roots)
{
    if (m_isReading) {
        m_next = roots;
        return;
    }
    m_isReading = true;
    m_thread = std::thread([this, roots] {
        std::vector<KeptNote> notes;
        for (const QString& root : roots) {
            for (Library::Note& note : Library::Logbook(root).readNotes())
                notes.push_back({std::move(note), root});
        }
        QMetaObject::invokeMethod(
            this, [this, notes] { finish(notes); }, Qt::QueuedConnection);
    });
}

void NotesReader::finish(const std::vector<KeptNote>& notes)
{
    m_thread.join();
    m_isReading = false;
    if (m_next)
        read(*std::exchange(m_next, std::nullopt));
    else
        emit signalRead(notes);
}

} // namespace KOLT
