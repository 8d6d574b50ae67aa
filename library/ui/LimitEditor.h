#pragma once

#include "library/ledger/LogbookRecords.h"

#include <QDialog>

class QCheckBox;
class QDateEdit;
class QDialogButtonBox;
class QDoubleSpinBox;
class QLineEdit;
class QSpinBox;

namespace KOLT {

/// Asks for a maintenance limit: what, every how many hours or months, and when it was done last.
class LimitEditor : public QDialog
{
    Q_OBJECT

public:
    explicit LimitEditor(const Library::MaintenanceLimit& limit, QWidget* parent = nullptr);

    /// As it is in the fields.
    Library::MaintenanceLimit limit() const;

private:
    void check();

    Library::MaintenanceLimit m_limit;
    QLineEdit* m_title;
    QCheckBox* m_hasHours;
    QDoubleSpinBox* m_hours;
    QCheckBox* m_hasMonths;
    QSpinBox* m_months;
    QDoubleSpinBox* m_lastHours;
    QCheckBox* m_isDone;
    QDateEdit* m_lastDate;
    QDialogButtonBox* m_buttons;
};

} // namespace KOLT
