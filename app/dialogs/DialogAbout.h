#pragma once

#include <QDialog>

namespace KOLT {

/// The program's version and the licences of its components.
class DialogAbout : public QDialog
{
    Q_OBJECT

public:
    explicit DialogAbout(QWidget* parent = nullptr);
};

} // namespace KOLT
