#include "app/dialogs/DialogPreferences.h"

#include "app/SettingsSaver.h"
#include "app/dialogs/ClockOffsetBox.h"
#include "app/dialogs/InstallProfile.h"
#include "app/dialogs/TileServerBox.h"
#include "app/settings/LibrarySettingsStore.h"
#include "app/settings/MapSettingsStore.h"
#include "app/settings/ProgramSettings.h"
#include "app/startup/Startup.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QStyle>
#include <QVBoxLayout>

namespace KOLT {

namespace {

constexpr int smallestFont = 8;
constexpr int largestFont = 32;
constexpr double largestShading = 10.0;
constexpr double shadingStep = 0.1;
constexpr int fieldWidth = 360;

QDoubleSpinBox* createShadingBox(const QString& tip)
{
    auto* const box = new QDoubleSpinBox;
    box->setRange(0.0, largestShading);
    box->setSingleStep(shadingStep);
    box->setToolTip(tip);
    return box;
}

} // namespace

DialogPreferences::DialogPreferences(SettingsStore& settings, QWidget* parent)
    : QDialog(parent)
    , m_settings(settings)
    , m_startLanguage(ProgramSettings(settings).language())
{
    setWindowTitle(tr("Preferences"));
    auto* const general = new QGroupBox(tr("General"), this);
    createGeneral(new QFormLayout(general));
    auto* const map = new QGroupBox(tr("Map"), this);
    createMap(new QFormLayout(map));
    auto* const library = new QGroupBox(tr("Library"), this);
    createLibrary(new QFormLayout(library));

    auto* const buttons = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Apply, this);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] {
        if (apply())
            accept();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(buttons->button(QDialogButtonBox::Apply), &QPushButton::clicked, this,
            &DialogPreferences::apply);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(general);
    layout->addWidget(map);
    layout->addWidget(library);
    layout->addStretch();
    layout->addWidget(buttons);
    readSettings();
}

void DialogPreferences::createGeneral(QFormLayout* form)
{
    m_language = new QComboBox;
    m_language->addItem(QStringLiteral("English"), QStringLiteral("us"));
    m_language->addItem(QStringLiteral("Deutsch"), QStringLiteral("de"));
    m_restart = new QLabel(tr("The language changes when KOLT is started again."));
    m_restart->setObjectName(QStringLiteral("hint"));
    connect(m_language, &QComboBox::currentIndexChanged, this, [this] {
        m_restart->setVisible(m_language->currentData().toString() != m_startLanguage);
    });
    m_look = new QComboBox;
    m_look->addItems({tr("Light"), tr("Dark"), tr("As the system")});
    m_fontSize = new QSpinBox;
    m_fontSize->setRange(smallestFont, largestFont);
    m_fontSize->setSuffix(tr(" pixels"));
    m_unit = new QComboBox;
    m_unit->addItems({tr("Metric"), tr("Imperial")});
    m_profile = new QLineEdit;
    m_profile->setReadOnly(true);
    m_profile->setMinimumWidth(fieldWidth);
    m_profile->setToolTip(tr("The parameter profile that decodes the recordings"));
    auto* const choose = new QPushButton(tr("Choose..."));
    choose->setToolTip(tr("Choose another profile file; OK installs it instead of this one"));
    connect(choose, &QPushButton::clicked, this, &DialogPreferences::chooseProfile);
    auto* const profileRow = new QHBoxLayout;
    profileRow->addWidget(m_profile, 1);
    profileRow->addWidget(choose);
    m_mistake = new QLabel(tr("This file is not installed. Choose another one, or Cancel."));
    m_mistake->setObjectName(QStringLiteral("mistake"));
    m_mistake->setWordWrap(true);

    form->addRow(tr("&Language"), m_language);
    form->addRow(QString(), m_restart);
    form->addRow(tr("L&ook"), m_look);
    form->addRow(tr("&Font size"), m_fontSize);
    form->addRow(tr("&Units"), m_unit);
    createClock(form);
    auto* const profileLabel = new QLabel(tr("&Profile file"));
    profileLabel->setBuddy(choose);
    form->addRow(profileLabel, profileRow);
    form->addRow(QString(), m_mistake);
}

