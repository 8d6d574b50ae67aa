#pragma once

#include "library/ledger/LogbookRecords.h"

#include <QObject>
#include <QPointer>

#include <map>

class QWidget;

namespace KOLT {

class CardSession;
class DialogData;
class LibrarySession;
class NotesWindow;

/// The notes on the loaded data, in a window beside the pages. They are kept in the library, or in
/// the user's data path while there is none, never on the card; those of both are shown. The
/// arguments must outlive the session.
class NotesSession : public QObject
{
    Q_OBJECT

public:
    NotesSession(CardSession& card, LibrarySession& library, DialogData& data, QWidget& window);

    void show();

private:
    void refresh();
    void add(Library::Note::About about, const QString& text);
    void save(Library::Note note, const QString& root);
    /// Where in the loaded data a moment is; none if no file of it can be read.
    std::optional<Library::NotePlace> placeOf(double seconds) const;

    CardSession& m_card;
    LibrarySession& m_library;
    DialogData& m_data;
    QWidget& m_window;
    QPointer<NotesWindow> m_notes;
    std::map<QString, QString> m_roots; ///< of the notes that are shown, by id
};

} // namespace KOLT
