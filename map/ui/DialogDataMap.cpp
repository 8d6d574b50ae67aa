#include "map/ui/DialogDataMap.h"

#include "map/ui/WidgetMap.h"
#include "ui/LookColors.h"
#include "ui/PaintedIcon.h"

#include <QAction>
#include <QButtonGroup>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QResizeEvent>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>

namespace KOLT {

namespace {

constexpr int narrowestPage = 200;
constexpr int toolMargin = 3;
constexpr int foldIcon = 20;

} // namespace

DialogDataMap::DialogDataMap(const Profile& profile, const MapSettings& settings, QWidget* parent)
    : QWidget(parent)
    , m_profile(profile)
    , m_settings(settings)
    , m_map(new WidgetMap(m_state, settings, this))
    , m_values(profile, this)
    , m_flight(profile, this)
{
    auto* const layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_map);
    connect(m_map, &WidgetMap::signalUpdateMode, this, &DialogDataMap::slotUpdateMode);
    connect(m_map, &WidgetMap::signalTime, this, &DialogDataMap::signalTime);
    connect(m_map, &WidgetMap::signalMessage, this, &DialogDataMap::signalMessage);
    connect(m_map, &WidgetMap::signalTilesLacking, this, &DialogDataMap::showNote);
    createToolBar();
    createFoldButton();
    createNote();
    m_values.setFolded(!settings.areValuesShown);
    setMinimumWidth(narrowestPage);
}

void DialogDataMap::createToolBar()
{
    m_toolPanel = new QWidget(this);
    m_toolPanel->setAttribute(Qt::WA_StyledBackground);
    m_toolPanel->setObjectName(QStringLiteral("toolPanel"));
    m_toolPanel->setStyleSheet(
        QStringLiteral(".QWidget{background-color: #66ffffff;border-radius:10px;}"));
    auto* const layout = new QGridLayout(m_toolPanel);
    layout->setContentsMargins(toolMargin, toolMargin, toolMargin, toolMargin);
    auto* const bar = new QToolBar(m_toolPanel);
    bar->setStyleSheet(
        QStringLiteral(".QToolBar{background-color: #00ffffff;border-radius:10px;}"));
    layout->addWidget(bar);

    m_follow = bar->addAction(QIcon(QStringLiteral(":/icons/map-follow.svg")), tr("Center AC"));
    m_follow->setToolTip(tr("Center AC"));
    m_follow->setCheckable(true);
    m_follow->setChecked(m_state.follow != 0);
    m_follow->setData(CenterAircraft);
    m_commands = new QButtonGroup(this);
    m_commands->setExclusive(false);
    m_commands->addButton(static_cast<QToolButton*>(bar->widgetForAction(m_follow)),
                          CenterAircraft);
    connect(m_commands, &QButtonGroup::idToggled, this, &DialogDataMap::slotCommandToggled);

    createViewCommands(*bar);
    m_coloring = new QComboBox(bar);
    m_coloring->setToolTip(tr("What the track is colored by"));
    m_coloring->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_coloring->setMinimumContentsLength(10);
    connect(m_coloring, &QComboBox::activated, this, &DialogDataMap::slotColoring);
    bar->addWidget(m_coloring);
    createNotesCommand(*bar);
    for (auto* const part : bar->findChildren<QWidget*>())
        part->setPalette(lookPalette(Look::Light)); // the panel is white in both looks
}

void DialogDataMap::createViewCommands(QToolBar& bar)
{
    QAction* const fit =
        bar.addAction(QIcon(QStringLiteral(":/icons/map-fit.svg")), tr("Fit flight"));
    fit->setToolTip(tr("Show the whole flight (F)"));
    connect(fit, &QAction::triggered, this, [this] { m_map->showWholeTrack(); });
    m_shading = bar.addAction(QIcon(QStringLiteral(":/icons/map-shading.svg")), tr("Hill shading"));
    m_shading->setToolTip(tr("Hill shading (Ctrl+S while the map has the focus)"));
    m_shading->setCheckable(true);
    m_shading->setChecked(m_state.isShaded);
    connect(m_shading, &QAction::toggled, this, [this](bool isChecked) {
        m_state.isShaded = isChecked;
        m_state.needsRepaint = true;
    });
}

void DialogDataMap::createNotesCommand(QToolBar& bar)
{
    m_notesShown = bar.addAction(QIcon(QStringLiteral(":/icons/map-note.svg")), tr("Notes"));
    m_notesShown->setToolTip(tr("Show where notes were written"));
    m_notesShown->setCheckable(true);
    m_notesShown->setChecked(m_settings.areNotesShown);
    connect(m_notesShown, &QAction::toggled, this, [this](bool isChecked) {
        m_settings.areNotesShown = isChecked;
        showMarks();
        emit signalSettings(m_settings);
    });
}

void DialogDataMap::createFoldButton()
{
    m_fold = new QToolButton(this);
    m_fold->setObjectName(QStringLiteral("foldValues"));
    m_fold->setIcon(lookIcon(QStringLiteral("map-values")));
    m_fold->setIconSize({foldIcon, foldIcon});
    m_fold->setAccessibleName(tr("Values"));
    m_fold->setCheckable(true);
    m_fold->setChecked(m_settings.areValuesShown);
    connect(m_fold, &QToolButton::toggled, this, &DialogDataMap::foldValues);
}

void DialogDataMap::createNote()
{
    m_note = new QLabel(this);
    m_note->setObjectName(QStringLiteral("mapNote"));
    m_note->setStyleSheet(QStringLiteral(
        "QLabel{background-color: #ddffffff; color: #14181e; border-radius: 6px; padding: 4px;}"));
    m_noteReason = tr("No map tiles here");
    m_note->setText(m_noteReason); // it has a name before it is shown
    m_note->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    connect(m_note, &QLabel::linkActivated, this, &DialogDataMap::signalOpenSettings);
    m_note->hide();
}

