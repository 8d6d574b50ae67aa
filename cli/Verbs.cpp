#include "cli/Verbs.h"

#include "analysis/Findings.h"
#include "cli/Arguments.h"
#include "cli/Json.h"
#include "cli/Recording.h"
#include "cli/Trust.h"
#include "record/RoleSeries.h"

#include <QColor>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace KOLT::Cli {

namespace {

QJsonArray jsonNames(const std::vector<QString>& names)
{
    return QJsonArray::fromStringList(QStringList(names.begin(), names.end()));
}

/// The final error of a verb: unread files are an error, although everything else was printed.
QString finish(const QString& error, const DataSet& dataSet)
{
    return error.isEmpty() ? unreadError(dataSet.unreadFiles) : error;
}

QJsonObject jsonFile(const QString& name, const RecordInfo& info)
{
    return {
        {QStringLiteral("name"), name},
        {QStringLiteral("dateTime"), jsonDateTime(info.dateTime)},
        {QStringLiteral("dateRepaired"), info.dateRepaired},
        {QStringLiteral("start"), info.startSeconds},
        {QStringLiteral("stop"), info.stopSeconds},
        {QStringLiteral("samples"), info.sampleCount},
        {QStringLiteral("busType"), static_cast<qint64>(info.busType)},
        {QStringLiteral("ecuSerial"), static_cast<qint64>(info.ecuSerialNumber)},
        {QStringLiteral("softwarePartA"), info.softwarePartA},
        {QStringLiteral("ecuType"), info.ecuType},
        {QStringLiteral("engineSerial"), info.engineSerial},
        {QStringLiteral("engineType"), info.engineType},
        {QStringLiteral("softwarePartB"), info.softwarePartB},
        {QStringLiteral("emuVersion"), info.emuVersion},
    };
}

QJsonObject jsonCycle(const Cycle& cycle)
{
    QJsonArray names;
    for (const QString& name : cycle.fileNames)
        names.append(name);
    return {
        {QStringLiteral("number"), cycle.number},
        {QStringLiteral("name"), cycle.name},
        {QStringLiteral("dateTime"), jsonDateTime(cycle.dateTime)},
        {QStringLiteral("files"), names},
    };
}

QJsonArray jsonSample(const StoredSample& sample, const DecodedValue& value)
{
    return {
        sample.seconds(), static_cast<qint64>(sample.tenths()), value.number,
        value.text,       static_cast<int>(value.grade.state),  QColor(value.grade.color).name()};
}

} // namespace

QString list(const Arguments& arguments)
{
    Recording recording(arguments);
    QString error = arguments.headersOnly ? QString() : recording.openProfile();
    if (error.isEmpty())
        error = recording.openFolder();
    if (!error.isEmpty())
        return error;
    CardContainer& card = recording.card();
    QJsonArray files;
    for (const auto& [name, file] : card.files())
        files.append(jsonFile(name, file.info()));
    std::optional<CardFiles> cardFiles;
    if (!arguments.headersOnly)
        cardFiles.emplace(card);
    QJsonArray cycles;
    for (const auto& [number, cycle] : card.cycles()) {
        QJsonObject object = jsonCycle(cycle);
        if (cardFiles) {
            card.loadCycle(number);
            object.insert(QStringLiteral("trust"),
                          jsonTrust(recordingTrust(recording.profile(), *cardFiles, *card.dataSet(),
                                                   {recording.profile().engineType()})
                                        .findings));
        }
        cycles.append(object);
    }
    return printJson({{QStringLiteral("files"), files}, {QStringLiteral("cycles"), cycles}});
}

QString flights(const Arguments& arguments)
{
    Recording recording(arguments);
    QString error = recording.openAndLoad();
    if (!error.isEmpty())
        return error;
    const DataSet& dataSet = *recording.card().dataSet();
    const RecordingTrust trust = recordingTrust(recording.profile(), CardFiles(recording.card()),
                                                dataSet, {recording.profile().engineType()});
    QJsonArray found;
    for (std::size_t i = 0; i < dataSet.flights.size(); ++i) {
        QJsonObject flight = jsonFlight(dataSet.flights[i]);
        flight.insert(QStringLiteral("marked"), jsonMarked(trust.marked[i]));
        found.append(flight);
    }
    error = printJson({{QStringLiteral("start"), dataSet.startSeconds},
                       {QStringLiteral("stop"), dataSet.stopSeconds},
                       {QStringLiteral("flights"), found},
                       {QStringLiteral("trackPoints"), static_cast<qint64>(dataSet.track.size())},
                       {QStringLiteral("unread"), jsonNames(dataSet.unreadFiles)},
                       {QStringLiteral("trust"), jsonTrust(trust.findings)}});
    return finish(error, dataSet);
}

QString values(const Arguments& arguments)
{
    Recording recording(arguments);
    QString error = recording.openAndLoad();
    if (!error.isEmpty())
        return error;
    const Profile& profile = recording.profile();
    const ProfileParameter* const parameter = profile.parameterByFullName(arguments.parameter);
    if (parameter == nullptr)
        return QStringLiteral("the profile has no parameter %1").arg(arguments.parameter);

    // Written sample by sample, as a long cycle has millions.
    const DataSet& dataSet = *recording.card().dataSet();
    const QJsonObject head{{QStringLiteral("unit"), profile.unitLabel(*parameter)},
                           {QStringLiteral("unread"), jsonNames(dataSet.unreadFiles)}};
    writeOutput(QJsonDocument(head).toJson(QJsonDocument::Compact).chopped(1) + ",\"samples\":[");
    const MessageMap& messages = dataSet.messages;
    PositionFilter filter = positionFilterFor(profile, messages, *parameter);
    QByteArray separator = "\n";
    for (const StoredSample& sample : seriesOf(messages, *parameter)) {
        const double number = decodeFiltered(sample.data, *parameter, &filter);
        const DecodedValue value{number, textOf(profile, *parameter, sample.data, number),
                                 gradeOf(*parameter, number)};
        const QJsonArray row = jsonSample(sample, value);
        if (!writeOutput(separator + QJsonDocument(row).toJson(QJsonDocument::Compact)))
            break;
        separator = ",\n";
    }
    writeOutput("\n]}\n");
    return finish(finishOutput(), dataSet);
}

QString events(const Arguments& arguments)
{
    Recording recording(arguments);
    QString error = recording.openAndLoad();
    if (!error.isEmpty())
        return error;
    QJsonArray found;
    const EventScope scope =
        arguments.lampsOnly ? EventScope::WarningLamps : EventScope::AllParameters;
    const DataSet& dataSet = *recording.card().dataSet();
    const EventList events = eventsOf(recording.profile(), dataSet, scope);
    const std::size_t leftOut = eventsLeftOut(recording.profile(), dataSet, scope).size();
    for (const Event& event : *events)
        found.append(QJsonObject{{QStringLiteral("time"), event.seconds},
                                 {QStringLiteral("group"), event.group},
                                 {QStringLiteral("parameter"), event.parameter->name},
                                 {QStringLiteral("text"), event.text}});
    error = printJson({{QStringLiteral("events"), found},
                       {QStringLiteral("leftOut"), static_cast<qint64>(leftOut)},
                       {QStringLiteral("unread"), jsonNames(dataSet.unreadFiles)}});
    return finish(error, dataSet);
}

} // namespace KOLT::Cli
