#pragma once

#include <QStringList>

class QCommandLineParser;

/// The options of the verb "export".
namespace KOLT::Cli {

struct Arguments;

/// Replaces options that name a setting by its exact key: the user may write them with dashes and
/// in any case, "--csv-resolution" for "--CsvResolution".
QStringList withSettingNames(const QStringList& arguments);

void addExportOptions(QCommandLineParser& parser);

/// Reads the verb's options into `arguments`; returns an error message or nothing.
QString readExport(const QCommandLineParser& parser, const QString& format, Arguments& arguments);

} // namespace KOLT::Cli
