#pragma once

#include "analysis/NoteMark.h"
#include "app/NotesReader.h"

#include <QObject>
#include <QPointer>

class QWidget;

namespace KOLT {

class CardSession;
class DialogData;
class LibrarySession;
class NotesWindow;

/// The notes on the loaded data, in a window beside the pages, and as marks for these. They are
/// kept in the library, or in the user's data path while there is none, never on the card; those of
/// both are shown. The arguments must outlive the session.
class NotesSession : public QObject
{
    Q_OBJECT

public:
    NotesSession(CardSession& card, LibrarySession& library, DialogData& data, QWidget& window);
    ~NotesSession() override;

    void show();

signals:
    /// The notes on moments of the loaded data, whenever they have changed.
    void signalMarks(const std::vector<KOLT::NoteMark>& marks);

private:
    void clear();
    void refresh();
    void take(const std::vector<KeptNote>& notes);
    void present();
    void add(Library::Note::About about, const QString& text);
    void change(const Library::Note& shown);
    void save(Library::Note note, const QString& root);
    bool isLoaded() const;
    /// Where in the loaded data a moment is; none if no file of it can be read.
    std::optional<Library::NotePlace> placeOf(double seconds) const;

    CardSession& m_card;
    LibrarySession& m_library;
    DialogData& m_data;
    QWidget& m_window;
    QPointer<NotesWindow> m_notes;
    NotesReader m_reader;
    std::vector<KeptNote> m_found; ///< on the loaded data, in order of time, as they are kept
};

} // namespace KOLT
