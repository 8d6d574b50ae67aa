#pragma once

#include <QStringList>

class QCommandLineParser;

/// The part of the command line that only the verb "export" has.
namespace KOLT::Cli {

struct Arguments;

/// Settings may be written as in the settings file or with dashes, in any case:
/// "--csv-resolution" becomes "--CsvResolution".
QStringList withSettingNames(const QStringList& arguments);

void addExportOptions(QCommandLineParser& parser);

/// Fills in what the verb needs beyond the choice of data; returns what is wrong with it.
QString readExport(const QCommandLineParser& parser, const QString& format, Arguments& arguments);

} // namespace KOLT::Cli
