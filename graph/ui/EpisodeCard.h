#pragma once

#include "analysis/EpisodeView.h"
#include "analysis/GraphTarget.h"
#include "graph/EpisodePicture.h"

#include <QWidget>

class QBoxLayout;
class QLabel;

namespace KOLT {

/// The picture of an episode on the card.
class EpisodeGraph : public QWidget
{
public:
    explicit EpisodeGraph(QWidget* parent);

    EpisodePicture& picture() { return m_picture; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    EpisodePicture m_picture;
};

/// What is known of one episode: its figures, its graph, and what can be done with it.
class EpisodeCard : public QWidget, public EpisodeView
{
    Q_OBJECT

public:
    explicit EpisodeCard(const Profile& profile, QWidget* parent = nullptr);

    void showEpisode(const DataSet& dataSet, const Episode& episode) override;
    void clear() override;

signals:
    void signalShowInGraph(const KOLT::GraphTarget& target);
    /// The user wants what was recorded around the episode as a case file.
    void signalCaseFile(const KOLT::GraphTarget& target);
    /// The same as one file for mail.
    void signalCaseZip(const KOLT::GraphTarget& target);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QBoxLayout* createButtons();
    GraphTarget target() const;
    void fitButtons();
    void copy() const;

    const Profile& m_profile;
    const Episode* m_episode = nullptr; ///< null if none is shown
    QLabel* m_title = nullptr;
    QLabel* m_figures = nullptr;
    EpisodeGraph* m_graph = nullptr;
    QBoxLayout* m_content = nullptr; ///< figures and graph
};

} // namespace KOLT
