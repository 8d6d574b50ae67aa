#include "library/ui/LimitEditor.h"

#include "ui/CalendarField.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

namespace KOLT {

namespace {

constexpr double mostHours = 99999.0;
constexpr int mostMonths = 600;
constexpr double firstHours = 100.0;
constexpr int firstMonths = 12;
constexpr int fieldWidth = 220;

} // namespace

LimitEditor::LimitEditor(const Library::MaintenanceLimit& limit, QWidget* parent)
    : QDialog(parent)
    , m_limit(limit)
    , m_title(new QLineEdit(limit.title))
    , m_hasHours(new QCheckBox(tr("Every")))
    , m_hours(new QDoubleSpinBox)
    , m_hasMonths(new QCheckBox(tr("Every")))
    , m_months(new QSpinBox)
    , m_lastHours(new QDoubleSpinBox)
    , m_isDone(new QCheckBox(tr("Last done on")))
    , m_lastDate(new QDateEdit)
    , m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel))
{
    setWindowTitle(tr("Maintenance Limit"));
    m_title->setPlaceholderText(tr("Oil change"));
    m_title->setMinimumWidth(fieldWidth);
    for (QDoubleSpinBox* box : {m_hours, m_lastHours}) {
        box->setRange(0.0, mostHours);
        box->setSuffix(tr(" h"));
    }
    m_hours->setMinimum(0.1);
    m_hours->setDecimals(1);
    m_hours->setValue(limit.everyHours.value_or(firstHours));
    m_hasHours->setChecked(limit.everyHours.has_value());
    m_months->setRange(1, mostMonths);
    m_months->setSuffix(tr(" months"));
    m_months->setValue(limit.everyMonths.value_or(firstMonths));
    m_hasMonths->setChecked(limit.everyMonths.has_value());
    m_hours->setToolTip(tr("Hours of the engine from one time to the next"));
    m_months->setToolTip(tr("Months from one time to the next"));
    m_lastHours->setValue(limit.lastHours);
    m_lastHours->setToolTip(tr("Hours of the engine, as the window Engine counts them"));
    m_isDone->setChecked(limit.lastDate.isValid());
    useCalendar(*m_lastDate);
    m_lastDate->setToolTip(tr("Day on which it was last done"));
    m_lastDate->setDate(limit.lastDate.isValid() ? limit.lastDate : QDate::currentDate());
    auto* const form = new QFormLayout(this);
    form->addRow(tr("What"), m_title);
    form->addRow(m_hasHours, m_hours);
    form->addRow(m_hasMonths, m_months);
    form->addRow(tr("Last done at"), m_lastHours);
    form->addRow(m_isDone, m_lastDate);
    for (QCheckBox* box : {m_hasHours, m_hasMonths, m_isDone}) // on one line with its field
        box->setMinimumHeight(m_hours->sizeHint().height());
    form->addRow(m_buttons);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_title, &QLineEdit::textChanged, this, &LimitEditor::check);
    for (QCheckBox* box : {m_hasHours, m_hasMonths, m_isDone})
        connect(box, &QCheckBox::toggled, this, &LimitEditor::check);
    check();
}

void LimitEditor::check()
{
    m_hours->setEnabled(m_hasHours->isChecked());
    m_lastHours->setEnabled(m_hasHours->isChecked());
    m_months->setEnabled(m_hasMonths->isChecked());
    m_lastDate->setEnabled(m_isDone->isChecked());
    m_buttons->button(QDialogButtonBox::Ok)
        ->setEnabled(!m_title->text().trimmed().isEmpty() &&
                     (m_hasHours->isChecked() || m_hasMonths->isChecked()));
}

Library::MaintenanceLimit LimitEditor::limit() const
{
    Library::MaintenanceLimit limit = m_limit;
    limit.title = m_title->text().trimmed();
    limit.everyHours = m_hasHours->isChecked() ? std::optional(m_hours->value()) : std::nullopt;
    limit.everyMonths = m_hasMonths->isChecked() ? std::optional(m_months->value()) : std::nullopt;
    limit.lastHours = m_lastHours->value();
    limit.lastDate = m_isDone->isChecked() ? m_lastDate->date() : QDate();
    return limit;
}

} // namespace KOLT
