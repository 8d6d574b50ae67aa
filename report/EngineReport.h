#pragma once

#include "analysis/EpisodeFigures.h"
#include "analysis/SheetCycle.h"
#include "graph/GraphScene.h"

#include <QDate>
#include <QSizeF>
#include <QStringList>

#include <optional>
#include <vector>

/// What the engine report of a card holds (docs/report.md). Nothing in it refers to the profile or
/// to loaded data: it stays valid when these change. Times are seconds on the unit's counter.
namespace KOLT {

/// A counter that the unit itself keeps, such as its engine hours.
struct ReportCounter
{
    double first = 0.0; ///< of the first cycle that has it
    double last = 0.0;  ///< of the last one
    QString firstText;  ///< with unit
    QString lastText;
};

/// What the headers of the files say; each value once, in the order of the files.
struct ReportIdentity
{
    QStringList engineSerials;
    QStringList engineTypes;
    QStringList unitSerials;
    QStringList unitTypes;
    QStringList softwareA; ///< part numbers of the lanes' software
    QStringList softwareB;
    QStringList displaySoftware;
    std::optional<ReportCounter> hours; ///< none if the profile names no such parameter
    std::optional<ReportCounter> starts;
};

struct ReportProfile
{
    QString name;
    QString version;
    QString variant;
    QString line; ///< all of these in one line
    bool isImperial = false;
};

/// An engine cycle with its statistics.
struct ReportCycle
{
    SheetCycle sheet; ///< its flights, and what is to be said about its recording
    QString name;
    double runSeconds = 0.0;
    std::size_t fileCount = 0;
    std::vector<Flight> flights;
};

/// An episode, ranked among those of all cycles.
struct ReportEpisode
{
    static constexpr QSizeF fullGraph{640.0, 200.0}; ///< sizes of the scene
    static constexpr QSizeF lampGraph{640.0, 64.0};  ///< on or off needs little height

    QSizeF graphSize() const { return isLampOnly ? lampGraph : fullGraph; }

    int cycle = 0;
    std::optional<int> flight; ///< from 1; none outside flights
    QDateTime begins;          ///< clock time; invalid without a date
    QString title;
    QString quantity;
    QStringList parameters; ///< full names
    ThresholdState state = ThresholdState::Warning;
    bool isLampOnly = false;
    double begin = 0.0;
    double end = 0.0;
    bool isCut = false;
    std::size_t crossings = 0;
    double secondsBeyondWarning = 0.0;
    double secondsBeyondLimit = 0.0;
    std::optional<double> peak; ///< metric
    QString peakText;           ///< in the chosen units
    QString phase;
    std::vector<EpisodeFigure> figures;
    std::optional<GraphScene> graph; ///< of the worst ones only
};

/// A parameter that was beyond a threshold at the first sample of a cycle.
struct ReportStart
{
    int cycle = 0;
    QString parameter; ///< full name
    ThresholdState state = ThresholdState::Ok;
};

/// When a fault was set, or a lamp was on.
struct ReportSpan
{
    int cycle = 0;
    double begin = 0.0;
    std::optional<double> end; ///< none if it is not known
    bool isCut = false;        ///< it lasted at least so long
};

/// All spans of one fault or lamp.
struct ReportOccurrences
{
    static constexpr std::size_t maxSpans = 20;

    QString parameter;             ///< full name
    std::size_t count = 0;         ///< those left out included
    std::vector<ReportSpan> spans; ///< the first ones
};

struct ReportFile
{
    QString name;
    qint64 bytes = 0;
    QByteArray sha256; ///< as text; empty if the file could not be read
};

struct EngineReport
{
    static constexpr std::size_t graphCount = 10;
    static constexpr std::size_t maxEpisodes = 1000;

    QString folder;
    QDate date; ///< on which the report is made
    QString clock;
    ReportIdentity identity;
    ReportProfile profile;
    std::vector<ReportCycle> cycles;
    EpisodeCounts counts;
    std::vector<ReportEpisode> episodes; ///< the worst first
    std::size_t episodesLeftOut = 0;
    std::vector<ReportStart> atStart;
    std::vector<ReportOccurrences> faults; ///< in profile order
    std::vector<ReportOccurrences> lamps;
    std::vector<ReportFile> files;
    QStringList unreadFiles;
    QString ledger;           ///< sections about all that is known of the engines, as HTML
    bool isCancelled = false; ///< reading was ended early; the report must not be used
};

} // namespace KOLT
