#include "analysis/ui/WelcomePanel.h"

#include "ui/PaintedIcon.h"

#include <QDir>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace KOLT {

namespace {

constexpr int iconPixels = 64;
constexpr int textWidth = 420;
constexpr int textStretch = 100;
constexpr int spacing = 10;
constexpr QSize buttonIconSize(16, 16);

QLabel* addText(QVBoxLayout& column, const char* objectName, QWidget* parent)
{
    auto* const label = new QLabel(parent);
    label->setObjectName(QLatin1String(objectName));
    label->setTextFormat(Qt::PlainText); // it may name a folder
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    label->setMaximumWidth(textWidth);
    // Stretches rather than an alignment: the height of the text follows from its own width.
    auto* const row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(label, textStretch);
    row->addStretch(1);
    column.addLayout(row);
    return label;
}

} // namespace

WelcomePanel::WelcomePanel(QWidget* parent)
    : QWidget(parent)
{
    auto* const column = new QVBoxLayout(this);
    column->setSpacing(spacing);
    column->addStretch();
    auto* const icon = new QLabel(this);
    icon->setPixmap(QIcon(QStringLiteral(":/icons/app.svg"))
                        .pixmap(QSize(iconPixels, iconPixels), devicePixelRatioF()));
    column->addWidget(icon, 0, Qt::AlignHCenter);
    m_text = addText(*column, "welcome", this);
    m_volumes = new QVBoxLayout;
    column->addLayout(m_volumes);
    QPushButton* const choose = addButton(tr("Open the memory card..."),
                                          tr("Choose the folder that holds the record files"));
    choose->setIcon(lookIcon(QStringLiteral("open-folder")));
    m_sample = addButton(tr("Try the sample card"),
                         tr("A short simulated flight that comes with the program"));
    for (QPushButton* button : {choose, m_sample})
        column->addWidget(button, 0, Qt::AlignHCenter);
    m_hint = addText(*column, "hint", this);
    m_hint->setText(tr("Or drop the card's folder onto this window."));
    column->addStretch();
    connect(choose, &QPushButton::clicked, this, &WelcomePanel::signalChooseFolder);
    connect(m_sample, &QPushButton::clicked, this, &WelcomePanel::signalSample);
    setFocusProxy(choose);
    showFirstStart();
}

QPushButton* WelcomePanel::addButton(const QString& text, const QString& tip)
{
    auto* const button = new QPushButton(text, this);
    button->setToolTip(tip);
    button->setAutoDefault(true); // Return presses it
    button->setIconSize(buttonIconSize);
    return button;
}

void WelcomePanel::showFirstStart()
{
    m_text->setText(
        tr("KOLT shows what the recording unit of your engine wrote to its memory card: "
           "how many flights, how long, how much fuel, and whether a limit was "
           "exceeded."));
    m_sample->show();
}

void WelcomePanel::showEmpty(const QString& reason)
{
    m_text->setText(reason);
    m_sample->hide();
}

void WelcomePanel::setVolumes(const std::vector<OfferedFolder>& volumes)
{
    if (volumes == m_offered)
        return;
    m_offered = volumes;
    while (QLayoutItem* const item = m_volumes->takeAt(0)) {
        item->widget()->deleteLater();
        delete item;
    }
    for (const OfferedFolder& volume : volumes) {
        QPushButton* const button = addButton(
            tr("Open \"%1\"")
                .arg(QString(volume.name).replace(QLatin1Char('&'), QLatin1String("&&"))),
            tr("Record files were found in %1").arg(QDir::toNativeSeparators(volume.path)));
        button->setIcon(lookIcon(QStringLiteral("file")));
        m_volumes->addWidget(button, 0, Qt::AlignHCenter);
        connect(button, &QPushButton::clicked, this,
                [this, path = volume.path] { emit signalFolder(path); });
    }
}

} // namespace KOLT
