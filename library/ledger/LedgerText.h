#pragma once

#include "library/ledger/EngineLedger.h"

#include <utility>

/// The ledger in words, for the window and for paper.
namespace KOLT::Library {

/// "1234.56 h".
QString hoursText(double hours);

/// "every 100 h or 12 months".
QString intervalText(const MaintenanceLimit& limit);

/// "at 1250.3 h on 3.5.2025"; "never".
QString lastDoneText(const MaintenanceLimit& limit);

/// "at 1350.3 h" and a date, whichever it has.
QString dueText(const MaintenanceState& state);

/// "12.4 h left", "3.1 h over", "due 4.6.2026", joined.
QString leftText(const MaintenanceState& state, const QDate& today);

QString dueStateText(DueState state);

/// Names and values of the figures, in their order.
std::vector<std::pair<QString, QString>> ledgerFigures(const EngineLedger& ledger);

/// Sections of a document: figures, maintenance limits, months, limit bands and notes. `graphics`
/// is put between figures and tables.
QString ledgerHtml(const EngineLedger& ledger, const QDate& today, const QString& graphics = {});

} // namespace KOLT::Library
