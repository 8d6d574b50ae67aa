#pragma once

#include "library/database/LibraryDatabase.h"
#include "library/ledger/EngineLedger.h"

#include <QJsonArray>

#include <vector>

namespace KOLT::Cli {

struct Arguments;

/// What the engine report adds from a library: the ledgers of the card's engines. Empty unless the
/// arguments name a library.
class ReportLedger
{
public:
    /// Opens the library of the arguments; returns an error message or nothing.
    QString open(const Arguments& arguments);

    /// Reads the ledgers of these engines; one that the library has no recording of is told on
    /// standard error. Returns an error message or nothing.
    QString read(const QStringList& engines, const QDate& today);

    bool isOpen() const { return m_database.isOpen(); }

    QString html() const;
    QJsonArray json() const;
    QByteArray text() const;

private:
    Library::LibraryDatabase m_database;
    QString m_archive;
    QDate m_today;
    std::vector<Library::EngineLedger> m_ledgers;
};

} // namespace KOLT::Cli
