#pragma once

#include "analysis/Findings.h"
#include "ui/DataPage.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QScrollArea;
class QVBoxLayout;

namespace KOLT {

class ContentOrNote;
class WidgetErrorTime;

/// The "Fault Matrix" page: a block for each error matrix of the profile, with a line per fault.
class WidgetFaultMatrix : public QWidget, public DataPage
{
    Q_OBJECT

public:
    explicit WidgetFaultMatrix(const Profile& profile, QWidget* parent = nullptr);

signals:
    /// The user picked a moment in a strip, in seconds.
    void signalTime(double seconds);

protected:
    void dropData() override;
    void showData(Changes changes) override;
    void showTime() override;

private:
    void createBlocks();
    void addBlock(const FaultMatrix& matrix, int nameWidth, QVBoxLayout& layout);
    void showOnlyActive();
    void pick(double seconds);

    const Profile& m_profile;
    FaultList m_matrices;
    std::vector<WidgetErrorTime*> m_rows;
    QCheckBox* m_onlyActive = nullptr;
    QLabel* m_summary = nullptr;
    QScrollArea* m_area = nullptr;
    ContentOrNote* m_shown = nullptr;
};

} // namespace KOLT
