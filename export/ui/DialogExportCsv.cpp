#include "export/ui/DialogExportCsv.h"

#include "export/CsvWriter.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLocale>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace KOLT {

DialogExportCsv::DialogExportCsv(const Profile& profile, Source source, const CsvOptions& options,
                                 QWidget* parent)
    : DialogExport(std::move(source),
                   {tr("Export CSV File"), QStringLiteral("csv"), tr("CSV Files (*.csv)"),
                    tr("KOLT Viewer Warning"), tr("Exporting CSV file failed !")},
                   parent)
    , m_profile(profile)
    , m_span(sampleSpan(this->source().dataSet))
{
    createOptions();
    setOptions(options);
    connect(m_separator, &QComboBox::currentIndexChanged, this, &DialogExportCsv::showEstimate);
    connect(m_resolution, &QSpinBox::valueChanged, this, &DialogExportCsv::showEstimate);
    connect(m_all, &QRadioButton::toggled, this, &DialogExportCsv::showEstimate);
    connect(m_comma, &QCheckBox::toggled, this, &DialogExportCsv::showEstimate);
    connect(m_codes, &QCheckBox::toggled, this, &DialogExportCsv::showEstimate);
    showEstimate();
}

void DialogExportCsv::createOptions()
{
    m_separator = new QComboBox;
    m_separator->setObjectName(QStringLiteral("separator"));
    m_separator->addItem(tr("Semicolon ;"), int{';'});
    m_separator->addItem(tr("Comma ,"), int{','});
    m_separator->addItem(tr("Tabulator"), int{'\t'});
    m_comma = new QCheckBox(tr("&Decimal comma (12,5)"));
    m_comma->setToolTip(tr("For spreadsheets that expect a decimal comma"));
    m_codes = new QCheckBox(tr("&Codes without labels (4 instead of 4: CRUISE)"));
    m_codes->setToolTip(tr("For calculations: enumerations as numbers"));
    m_resolution = new QSpinBox;
    m_resolution->setObjectName(QStringLiteral("resolution"));
    m_resolution->setRange(bounded("CsvResolution", 0), bounded("CsvResolution", 1'000'000));
    m_resolution->setStepType(QAbstractSpinBox::AdaptiveDecimalStepType);
    m_resolution->setSuffix(tr(" ms"));
    m_resolution->setToolTip(tr("Time from one row to the next"));
    const auto selected = static_cast<int>(m_profile.selectedParameters().size());
    m_all = new QRadioButton(
        tr("&All parameters (%1)").arg(static_cast<int>(m_profile.parameters().size())));
    m_selected = new QRadioButton(tr("&Selected parameters (%1)").arg(selected));
    auto* const form = new QFormLayout;
    form->addRow(tr("Se&parator"), m_separator);
    form->addRow(QString(), m_comma);
    form->addRow(QString(), m_codes);
    form->addRow(tr("&Time step"), m_resolution);
    form->addRow(tr("Columns"), m_all);
    form->addRow(QString(), m_selected);
    optionsLayout().addLayout(form);
}

void DialogExportCsv::setOptions(const CsvOptions& options)
{
    if (m_separator->findData(int{options.separator}) < 0)
        m_separator->addItem(QString(QLatin1Char(options.separator)), int{options.separator});
    m_separator->setCurrentIndex(m_separator->findData(int{options.separator}));
    m_comma->setChecked(options.decimalComma);
    m_codes->setChecked(options.codesOnly);
    m_resolution->setValue(options.resolution);
    (options.allParameters ? m_all : m_selected)->setChecked(true);
}

CsvOptions DialogExportCsv::options() const
{
    CsvOptions options;
    options.separator = static_cast<char>(m_separator->currentData().toInt());
    options.resolution = m_resolution->value();
    options.allParameters = m_all->isChecked();
    options.decimalComma = m_comma->isChecked();
    options.codesOnly = m_codes->isChecked();
    return options;
}

void DialogExportCsv::showEstimate()
{
    const QLocale locale;
    const CsvProblem problem = problemOf(options());
    const CsvWriter writer(m_profile, source().dataSet, options(), m_span);
    const QString rows = locale.toString(writer.rowCount());
    if (problem == CsvProblem::Separator)
        setSummary(tr("This separator may occur within a field. Please choose another one."),
                   false);
    else if (problem == CsvProblem::DecimalComma)
        setSummary(
            tr("The decimal comma is also the separator. Please choose another separator, or the "
               "decimal point."),
            false);
    else if (writer.parameterCount() == 0)
        setSummary(tr("No parameters are selected."), false);
    else if (writer.rowCount() == 0)
        setSummary(tr("No sample with a usable time was recorded, so there are no rows to export."),
                   false);
    else if (writer.rowCount() > CsvWriter::maxRows)
        setSummary(tr("%1 rows are too many. Please choose a longer time step.").arg(rows), false);
    else
        setSummary(
            tr("%1 rows, about %2")
                .arg(rows, locale.formattedDataSize(static_cast<qint64>(writer.estimatedBytes()), 1,
                                                    QLocale::DataSizeTraditionalFormat)),
            true);
}

ExportStatus DialogExportCsv::write(QIODevice& device, const ExportProgress& progress)
{
    return CsvWriter(m_profile, source().dataSet, options(), m_span).write(device, progress);
}

} // namespace KOLT