void DialogDataMap::showNote(bool areTilesLacking)
{
    const bool isOffline = !m_settings.isNetworkEnabled || m_map->map().isOffline();
    const QString why = m_map->map().tiles().server().isFolder() ? tr("No map tiles in the folder")
                        : isOffline                              ? tr("No map tiles: offline")
                                                                 : tr("No map tiles here");
    m_noteReason = why;
    m_areTilesLacking = areTilesLacking;
    placePanels();
}

void DialogDataMap::foldValues(bool areShown)
{
    m_settings.areValuesShown = areShown;
    m_values.setFolded(!areShown);
    placePanels();
    emit signalSettings(m_settings);
}

void DialogDataMap::setSettings(const MapSettings& settings)
{
    m_settings = settings;
    m_map->setSettings(settings);
    showNote(m_areTilesLacking); // tiles may lack for another reason now
}

void DialogDataMap::fitTrack()
{
    m_map->fitTrack();
}

void DialogDataMap::slotCommandToggled(int id, bool isChecked)
{
    if (id == CenterAircraft) {
        m_state.follow = isChecked ? 2 : 0;
        m_state.isFollowWaiting = false;
    }
    m_state.needsRepaint = true;
}

void DialogDataMap::slotUpdateMode()
{
    m_follow->setChecked(m_state.follow != 0);
    m_shading->setChecked(m_state.isShaded);
}

void DialogDataMap::dropData()
{
    m_values.dropData();
    dropTrack();
}

void DialogDataMap::dropTrack()
{
    m_aircraft = {};
    m_fitted = nullptr;
    m_marks.clear();
    m_map->setTrack(nullptr, {});
    m_map->setColors({});
    m_map->setMarks({});
    m_map->setAircraft({});
}

void DialogDataMap::showData(Changes changes)
{
    m_map->setUnitSystem(m_profile.unitSystem());
    if (changes.testAnyFlags(Change::Data | Change::Selection)) {
        fillColorings();
        createValueRows();
    }
    if (changes.testFlag(Change::Font))
        placePanels();
    if (changes.testFlag(Change::Data))
        showTrack();
    if (m_fitted == nullptr)
        return;
    if (changes.testAnyFlags(Change::Data | Change::Selection))
        slotColoring(m_coloring->currentIndex());
    if (changes.testAnyFlags(Change::Data | Change::Units))
        findMarks();
}

void DialogDataMap::showTrack()
{
    const DataSet* const shown = dataSet();
    if (shown == nullptr || shown->track.empty()) {
        dropTrack(); // the values are shown without a track too
        return;
    }
    m_aircraft = AircraftTrack(shown->track);
    m_map->setTrack(&shown->track, trackGaps(m_profile, shown->messages));
    m_map->fitTrack();
    m_fitted = shown;
}

void DialogDataMap::findMarks()
{
    const DataSet* const shown = dataSet();
    m_marks = flightMarks(*shown);
    showMarks();
    // Finding exceedances walks through all samples: show the map first.
    QTimer::singleShot(0, this, [this, shown] {
        if (dataSet() != shown || m_fitted != shown)
            return;
        m_marks = exceedanceMarks(m_profile, *shown);
        std::ranges::move(flightMarks(*shown), std::back_inserter(m_marks));
        showMarks();
    });
}

void DialogDataMap::showMarks()
{
    if (m_fitted == nullptr)
        return;
    std::vector<MapMark> marks = m_marks;
    if (m_settings.areNotesShown)
        std::ranges::move(noteMarks(*m_fitted, m_notes), std::back_inserter(marks));
    m_map->setMarks(std::move(marks));
}

void DialogDataMap::setNotes(std::vector<NoteMark> notes)
{
    m_notes = std::move(notes);
    showMarks();
}

void DialogDataMap::fillColorings()
{
    const QVariant chosen = m_coloring->currentData();
    m_coloring->clear();
    using Kind = TrackColorChoice::Kind;
    const auto add = [this](const QString& text, Kind kind, const QString& parameter = {}) {
        m_coloring->addItem(text, QVariant::fromValue(TrackColorChoice{kind, parameter}));
    };
    add(tr("One color"), Kind::None);
    add(tr("Altitude"), Kind::Altitude);
    add(tr("Ground speed"), Kind::GroundSpeed);
    for (const ProfileParameter* const parameter : m_profile.selectedParameters()) {
        if (parameter != m_profile.parameterByRole(Role::Altitude) &&
            parameter != m_profile.parameterByRole(Role::GroundSpeed)) // have an entry already
            add(parameter->name, Kind::Parameter, parameter->fullName);
    }
    m_coloring->setCurrentIndex(std::max(0, m_coloring->findData(chosen)));
}

void DialogDataMap::slotColoring(int index)
{
    if (dataSet() == nullptr)
        return;
    const auto choice = m_coloring->itemData(index).value<TrackColorChoice>();
    m_map->setColors(trackColors(choice, m_profile, *dataSet()));
}

void DialogDataMap::createValueRows()
{
    m_values.setData(dataSet());
    placePanels();
}

void DialogDataMap::showTime()
{
    m_map->setAircraft(m_aircraft.at(time()));
    m_flight.show(m_aircraft.pointAt(time()));
    if (m_flight.widget().isHidden() != m_isFlightHidden)
        placePanels();
    m_values.showTime(time());
}

void DialogDataMap::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    placePanels();
}

} // namespace KOLT
