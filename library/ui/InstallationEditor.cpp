#include "library/ui/InstallationEditor.h"

#include "library/ledger/Installations.h"
#include "ui/CalendarField.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

namespace KOLT {

using namespace Library;

namespace {

constexpr int fieldWidth = 220;

void fill(QComboBox& box, const QStringList& entries, const QString& text, const char* name)
{
    box.setObjectName(QLatin1String(name));
    box.setEditable(true);
    box.setInsertPolicy(QComboBox::NoInsert);
    box.setMinimumWidth(fieldWidth);
    box.addItems(entries);
    box.setCurrentText(text);
}

void fill(QDateEdit& field, const QDate& date, const char* name)
{
    field.setObjectName(QLatin1String(name));
    useCalendar(field);
    field.setDate(date.isValid() ? date : QDate::currentDate());
}

} // namespace

InstallationEditor::InstallationEditor(const WrittenInstallation& installation,
                                       const std::vector<WrittenInstallation>& all,
                                       const QStringList& engines, const QStringList& units,
                                       QWidget* parent)
    : QDialog(parent)
    , m_installation(installation)
    , m_all(all)
    , m_unit(new QComboBox)
    , m_engine(new QComboBox)
    , m_hasFrom(new QCheckBox(tr("&From")))
    , m_from(new QDateEdit)
    , m_hasTo(new QCheckBox(tr("&To")))
    , m_to(new QDateEdit)
    , m_mistake(new QLabel)
    , m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel))
{
    setWindowTitle(tr("Installation"));
    fill(*m_unit, units, installation.unit != 0 ? QString::number(installation.unit) : QString(),
         "installationUnit");
    m_unit->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]{1,10}")), m_unit));
    m_unit->setToolTip(tr("Serial number of the unit that records"));
    fill(*m_engine, engines, installation.engine, "installationEngine");
    m_engine->setToolTip(tr("Serial number of the engine"));
    fill(*m_from, installation.from, "installationFrom");
    fill(*m_to, installation.to, "installationTo");
    m_hasFrom->setObjectName(QStringLiteral("installationHasFrom"));
    m_hasFrom->setChecked(installation.from.isValid());
    m_hasFrom->setToolTip(tr("The first day; without it, from the beginning"));
    m_hasTo->setObjectName(QStringLiteral("installationHasTo"));
    m_hasTo->setChecked(installation.to.isValid());
    m_hasTo->setToolTip(tr("The last day; without it, until now"));
    m_from->setToolTip(m_hasFrom->toolTip());
    m_to->setToolTip(m_hasTo->toolTip());
    m_mistake->setObjectName(QStringLiteral("mistake"));
    m_mistake->setTextFormat(Qt::PlainText);
    m_mistake->setWordWrap(true);
    auto* const form = new QFormLayout;
    form->addRow(tr("&Unit"), m_unit);
    form->addRow(tr("&Engine"), m_engine);
    form->addRow(m_hasFrom, m_from);
    form->addRow(m_hasTo, m_to);
    for (QCheckBox* box : {m_hasFrom, m_hasTo}) // on one line with its field
        box->setMinimumHeight(m_to->sizeHint().height());
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(m_mistake);
    layout->addStretch();
    layout->addWidget(m_buttons);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    for (QComboBox* box : {m_unit, m_engine})
        connect(box, &QComboBox::editTextChanged, this, &InstallationEditor::check);
    for (QCheckBox* box : {m_hasFrom, m_hasTo})
        connect(box, &QCheckBox::toggled, this, &InstallationEditor::check);
    for (QDateEdit* field : {m_from, m_to})
        connect(field, &QDateEdit::dateChanged, this, &InstallationEditor::check);
    check();
}

void InstallationEditor::check()
{
    m_from->setEnabled(m_hasFrom->isChecked());
    m_to->setEnabled(m_hasTo->isChecked());
    const WrittenInstallation entered = installation();
    const bool isWhole = entered.unit != 0 && !entered.engine.isEmpty();
    const QString mistake = isWhole ? objectionTo(entered, m_all) : QString();
    m_mistake->setText(mistake);
    m_mistake->setVisible(!mistake.isEmpty());
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(isWhole && mistake.isEmpty());
}

WrittenInstallation InstallationEditor::installation() const
{
    WrittenInstallation entered = m_installation;
    entered.unit = m_unit->currentText().toUInt(); // 0 if it is no number, or too large
    entered.engine = m_engine->currentText().trimmed();
    entered.from = m_hasFrom->isChecked() ? m_from->date() : QDate();
    entered.to = m_hasTo->isChecked() ? m_to->date() : QDate();
    return entered;
}

} // namespace KOLT
