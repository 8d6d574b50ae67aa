#pragma once

#include <QWidget>

class QButtonGroup;
class QLabel;
class QToolButton;

namespace KOLT {

struct GraphSettings;

/// The bar above the graph: its eleven commands, two plain buttons, and the progress of loading.
class GraphCommandBar : public QWidget
{
    Q_OBJECT

public:
    /// The ids of the buttons are fixed.
    enum Command {
        ZoomIn,
        ZoomOut,
        ZoomAll,
        ZoomMarker,
        ClearAll,
        AutomaticMode,
        SplitMode,
        SingleMode,
        Reset,
        Setup,
        Snapshot,
        NoCommand = 99
    };

    explicit GraphCommandBar(QWidget* parent = nullptr);

    bool isChecked(Command command) const;
    /// Checks the buttons of the modes that are on.
    void showModes(const GraphSettings& settings);
    /// An empty text hides the progress.
    void showProgress(const QString& text);

signals:
    void signalPressed(int command);
    void signalReleased(int command);
    void signalCopyPicture();
    void signalSetup();

private:
    QToolButton* createButton(const QString& icon, const QString& tip);
    void createCommands();

    QButtonGroup* m_buttons;
    QLabel* m_progress;
};

} // namespace KOLT
