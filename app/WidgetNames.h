#pragma once

#include <QObject>

namespace KOLT {

/// Gives widgets without a text of their own, such as buttons with an icon, the name of their tool
/// tip, for programs that read a window aloud. Each gets it before it is first shown.
class WidgetNames : public QObject
{
public:
    WidgetNames();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace KOLT
