#pragma once

#include "graph/Graph.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;

namespace KOLT {

/// The "Oscilloscope Setup": edits the graph's settings in place and reports each change at once.
/// The settings must outlive the dialog.
class DialogGraphSetup : public QDialog
{
    Q_OBJECT

public:
    explicit DialogGraphSetup(GraphSettings& settings, QWidget* parent = nullptr);

    /// Updates the controls from the settings.
    void refresh();

signals:
    void signalChanged();

private slots:
    void slotBackgroundColor();
    void slotGridOn(int state);
    void slotGridColor();
    void slotLabelColor();
    void slotLabelBackColor();
    void slotCursorOn(int state);
    void slotLegendOn(int state);
    void slotAutoscaleOn(int state);
    void slotYmin(const QString& text);
    void slotYmax(const QString& text);
    void slotClose();

private:
    struct ColorRow
    {
        QLabel* swatch = nullptr;
        const QColor* color = nullptr;
    };

    void chooseColor(QColor& color);
    void setFlag(bool GraphSettings::*flag, bool isOn);
    QLayout* createColorRow(const QColor& color, void (DialogGraphSetup::*slot)(),
                            QCheckBox* box = nullptr);
    QCheckBox* createBox(const QString& text, bool GraphSettings::*flag);
    void createRows(QFormLayout* form);

    GraphSettings& m_settings;
    std::vector<ColorRow> m_colors;
    std::vector<std::pair<QCheckBox*, bool GraphSettings::*>> m_boxes;
    QComboBox* m_cursorMode = nullptr;
    QLineEdit* m_yMinimum = nullptr;
    QLineEdit* m_yMaximum = nullptr;
    bool m_isShowing = false; ///< the controls are being updated by refresh()
};

} // namespace KOLT
