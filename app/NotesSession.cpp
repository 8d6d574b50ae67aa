#include "app/NotesSession.h"

#include "analysis/ui/DialogData.h"
#include "app/CardSession.h"
#include "app/LibrarySession.h"
#include "app/settings/DataPaths.h"
#include "library/ledger/Logbook.h"
#include "library/ui/NotesWindow.h"
#include "ui/Messages.h"

#include <QCryptographicHash>
#include <QFile>
#include <QSet>

#include <algorithm>

namespace KOLT {

using namespace Library;

namespace {

QString hashOf(const QString& path)
{
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file))
        return {};
    return QString::fromLatin1(hash.result().toHex());
}

} // namespace

NotesSession::NotesSession(CardSession& card, LibrarySession& library, DialogData& data,
                           QWidget& window)
    : m_card(card)
    , m_library(library)
    , m_data(data)
    , m_window(window)
{
    connect(&m_card, &CardSession::signalLoaded, this, [this] { refresh(); });
    connect(&m_card, &CardSession::signalListed, this, [this] { refresh(); });
}

void NotesSession::show()
{
    if (m_notes == nullptr) {
        m_notes = new NotesWindow(&m_window);
        connect(m_notes, &NotesWindow::signalAdd, this, &NotesSession::add);
        connect(m_notes, &NotesWindow::signalChange, this, [this](const Note& note) {
            const auto root = m_roots.find(note.item.id);
            if (root != m_roots.end())
                save(note, root->second);
        });
        connect(m_notes, &NotesWindow::signalTime, this,
                [this](double seconds) { m_data.setTime(seconds); });
    }
    m_notes->show();
    m_notes->raise();
    m_notes->activateWindow();
    refresh();
}

void NotesSession::refresh()
{
    if (m_notes == nullptr || !m_notes->isVisible())
        return;
    m_roots.clear();
    std::vector<Note> notes;
    const DataSet* const data = m_card.dataSet();
    const bool isLoaded = data != nullptr && !m_card.loaded().isNone();
    if (isLoaded) {
        QSet<QString> keys;
        for (const QString& path : m_card.filesOf(m_card.loaded()))
            keys.insert(recordingKey(path));
        keys.remove(QString());
        QStringList roots{m_library.notesFolder(),
                          QString::fromUtf8(DataPaths::instance().dataPath())};
        roots.removeDuplicates();
        for (const QString& root : roots) {
            for (const Note& note : Logbook(root).read().notes) {
                if (!keys.contains(note.place.fileKey))
                    continue;
                m_roots[note.item.id] = root;
                notes.push_back(note);
            }
        }
    }
    std::ranges::stable_sort(notes, {},
                             [](const Note& note) { return note.place.seconds.value_or(-1.0); });
    m_notes->setNotes(notes, isLoaded);
}

std::optional<NotePlace> NotesSession::placeOf(double seconds) const
{
    QString found;
    const auto& files = m_card.container().files();
    for (const QString& path : m_card.filesOf(m_card.loaded())) {
        const auto file = files.find(path.section(QLatin1Char('/'), -1));
        // The last one that begins before the moment; the first one if none does.
        if (file != files.end() && (found.isEmpty() || file->second.info().startSeconds <= seconds))
            found = path;
    }
    NotePlace place;
    place.fileKey = recordingKey(found);
    if (place.fileKey.isEmpty())
        return {};
    place.fileName = found.section(QLatin1Char('/'), -1);
    place.unit = files.at(place.fileName).info().ecuSerialNumber;
    place.fileSha256 = hashOf(found);
    place.seconds = seconds;
    const QDateTime start = m_card.dataSet()->dateTime;
    if (start.isValid())
        place.dateTime = start.addMSecs(static_cast<qint64>(seconds * 1000.0));
    return place;
}

void NotesSession::add(Note::About about, const QString& text)
{
    const DataSet* const data = m_card.dataSet();
    if (data == nullptr || m_card.loaded().isNone())
        return;
    double seconds = m_data.time();
    if (about == Note::About::Flight) {
        const auto flight = std::ranges::find_if(data->flights, [&](const Flight& one) {
            return one.startSeconds <= seconds && seconds <= one.endSeconds;
        });
        if (flight == data->flights.end()) {
            Messages::inform(m_notes, tr("No flight is around the moment that is shown. Go to a "
                                         "moment of the flight first."));
            return;
        }
        seconds = flight->takeOffSeconds;
    }
    if (about == Note::About::Cycle)
        seconds = data->startSeconds;
    const std::optional<NotePlace> place = placeOf(seconds);
    if (!place) {
        Messages::warn(m_notes,
                       tr("The file of this moment cannot be read, so that the note would "
                          "not be found again. Nothing was saved.\nIs the card inserted?"));
        return;
    }
    Note note;
    note.about = about;
    note.place = *place;
    if (about == Note::About::Cycle)
        note.place.seconds.reset();
    note.engine = m_card.container().files().at(place->fileName).info().engineSerial;
    note.text = text;
    save(note, m_library.notesFolder());
}

void NotesSession::save(Note note, const QString& root)
{
    const Logbook::Saved saved = Logbook(root).save(note);
    if (!saved)
        Messages::warn(m_notes, saved.error);
    else if (!saved.replaced.isEmpty())
        Messages::inform(m_notes, tr("This note had been changed meanwhile by %1. Your text is "
                                     "kept, as it is the later one.")
                                      .arg(saved.replaced));
    m_library.notesChanged();
    refresh();
}

} // namespace KOLT
