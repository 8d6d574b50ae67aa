#include "app/NotesSession.h"

#include "analysis/ui/DialogData.h"
#include "app/CardSession.h"
#include "app/LibrarySession.h"
#include "app/settings/DataPaths.h"
#include "library/archive/Archive.h"
#include "library/ledger/Logbook.h"
#include "library/ledger/NotePlaces.h"
#include "library/ui/NotesWindow.h"
#include "ui/Messages.h"

#include <QCryptographicHash>
#include <QFile>

#include <algorithm>
#include <iterator>

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
    connect(&m_card, &CardSession::signalLoading, this, &NotesSession::clear);
    connect(&m_card, &CardSession::signalLoaded, this, &NotesSession::refresh);
    connect(&m_card, &CardSession::signalListed, this, &NotesSession::refresh);
    connect(&m_reader, &NotesReader::signalRead, this, &NotesSession::take);
}

NotesSession::~NotesSession() = default;

void NotesSession::show()
{
    if (m_notes == nullptr) {
        m_notes = new NotesWindow(&m_window);
        connect(m_notes, &NotesWindow::signalAdd, this, &NotesSession::add);
        connect(m_notes, &NotesWindow::signalChange, this, &NotesSession::change);
        connect(m_notes, &NotesWindow::signalTime, this,
                [this](double seconds) { m_data.setTime(seconds); });
    }
    m_notes->show();
    m_notes->raise();
    m_notes->activateWindow();
    present();
    refresh(); // another computer may have written some
}

bool NotesSession::isLoaded() const
{
    return m_card.dataSet() != nullptr && !m_card.loaded().isNone();
}

void NotesSession::clear()
{
    m_found.clear();
    present();
}

void NotesSession::refresh()
{
    if (!isLoaded()) {
        clear();
        return;
    }
    QStringList roots{m_library.notesFolder(), QString::fromUtf8(DataPaths::instance().dataPath())};
    roots.removeDuplicates();
    m_reader.read(roots);
}

void NotesSession::take(const std::vector<KeptNote>& notes)
{
    m_found.clear();
    std::vector<NotedFile> files;
    if (isLoaded()) {
        const QDateTime start =
            m_card.dataSet()->dateTime.addSecs(qint64{-60} * m_card.container().clockOffset());
        for (const QString& path : m_card.filesOf(m_card.loaded()))
            files.push_back({path.section(QLatin1Char('/'), -1), recordingKey(path), start});
    }
    std::ranges::copy_if(notes, std::back_inserter(m_found), [&](const KeptNote& kept) {
        return std::ranges::any_of(
            files, [&](const NotedFile& file) { return isAbout(kept.note.place, file); });
    });
    std::ranges::stable_sort(
        m_found, {}, [](const KeptNote& kept) { return kept.note.place.seconds.value_or(-1.0); });
    present();
}

void NotesSession::present()
{
    std::vector<Note> notes;
    std::vector<NoteMark> marks;
    for (const KeptNote& kept : m_found) {
        Note& note = notes.emplace_back(kept.note);
        note.place.dateTime = note.place.dateTime.addSecs(
            qint64{60} * m_card.container().clockOffset()); // as all times that are shown
        if (note.about == Note::About::Moment && note.place.seconds)
            marks.push_back({*note.place.seconds, note.text});
    }
    if (m_notes != nullptr)
        m_notes->setNotes(notes, isLoaded());
    emit signalMarks(marks);
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
    // By the unit's clock, like all that is kept.
    const QDateTime start =
        m_card.dataSet()->dateTime.addSecs(qint64{-60} * m_card.container().clockOffset());
    if (start.isValid())
        place.dateTime = start.addMSecs(static_cast<qint64>(seconds * 1000.0));
    return place;
}

void NotesSession::add(Note::About about, const QString& text)
{
    if (!isLoaded())
        return;
    const DataSet* const data = m_card.dataSet();
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

void NotesSession::change(const Note& shown)
{
    const auto kept = std::ranges::find(m_found, shown.item.id,
                                        [](const KeptNote& one) { return one.note.item.id; });
    if (kept == m_found.end())
        return;
    Note note = kept->note;
    note.text = shown.text;
    note.item.isRemoved = shown.item.isRemoved;
    save(note, kept->root);
}

void NotesSession::save(Note note, const QString& root)
{
    Logbook::Saved saved;
    Archive archive;
    const bool isLibrary = root != QString::fromUtf8(DataPaths::instance().dataPath());
    if (isLibrary && !archive.open(root))
        saved.error = archive.error() + QLatin1Char('\n') + tr("Nothing was saved.");
    else
        saved = Logbook(root).save(note);
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
