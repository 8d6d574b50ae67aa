#pragma once

#include "library/ledger/LogbookRecords.h"

#include <QDialog>

class QPushButton;
class QTreeWidget;

namespace KOLT {

class EmptyNote;

/// The notes on the loaded recording beside the pages: a click goes to the moment of a note. What
/// the user changes is sent, and comes back with the next list.
class NotesWindow : public QDialog
{
    Q_OBJECT

public:
    explicit NotesWindow(QWidget* parent = nullptr);

    /// In order of time; `isLoaded`: there is a recording to write about.
    void setNotes(const std::vector<Library::Note>& notes, bool isLoaded);

signals:
    /// Write about what is loaded: the moment that is shown, the flight around it, the whole cycle.
    void signalAdd(KOLT::Library::Note::About about, const QString& text);
    void signalChange(const KOLT::Library::Note& note);
    void signalTime(double seconds);

private:
    const Library::Note* chosen() const;
    void add(Library::Note::About about);
    void change();
    void remove();
    void showState();

    std::vector<Library::Note> m_list;
    bool m_isLoaded = false;
    QTreeWidget* m_table;
    EmptyNote* m_empty;
    std::vector<QPushButton*> m_adding;
    std::vector<QPushButton*> m_changing;
};

} // namespace KOLT
