#pragma once

#include <QString>

namespace KOLT::Cli {

class Recording;
class ReportLedger;

struct Arguments;

/// The verb "report" with --pdf or --json, on an open folder.
QString engineReport(const Arguments& arguments, Recording& recording, ReportLedger& ledger);

} // namespace KOLT::Cli
