#include "app/ProjectBar.h"

#include "app/MainActions.h"
#include "app/ProjectSession.h"
#include "ui/PaintedIcon.h"
#include "ui/PlainToolTip.h"

#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QMenu>
#include <QToolButton>

namespace KOLT {

namespace {

constexpr int margin = 3;
constexpr int arrowPixels = 24; ///< of the button, beside icon and text

} // namespace

ProjectBar::ProjectBar(const MainActions& actions, const ProjectSession& project, QWidget* parent)
    : QWidget(parent)
    , m_project(project)
    , m_button(new QToolButton(this))
{
    auto* const menu = new QMenu(m_button);
    menu->setToolTipsVisible(true);
    for (const Command command :
         {Command::NewProject, Command::OpenProject, Command::SaveProject, Command::SaveProjectAs})
        menu->addAction(actions[command]);
    m_button->setObjectName(QStringLiteral("projectButton"));
    m_button->setIcon(lookIcon(QStringLiteral("project")));
    m_button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_button->setPopupMode(QToolButton::InstantPopup);
    m_button->setMenu(menu);
    m_button->setAutoRaise(true);
    m_button->setFocusPolicy(Qt::TabFocus);
    m_button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // must not widen the lists
    auto* const help = new QToolButton(this);
    help->setObjectName(QStringLiteral("helpButton"));
    help->setDefaultAction(actions[Command::Help]);
    help->setToolButtonStyle(Qt::ToolButtonIconOnly);
    help->setToolTip(tr("Manual (F1)"));
    help->setAutoRaise(true);
    help->setFocusPolicy(Qt::TabFocus);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, 0);
    layout->addWidget(m_button, 1);
    layout->addWidget(help);
    connect(&project, &ProjectSession::signalStateChanged, this, &ProjectBar::showState);
    showState();
}

QString ProjectBar::text() const
{
    const QString& path = m_project.path();
    const QString name = path.isEmpty() ? tr("New project") : QFileInfo(path).completeBaseName();
    return m_project.isModified() ? name + QStringLiteral(" *") : name;
}

void ProjectBar::showState()
{
    const QString& path = m_project.path();
    QString tip = tr("Project: the selected parameters");
    if (!path.isEmpty())
        tip += QLatin1Char('\n') + QDir::toNativeSeparators(path);
    tip += QLatin1Char('\n') +
           (m_project.isModified() ? tr("* Changed since it was saved (Ctrl+S)") : tr("Saved"));
    m_button->setToolTip(plainToolTip(tip));
    m_button->setAccessibleName(tr("Project %1").arg(text()));
    fitText();
}

void ProjectBar::fitText()
{
    const int room = m_button->width() - m_button->iconSize().width() - arrowPixels;
    // An ampersand would be the key of the button.
    m_button->setText(fontMetrics()
                          .elidedText(text(), Qt::ElideMiddle, room)
                          .replace(QLatin1Char('&'), QLatin1String("&&")));
}

void ProjectBar::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    layout()->activate(); // the button has its width now
    fitText();
}

} // namespace KOLT
