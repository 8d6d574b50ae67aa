#pragma once

#include "library/database/LibraryRecords.h"

#include <QVariantList>

namespace KOLT::Library {

/// The conditions of a filter as SQL with bound values.
struct Condition
{
    QString sql; ///< without "WHERE"; never empty
    QVariantList values;

    void add(const QString& more, const QVariantList& moreValues = {});
};

/// On rows of the table cycle, named c: they have something that the filter lets through.
Condition cycleCondition(const LibraryFilter& filter);

/// On rows of flight and cycle, named f and c.
Condition flightCondition(const LibraryFilter& filter);

/// Whether the filter asks for anything of single flights.
bool asksForFlights(const LibraryFilter& filter);

} // namespace KOLT::Library
