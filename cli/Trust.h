#pragma once

#include "record/RecordingTrust.h"

#include <QByteArray>
#include <QJsonArray>

namespace KOLT::Cli {

/// Findings as the verbs print them (docs/trust.md).
QJsonArray jsonTrust(const std::vector<TrustFinding>& findings);

/// The keys of a flight's touched figures.
QJsonArray jsonMarked(Figures figures);

/// Findings for people, one a line; those that mark figures have a "*".
QByteArray trustLines(const std::vector<TrustFinding>& findings);

} // namespace KOLT::Cli
