#pragma once

#include <QDialog>

class QComboBox;
class QDoubleSpinBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QSpinBox;

namespace KOLT {

/// Language, font size, units, profile file and map settings.
///
/// "OK" and "Apply" store what changed, apply the font size, and tell the rest by signals. A new
/// language needs a restart, and the dialog says so.
class DialogPreferences : public QDialog
{
    Q_OBJECT

public:
    explicit DialogPreferences(QWidget* parent = nullptr);

signals:
    /// Another profile file was installed.
    void signalProfileFileChanged();
    /// 0 metric, 1 imperial
    void signalUnitChanged(int unit);
    /// Tile server or shading.
    void signalMapChanged();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void createGeneral(QFormLayout* form);
    void createMap(QFormLayout* form);
    void readSettings();
    void apply();
    void applyProfileFile();
    bool storeMap();
    void chooseProfile();

    QComboBox* m_language = nullptr;
    QLabel* m_restart = nullptr;
    QSpinBox* m_fontSize = nullptr;
    QComboBox* m_unit = nullptr;
    QLineEdit* m_profile = nullptr;
    QLineEdit* m_tileServer = nullptr;
    QDoubleSpinBox* m_contrast = nullptr;
    QDoubleSpinBox* m_brightness = nullptr;
    QDoubleSpinBox* m_factor = nullptr;
    int m_shownLanguage = 0; ///< when the dialog was opened
    int m_shownFontSize = 0;
    QString m_startLanguage; ///< in which the program runs
};

} // namespace KOLT
