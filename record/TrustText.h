#pragma once

#include "record/TrustFinding.h"

#include <QStringList>

#include <optional>

/// The sentences of findings: what each does to which figures, and what the user can do.
namespace KOLT::TrustText {

QString duplicateFile(const QString& copy, const QString& original);
QString unreadableFile(const QString& name);
QString missingFile(const QString& before, const QString& after, double seconds);
QString missingOpener(const QString& before, const QString& first);
QString missingAtEnd(const QString& last, const QString& next);
QString truncatedFile(const QString& name, std::optional<double> seconds);
QString overlappingFiles(const QString& before, const QString& after);
QString foreignFiles(const std::vector<QString>& names);
QString wrongOrder(const std::vector<QString>& names);
QString strayTimes(const QString& name, int count);
QString counterJumps(const QString& name);
QString hole(double seconds);
QString holes(int count, double seconds);
QString messageHole(const QStringList& parameters, double seconds);
QString noPosition(double seconds);
QString notANumber(const QString& parameter, int count);
QString noLanding();
QString noTakeOff();
QString cutStart();
QString cutEnd();
QString lateClock(const QString& file, double seconds);
QString beforeFirstCycle();
QString caseFile(const QStringList& sources);
QString engineSerial();
QString unitSerial();
QString software();
QString unitChanged(TrustKind kind, const QString& what, const QString& usual,
                    const QString& other);
QString otherEngine(const QString& engine, const QString& pattern);
QString unknownMessages(int identifiers, double share);
QString neverRecorded(const QStringList& parameters);

} // namespace KOLT::TrustText