void DialogPreferences::createClock(QFormLayout* form)
{
    m_clockOffset = new ClockOffsetBox;
    m_clockOffset->setToolTip(
        tr("Is added to all dates and clock times that are shown and exported, "
           "in hours and minutes; times on the counter stay"));
    auto* const hint = new QLabel(tr("The unit's clock is taken as UTC."));
    hint->setObjectName(QStringLiteral("hint"));
    form->addRow(tr("Cloc&k offset"), m_clockOffset);
    form->addRow(QString(), hint);
}

void DialogPreferences::createMap(QFormLayout* form)
{
    m_tileServer = new TileServerBox;
    m_shading = {
        {{&MapSettings::shadingContrast, createShadingBox(tr("Contrast of the hill shading"))},
         {&MapSettings::shadingBrightness, createShadingBox(tr("Brightness of the hill shading"))},
         {&MapSettings::shadingFactor, createShadingBox(tr("Height factor of the hill shading"))}}};
    form->addRow(tr("&Tile server"), m_tileServer);
    form->addRow(tr("Shading &contrast"), m_shading[0].box);
    form->addRow(tr("Shading &brightness"), m_shading[1].box);
    form->addRow(tr("Shading f&actor"), m_shading[2].box);
}

void DialogPreferences::createLibrary(QFormLayout* form)
{
    m_library = new QLineEdit;
    m_library->setReadOnly(true);
    m_library->setPlaceholderText(tr("No library yet"));
    m_library->setToolTip(tr("Where the recordings of all cards are kept, and their database"));
    auto* const choose = new QPushButton(tr("Choose..."));
    choose->setToolTip(tr("Choose or create a library, with its database in the same folder or on "
                          "a PostgreSQL server"));
    connect(choose, &QPushButton::clicked, this, [this] {
        emit signalLibrary();
        showLibrary();
    });
    auto* const row = new QHBoxLayout;
    row->addWidget(m_library, 1);
    row->addWidget(choose);
    m_move = new QPushButton(tr("Move..."));
    m_move->setObjectName(QStringLiteral("moveLibraryButton"));
    m_move->setToolTip(tr("Copy the library to another folder, and use it there"));
    connect(m_move, &QPushButton::clicked, this, [this] {
        emit signalMoveLibrary();
        showLibrary();
    });
    row->addWidget(m_move);
    auto* const label = new QLabel(tr("L&ibrary"));
    label->setBuddy(choose);
    form->addRow(label, row);
}

void DialogPreferences::showLibrary()
{
    const Library::LibraryAddress address = loadLibraryAddress(m_settings);
    m_library->setText(address.isServer()
                           ? QStringLiteral("%1, %2").arg(address.archive, address.shown())
                           : address.archive);
    m_move->setEnabled(!address.archive.isEmpty());
    m_library->setCursorPosition(0); // the folder is what tells libraries apart
}

void DialogPreferences::focusTileServer()
{
    m_tileServer->setFocus(Qt::OtherFocusReason);
}

void DialogPreferences::showEvent(QShowEvent* event)
{
    readSettings();
    QDialog::showEvent(event);
}

void DialogPreferences::readSettings()
{
    const ProgramSettings settings(m_settings);
    const QString locale = settings.language();
    m_language->setCurrentIndex(std::max(m_language->findData(locale), 0));
    m_shownLanguage = m_language->currentIndex();
    m_restart->setVisible(locale != m_startLanguage);
    m_look->setCurrentIndex(static_cast<int>(settings.look()));
    m_shownLook = m_look->currentIndex();
    m_fontSize->setValue(settings.fontPixels());
    m_shownFontSize = m_fontSize->value();
    m_unit->setCurrentIndex(static_cast<int>(settings.units()));
    m_shownUnit = m_unit->currentIndex();
    m_clockOffset->setValue(settings.clockOffset());
    m_shownClockOffset = m_clockOffset->value();
    showProfile(InstalledProfile::path(), true);
    showLibrary();
    m_shownMap = loadMapSettings(m_settings);
    m_tileServer->setSettings(m_shownMap);
    for (const auto& [value, box] : m_shading)
        box->setValue(m_shownMap.*value);
    m_shownMap = mapFields(); // the boxes round and clamp
}

