#include "analysis/CardOverview.h"

#include "record/CardContainer.h"

#include <algorithm>
#include <numeric>

namespace KOLT {

CardOverview::CardOverview(const Profile& profile, const CardContainer& card, Trust trust)
    : m_profile(profile)
    , m_card(card)
{
    std::vector<const Cycle*> order;
    for (const auto& [number, cycle] : card.cycles())
        order.push_back(&cycle);
    // Newest day first, within a day as it went on. An invalid date is before all others.
    std::ranges::stable_sort(order, [](const Cycle* a, const Cycle* b) {
        return a->dateTime.date() > b->dateTime.date();
    });
    for (const Cycle* cycle : order) {
        CycleOverview& row = m_cycles.emplace_back();
        row.number = cycle->number;
        row.name = cycle->name;
        row.dateTime = cycle->dateTime;
        row.startSeconds = cycle->startSeconds;
        row.runSeconds = cycle->durationSeconds();
        row.fileCount = cycle->fileNames.size();
        std::vector<RecordFile>& files = m_files.emplace_back();
        qint64& bytes = m_bytes.emplace_back(0);
        for (const QString& name : cycle->fileNames) {
            files.push_back(card.files().at(name));
            bytes += qint64{files.back().info().sampleCount} * RecordFormat::sampleBytes;
        }
    }
    if (trust == Trust::Ignored)
        m_trusted = m_cycles.size();
}

bool CardOverview::step()
{
    if (isDone())
        return false;
    if (isComplete()) {
        stepTrust();
        return !isDone();
    }
    if (m_scan == nullptr)
        m_scan =
            std::make_unique<CycleScan>(m_profile, m_cycles[m_completed], m_files[m_completed]);
    if (m_scan->step())
        return true;
    m_cycles[m_completed++] = m_scan->overview();
    m_scan.reset();
    return !isDone();
}

void CardOverview::stepTrust()
{
    if (!m_cardFiles)
        m_cardFiles.emplace(m_card);
    if (m_dataSet == nullptr)
        m_dataSet = std::make_unique<DataSet>();
    CycleOverview& row = m_cycles[m_trusted];
    std::vector<RecordFile>& files = m_files[m_trusted];
    if (m_dataSet->files.size() < files.size()) {
        RecordFile& file = files[m_dataSet->files.size()];
        const QString name = file.path().section(QLatin1Char('/'), -1);
        m_dataSet->files.push_back({name, m_dataSet->messages.nextSequence()});
        if (!file.readRecordData(m_dataSet->messages))
            m_dataSet->unreadFiles.push_back(name);
        return;
    }
    m_dataSet->startSeconds = row.startSeconds;
    m_dataSet->stopSeconds = row.startSeconds + row.runSeconds;
    m_dataSet->dateTime = row.dateTime;
    for (const FlightOverview& flight : row.flights)
        m_dataSet->flights.push_back(flight.flight);
    row.trust = recordingTrust(m_profile, *m_cardFiles, *m_dataSet, {m_profile.engineType()});
    QStringList engines;
    for (const RecordFile& file : files)
        engines << file.info().engineType;
    row.engine = recordedEngine(engines, m_dataSet->messages);
    m_dataSet.reset();
    ++m_trusted;
}

const CycleOverview* CardOverview::cycle(int number) const
{
    const auto found = std::ranges::find(m_cycles, number, &CycleOverview::number);
    return found == m_cycles.end() ? nullptr : &*found;
}

void CardOverview::add(DayOverview& sum, const CycleOverview& cycle)
{
    sum.runSeconds += cycle.runSeconds;
    sum.isComplete = sum.isComplete && cycle.isComplete;
    if (!cycle.isComplete)
        return;
    sum.totals.add(cycle.totals);
    sum.totals.exceedances += cycle.crossings - cycle.totals.exceedances;
    sum.totals.episodes += cycle.episodes - cycle.totals.episodes;
    sum.fuel += cycle.fuel;
    sum.maxAltitude = std::max(sum.maxAltitude, cycle.maxAltitude);
    sum.lamps += cycle.lamps;
}

std::vector<DayOverview> CardOverview::days() const
{
    std::vector<DayOverview> days;
    for (std::size_t i = 0; i < m_cycles.size(); ++i) {
        const QDate date = m_cycles[i].dateTime.date();
        if (i == 0 || days.back().date != date) {
            days.emplace_back().date = date;
            days.back().isComplete = true;
        }
        days.back().cycles.push_back(i);
        add(days.back(), m_cycles[i]);
    }
    return days;
}

DayOverview CardOverview::totals() const
{
    DayOverview sum;
    sum.isComplete = true;
    for (const CycleOverview& cycle : m_cycles)
        add(sum, cycle);
    return sum;
}

int CardOverview::percent() const
{
    const qint64 total = std::accumulate(m_bytes.begin(), m_bytes.end(), qint64{0});
    if (total == 0)
        return isComplete() ? 100 : 0;
    double done = static_cast<double>(std::accumulate(
        m_bytes.begin(), m_bytes.begin() + static_cast<std::ptrdiff_t>(m_completed), qint64{0}));
    if (m_scan != nullptr)
        done += m_scan->progress() * static_cast<double>(m_bytes[m_completed]);
    return static_cast<int>(done * 100.0 / static_cast<double>(total));
}

} // namespace KOLT
