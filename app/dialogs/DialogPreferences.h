#pragma once

#include "map/MapSettings.h"

#include <QDialog>

#include <array>

class QComboBox;
class QDoubleSpinBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

namespace KOLT {

class ClockOffsetBox;
class SettingsStore;
class TileServerBox;

/// Language, look, font size, units, clock offset, profile file and map settings.
///
/// "OK" and "Apply" store what changed, apply look and font size and report the rest by signals. A
/// change of language needs a restart, as the dialog says.
class DialogPreferences : public QDialog
{
    Q_OBJECT

public:
    /// The settings must outlive the window.
    explicit DialogPreferences(SettingsStore& settings, QWidget* parent = nullptr);

    /// Puts the keyboard focus into the field for the tile server.
    void focusTileServer();

signals:
    /// Another profile file was installed.
    void signalProfileFileChanged();
    /// 0 metric, 1 imperial
    void signalUnitChanged(int unit);
    /// In minutes.
    void signalClockOffset(int minutes);
    /// Tile server or shading changed.
    void signalMapChanged();
    /// The user wants to choose the library, or to move it.
    void signalLibrary();
    void signalMoveLibrary();

protected:
    void showEvent(QShowEvent* event) override;

private:
    struct Shading
    {
        double MapSettings::*value = nullptr;
        QDoubleSpinBox* box = nullptr;
    };

    void createGeneral(QFormLayout* form);
    void createClock(QFormLayout* form);
    void createMap(QFormLayout* form);
    void createLibrary(QFormLayout* form);
    void readSettings();
    void showLibrary();
    bool apply();
    bool storeClockOffset();
    bool applyProfileFile();
    MapSettings mapFields() const;
    bool storeMap();
    void chooseProfile();
    void showProfile(const QString& path, bool isGood);

    SettingsStore& m_settings;
    QComboBox* m_language = nullptr;
    QLabel* m_restart = nullptr;
    QComboBox* m_look = nullptr;
    QSpinBox* m_fontSize = nullptr;
    QComboBox* m_unit = nullptr;
    ClockOffsetBox* m_clockOffset = nullptr;
    QLineEdit* m_profile = nullptr;
    QLineEdit* m_library = nullptr;
    QPushButton* m_move = nullptr;
    QLabel* m_mistake = nullptr;
    TileServerBox* m_tileServer = nullptr;
    std::array<Shading, 3> m_shading;
    // Values when the dialog was opened: what the user did not change is not stored.
    int m_shownLanguage = 0;
    int m_shownLook = 0;
    int m_shownFontSize = 0;
    int m_shownUnit = 0;
    int m_shownClockOffset = 0;
    MapSettings m_shownMap;
    QString m_startLanguage; ///< language of the running program
};

} // namespace KOLT
