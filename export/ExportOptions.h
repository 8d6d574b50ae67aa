#pragma once

#include <QByteArray>
#include <QColor>

#include <span>

namespace KOLT {

/// Options of a CSV export.
struct CsvOptions
{
    char separator = ';';      ///< 0 if the stored code is not ASCII
    int resolution = 100;      ///< milliseconds between rows, 1..60000
    bool allParameters = true; ///< otherwise only the selected ones
    bool decimalComma = false; ///< in numbers and times
    bool codesOnly = false;    ///< enumerations as numbers, without their labels
};

/// Why a table with these options would be ambiguous.
enum class CsvProblem {
    None,
    Separator,   ///< it may occur in a number, a time or a quoted text
    DecimalComma ///< it equals the separator
};

CsvProblem problemOf(const CsvOptions& options);

/// Options of a KML export. Opacities are 0..255.
struct KmlOptions
{
    enum class Times : int {
        None = 0,
        PlaceMarks = 1,        ///< a time on each mark
        PlaceMarksAndTrack = 2 ///< and a track that plays back
    };

    /// What the altitudes of path and marks count from.
    enum class AltitudeMode : int {
        Absolute = 0, ///< sea level, as recorded
        Ground = 1,   ///< on the ground, without altitudes and curtain
        Relative = 2  ///< the ground; at the lowest altitude of the data set the path touches it
    };

    bool packed = false; ///< a KMZ file that has its icons inside, instead of KML
    Times timeStamp = Times::PlaceMarks;
    AltitudeMode altitudeMode = AltitudeMode::Absolute;
    int lineWidth = 1; ///< pixels, 1..50
    QColor lineColor{0xff, 0x00, 0x00};
    int lineAlpha = 255;
    bool polygonOn = true; ///< the curtain below the path
    QColor polygonColor{0x00, 0x00, 0xff};
    int polygonAlpha = 100;
    bool placeMarkOn = true;
    int placeMarkInterval = 10; ///< in points of the path, which has two a second
    QColor placeMarkColor{0xff, 0xcc, 0x00};
    bool errorMarkOn = true;
    bool showLimit = true;                     ///< exceedances
    bool showWarning = true;                   ///< warning lamps
    QColor errorMarkColor{0xff, 0x00, 0x00};   ///< of LIMIT
    QColor warningMarkColor{0xff, 0xab, 0x00}; ///< of WARNING
};

/// Options of a GPX export.
struct GpxOptions
{
    bool wayPoints = true; ///< at take-offs, landings and exceedances
    bool speeds = true;    ///< speed and course with each point, as an extension
};

/// Describes one setting of an export. The keys are those of the settings file, so they cannot
/// change.
struct ExportSetting
{
    enum class Kind {
        Integer,   ///< low..high
        Separator, ///< the code of a character allowed as separator
        Boolean,   ///< "true" or "false"
        Color      ///< six hexadecimal digits
    };

    const char* key;
    Kind kind;
    int low;
    int high;
    const char* description; ///< help text of the command line

    /// Whether the text is a valid value of the setting.
    bool accepts(const QByteArray& value) const;
};

std::span<const ExportSetting> csvSettings();
std::span<const ExportSetting> kmlSettings();
std::span<const ExportSetting> gpxSettings();

/// The colour of six hexadecimal digits, or `fallback` for any other text.
QColor colorOf(const QByteArray& text, const QColor& fallback);
QByteArray colorText(const QColor& color);

/// The number clamped to the bounds of the setting with that key.
int bounded(const char* key, int value);

} // namespace KOLT
