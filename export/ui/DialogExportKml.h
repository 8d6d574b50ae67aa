#pragma once

#include "export/ExportOptions.h"
#include "export/ui/DialogExport.h"
#include "profile/Profile.h"

class QCheckBox;
class QComboBox;
class QFormLayout;
class QGroupBox;
class QLabel;
class QSlider;
class QSpinBox;

namespace KOLT {

class WidgetColorButton;

/// Exports a KML file: options for line, curtain, marks along the path, marks of exceedances, and
/// times.
class DialogExportKml : public DialogExport
{
    Q_OBJECT

public:
    DialogExportKml(const Profile& profile, Source source, const KmlOptions& options,
                    QWidget* parent = nullptr);

    /// The options as set in the dialog.
    KmlOptions options() const;

protected:
    ExportStatus write(QIODevice& device, const ExportProgress& progress) override;

private:
    void createOptions();
    QGroupBox* createLine();
    QGroupBox* createCurtain();
    QGroupBox* createPlaceMarks();
    QGroupBox* createErrorMarks();
    QSlider* addOpacity(QFormLayout* form);
    void setOptions(const KmlOptions& options);
    void showInterval();
    void setKind();

    const Profile& m_profile;
    QSpinBox* m_lineWidth = nullptr;
    WidgetColorButton* m_lineColor = nullptr;
    QSlider* m_lineAlpha = nullptr;
    QGroupBox* m_polygon = nullptr;
    WidgetColorButton* m_polygonColor = nullptr;
    QSlider* m_polygonAlpha = nullptr;
    QGroupBox* m_placeMarks = nullptr;
    QSpinBox* m_interval = nullptr;
    QLabel* m_intervalSeconds = nullptr;
    WidgetColorButton* m_placeMarkColor = nullptr;
    QGroupBox* m_errorMarks = nullptr;
    QCheckBox* m_limits = nullptr;
    QCheckBox* m_warnings = nullptr;
    WidgetColorButton* m_errorMarkColor = nullptr;
    WidgetColorButton* m_warningMarkColor = nullptr;
    QComboBox* m_times = nullptr;
    QComboBox* m_altitudes = nullptr;
    QCheckBox* m_packed = nullptr;
};

} // namespace KOLT
