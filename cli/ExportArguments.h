#pragma once

#include "cli/Arguments.h"
#include "export/ExportOptions.h"

#include <QStringList>

#include <span>

class QCommandLineParser;

/// The options of the verb "export".
namespace KOLT::Cli {

/// What is known of a format before anything is written.
struct FormatInfo
{
    const char* name; ///< on the command line
    const char* suffix;
    ExportFormat format;
    std::span<const ExportSetting> settings;
    bool isText; ///< may go to the standard output
    bool isPath; ///< needs positions
};

const FormatInfo& formatInfo(ExportFormat format);

/// "csv, kml, ... or sqlite".
QString exportFormatNames();

/// Reads the name of a format into `arguments`; returns an error message or nothing.
QString readFormat(const QString& name, Arguments& arguments);

/// Replaces options that name a setting by its exact key: the user may write them with dashes and
/// in any case, "--csv-resolution" for "--CsvResolution".
QStringList withSettingNames(const QStringList& arguments);

void addExportOptions(QCommandLineParser& parser);

/// Reads the verb's options into `arguments`; returns an error message or nothing.
QString readExport(const QCommandLineParser& parser, Arguments& arguments);

} // namespace KOLT::Cli
