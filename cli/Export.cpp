#include "cli/Export.h"

#include "app/settings/ExportSettingsStore.h"
#include "app/settings/ProgramSettings.h"
#include "base/Diagnostics.h"
#include "cli/Arguments.h"
#include "cli/ExportArguments.h"
#include "cli/ExportOutput.h"
#include "cli/OpenFormats.h"
#include "cli/Recording.h"
#include "export/CandumpWriter.h"
#include "export/CsvWriter.h"
#include "export/ExportName.h"
#include "export/GpxWriter.h"
#include "export/KmlWriter.h"
#include "export/RecordingNote.h"
#include "record/FlightPath.h"
#include "record/RecordingTrust.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <memory>
#include <optional>

namespace KOLT::Cli {

namespace {

/// Exports according to the settings and the command line. Each operation returns an error message,
/// empty on success.
class Exporter
{
public:
    Exporter(const Arguments& arguments, Recording& recording)
        : m_arguments(arguments)
        , m_recording(recording)
    {
    }

    /// Applies the options of the command line and the settings, and checks them.
    QString prepare();
    /// Exports the chosen data to one file.
    QString exportOne();
    /// Exports every flight of the card, each to a file in a folder.
    QString exportAll();

private:
    QString writeFile(const QString& path, const ExportSubject& subject) const;
    ExportStatus write(QIODevice& device, const QString& title) const;
    ExportStatus writeLog(QIODevice& device) const;
    QString note() const;
    QString freeName(const ExportSubject& subject);
    void exportFlight(int cycle, std::size_t flight);
    void fail(QJsonObject entry, const QString& error);

    const DataSet& dataSet() const
    {
        return m_flight != nullptr ? *m_flight : *m_recording.card().dataSet();
    }

