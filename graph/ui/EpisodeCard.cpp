#include "graph/ui/EpisodeCard.h"

#include "analysis/EpisodeFigures.h"
#include "graph/ScenePainter.h"
#include "ui/PaintedIcon.h"

#include <QApplication>
#include <QClipboard>
#include <QFontMetricsF>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QScrollArea>
#include <QToolButton>
#include <QVBoxLayout>

#include <functional>

namespace KOLT {

namespace {

constexpr int margin = 3;
constexpr QSize leastGraph(120, 48);
constexpr int leastFigures = 36;   ///< pixels of their height
constexpr int wideCharacters = 60; ///< a wider card has the graph beside the figures

QToolButton* createButton(QWidget& card, const QString& icon, const QString& text)
{
    auto* const button = new QToolButton(&card);
    button->setIcon(lookIcon(icon));
    button->setText(text);
    button->setAutoRaise(true);
    return button;
}

/// The figures as a table; names from the profile are shown literally.
QString tableOf(const std::vector<EpisodeFigure>& figures)
{
    QString text = QStringLiteral("<table cellspacing='0' cellpadding='1'>");
    for (const EpisodeFigure& figure : figures)
        text += QStringLiteral("<tr><td>%1:&nbsp;</td><td><b>%2</b></td></tr>")
                    .arg(figure.label.toHtmlEscaped(), figure.text.toHtmlEscaped());
    return text + QStringLiteral("</table>");
}

} // namespace

EpisodeGraph::EpisodeGraph(QWidget* parent)
    : QWidget(parent)
{
    setMinimumSize(leastGraph);
    setAccessibleName(EpisodeCard::tr("Graph of the episode"));
}

void EpisodeGraph::paintEvent(QPaintEvent* /*event*/)
{
    const QFontMetricsF metrics(font());
    QPainter painter(this);
    const GraphScene scene =
        m_picture.scene(size(), {metrics.height(), metrics.horizontalAdvance(QLatin1Char('0'))},
                        devicePixelRatioF());
    paintScene(painter, scene, size());
}

EpisodeCard::EpisodeCard(const Profile& profile, QWidget* parent)
    : QWidget(parent)
    , m_profile(profile)
{
    m_title = new QLabel(this);
    m_title->setTextFormat(Qt::PlainText);
    m_title->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // must not widen the page
    QFont bold = m_title->font();
    bold.setBold(true);
    m_title->setFont(bold);
    m_figures = new QLabel;
    m_figures->setTextFormat(Qt::RichText);
    m_figures->setWordWrap(true);
    m_figures->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    m_figures->setObjectName(QStringLiteral("panel")); // its ground in the style sheet
    m_figures->setMargin(margin);
    m_figures->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* const area = new QScrollArea(this);
    area->setWidget(m_figures);
    area->setWidgetResizable(true);
    area->setMinimumHeight(leastFigures);
    area->setAccessibleName(EpisodeCard::tr("Figures of the episode"));
    m_graph = new EpisodeGraph(this);
    m_content = new QBoxLayout(QBoxLayout::TopToBottom);
    m_content->addWidget(area, 1);
    m_content->addWidget(m_graph, 1);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(createButtons());
    layout->addLayout(m_content, 1);
}

QBoxLayout* EpisodeCard::createButtons()
{
    auto* const row = new QHBoxLayout;
    row->setSpacing(0);
    row->addWidget(m_title, 1);
    const auto add = [&](const char* icon, const QString& text, const QString& tip,
                         const std::function<void()>& act) {
        QToolButton* const button = createButton(*this, QLatin1String(icon), text);
        button->setToolTip(tip);
        connect(button, &QToolButton::clicked, this, [this, act] {
            if (m_episode != nullptr)
                act();
        });
        row->addWidget(button);
        return button;
    };
    add("tab-graph", tr("Show in graph"), tr("Go to the episode in the graph"),
        [this] { emit signalShowInGraph(target()); });
    add("copy", tr("Copy"), tr("Copy the figures of the episode"), [this] { copy(); });
    QToolButton* const caseFile =
        add("file", tr("Case file"),
            tr("Write what was recorded from 30 s before to 30 s after into a folder that opens "
               "like a card"),
            [this] { emit signalCaseFile(target()); });
    auto* const forms = new QMenu(caseFile);
    connect(forms->addAction(tr("Zip File for Mail...")), &QAction::triggered, this, [this] {
        if (m_episode != nullptr)
            emit signalCaseZip(target());
    });
    caseFile->setMenu(forms);
    caseFile->setPopupMode(QToolButton::MenuButtonPopup);
    return row;
}

void EpisodeCard::showEpisode(const DataSet& dataSet, const Episode& episode)
{
    m_episode = &episode;
    m_title->setText(titleOf(episode));
    m_title->setToolTip(m_title->text().toHtmlEscaped());
    fitButtons();
    m_figures->setText(tableOf(figuresOf(m_profile, episode)));
    m_graph->picture().show(m_profile, dataSet, episode);
    m_graph->update();
}

void EpisodeCard::clear()
{
    m_episode = nullptr;
    m_graph->picture().clear();
    m_graph->update();
}

void EpisodeCard::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const bool isWide = width() > wideCharacters * fontMetrics().averageCharWidth();
    m_content->setDirection(isWide ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    fitButtons();
}

/// The buttons lose their texts where the title needs the room.
void EpisodeCard::fitButtons()
{
    const auto set = [this](Qt::ToolButtonStyle style) {
        int width = 0;
        for (QToolButton* button : findChildren<QToolButton*>()) {
            button->setToolButtonStyle(style);
            width += button->sizeHint().width();
        }
        return width;
    };
    if (set(Qt::ToolButtonTextBesideIcon) + m_title->sizeHint().width() > width())
        set(Qt::ToolButtonIconOnly);
}

GraphTarget EpisodeCard::target() const
{
    const ProfileParameter* const parameter =
        m_episode->peak ? m_episode->peak->parameter : m_episode->parameters.front();
    return {parameter->fullName, m_episode->begin, m_episode->end};
}

void EpisodeCard::copy() const
{
    QApplication::clipboard()->setText(figuresText(m_profile, *m_episode));
}

} // namespace KOLT
