#include "graph/ui/GraphCommandBar.h"

#include "graph/GraphSettings.h"
#include "ui/PaintedIcon.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace KOLT {

namespace {

constexpr int buttonSize = 32;
constexpr int groupSpacing = 5;

enum class Kind { Push, Checkable };
enum class Place { Shown, Hidden };

struct Entry
{
    const char* icon;
    const char* tip;
    Kind kind;
    Place place;
    int spacing = 0; ///< behind it
};

/// In the order of their ids.
constexpr Entry entries[] = {
    {"zoom-in", QT_TRANSLATE_NOOP("KOLT::GraphCommandBar", "Zoom In"), Kind::Push, Place::Shown},
    {"zoom-out", QT_TRANSLATE_NOOP("KOLT::GraphCommandBar", "Zoom Out"), Kind::Push, Place::Shown},
    {"zoom-fit", QT_TRANSLATE_NOOP("KOLT::GraphCommandBar", "Zoom 1:1"), Kind::Push, Place::Shown},
    {"marker", QT_TRANSLATE_NOOP("KOLT::GraphCommandBar", "Zoom Marker"), Kind::Push, Place::Shown,
     groupSpacing},
    {"clear", QT_TRANSLATE_NOOP("KOLT::GraphCommandBar", "Clear All"), Kind::Push, Place::Hidden},
    {"", QT_TRANSLATE_NOOP("KOLT::GraphCommandBar", "Automatic Mode"), Kind::Checkable,
     Place::Hidden},
    {"graph-split", QT_TRANSLATE_NOOP("KOLT::GraphCommandBar", "Split Mode"), Kind::Checkable,
     Place::Shown},
    {"graph-single", QT_TRANSLATE_NOOP("KOLT::GraphCommandBar", "Single Graph Mode"),
     Kind::Checkable, Place::Shown, groupSpacing},
    {"zoom-fit", QT_TRANSLATE_NOOP("KOLT::GraphCommandBar", "Reset all to default"), Kind::Push,
     Place::Hidden},
    {"graph-setup", QT_TRANSLATE_NOOP("KOLT::GraphCommandBar", "Setup"), Kind::Push, Place::Hidden},
    {"graph-snapshot", QT_TRANSLATE_NOOP("KOLT::GraphCommandBar", "Snapshot"), Kind::Push,
     Place::Shown},
};

} // namespace

GraphCommandBar::GraphCommandBar(QWidget* parent)
    : QWidget(parent)
    , m_buttons(new QButtonGroup(this))
    , m_progress(new QLabel)
{
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    createCommands();
    connect(createButton(QStringLiteral("copy"), tr("Copy picture")), &QToolButton::clicked, this,
            &GraphCommandBar::signalCopyPicture);
    connect(createButton(QStringLiteral("graph-setup"), tr("Oscilloscope Setup")),
            &QToolButton::clicked, this, &GraphCommandBar::signalSetup);
    layout->addStretch();
    layout->addWidget(m_progress);
    m_progress->hide();
    connect(m_buttons, &QButtonGroup::idPressed, this, &GraphCommandBar::signalPressed);
    connect(m_buttons, &QButtonGroup::idReleased, this, &GraphCommandBar::signalReleased);
}

void GraphCommandBar::createCommands()
{
    m_buttons->setExclusive(false);
    int id = ZoomIn;
    for (const Entry& entry : entries) {
        QToolButton* const button = createButton(QLatin1String(entry.icon), tr(entry.tip));
        button->setCheckable(entry.kind == Kind::Checkable);
        button->setVisible(entry.place == Place::Shown);
        m_buttons->addButton(button, id++);
        if (entry.spacing > 0)
            static_cast<QHBoxLayout*>(layout())->addSpacing(entry.spacing);
    }
    m_buttons->button(AutomaticMode)->setText(tr("Auto"));
}

QToolButton* GraphCommandBar::createButton(const QString& icon, const QString& tip)
{
    auto* const button = new QToolButton(this);
    button->setFixedSize(buttonSize, buttonSize);
    button->setIconSize(QSize(buttonSize, buttonSize));
    button->setAutoRaise(true);
    if (!icon.isEmpty())
        button->setIcon(lookIcon(icon));
    button->setToolTip(tip);
    layout()->addWidget(button);
    return button;
}

bool GraphCommandBar::isChecked(Command command) const
{
    return m_buttons->button(command)->isChecked();
}

void GraphCommandBar::showModes(const GraphSettings& settings)
{
    m_buttons->button(AutomaticMode)->setChecked(settings.isAutomatic);
    m_buttons->button(SplitMode)->setChecked(settings.isSplit);
    m_buttons->button(SingleMode)->setChecked(!settings.isSplit);
}

void GraphCommandBar::showProgress(const QString& text)
{
    m_progress->setText(text);
    m_progress->setVisible(!text.isEmpty());
}

} // namespace KOLT
