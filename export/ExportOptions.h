#pragma once

#include <QByteArray>
#include <QColor>

#include <climits>
#include <span>

namespace KOLT {

/// Options of a CSV export.
struct CsvOptions
{
    char separator = ';';      ///< 0 if the stored code is not ASCII
    int resolution = 100;      ///< milliseconds between rows, 1..60000
    bool allParameters = true; ///< otherwise only the selected ones
    bool decimalComma = false; ///< in numbers and times
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

    Times timeStamp = Times::PlaceMarks;
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
    bool showLimit = true;   ///< exceedances
    bool showWarning = true; ///< warning lamps
    QColor errorMarkColor{0xff, 0x00, 0x00};
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

/// The colour of six hexadecimal digits, or `fallback` for any other text.
QColor colorOf(const QByteArray& text, const QColor& fallback);
QByteArray colorText(const QColor& color);

/// The number clamped to the bounds of the setting with that key.
int bounded(const char* key, int value);

/// Reading and storing work with any class that has the operations of `SettingsStore`. Values out
/// of range are clamped.
template <typename Settings>
CsvOptions readCsvOptions(const Settings& settings, bool commaByDefault)
{
    CsvOptions options;
    const int code = settings.getInteger("CsvLimiter", options.separator);
    options.separator = code > 0 && code <= CHAR_MAX ? static_cast<char>(code) : '\0';
    options.resolution = bounded("CsvResolution", settings.getInteger("CsvResolution", 100));
    options.allParameters = settings.getBoolean("CsvAllParameter", true);
    // A decimal comma that the user did not ask for must not conflict with the separator.
    options.decimalComma =
        settings.getBoolean("CsvDecimalComma", commaByDefault && options.separator != ',');
    return options;
}

template <typename Settings>
void storeCsvOptions(const CsvOptions& options, Settings& settings)
{
    settings.setInteger("CsvLimiter", options.separator);
    settings.setInteger("CsvResolution", options.resolution);
    settings.setBoolean("CsvAllParameter", options.allParameters);
    settings.setBoolean("CsvDecimalComma", options.decimalComma);
}

/// Calls visit.integer(key, member), .boolean and .color for every setting of a KML export.
template <typename Options, typename Visit>
void visitKmlOptions(Options& options, Visit&& visit)
{
    visit.integer("KmlLineWidth", options.lineWidth);
    visit.color("KmlLineColor", options.lineColor);
    visit.integer("KmlLineAlpha", options.lineAlpha);
    visit.boolean("KmlPolygonOn", options.polygonOn);
    visit.color("KmlPolygonColor", options.polygonColor);
    visit.integer("KmlPolygonAlpha", options.polygonAlpha);
    visit.boolean("KmlPlaceMarkOn", options.placeMarkOn);
    visit.integer("KmlPlaceMarkIntervall", options.placeMarkInterval);
    visit.color("KmlPlaceMarkColor", options.placeMarkColor);
    visit.boolean("KmlErrorMarkOn", options.errorMarkOn);
    visit.boolean("KmlShowLimit", options.showLimit);
    visit.boolean("KmlShowWarning", options.showWarning);
    visit.color("KmlErrorMarkColor", options.errorMarkColor);
}

template <typename Settings>
KmlOptions readKmlOptions(const Settings& settings)
{
    struct Reader
    {
        const Settings& from;

        void integer(const char* key, int& value) const
        {
            value = bounded(key, from.getInteger(key, value));
        }

        void boolean(const char* key, bool& value) const { value = from.getBoolean(key, value); }

        void color(const char* key, QColor& value) const
        {
            value = colorOf(from.getText(key), value);
        }
    };

    KmlOptions options;
    visitKmlOptions(options, Reader{settings});
    options.timeStamp = static_cast<KmlOptions::Times>(
        bounded("KmlTimeStamp", settings.getInteger("KmlTimeStamp", 1)));
    return options;
}

template <typename Settings>
void storeKmlOptions(const KmlOptions& options, Settings& settings)
{
    struct Writer
    {
        Settings& to;

        void integer(const char* key, int value) const { to.setInteger(key, value); }

        void boolean(const char* key, bool value) const { to.setBoolean(key, value); }

        void color(const char* key, const QColor& value) const
        {
            to.setText(key, colorText(value));
        }
    };

    visitKmlOptions(options, Writer{settings});
    settings.setInteger("KmlTimeStamp", static_cast<int>(options.timeStamp));
}

} // namespace KOLT
