#pragma once

#include <QWidget>

class QToolButton;

namespace KOLT {

class MainActions;
class ProjectSession;

/// A row above the parameters: the project's name, which opens its commands, and the manual.
class ProjectBar : public QWidget
{
    Q_OBJECT

public:
    /// Actions and project must outlive the bar.
    ProjectBar(const MainActions& actions, const ProjectSession& project,
               QWidget* parent = nullptr);

    /// The name as it is shown; an asterisk stands for unsaved changes.
    QString text() const;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void showState();
    void fitText();

    const ProjectSession& m_project;
    QToolButton* m_button;
};

} // namespace KOLT
