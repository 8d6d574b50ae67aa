#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// What people write down beside the recordings. Times are UTC, as those of the recordings.
namespace KOLT::Library {

/// What all written items have in common. `id` is empty until an item is saved for the first time.
struct WrittenItem
{
    QString id;
    QString author;         ///< user and computer that saved it last
    QDateTime changed;      ///< when
    bool isRemoved = false; ///< kept on the disk, so that a removal reaches other computers
    QString seen;           ///< hash of its file as it was read; empty: it was not there
};

/// Where in a recording a note belongs. Found again by the file, wherever that is copied to.
struct NotePlace
{
    quint32 unit = 0;
    QString fileName;
    QString fileKey;               ///< as recordingKey()
    QString fileSha256;            ///< of the whole file; empty if it was never read
    QDateTime dateTime;            ///< of the moment; may be invalid
    std::optional<double> seconds; ///< on the unit's counter; none: of the whole cycle
};

struct Note
{
    enum class About { Engine, Cycle, Flight, Moment };

    WrittenItem item;
    About about = About::Engine;
    QString engine;  ///< may be empty, unless the note is about an engine
    NotePlace place; ///< `seconds` is the take-off for a flight. Unused for an engine
    QString text;
};

/// Something to be done to an engine again and again. Hours are those of the ledger.
struct MaintenanceLimit
{
    WrittenItem item;
    QString engine;
    QString title;
    std::optional<double> everyHours;
    std::optional<int> everyMonths;
    double lastHours = 0.0; ///< of the engine, when it was done last
    QDate lastDate;         ///< invalid: never
};

struct AircraftName
{
    WrittenItem item;
    quint32 unit = 0;
    QString name; ///< "D-EKLT"
};

/// What the recordings cannot know of an engine.
struct EngineFacts
{
    WrittenItem item;
    QString engine;
    std::optional<double> hoursBefore; ///< at its first recorded run; none: the unit's counter then
};

struct WrittenInstallation
{
    WrittenItem item;
    QString engine;
    quint32 unit = 0;
    QDate from; ///< invalid: from the beginning
    QDate to;   ///< the last day; invalid: until now
};

} // namespace KOLT::Library
