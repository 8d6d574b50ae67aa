#pragma once

#include "analysis/EpisodeView.h"
#include "analysis/Findings.h"
#include "analysis/GraphTarget.h"
#include "analysis/ListSettings.h"
#include "ui/DataPage.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class QSplitter;

namespace KOLT {

class EmptyNote;
class ContentOrNote;
class EventTable;

/// A page with a list of exceedances. Highlights the last one at or before the current time, and
/// reports the row that the user picks. Base of the two lists, which differ in scope and heading.
class DialogEventList : public QWidget, public DataPage
{
    Q_OBJECT

public:
    void setSettings(const ListSettings& settings) { m_settings = settings; }

    /// Takes the card that shows the episode of the current line, below the list. To be called
    /// once.
    void setCard(EpisodeView* card, QWidget* widget);

    /// The card's share of the height.
    void setCardPercent(int percent);

signals:
    /// The user picked a row: its time in seconds, a whole number of milliseconds.
    void signalTime(double seconds);
    /// The user wants to see the current row in the graph.
    void signalShowInGraph(const KOLT::GraphTarget& target);
    /// The user moved the edge between list and card.
    void signalCardPercent(int percent);

protected:
    DialogEventList(const Profile& profile, EventScope scope, const QString& heading,
                    QWidget* parent);

    void dropData() override;
    void showData(Changes changes) override;
    void showTime() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void slotSelect();

private:
    void createTable(const QString& heading);
    void createMenu();
    void fillTable();
    QString hint() const;
    /// A line for the tool tip; empty for an event beyond the end of the list.
    QString episodeOf(const Event& event) const;
    void report(int row);
    void showEpisode();
    void dropEpisode();
    void placeCard();
    void noteCardSize();
    void showInGraph();
    void save();

    const Profile& m_profile;
    EventScope m_scope;
    ListSettings m_settings;
    EventList m_events;
    EpisodeList m_episodes;
    const Episode* m_episode = nullptr; ///< on the card
    EpisodeView* m_card = nullptr;      ///< may be null
    int m_cardPercent = 50;
    QSplitter* m_splitter = nullptr; ///< list and card
    QLineEdit* m_filter = nullptr;
    EventTable* m_table = nullptr;
    QLabel* m_hint = nullptr;
    EmptyNote* m_noMatch = nullptr; ///< of the filter
    ContentOrNote* m_shown = nullptr;
};

} // namespace KOLT