    const Arguments& m_arguments;
    Recording& m_recording;
    CsvOptions m_csv;
    KmlOptions m_kml;
    GpxOptions m_gpx;
    std::unique_ptr<DataSet> m_flight;            ///< exported instead of the whole loaded cycle
    QSet<QString> m_names;                        ///< file names used in this run
    mutable std::optional<CardFiles> m_cardFiles; ///< looked at when they are needed
    QJsonArray m_exported;
    QJsonArray m_failed;
    QString m_firstError;
};

QString Exporter::prepare()
{
    SettingsStore& settings = installedSettings();
    // Changed in memory only, never saved.
    if (!m_arguments.selection.isEmpty())
        settings.setBoolean("CsvAllParameter", false);
    for (const auto& [key, value] : m_arguments.settings)
        settings.setText(key, value);
    m_csv = loadCsvOptions(settings);
    m_kml = loadKmlOptions(settings);
    m_kml.packed = m_arguments.format == ExportFormat::Kmz; // the setting is that of the window
    m_gpx = loadGpxOptions(settings);
    if (m_arguments.format == ExportFormat::Csv && problemOf(m_csv) == CsvProblem::Separator)
        return QStringLiteral("the separator in the settings cannot be used: give another "
                              "--CsvLimiter");
    if (m_arguments.format == ExportFormat::Csv && problemOf(m_csv) == CsvProblem::DecimalComma)
        return QStringLiteral("a decimal comma does not go with the separator \",\": give another "
                              "--CsvLimiter or --CsvDecimalComma false");
    if (m_arguments.format == ExportFormat::Csv && !m_csv.allParameters &&
        m_arguments.selection.isEmpty())
        return QStringLiteral("--parameter is missing: not all parameters are to be exported");
    return {};
}

QString Exporter::note() const
{
    if (!m_cardFiles)
        m_cardFiles.emplace(m_recording.card());
    return sourceNote(m_recording.profile(),
                      recordingTrust(m_recording.profile(), *m_cardFiles, dataSet(),
                                     {m_recording.profile().engineType()})
                          .findings);
}

ExportStatus Exporter::write(QIODevice& device, const QString& title) const
{
    const Profile& profile = m_recording.profile();
    switch (m_arguments.format) {
    case ExportFormat::Kml:
    case ExportFormat::Kmz:
        return writeKml(device, profile, dataSet(), m_kml, title, {}, note());
    case ExportFormat::Gpx:
        return writeGpx(device, profile, dataSet(), m_gpx, title, {}, note());
    case ExportFormat::Candump:
        return writeLog(device);
    default:
        return CsvWriter(profile, dataSet(), m_csv).write(device);
    }
}

ExportStatus Exporter::writeLog(QIODevice& device) const
{
    CandumpSummary summary;
    const ExportStatus status =
        writeCandump(device, dataSet(), busesOf(m_recording.card(), dataSet()), summary);
    if (summary.leftOut > 0)
        Diagnostics::print(
            "%zu samples are left out, as their identifiers have more than 29 bits\n",
            summary.leftOut);
    if (!summary.hasClock)
        Diagnostics::print("the recording has no date: the log has the seconds of its counter\n");
    return status;
}

QString Exporter::writeFile(const QString& path, const ExportSubject& subject) const
{
    if (dataSet().messages.sampleCount() == 0)
        return QStringLiteral("the chosen data have no samples");
    if (formatInfo(m_arguments.format).isPath && !hasPath(dataSet()))
        return QStringLiteral("no position was recorded, so there is no flight path");
    if (m_arguments.format == ExportFormat::Csv) {
        const qint64 rows = CsvWriter(m_recording.profile(), dataSet(), m_csv).rowCount();
        if (rows == 0)
            return QStringLiteral("no sample with a usable time was recorded, so there are no "
                                  "rows");
        if (rows > CsvWriter::maxRows)
            return QStringLiteral("the file would have %1 rows, more than %2: choose a larger "
                                  "--CsvResolution")
                .arg(rows)
                .arg(CsvWriter::maxRows);
    }
    const QString title = exportTitle(subject, dataSet());
    const ExportOutcome outcome =
        exportTo(path, [&](QIODevice& device) { return write(device, title); });
    return outcome.status == ExportStatus::Done ? QString() : outputError(path, outcome.error);
}

QString Exporter::exportOne()
{
    QString error = m_recording.load();
    ExportSubject subject{m_arguments.cycle, m_arguments.files.value_or(QStringList())};
    if (error.isEmpty())
        error = writeFile(m_arguments.output, subject);
    return error.isEmpty() ? unreadError(dataSet().unreadFiles) : error;
}

QString Exporter::freeName(const ExportSubject& subject)
{
    const QString suffix = QLatin1String(formatInfo(m_arguments.format).suffix);
    const QString name = exportFileName(subject, dataSet(), suffix);
    QString free = name;
    // A name stays in use when its export failed. Files of earlier runs are not overwritten.
    const QDir folder(m_arguments.output);
    for (int i = 2; m_names.contains(free) || folder.exists(free); ++i)
        free = QStringLiteral("%1_%2.%3").arg(name.chopped(suffix.size() + 1)).arg(i).arg(suffix);
    m_names.insert(free);
    return free;
}

void Exporter::exportFlight(int cycle, std::size_t flight)
{
    QJsonObject entry{{QStringLiteral("cycle"), cycle},
                      {QStringLiteral("flight"), static_cast<qint64>(flight) + 1}};
    m_flight = m_recording.card().copyOfFlight(flight);
    const ExportSubject subject{cycle, {}};
    const QString path = QDir(m_arguments.output).filePath(freeName(subject));
    entry[QStringLiteral("file")] = path;
    QString error = writeFile(path, subject);
    if (error.isEmpty()) {
        m_exported.append(entry);
        error = unreadError(dataSet().unreadFiles);
    }
    if (error.isEmpty())
        return;
    Diagnostics::print("cycle %d, flight %zu: %s\n", cycle, flight + 1, qUtf8Printable(error));
    fail(entry, error);
}

void Exporter::fail(QJsonObject entry, const QString& error)
{
    entry[QStringLiteral("error")] = error;
    m_failed.append(entry);
    if (m_firstError.isEmpty())
        m_firstError = error;
}

QString Exporter::exportAll()
{
    if (!QDir().mkpath(m_arguments.output))
        return QStringLiteral("the folder %1 cannot be created").arg(m_arguments.output);
    CardContainer& card = m_recording.card();
    for (const auto& [number, cycle] : card.cycles()) {
        m_flight.reset();
        card.loadCycle(number); // once for all its flights
        const std::size_t flights = card.flightsOf(number).size();
        // The unread files may contain flights.
        const QString missing = unreadError(dataSet().unreadFiles);
        if (flights == 0 && !missing.isEmpty()) {
            Diagnostics::print("cycle %d: %s\n", number, qUtf8Printable(missing));
            fail({{QStringLiteral("cycle"), number}}, missing);
        }
        for (std::size_t i = 0; i < flights; ++i)
            exportFlight(number, i);
    }
    writeOutput(QJsonDocument(QJsonObject{{QStringLiteral("exported"), m_exported},
                                          {QStringLiteral("failed"), m_failed}})
                    .toJson());
    const QString error = finishOutput();
    if (!error.isEmpty())
        return error;
    if (m_exported.isEmpty() && m_failed.isEmpty())
        return QStringLiteral("there are no flights in %1").arg(m_arguments.folder);
    return m_failed.isEmpty() ? QString()
                              : QStringLiteral("%1 flights or cycles failed, the first with: %2")
                                    .arg(m_failed.size())
                                    .arg(m_firstError);
}

/// Selects the parameters of the command line and sets the units.
QString selectParameters(const Arguments& arguments, Profile& profile)
{
    for (const QString& name : arguments.selection) {
        if (profile.parameterByFullName(name) == nullptr)
            return QStringLiteral("the profile has no parameter %1").arg(name);
    }
    profile.select([&](const ProfileParameter& parameter) {
        return arguments.selection.contains(parameter.fullName);
    });
    if (!arguments.units)
        profile.setUnitSystem(ProgramSettings(installedSettings()).units());
    return {};
}

} // namespace

QString exportData(const Arguments& arguments)
{
    Recording recording(arguments);
    const bool isOfProfile = arguments.format == ExportFormat::Dbc;
    QString error = recording.openProfile();
    if (error.isEmpty() && !isOfProfile)
        error = recording.openFolder();
    if (error.isEmpty())
        error = outputObjection(arguments.output);
    if (error.isEmpty())
        error = selectParameters(arguments, recording.profile());
    if (!error.isEmpty())
        return error;
    if (isOfProfile)
        return exportDbc(arguments, recording.profile());
    if (arguments.format == ExportFormat::Sqlite)
        return exportDatabase(arguments, recording);
    Exporter exporter(arguments, recording);
    error = exporter.prepare();
    if (!error.isEmpty())
        return error;
    return arguments.all ? exporter.exportAll() : exporter.exportOne();
}

} // namespace KOLT::Cli
