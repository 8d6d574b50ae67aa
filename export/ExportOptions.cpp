#include "export/ExportOptions.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace KOLT {

namespace {

using Kind = ExportSetting::Kind;

constexpr int lastAscii = 126;

constexpr std::array csvTable{
    ExportSetting{
        "CsvLimiter", Kind::Separator, 9, lastAscii,
        "Field separator as a character code; 59 is \";\", 44 is \",\", 9 the tabulator."},
    ExportSetting{"CsvResolution", Kind::Integer, 1, 60'000, "Milliseconds between rows."},
    ExportSetting{"CsvAllParameter", Kind::Boolean, 0, 0,
                  "All parameters, or only those of --parameter."},
    ExportSetting{"CsvDecimalComma", Kind::Boolean, 0, 0,
                  "Decimal comma; not with the separator \",\"."},
    ExportSetting{"CsvCodesOnly", Kind::Boolean, 0, 0,
                  "Enumerations as numbers, without their labels."},
};

constexpr std::array kmlTable{
    ExportSetting{"KmlTimeStamp", Kind::Integer, 0, 2,
                  "0 no times, 1 a time on each mark, 2 also a track that plays back."},
    ExportSetting{"KmlLineWidth", Kind::Integer, 1, 50, "Width of the flight path in pixels."},
    ExportSetting{"KmlLineColor", Kind::Color, 0, 0, "Color of the flight path."},
    ExportSetting{"KmlLineAlpha", Kind::Integer, 0, 255, "Opacity of the flight path."},
    ExportSetting{"KmlPolygonOn", Kind::Boolean, 0, 0, "A curtain from the path to the ground."},
    ExportSetting{"KmlPolygonColor", Kind::Color, 0, 0, "Color of the curtain."},
    ExportSetting{"KmlPolygonAlpha", Kind::Integer, 0, 255, "Opacity of the curtain."},
    ExportSetting{"KmlPlaceMarkOn", Kind::Boolean, 0, 0, "Marks along the path."},
    ExportSetting{"KmlPlaceMarkIntervall", Kind::Integer, 1, 100'000,
                  "Points of the path between marks; there are two a second."},
    ExportSetting{"KmlPlaceMarkColor", Kind::Color, 0, 0, "Color of the marks along the path."},
    ExportSetting{"KmlErrorMarkOn", Kind::Boolean, 0, 0, "Error marks at exceedances."},
    ExportSetting{"KmlShowLimit", Kind::Boolean, 0, 0, "Error marks for limits and warnings."},
    ExportSetting{"KmlShowWarning", Kind::Boolean, 0, 0, "Error marks for warning lamps."},
    ExportSetting{"KmlErrorMarkColor", Kind::Color, 0, 0, "Color of the error marks for limits."},
    ExportSetting{"KmlWarningMarkColor", Kind::Color, 0, 0,
                  "Color of the error marks for warnings."},
    ExportSetting{"KmlAltitudeMode", Kind::Integer, 0, 2,
                  "0 altitudes as recorded, 1 on the ground, 2 above the ground."},
};

constexpr std::array gpxTable{
    ExportSetting{"GpxWayPoints", Kind::Boolean, 0, 0,
                  "Waypoints at take-offs, landings and exceedances."},
    ExportSetting{"GpxSpeeds", Kind::Boolean, 0, 0,
                  "Speed and course with each point, as an extension."},
};

bool isSeparator(int code)
{
    return code == '\t' ||
           (code >= ' ' && code <= lastAscii && std::strchr("\".-+:0123456789", code) == nullptr &&
            !(code >= 'a' && code <= 'z') && !(code >= 'A' && code <= 'Z'));
}

bool isColor(const QByteArray& text)
{
    constexpr qsizetype digits = 6;
    return text.size() == digits && std::ranges::all_of(text, [](char c) {
               return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
           });
}

} // namespace

bool ExportSetting::accepts(const QByteArray& value) const
{
    switch (kind) {
    case Kind::Integer:
    case Kind::Separator: {
        bool ok = false;
        const int number = value.toInt(&ok);
        return ok && number >= low && number <= high &&
               (kind == Kind::Integer || isSeparator(number));
    }
    case Kind::Boolean:
        return value == "true" || value == "false";
    case Kind::Color:
        return isColor(value);
    }
    return false;
}

std::span<const ExportSetting> csvSettings()
{
    return csvTable;
}

std::span<const ExportSetting> kmlSettings()
{
    return kmlTable;
}

std::span<const ExportSetting> gpxSettings()
{
    return gpxTable;
}

CsvProblem problemOf(const CsvOptions& options)
{
    if (!isSeparator(options.separator))
        return CsvProblem::Separator;
    return options.decimalComma && options.separator == ',' ? CsvProblem::DecimalComma
                                                            : CsvProblem::None;
}

QColor colorOf(const QByteArray& text, const QColor& fallback)
{
    return isColor(text) ? QColor::fromRgb(text.toUInt(nullptr, 16)) : fallback;
}

QByteArray colorText(const QColor& color)
{
    return color.name().mid(1).toLatin1();
}

int bounded(const char* key, int value)
{
    const auto isKey = [key](const ExportSetting& setting) {
        return std::strcmp(setting.key, key) == 0;
    };
    for (const std::span<const ExportSetting> table : {csvSettings(), kmlSettings()}) {
        const auto found = std::ranges::find_if(table, isKey);
        if (found != table.end())
            return std::clamp(value, found->low, found->high);
    }
    return value;
}

} // namespace KOLT
