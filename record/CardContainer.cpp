#include "record/CardContainer.h"

#include "base/Diagnostics.h"
#include "base/SystemPath.h"
#include "base/WriteGuard.h"
#include "record/ClockOffset.h"
#include "record/FlightFinder.h"
#include "record/TimeSlots.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace KOLT {

namespace {

QString fileNameOf(const QString& path)
{
    return path.section(QLatin1Char('/'), -1);
}

/// Reports entries that are named like record files but not listed: folders, dangling links,
/// devices, and names that are not UTF-8, which the toolkit cannot open.
void reportOddEntries(const QString& folder, const std::map<QString, RecordFile>& files)
{
    std::error_code error;
    for (auto it = std::filesystem::directory_iterator(System::nativePath(folder), error);
         !error && it != std::filesystem::directory_iterator(); it.increment(error)) {
        const QString name = System::pathText(it->path().filename());
        if (isRecordFileName(name) && !name.startsWith(QLatin1Char('.')) && !files.contains(name))
            Diagnostics::print("CardContainer::readContainer: %s is not a plain file, or its name "
                               "is not UTF-8\n",
                               qUtf8Printable(name));
    }
}

void reportDropped(const MessageMap& messages)
{
    if (messages.droppedCount() > 0)
        Diagnostics::print("CardContainer::loadFiles: %zu samples with more than %zu different "
                           "identifiers are left out\n",
                           messages.droppedCount(), MessageMap::maxIdentifiers);
    if (messages.lateCount() > 0)
        Diagnostics::print("CardContainer::loadFiles: %zu samples lie beyond %.0f s and are left "
                           "out of the track\n",
                           messages.lateCount(), maxGridSeconds);
}

} // namespace

bool CardContainer::readContainer(const QString& folder, const Progress& progress)
{
    const QDir directory(folder);
    if (folder.isEmpty() || !directory.exists())
        return false;
    m_folder = folder;
    m_protection = protectFolder(folder);
    m_files.clear();
    m_flights.clear();
    if (!directory.isReadable())
        Diagnostics::print("CardContainer::readContainer: Could not read %s\n",
                           qUtf8Printable(folder));
    const QFileInfoList entries = directory.entryInfoList(QDir::Files, QDir::Unsorted);
    Diagnostics::print("CardContainer::readContainer: Path <%s> NrFiles %d\n",
                       qUtf8Printable(folder), static_cast<int>(entries.size()));
    qsizetype index = 0;
    for (const QFileInfo& entry : entries) {
        const QString name = entry.fileName();
        // The listing includes links to pipes and devices; opening one may block forever.
        if (isRecordFileName(name) && entry.isFile()) {
            RecordFile& file = m_files[name];
            file.readRecordInfo(QStringLiteral("%1/%2").arg(folder, name));
            file.setClockOffset(m_clockOffset); // all other dates follow from these
        }
        // Whole-number division on purpose: progress stays at 0 until all files are read.
        if (progress)
            progress(static_cast<int>(index / entries.size() * 100));
        ++index;
    }
    reportOddEntries(folder, m_files);
    repairDates();
    m_cycles = divideIntoCycles(m_files);
    if (progress)
        progress(100);
    return true;
}

void CardContainer::repairDates()
{
    for (auto& [name, file] : m_files) {
        if (!file.info().dateTime.isValid())
            file.setDateInvalid();
    }
    for (auto it = m_files.begin(); it != m_files.end(); ++it) {
        const auto follower = std::next(it);
        RecordFile& file = it->second;
        if (file.info().dateTime.isValid() || follower == m_files.end())
            continue;
        const auto stopMilliseconds = static_cast<qint64>(file.info().stopSeconds * 1000.0);
        file.repairDate(follower->second.info().dateTime.addMSecs(-stopMilliseconds));
    }
}

void CardContainer::setClockOffset(int minutes)
{
    constexpr qint64 secondsPerMinute = 60;
    const int wanted = std::clamp(minutes, -maxClockOffset, maxClockOffset);
    const qint64 seconds = (wanted - m_clockOffset) * secondsPerMinute;
    m_clockOffset = wanted;
    const auto move = [seconds](QDateTime& dateTime) { dateTime = dateTime.addSecs(seconds); };
    for (auto& [name, file] : m_files)
        file.setClockOffset(wanted);
    for (auto& [number, cycle] : m_cycles)
        move(cycle.dateTime);
    for (auto& [number, flights] : m_flights)
        std::ranges::for_each(flights, move, &Flight::dateTime);
    if (m_dataSet == nullptr)
        return;
    move(m_dataSet->dateTime);
    std::ranges::for_each(m_dataSet->flights, move, &Flight::dateTime);
}

