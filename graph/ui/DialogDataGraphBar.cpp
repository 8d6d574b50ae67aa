// The bar above the graph and what its buttons do.

#include "graph/ui/DialogDataGraph.h"
#include "graph/ui/DialogGraphSetup.h"
#include "graph/ui/WidgetGraphBase.h"
#include "record/DataSet.h"
#include "ui/Messages.h"
#include "ui/SaveDialog.h"

#include <QApplication>
#include <QBuffer>
#include <QButtonGroup>
#include <QClipboard>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

#include <algorithm>

namespace KOLT {

namespace {

constexpr double holdFactor = 0.97;
constexpr double longestHeldSpan = 5000.0;
constexpr double shortestHeldSpan = 1.0;
constexpr double allMargin = 0.1;
constexpr int buttonSize = 32;
constexpr int groupSpacing = 5;

} // namespace

void DialogDataGraph::createBar()
{
    m_bar = new QHBoxLayout;
    m_bar->setSpacing(0);
    m_buttons = new QButtonGroup(this);
    m_buttons->setExclusive(false);
    const auto icon = [](const char* name) { return QString::fromLatin1(name); };
    addCommand(ZoomIn, icon("zoom-in"), tr("Zoom In"), false, true);
    addCommand(ZoomOut, icon("zoom-out"), tr("Zoom Out"), false, true);
    addCommand(ZoomAll, icon("zoom-fit"), tr("Zoom 1:1"), false, true);
    addCommand(ZoomMarker, icon("marker"), tr("Zoom Marker"), false, true);
    m_bar->addSpacing(groupSpacing);
    addCommand(ClearAll, icon("clear"), tr("Clear All"), false, false);
    addCommand(AutomaticMode, {}, tr("Automatic Mode"), true, false);
    m_buttons->button(AutomaticMode)->setText(tr("Auto"));
    addCommand(SplitMode, icon("graph-split"), tr("Split Mode"), true, true);
    addCommand(SingleMode, icon("graph-single"), tr("Single Graph Mode"), true, true);
    m_bar->addSpacing(groupSpacing);
    addCommand(Reset, icon("zoom-fit"), tr("Reset all to default"), false, false);
    addCommand(Setup, icon("graph-setup"), tr("Setup"), false, false);
    addCommand(Snapshot, icon("graph-snapshot"), tr("Snapshot"), false, true);
    const auto addOwn = [this](const char* name, const QString& tip, auto slot) {
        QToolButton* const button = addButton(QString::fromLatin1(name), tip);
        connect(button, &QToolButton::clicked, this, slot);
    };
    addOwn("copy", tr("Copy picture"), &DialogDataGraph::copyPicture);
    addOwn("graph-setup", tr("Oscilloscope Setup"), &DialogDataGraph::showSetup);
    m_bar->addStretch();
    m_progress = new QLabel(this);
    m_progress->hide();
    m_bar->addWidget(m_progress);
    connect(m_buttons, &QButtonGroup::idPressed, this, &DialogDataGraph::slotCommandPress);
    connect(m_buttons, &QButtonGroup::idReleased, this, &DialogDataGraph::slotCommandRelease);
}

QToolButton* DialogDataGraph::addButton(const QString& icon, const QString& tip)
{
    auto* const button = new QToolButton(this);
    button->setFixedSize(buttonSize, buttonSize);
    button->setIconSize(QSize(buttonSize, buttonSize));
    button->setAutoRaise(true);
    if (!icon.isEmpty())
        button->setIcon(QIcon(QStringLiteral(":/icons/%1.svg").arg(icon)));
    button->setToolTip(tip);
    m_bar->addWidget(button);
    return button;
}

void DialogDataGraph::addCommand(Command id, const QString& icon, const QString& tip,
                                 bool isCheckable, bool isShown)
{
    QToolButton* const button = addButton(icon, tip);
    button->setCheckable(isCheckable);
    button->setVisible(isShown);
    m_buttons->addButton(button, id);
}

void DialogDataGraph::slotCommandPress(int id)
{
    m_heldCommand = id;
}

void DialogDataGraph::slotCommandRelease(int id)
{
    const Graph& graph = m_graph->graph();
    switch (id) {
    case ZoomAll:
        zoomToAll();
        break;
    case ZoomMarker:
        m_graph->setWindow(std::min(graph.markerLeft, graph.markerRight),
                           std::max(graph.markerLeft, graph.markerRight));
        m_settings.timeSpan = graph.span();
        emit signalSettings(m_settings);
        break;
    case ClearAll:
        clearTraces();
        break;
    case AutomaticMode:
        m_settings.isAutomatic = m_buttons->button(AutomaticMode)->isChecked();
        applySettings();
        break;
    case SplitMode:
    case SingleMode:
        m_settings.isSplit = id == SplitMode;
        applySettings();
        break;
    case Reset:
        m_settings.isSplit = true;
        applySettings();
        setTimeSpan(GraphSettings().timeSpan);
        break;
    case Setup:
        showSetup();
        break;
    case Snapshot:
        saveSnapshot();
        break;
    default:
        emit signalSettings(m_settings); // a held zoom button changed the span
        break;
    }
    m_heldCommand = NoCommand;
}

void DialogDataGraph::zoomToAll()
{
    if (dataSet() == nullptr)
        return;
    const double length = dataSet()->stopSeconds - dataSet()->startSeconds;
    if (!(length > 0.0))
        return;
    m_settings.timeSpan = length;
    m_graph->setWindow(dataSet()->startSeconds - length * allMargin,
                       dataSet()->stopSeconds + length * allMargin);
    emit signalSettings(m_settings);
}

void DialogDataGraph::slotTimeout()
{
    const double span = m_graph->graph().span();
    // The limits are on these sides on purpose: they bring back a span that is beyond one.
    if (m_heldCommand == ZoomIn)
        setTimeSpan(std::min(span * holdFactor, longestHeldSpan));
    else if (m_heldCommand == ZoomOut)
        setTimeSpan(std::max(span / holdFactor, shortestHeldSpan));
    else
        return;
    m_graph->followCursor(); // the step kept one end of the window rather than the cursor's place
}

void DialogDataGraph::showSetup()
{
    m_setup->refresh();
    m_setup->show();
    m_setup->raise();
}

void DialogDataGraph::saveSnapshot()
{
    const QPixmap picture = grab();
    const QString path =
        askForSavePath(this, tr("Save Snapshot"), QStringLiteral("./snapshot.bmp"),
                       tr("BMP File (*.bmp);;All Files (*.*)"), QStringLiteral("bmp"));
    if (path.isEmpty())
        return;
    QByteArray content;
    QBuffer buffer(&content);
    buffer.open(QIODevice::WriteOnly);
    const QByteArray suffix = QFileInfo(path).suffix().toLatin1();
    if (!picture.save(&buffer, suffix.isEmpty() ? "BMP" : suffix.constData())) {
        Messages::warn(this, tr("The picture was not saved: there is no picture format for\n%1\n"
                                "Use a name that ends with .bmp, .png or .jpg.")
                                 .arg(path));
        return;
    }
    Messages::saveFile(this, path, content);
}

void DialogDataGraph::copyPicture()
{
    QApplication::clipboard()->setPixmap(m_graph->grab());
}

} // namespace KOLT
