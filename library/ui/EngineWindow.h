#pragma once

#include "library/ledger/EngineLedger.h"

#include <QDialog>

#include <functional>

class QComboBox;
class QFormLayout;
class QLabel;
class QPrinter;
class QPushButton;
class QScrollArea;
class QTabWidget;
class QTextDocument;
class QTreeWidget;

namespace KOLT {

class EmptyNote;
class LedgerView;

/// What an engine has lived through: figures, months and limit bands, maintenance limits with what
/// is due, episodes and notes. Prints it, and copies its pictures. Shows one ledger; what the user
/// changes is sent, and comes back with the next ledger.
class EngineWindow : public QDialog
{
    Q_OBJECT

public:
    explicit EngineWindow(QWidget* parent = nullptr);

    /// The engines to choose from.
    void setEngines(const QStringList& engines);

    void setLedger(const Library::EngineLedger& ledger, const QDate& today);

    /// Instead of a ledger.
    void showNote(const QString& text);

    /// The engine that is shown; empty without one.
    QString engine() const { return m_hasLedger ? m_ledger.engine.engine : QString(); }

    /// Of figures, pictures and tables, as it is printed.
    std::unique_ptr<QTextDocument> document(double width) const;

signals:
    /// The user wants to see another engine.
    void signalEngine(const QString& engine);
    /// Save these.
    void signalLimit(const KOLT::Library::MaintenanceLimit& limit);
    void signalNote(const KOLT::Library::Note& note);
    void signalFacts(const KOLT::Library::EngineFacts& facts);
    /// The user wants to see and edit which engine was in which unit.
    void signalInstallations();
    /// Show the cycle of an episode.
    void signalOpen(const QString& folder, int flight);

private:
    QWidget* createMaintenance();
    QWidget* createEpisodes();
    QWidget* createNotes();
    QLayout* createButtons();
    void fillFigures();
    void fillMaintenance();
    void fillEpisodes();
    void fillNotes();
    void showState();
    const Library::MaintenanceState* chosenLimit() const;
    const Library::Note* chosenNote() const;
    void addLimit();
    void editLimit();
    void finishLimit();
    void removeLimit();
    void editNote(const Library::Note* note);
    void removeNote();
    void editHours();
    void print();
    void copy();

    Library::EngineLedger m_ledger;
    QDate m_today;
    bool m_hasLedger = false;
    QComboBox* m_engines;
    QLabel* m_state;
    QWidget* m_figures;
    QScrollArea* m_figureArea = nullptr;
    QFormLayout* m_figureRows;
    LedgerView* m_view;
    QTabWidget* m_tabs;
    QTreeWidget* m_limits = nullptr;
    QTreeWidget* m_episodes = nullptr;
    QTreeWidget* m_notes = nullptr;
    EmptyNote* m_noLimits = nullptr; ///< say why the tables are empty
    EmptyNote* m_noEpisodes = nullptr;
    EmptyNote* m_noNotes = nullptr;
    std::vector<QPushButton*> m_ofLimit; ///< need a chosen limit
    std::vector<QPushButton*> m_ofNote;
    std::vector<QWidget*> m_ofLedger;
};

} // namespace KOLT
