#pragma once

#include <QTimer>
#include <QWidget>

#include <list>
#include <map>

class QLabel;
class QLineEdit;
class QStackedLayout;
class QTabWidget;
class QTreeWidget;
class QTreeWidgetItem;

namespace KOLT {

class CardContainer;
struct Cycle;

/// The panel in which the user picks what to analyse: the engine cycles of the open card with their
/// flights, or its raw record files, each grouped by day.
///
/// It loads nothing itself. A selection becomes a signal when it has been still for 500 ms; what is
/// connected to signalLoadCycle loads at once, as the flights of a cycle are listed behind it. The
/// container must outlive the panel.
class DialogCard : public QWidget
{
    Q_OBJECT

public:
    explicit DialogCard(CardContainer& card, QWidget* parent = nullptr);

    /// Fills both trees anew; call it after a folder was opened or read again.
    void refresh();

    /// The folder that should be open is not there: says so while no other is open.
    void setMissingFolder(const QString& folder);

    /// What was chosen last could not be loaded, or not all of it: it can be chosen again.
    void setChoiceFailed() { m_hasFailed = true; }

    /// Lists the flights of a cycle beneath it, as they were found when it was loaded.
    void listFlights(unsigned int cycle);

    /// Selects what is shown, where the user's choice could not be loaded: files, or a cycle with
    /// the index of a flight (-1: all of it), or nothing. Nothing is loaded by that.
    void showFiles(const std::list<QString>& paths);
    void showCycle(unsigned int cycle, int flight);
    void showNothing();

signals:
    /// Load these files as one data set, in this order.
    void signalLoadRecord(const std::list<QString>& paths);
    /// Load a cycle; with flight index -1 all of it, otherwise that flight.
    void signalLoadCycle(unsigned int cycle, int flight);
    void signalChanged();

private slots:
    void slotSelect();
    void slotSelectCycle();
    void slotTimeout();
    void slotTimeoutLoadCycle();

private:
    struct Page
    {
        QStackedLayout* stack = nullptr;
        QLineEdit* name = nullptr;
        QTreeWidget* tree = nullptr;
        QLabel* empty = nullptr; ///< in place of an empty tree
    };

    QString whyEmpty() const;
    Page createPage(const QString& title);
    void clear(const Page& page);
    void deselect(const Page& page);
    void selectOnly(const Page& page, const QList<QTreeWidgetItem*>& items);
    void repeatChoice(const QTreeWidgetItem& pressed, bool isCycle);
    void fillRawData();
    void fillCycles();
    QTreeWidgetItem* addCycle(const Cycle& cycle);

    CardContainer& m_card;
    std::map<unsigned int, QTreeWidgetItem*> m_cycleItems;
    std::list<QString> m_selectedPaths;
    unsigned int m_selectedCycle = 0;
    int m_selectedFlight = -1; ///< -1: the whole cycle
    bool m_hasFailed = false;  ///< what is selected could not be loaded
    QString m_missingFolder;
    QTimer m_recordTimer;
    QTimer m_cycleTimer;
    QTabWidget* m_tabs = nullptr;
    Page m_cyclesPage;
    Page m_rawDataPage;
};

} // namespace KOLT
