// The export commands of the main window.
#include "app/DialogMain.h"
#include "app/MainActions.h"
#include "app/settings/ExportSettingsStore.h"
#include "app/settings/SettingsStore.h"
#include "export/ExportName.h"
#include "export/ui/DialogExportCsv.h"
#include "export/ui/DialogExportGpx.h"
#include "export/ui/DialogExportKml.h"

#include <QDir>
#include <QStatusBar>

#include <memory>

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

// Runs as a job of the queue until the dialog is closed, so that neither data set nor profile
// change meanwhile.
void DialogMain::startExport(Command command)
{
    if (m_card.dataSet() == nullptr)
        return;
    const DataSet& dataSet = *m_card.dataSet();
    SettingsStore& settings = SettingsStore::instance();
    const char* const format = command == Command::ExportKml   ? "Kml"
                               : command == Command::ExportGpx ? "Gpx"
                                                               : "Csv";
    const DialogExport::Source source{
        dataSet, exportTitle(m_subject, dataSet),
        command == Command::ExportCsv
            ? QStringLiteral("ExportKolt.csv")
            : exportFileName(m_subject, dataSet, QString::fromLatin1(format).toLower()),
        loadExportFolder(settings, format)};
    std::unique_ptr<DialogExport> dialog;
    std::function<void()> storeOptions;
    switch (command) {
    case Command::ExportKml: {
        auto kml =
            std::make_unique<DialogExportKml>(m_profile, source, loadKmlOptions(settings), this);
        storeOptions = [page = kml.get(), &settings] {
            storeKmlOptions(page->options(), settings);
        };
        dialog = std::move(kml);
        break;
    }
    case Command::ExportGpx:
        dialog = std::make_unique<DialogExportGpx>(source, this);
        break;
    default: {
        auto csv =
            std::make_unique<DialogExportCsv>(m_profile, source, loadCsvOptions(settings), this);
        storeOptions = [page = csv.get(), &settings] {
            storeCsvOptions(page->options(), settings);
        };
        dialog = std::move(csv);
        break;
    }
    }
    connect(dialog.get(), &DialogExport::signalChosen, this, [&](const QString& folder) {
        storeExportFolder(folder, format, settings);
        if (storeOptions)
            storeOptions();
        m_data->setListSettings(loadListSettings(settings));
        saveSettings(dialog.get());
    });
    if (dialog->exec() == QDialog::Accepted)
        statusBar()->showMessage(
            tr("Exported to %1").arg(QDir::toNativeSeparators(dialog->exportedPath())));
}

} // namespace KOLT
