#include "app/dialogs/SheetReader.h"

#include "record/CardContainer.h"

#include <QFileInfo>

#include <algorithm>

namespace KOLT {

namespace {

/// Files that are loaded together.
struct Piece
{
    std::optional<int> cycle;
    QString name;
    std::size_t fileCount = 0;
};

std::vector<Piece> piecesOf(const CardContainer& card, const SheetSource& source,
                            const SheetChoice& choice)
{
    std::vector<Piece> pieces;
    if (choice.kind == SheetChoice::Kind::Loaded) {
        pieces.push_back({source.loadedCycle, source.loadedName, source.loadedFiles.size()});
        return pieces;
    }
    for (const auto& [number, cycle] : card.cycles()) {
        if (choice.kind == SheetChoice::Kind::Folder || cycle.dateTime.date() == choice.day)
            pieces.push_back({number, cycle.name, cycle.fileNames.size()});
    }
    return pieces;
}

QDate dayOf(const SheetSource& source)
{
    if (source.loadedFiles.empty())
        return {};
    const QString name = QFileInfo(source.loadedFiles.front()).fileName();
    for (const auto& [number, cycle] : source.cycles) {
        if (std::ranges::find(cycle.fileNames, name) != cycle.fileNames.end())
            return cycle.dateTime.date();
    }
    return {};
}

} // namespace

std::vector<QDate> SheetSource::days() const
{
    std::vector<QDate> days;
    for (const auto& [number, cycle] : cycles)
        days.push_back(cycle.dateTime.date());
    std::ranges::sort(days, std::ranges::greater()); // an invalid date is before all others
    const auto same = std::ranges::unique(days);
    days.erase(same.begin(), same.end());
    const auto loaded = std::ranges::find(days, dayOf(*this));
    if (!loadedFiles.empty() && loaded != days.end())
        std::rotate(days.begin(), loaded, loaded + 1);
    return days;
}

SheetContent readSheet(const Profile& profile, const SheetSource& source, const SheetChoice& choice,
                       const std::function<bool(const QString& name, int percent)>& progress)
{
    SheetContent content;
    CardContainer card(profile);
    card.setClockOffset(source.clockOffset);
    if (!card.readContainer(source.folder, [&](int) { progress(source.folder, 0); }))
        return content;
    const CardFiles files(card);
    const std::vector<Piece> pieces = piecesOf(card, source, choice);
    std::size_t total = 0;
    for (const Piece& piece : pieces)
        total += piece.fileCount;
    std::size_t done = 0;
    for (const Piece& piece : pieces) {
        const auto tick = [&](int percent) {
            const double part =
                static_cast<double>(done) * 100.0 + static_cast<double>(piece.fileCount) * percent;
            return progress(piece.name, static_cast<int>(part / static_cast<double>(total)));
        };
        if (choice.kind == SheetChoice::Kind::Loaded)
            card.loadFiles(source.loadedFiles, tick);
        else
            card.loadCycle(*piece.cycle, tick);
        done += piece.fileCount;
        content.cycles.push_back(sheetCycle(profile, files, *card.dataSet(), piece.cycle));
        for (const QString& name : card.dataSet()->unreadFiles)
            content.unreadFiles << name;
        if (!progress(piece.name, static_cast<int>(done * 100 / total)))
            break;
    }
    return content;
}

} // namespace KOLT