bool DialogPreferences::apply()
{
    ProgramSettings settings(m_settings);
    // Stores changes only: a setting may have a value that this dialog cannot show.
    if (m_language->currentIndex() != m_shownLanguage)
        settings.setLanguage(m_language->currentData().toString());
    m_shownLanguage = m_language->currentIndex();
    const bool isOtherLook = m_look->currentIndex() != m_shownLook;
    if (isOtherLook)
        settings.setLook(static_cast<ProgramSettings::LookChoice>(m_look->currentIndex()));
    m_shownLook = m_look->currentIndex();
    const int unit = m_unit->currentIndex();
    const bool isOtherUnit = unit != m_shownUnit;
    if (isOtherUnit)
        settings.setUnits(static_cast<UnitSystem>(unit));
    m_shownUnit = unit;
    const bool isOtherFont = m_fontSize->value() != m_shownFontSize;
    if (isOtherFont)
        settings.setFontPixels(m_fontSize->value());
    m_shownFontSize = m_fontSize->value();
    const bool isOtherClock = storeClockOffset();
    const bool isOtherMap = storeMap();
    saveSettings(this);
    if (isOtherFont)
        Startup::applyFontSize();
    if (isOtherLook || isOtherFont)
        Startup::applyLook(*qApp); // also makes styled widgets take the new font
    if (isOtherUnit)
        emit signalUnitChanged(unit);
    if (isOtherClock)
        emit signalClockOffset(m_shownClockOffset);
    if (isOtherMap)
        emit signalMapChanged();
    return applyProfileFile();
}

bool DialogPreferences::storeClockOffset()
{
    const bool isChanged = m_clockOffset->value() != m_shownClockOffset;
    m_shownClockOffset = m_clockOffset->value();
    if (isChanged)
        ProgramSettings(m_settings).setClockOffset(m_shownClockOffset);
    return isChanged;
}

MapSettings DialogPreferences::mapFields() const
{
    MapSettings settings = m_shownMap;
    settings.tileServer = m_tileServer->address();
    for (const auto& [value, box] : m_shading)
        settings.*value = box->value();
    return settings;
}

bool DialogPreferences::storeMap()
{
    const MapSettings fields = mapFields();
    const bool isChanged = storeMapChanges(m_shownMap, fields, m_settings);
    m_shownMap = fields;
    return isChanged;
}

void DialogPreferences::chooseProfile()
{
    const QString path = askForProfile(this);
    if (!path.isEmpty())
        showProfile(path, true);
}

/// A wrong file is marked, and the dialog stays open, so that another one can be chosen.
void DialogPreferences::showProfile(const QString& path, bool isGood)
{
    m_profile->setText(QDir::toNativeSeparators(path));
    m_profile->setProperty("isWrong", !isGood);
    m_profile->style()->unpolish(m_profile); // the style sheet asks for the property
    m_profile->style()->polish(m_profile);
    m_mistake->setVisible(!isGood);
}

bool DialogPreferences::applyProfileFile()
{
    using Result = InstalledProfile::Result;
    const QString path = QDir::fromNativeSeparators(m_profile->text());
    if (path == InstalledProfile::path())
        return true;
    const Result result = installProfile(this, path);
    const bool isGood = result == Result::Installed || result == Result::InUse;
    showProfile(isGood ? InstalledProfile::path() : path, isGood);
    if (result == Result::Installed)
        emit signalProfileFileChanged();
    return isGood;
}

} // namespace KOLT
