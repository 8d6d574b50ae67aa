#pragma once

#include <QMainWindow>

namespace KOLT {

/// The top-level window. It is also the event filter of the whole application: Ctrl+Z would undo
/// edits in fields behind the user's back and reaches no widget.
class DialogMain : public QMainWindow
{
    Q_OBJECT

public:
    DialogMain();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace KOLT
