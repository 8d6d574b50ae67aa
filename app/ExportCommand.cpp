#include "app/ExportCommand.h"

#include "app/SettingsSaver.h"
#include "app/settings/ExportSettingsStore.h"
#include "app/settings/SettingsStore.h"
#include "export/ExportName.h"
#include "export/ui/DialogExportCsv.h"
#include "export/ui/DialogExportGpx.h"
#include "export/ui/DialogExportKml.h"

#include <functional>
#include <memory>

namespace KOLT {

namespace {

/// A dialog, and how to store its options.
struct ExportDialog
{
    std::unique_ptr<DialogExport> dialog;
    std::function<void()> storeOptions;
};

const char* formatOf(Command command)
{
    switch (command) {
    case Command::ExportKml:
        return "Kml";
    case Command::ExportGpx:
        return "Gpx";
    default:
        return "Csv";
    }
}

ExportDialog createDialog(Command command, const Profile& profile,
                          const DialogExport::Source& source, SettingsStore& settings,
                          QWidget* parent)
{
    if (command == Command::ExportGpx) {
        auto dialog =
            std::make_unique<DialogExportGpx>(profile, source, loadGpxOptions(settings), parent);
        auto* const page = dialog.get();
        return {std::move(dialog),
                [page, &settings] { storeGpxOptions(page->options(), settings); }};
    }
    if (command == Command::ExportKml) {
        auto dialog =
            std::make_unique<DialogExportKml>(profile, source, loadKmlOptions(settings), parent);
        auto* const page = dialog.get();
        return {std::move(dialog),
                [page, &settings] { storeKmlOptions(page->options(), settings); }};
    }
    auto dialog =
        std::make_unique<DialogExportCsv>(profile, source, loadCsvOptions(settings), parent);
    auto* const page = dialog.get();
    return {std::move(dialog), [page, &settings] { storeCsvOptions(page->options(), settings); }};
}

} // namespace

QString runExport(Command command, SettingsStore& settings, const Profile& profile,
                  const DataSet& dataSet, const ExportSubject& subject, const QString& note,
                  QWidget* parent)
{
    const char* const format = formatOf(command);
    const QString name =
        command == Command::ExportCsv
            ? QStringLiteral("ExportKolt.csv")
            : exportFileName(subject, dataSet, QString::fromLatin1(format).toLower());
    const DialogExport::Source source{dataSet, exportTitle(subject, dataSet), name,
                                      loadExportFolder(settings, format), note};
    const ExportDialog shown = createDialog(command, profile, source, settings, parent);
    QObject::connect(shown.dialog.get(), &DialogExport::signalChosen, shown.dialog.get(),
                     [&](const QString& folder) {
                         storeExportFolder(folder, format, settings);
                         shown.storeOptions();
                         saveSettings(shown.dialog.get());
                     });
    return shown.dialog->exec() == QDialog::Accepted ? shown.dialog->exportedPath() : QString();
}

} // namespace KOLT
