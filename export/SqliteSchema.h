#pragma once

#include "export/SqliteFile.h"
#include "profile/Profile.h"

#include <vector>

namespace KOLT {

/// Parameters of one message whose samples lie in one table of a database.
struct SampleTable
{
    struct Column
    {
        const ProfileParameter* parameter = nullptr;
        int number = 0; ///< of the parameter, from 1 in file order
        QString name;   ///< differs from the others of the table
    };

    QString name;
    int message = 0;
    std::vector<Column> columns;
};

/// The tables for these parameters, by message. A message with more parameters than a table may
/// have columns has several.
std::vector<SampleTable> sampleTables(const Profile& profile,
                                      const std::vector<const ProfileParameter*>& parameters);

/// Creates all tables and views (docs/exports.md), and fills those that describe the profile.
void createSchema(SqliteFile& file, const Profile& profile, const std::vector<SampleTable>& tables);

/// "OK", "WARNING" or "LIMIT", as in profiles.
QString stateText(ThresholdState state);

} // namespace KOLT
