#pragma once

#include <QString>

class QCommandLineParser;

/// What only the verb "report" has on the command line.
namespace KOLT::Cli {

struct Arguments;

void addReportOptions(QCommandLineParser& parser);

/// Returns an error message or nothing.
QString readReport(const QCommandLineParser& parser, Arguments& arguments);

} // namespace KOLT::Cli
