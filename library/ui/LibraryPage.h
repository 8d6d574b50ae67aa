#pragma once

#include "library/database/LibraryQueries.h"
#include "library/ledger/Logbook.h"

#include <QSet>
#include <QTimer>
#include <QWidget>

class QLabel;
class QPushButton;
class QStackedLayout;
class QTreeView;

namespace KOLT {

class LibraryFilterBar;
class LibraryModel;

/// A tab of the card panel: the recordings of the library, to be searched and opened like those of
/// a card. Without a library it says why, and offers one.
class LibraryPage : public QWidget
{
    Q_OBJECT

public:
    explicit LibraryPage(QWidget* parent = nullptr);

    /// Shows a library, and of its entries those open that were. The database must stay open until
    /// the next call.
    void setLibrary(Library::LibraryDatabase& database, const Library::Logbook::Contents& written);

    /// For showNote(), before the user has chosen any.
    static QString noLibraryText();

    /// Shows why there is none; with a button to choose or create one, and one to try again.
    void showNote(const QString& text, bool canRetry = false);

    /// As shown; empty with a library.
    QString note() const;

    /// So many cycles have no figures, or those of another profile or program.
    void setStale(int cycles);

    /// For filters that ask for notes: the folders of the cycles that have one.
    void setNoted(const QStringList& folders);

    const LibraryModel& model() const { return *m_model; }

signals:
    /// Open a cycle of the archive, or a flight of it from 1; 0: all of the cycle.
    void signalOpen(const QString& folder, int flight);
    void signalChooseLibrary();
    /// Show which engine was in which unit.
    void signalInstallations();
    /// The page is visible, or the user wants to try again; it may be without its library yet.
    void signalShown();
    /// Show the ledger of this engine; empty: of any.
    void signalEngine(const QString& engine);
    /// Work out the figures that are missing.
    void signalUpdate();
    /// Name the aircraft of this unit.
    void signalName(quint32 unit);

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* createTree();
    void fill();
    /// With the entries open that are.
    void fillAgain();
    /// What fillAgain() restores, as long as there are entries: a note takes them away.
    void noteState();
    void noteOpen(const QModelIndex& parent);
    void openAgain(const QModelIndex& parent);
    void choose(const QModelIndex& index);
    void showMenu(const QPoint& place);

    Library::LibraryDatabase* m_database = nullptr;
    Library::Logbook::Contents m_written;
    QStringList m_noted;
    QSet<QString> m_open; ///< keys of the entries that are open
    QString m_current;    ///< key of the current entry
    int m_top = 0;        ///< of the scroll bar
    QTimer m_timer;
    LibraryModel* m_model;
    LibraryFilterBar* m_filter;
    QTreeView* m_tree = nullptr;
    QLabel* m_note = nullptr;
    QPushButton* m_retry = nullptr;
    QLabel* m_empty = nullptr; ///< in place of the tree
    QLabel* m_sum = nullptr;
    QPushButton* m_engine = nullptr;
    QPushButton* m_update = nullptr;
    QStackedLayout* m_stack = nullptr;    ///< the library, or why there is none
    QStackedLayout* m_contents = nullptr; ///< the tree, or why it is empty
};

} // namespace KOLT
