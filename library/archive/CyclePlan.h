#pragma once

#include "library/archive/Manifest.h"

#include <map>
#include <vector>

/// Which file of a unit belongs to which cycle, and where it lies in the archive.
///
/// All files of a unit are taken for one large card: in the order of their names they are divided
/// into cycles like the listing of a card, by the files without a date. So it does not matter in
/// which parts and in which order they came. Two things are told apart:
///
/// - Recordings that use the same names, as the unit began to count anew, have different sequences.
/// - Where numbers are missing between two files, they are one cycle only when they belong to one
///   run of the engine by date and counter, or when a card or folder held them both.
///
/// Of several contents of one file, such as a copy that ended too early, the one with the most
/// samples belongs to the cycle, and the others lie in "copies" beside it.
namespace KOLT::Library {

/// A file that is in the archive, or ready to be put there.
struct PlanFile
{
    ManifestFile file;
    int sequence = 0;       ///< 0: not yet known
    QString folder;         ///< of its cycle, below the archive; empty for a new file
    QString place;          ///< where it lies, below the archive
    bool isNew = false;     ///< not yet in the archive; then `place` is where it waits
    bool isMissing = false; ///< named by a manifest, but not in the folder
    bool isOnCard = false;  ///< the card that is being imported holds it
};

/// Sets the sequence of new files, which are one cycle of a card: the one in which they contradict
/// no other file of their name and lie in order of date, and of these the one with most of the
/// card's files, or a new one.
void chooseSequence(std::vector<PlanFile>& files, const std::vector<std::size_t>& newOnes);

struct PlannedMove
{
    QString from; ///< both below the archive
    QString to;
};

struct CyclePlan
{
    std::map<QString, Manifest> manifests; ///< by folder; of all cycles of the unit
    std::vector<PlannedMove> moves;        ///< of files that lie elsewhere
};

/// All files of a unit. Contents must be different: see sameContent().
CyclePlan planCycles(quint32 unit, const std::vector<PlanFile>& files);

/// The name of a file that lies in "copies", as it was on the card.
QString nameOfCopy(const ManifestFile& file);

/// Whether two files are the same and to be kept once. Those without a date only when they have one
/// name: different runs of the engine may begin alike.
bool sameContent(const ManifestFile& one, const ManifestFile& other);

} // namespace KOLT::Library
