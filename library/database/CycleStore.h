#pragma once

#include "library/database/LibraryDatabase.h"

#include <QVariant>

namespace KOLT::Library {

class LibraryConnection;

/// Writes cycles to the database; each function is a transaction. False on failure, which the
/// connection tells: nothing has changed then.
class CycleStore
{
public:
    explicit CycleStore(LibraryConnection& connection)
        : m_connection(connection)
    {
    }

    bool store(const ArchivedCycle& cycle);
    bool store(const ArchivedCycle& cycle, const CycleFigures& figures,
               const FiguresSource& source);
    bool remove(const QString& folder);
    bool install(const std::vector<Installation>& installations);

private:
    /// Sets m_id to the cycle's row, which is made if it is not there.
    bool putCycle(const ArchivedCycle& cycle);
    bool putFiles(const ArchivedCycle& cycle);
    /// Whether the database has the same files of the cycle; none on failure.
    std::optional<bool> hasFiles(const ArchivedCycle& cycle);
    /// Whether the database has these; none on failure.
    std::optional<bool> hasInstalled(const std::vector<Installation>& installations);
    bool dropFigures();
    std::optional<qint64> idOf(const FiguresSource& source);
    bool putFigures(const CycleFigures& figures, qint64 source);
    bool putFlights(const CycleFigures& figures);
    bool putEpisodes(const CycleFigures& figures);
    bool putFaults(const CycleFigures& figures);
    bool putFindings(const CycleFigures& figures);
    bool putBands(const CycleFigures& figures);
    /// Adds what the database knows of the cycle to the sums of its engine.
    bool addToEngine(const QString& folder);
    bool takeFromEngine(const QString& folder);
    bool countForEngine(const QString& folder, bool isTaken);
    /// The sums of all engines anew.
    bool fillEngines();

    LibraryConnection& m_connection;
    qint64 m_id = 0;
};

/// Values to bind. Texts are never null. What is not known or not finite is null, which SQLite
/// makes of NaN anyway.
QVariant boundText(const QString& text);
QVariant bound(double number);
QVariant bound(const std::optional<double>& number);
QVariant bound(const std::optional<int>& number);
QVariant bound(const QDateTime& dateTime);

/// "yyyy-MM-dd"; empty if it is invalid.
QString dayText(const QDate& day);

/// Millionths: their sums do not depend on the order.
qint64 microsOf(double value);

} // namespace KOLT::Library
