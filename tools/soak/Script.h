#pragma once

#include <QString>

#include <functional>
#include <vector>

namespace KOLT::Soak {

/// One thing that the user does.
struct Step
{
    /// Done, and the next one may follow; or not possible yet, and to be tried again.
    using Act = std::function<bool()>;

    QString name;
    Act act;
    bool isUrgent = false; ///< not to be put off for the sake of the processor, as it ends work
};

/// Where the user works.
struct Places
{
    QString cards; ///< folder with the cards "long" and "short"
    QString out;   ///< folder for everything that is written; emptied in each round

    QString library() const { return out + QStringLiteral("/library"); }
};

/// A round of use: both cards, their cycles and flights, all pages, replay, sizes, exports, a case
/// file, an import that is taken back, the library with engine and note, the report, preferences
/// and all windows of the menus. It ends where the next one begins, without a window open.
std::vector<Step> scriptOfRound(const Places& places, int round);

/// The parts of a round, in the sources of the windows they use.
std::vector<Step> stepsOfCard(const Places& places, int round);
std::vector<Step> stepsOfPages();
std::vector<Step> stepsOfFiles(const Places& places);
std::vector<Step> stepsOfLibrary(const Places& places, int round);
std::vector<Step> stepsOfMenus(const Places& places, int round);

/// Goes on after so much time.
Step pause(int milliseconds);

/// Goes on when nothing is being listed or loaded.
Step untilIdle();

} // namespace KOLT::Soak
