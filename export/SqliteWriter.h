#pragma once

#include "export/ExportProgress.h"
#include "export/SqliteFile.h"
#include "export/SqliteSchema.h"
#include "record/CardContainer.h"
#include "record/TrustFinding.h"

#include <optional>

namespace KOLT {

/// Writes recordings into a SQLite database (docs/exports.md): the profile, and for each recording
/// its samples, flights, exceedances, episodes and findings, in metric units. Samples are streamed,
/// so memory use does not depend on their number. The profile must not change meanwhile.
class SqliteWriter
{
public:
    /// The cycle number of files that were chosen one by one.
    static constexpr int chosenFiles = -1;

    /// With the selected parameters only, or with all.
    SqliteWriter(const Profile& profile, bool isSelectionOnly);

    /// Creates the tables in an empty file.
    void open(const QString& path);
    /// Adds what is loaded; a cycle only once.
    ExportStatus add(const CardContainer& card, std::optional<int> cycle,
                     const std::vector<TrustFinding>& findings,
                     const ExportProgress& progress = {});
    /// The last step. False if anything failed.
    bool close();

    const QString& error() const { return m_file.error(); }

private:
    struct Part;

    void describe();
    void addCycle(const CardContainer& card, const Part& part);
    void addFlights(const Part& part);
    void addEvents(const Part& part);
    void addEpisodes(const Part& part);
    bool addSamples(const Part& part, const SampleTable& table, ExportMeter& meter);
    QVariant numberOf(const ProfileParameter* parameter) const;

    const Profile& m_profile;
    std::vector<SampleTable> m_tables;
    SqliteFile m_file;
    bool m_isDescribed = false;
};

} // namespace KOLT
