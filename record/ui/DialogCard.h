#pragma once

#include "ui/StateMark.h"

#include <QTimer>
#include <QWidget>

#include <list>
#include <vector>

class QTabWidget;
class QTreeWidgetItem;

namespace KOLT {

class CardContainer;
class CardList;
class CycleList;
class RecordList;
struct TrustFinding;

/// The panel in which the user picks what to analyse: the engine cycles of the open card with their
/// flights, or its record files, each grouped by day.
///
/// Loads nothing itself: a selection that has not changed for 500 ms is sent as a signal. A
/// receiver of signalLoadCycle has to load before it returns, as the flights found are listed
/// afterwards. The container must outlive the panel.
class DialogCard : public QWidget
{
    Q_OBJECT

public:
    explicit DialogCard(CardContainer& card, QWidget* parent = nullptr);

    /// Adds a tab behind the two lists. Takes ownership.
    void addTab(QWidget* page, const QString& text);

    /// Refills both lists; to be called after a folder was opened or read again.
    void refresh();

    /// Says, while no folder is open, that this one cannot be found.
    void setMissingFolder(const QString& folder);

    /// The last choice could not be loaded, or only in part: a click chooses it again.
    void setChoiceFailed() { m_hasFailed = true; }

    /// Lists the flights of a loaded cycle below its item.
    void listFlights(unsigned int cycle);

    /// Selects what is shown after the user's choice could not be loaded: files, a cycle or a
    /// flight by its index (-1: the whole cycle), or nothing. Sends no signal.
    void showFiles(const std::list<QString>& paths);
    void showCycle(unsigned int cycle, int flight);
    void showNothing();

    /// Marks a cycle and its flights, as far as they are listed, until the next refresh().
    void setMarks(unsigned int cycle, StateMark mark, const std::vector<StateMark>& flights);

    /// Marks a cycle, its flights and its files by what is found so far, until the next refresh().
    void setTrust(unsigned int cycle, const std::vector<TrustFinding>& findings);

    /// Why the lists are empty, in words for the user.
    QString whyEmpty() const;

signals:
    /// Esc was pressed in a list: the user wants to see all of the card again.
    void signalOverview();
    /// The mark of a cycle or a flight, or that of a file was clicked: the user wants to know why.
    void signalCycleMark(unsigned int cycle, int flight);
    void signalFileMark(const QString& fileName);
    /// Load these files as one data set.
    void signalLoadRecord(const std::list<QString>& paths);
    /// Load a flight by its index, or with index -1 the whole cycle.
    void signalLoadCycle(unsigned int cycle, int flight);
    void signalChanged(); ///< part of the interface; never sent

private slots:
    void slotSelect();
    void slotSelectCycle();
    void slotTimeout();
    void slotTimeoutLoadCycle();

private:
    bool isRepeated(const QTreeWidgetItem* pressed) const;
    void choose(QTimer& timer, CardList& other);
    void forgetChoice();

    CardContainer& m_card;
    QTabWidget* m_tabs;
    CycleList* m_cycles;
    RecordList* m_records;
    QTimer m_cycleTimer;
    QTimer m_recordTimer;
    bool m_hasFailed = false; ///< the selection could not be loaded
    QString m_missingFolder;
};

} // namespace KOLT