bool CardContainer::canReadAny(const std::list<QString>& paths) const
{
    return std::ranges::any_of(paths, [this](const QString& path) {
        const auto known = m_files.find(fileNameOf(path));
        QFile file(known != m_files.end() ? known->second.path() : QString());
        // The system may cache the directory of a removed card, so try to read a byte.
        return QFileInfo(file).isFile() && file.open(QIODevice::ReadOnly) &&
               (file.size() == 0 || file.getChar(nullptr));
    });
}

bool CardContainer::loadFiles(const std::list<QString>& paths, const Progress& progress)
{
    m_dataSet.reset(); // before reading: two data sets at once would take twice the memory
    m_dataSet = read(paths, progress);
    findTrack(*m_dataSet);
    return true;
}

bool CardContainer::loadCycle(int number, const Progress& progress)
{
    const auto cycle = m_cycles.find(number);
    if (cycle == m_cycles.end() || !loadFiles(pathsOf(cycle->second), progress))
        return false;
    m_flights[number] = m_dataSet->flights;
    return true;
}

const std::vector<Flight>& CardContainer::flightsOf(int number) const
{
    static const std::vector<Flight> none;
    const auto found = m_flights.find(number);
    return found == m_flights.end() ? none : found->second;
}

bool CardContainer::loadFlight(int number, std::size_t flightIndex, const Progress& progress)
{
    const auto cycle = m_cycles.find(number);
    if (cycle == m_cycles.end())
        return false;
    m_dataSet.reset();
    m_dataSet = read(pathsOf(cycle->second), progress);
    m_flights[number] = m_dataSet->flights;
    const bool isKnown = flightIndex < m_dataSet->flights.size();
    if (isKnown)
        m_dataSet->keepFlight(flightIndex);
    findTrack(*m_dataSet);
    return isKnown;
}

std::unique_ptr<DataSet> CardContainer::copyOfFlight(std::size_t flightIndex) const
{
    std::unique_ptr<DataSet> copy = m_dataSet->copyOfFlight(flightIndex);
    findTrack(*copy);
    return copy;
}

void CardContainer::findTrack(DataSet& dataSet) const
{
    dataSet.track = buildTrack(m_profile, dataSet.messages,
                               dataSet.flightIndex ? dataSet.startSeconds : 0.0, dataSet.before);
}

void CardContainer::reanalyse(std::optional<int> cycleNumber)
{
    if (m_dataSet == nullptr)
        return;
    if (!m_dataSet->flightIndex) {
        m_dataSet->flights = findFlights(m_profile, m_dataSet->messages, m_dataSet->dateTime);
        if (cycleNumber)
            m_flights[*cycleNumber] = m_dataSet->flights;
    }
    findTrack(*m_dataSet);
}

std::list<QString> CardContainer::pathsOf(const Cycle& cycle) const
{
    std::list<QString> paths;
    for (const QString& name : cycle.fileNames)
        paths.push_back(QStringLiteral("%1/%2").arg(m_folder, name));
    return paths;
}

std::unique_ptr<DataSet> CardContainer::read(const std::list<QString>& paths,
                                             const Progress& progress)
{
    qint64 totalBytes = 0;
    for (const QString& path : paths) {
        const auto found = m_files.find(fileNameOf(path));
        if (found != m_files.end())
            totalBytes += qint64{found->second.info().sampleCount} * RecordFormat::sampleBytes;
    }

    auto dataSet = std::make_unique<DataSet>();
    qint64 doneBytes = 0;
    bool isFirst = true;
    for (const QString& path : paths) {
        const QString name = fileNameOf(path);
        RecordFile& file = m_files[name];
        dataSet->files.push_back({name, dataSet->messages.nextSequence()});
        const bool isRead = file.readRecordData(dataSet->messages, [&](qint64 bytes) {
            if (progress && totalBytes > 0)
                progress(static_cast<int>(
                    std::min<qint64>(100, (doneBytes + bytes) * 100 / totalBytes)));
        });
        if (!isRead)
            dataSet->unreadFiles.push_back(name);
        doneBytes += qint64{file.info().sampleCount} * RecordFormat::sampleBytes;
        Diagnostics::print("load Files <%s>\n", qUtf8Printable(name));
        if (isFirst) {
            dataSet->startSeconds = file.info().startSeconds;
            dataSet->dateTime = file.info().dateTime;
            Diagnostics::print("date valid %d\n", dataSet->dateTime.isValid() ? 1 : 0);
        }
        dataSet->stopSeconds = file.info().stopSeconds;
        isFirst = false;
    }
    reportDropped(dataSet->messages);
    dataSet->flights = findFlights(m_profile, dataSet->messages, dataSet->dateTime);
    return dataSet;
}

} // namespace KOLT
