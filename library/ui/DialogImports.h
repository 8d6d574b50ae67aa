#pragma once

#include "library/archive/ArchiveTrash.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QTreeWidget;

namespace KOLT::Library {

/// The imports of a library, of which a wrong one can be taken back.
class DialogImports : public QDialog
{
    Q_OBJECT

public:
    explicit DialogImports(const Archive& archive, QWidget* parent = nullptr);

signals:
    void signalCycleChanged(const KOLT::Library::ArchivedCycle& cycle);
    void signalCycleRemoved(const QString& folder);

private:
    void fill();
    void refreshButton();
    void takeBackCurrent();

    Archive m_archive;
    QTreeWidget* m_list = nullptr;
    QLabel* m_state = nullptr;
    QPushButton* m_button = nullptr;
};

} // namespace KOLT::Library
