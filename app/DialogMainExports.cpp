// The exports of the main window.
#include "app/DialogMain.h"
#include "app/MainActions.h"
#include "export/DialogExportCsv.h"
#include "export/DialogExportGpx.h"
#include "export/DialogExportKml.h"
#include "export/ExportName.h"

#include <QDir>
#include <QStatusBar>

namespace KOLT {

void DialogMain::enableExports()
{
    for (const Command command : {Command::ExportKml, Command::ExportCsv, Command::ExportGpx})
        (*m_actions)[command]->setEnabled(m_card.dataSet() != nullptr);
}

ExportSubject DialogMain::subjectOf(const Choice& choice)
{
    ExportSubject subject;
    if (const auto* const picked = std::get_if<CycleChoice>(&choice))
        subject.cycle = picked->cycle;
    if (const auto* const files = std::get_if<Files>(&choice)) {
        for (const QString& path : *files)
            subject.files << path.section(QLatin1Char('/'), -1);
    }
    return subject;
}

// A job of the queue, which the dialog holds until it is closed: nothing is loaded meanwhile, and
// the data set and the profile stay as they are.
void DialogMain::startExport(Command command)
{
    if (m_card.dataSet() == nullptr)
        return;
    const DataSet& dataSet = *m_card.dataSet();
    DialogExport::Source source{dataSet, exportTitle(m_subject, dataSet), {}, m_card.folder()};
    std::unique_ptr<DialogExport> dialog;
    switch (command) {
    case Command::ExportKml:
        source.fileName = exportFileName(m_subject, dataSet, QStringLiteral("kml"));
        dialog = std::make_unique<DialogExportKml>(m_profile, source, this);
        break;
    case Command::ExportGpx:
        source.fileName = exportFileName(m_subject, dataSet, QStringLiteral("gpx"));
        dialog = std::make_unique<DialogExportGpx>(source, this);
        break;
    default:
        source.fileName = QStringLiteral("ExportKolt.csv");
        dialog = std::make_unique<DialogExportCsv>(m_profile, source, this);
        break;
    }
    if (dialog->exec() == QDialog::Accepted)
        statusBar()->showMessage(
            tr("Exported to %1").arg(QDir::toNativeSeparators(dialog->exportedPath())));
}

} // namespace KOLT
