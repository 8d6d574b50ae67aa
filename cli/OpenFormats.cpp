#include "cli/OpenFormats.h"

#include "base/Diagnostics.h"
#include "base/SafeFile.h"
#include "cli/Arguments.h"
#include "cli/ExportOutput.h"
#include "cli/Recording.h"
#include "export/DbcWriter.h"
#include "export/SqliteWriter.h"
#include "record/RecordingTrust.h"

#include <QIODevice>

#include <string_view>

namespace KOLT::Cli {

namespace {

/// Fills a database with what was chosen.
class DatabaseExport
{
public:
    DatabaseExport(const Arguments& arguments, Recording& recording)
        : m_arguments(arguments)
        , m_recording(recording)
        , m_writer(recording.profile(), !arguments.selection.isEmpty())
    {
    }

    /// Writes the file; returns an error message, empty on success.
    QString write(const QString& path)
    {
        m_writer.open(path);
        const QString error = m_arguments.all ? addCycles() : addChosen();
        return m_writer.close() ? error : m_writer.error();
    }

    const QStringList& unreadFiles() const { return m_unread; }

private:
    QString addCycles();
    QString addChosen();
    bool add(std::optional<int> cycle);

    const Arguments& m_arguments;
    Recording& m_recording;
    SqliteWriter m_writer;
    std::optional<CardFiles> m_files;
    QStringList m_unread;
};

QString DatabaseExport::addCycles()
{
    CardContainer& card = m_recording.card();
    if (card.cycles().empty())
        return QStringLiteral("there are no recordings in %1").arg(m_arguments.folder);
    for (const auto& [number, cycle] : card.cycles()) {
        card.loadCycle(number);
        if (!add(number))
            break;
    }
    return {};
}

QString DatabaseExport::addChosen()
{
    const QString error = m_recording.load();
    if (!error.isEmpty())
        return error;
    if (m_recording.card().dataSet()->messages.sampleCount() == 0)
        return QStringLiteral("the chosen data have no samples");
    add(m_arguments.cycle);
    return {};
}

bool DatabaseExport::add(std::optional<int> cycle)
{
    CardContainer& card = m_recording.card();
    if (!m_files)
        m_files.emplace(card);
    const Profile& profile = m_recording.profile();
    const DataSet& dataSet = *card.dataSet();
    for (const QString& name : dataSet.unreadFiles)
        m_unread << name;
    const auto trust = recordingTrust(profile, *m_files, dataSet, {profile.engineType()});
    return m_writer.add(card, cycle, trust.findings) == ExportStatus::Done;
}

} // namespace

QString exportDbc(const Arguments& arguments, const Profile& profile)
{
    const DbcFile file = dbcOf(profile);
    for (const QString& reason : file.leftOut)
        Diagnostics::print("left out: %s\n", qUtf8Printable(reason));
    if (file.signalCount == 0)
        return QStringLiteral("the profile has no parameters that a dbc file can describe");
    const ExportOutcome outcome = exportTo(arguments.output, [&](QIODevice& device) {
        const std::string_view bytes(file.content.constData(),
                                     static_cast<std::size_t>(file.content.size()));
        return finishExport(device, writeAll(device, bytes));
    });
    return outcome.status == ExportStatus::Done ? QString()
                                                : outputError(arguments.output, outcome.error);
}

QString exportDatabase(const Arguments& arguments, Recording& recording)
{
    recording.profile().setUnitSystem(UnitSystem::Metric);
    DatabaseExport database(arguments, recording);
    const WriteResult result = replaceFileAt(
        arguments.output, [&](const QString& temporary) { return database.write(temporary); });
    if (!result)
        return outputError(arguments.output, result.error);
    return unreadError(
        std::vector<QString>(database.unreadFiles().begin(), database.unreadFiles().end()));
}

} // namespace KOLT::Cli
