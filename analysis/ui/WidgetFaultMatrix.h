#pragma once

#include "analysis/Findings.h"
#include "analysis/GraphTarget.h"
#include "analysis/ListSettings.h"
#include "ui/DataPage.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;
class QScrollArea;
class QVBoxLayout;

namespace KOLT {

class ContentOrNote;
class EmptyNote;
class FaultTable;
class WidgetErrorTime;

/// The "Fault Matrix" page: a block for each error matrix of the profile, with a line per fault,
/// and below them the list of all times in which they were set.
class WidgetFaultMatrix : public QWidget, public DataPage
{
    Q_OBJECT

public:
    explicit WidgetFaultMatrix(const Profile& profile, QWidget* parent = nullptr);

    void setSettings(const ListSettings& settings);

signals:
    /// The user picked a moment in a strip, in seconds.
    void signalTime(double seconds);
    /// The user wants to see an occurrence in the graph.
    void signalShowInGraph(const KOLT::GraphTarget& target);

protected:
    void dropData() override;
    void showData(Changes changes) override;
    void showTime() override;

private:
    /// The lines of an error matrix with their title.
    struct Block
    {
        QLabel* title = nullptr;
        std::vector<WidgetErrorTime*> rows;
    };

    void createBar(QVBoxLayout& layout);
    void createTable();
    void createBlocks();
    void addBlock(const FaultMatrix& matrix, int nameWidth, QVBoxLayout& layout);
    void connectRow(WidgetErrorTime& row);
    /// Hides what is filtered out.
    void showWanted();
    void pick(double seconds);

    const Profile& m_profile;
    FaultList m_matrices;
    std::vector<Block> m_blocks;
    QLineEdit* m_filter = nullptr;
    QCheckBox* m_onlyOccurred = nullptr;
    QLabel* m_summary = nullptr;
    QScrollArea* m_area = nullptr;
    FaultTable* m_table = nullptr;
    EmptyNote* m_noOccurrence = nullptr;
    ContentOrNote* m_shown = nullptr;
};

} // namespace KOLT
