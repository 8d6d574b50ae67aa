#include "library/ui/ImportText.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace KOLT::Library {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::Library::ImportText)
};

QString durationText(double seconds)
{
    constexpr double minute = 60.0;
    return seconds < minute ? Text::tr("about %1 s left").arg(std::ceil(seconds))
                            : Text::tr("about %1 min left").arg(std::ceil(seconds / minute));
}

} // namespace

QString sentenceOf(const ImportResult& result)
{
    if (result.files == 0)
        return result.error;
    QString text = Text::tr("%1 of %2 files are safe; %3 were here before.")
                       .arg(result.safe())
                       .arg(result.files)
                       .arg(result.known);
    if (result.beside > 0)
        text += QLatin1Char(' ') +
                Text::tr("%1 have another content than a file of the same name, and lie beside it "
                         "in the folder \"copies\".")
                    .arg(result.beside);
    if (!result.error.isEmpty())
        text += QLatin1Char('\n') + result.error;
    if (result.isComplete())
        return text + QLatin1Char('\n') +
               Text::tr("The card holds nothing that the library does not have.");
    return text + QLatin1Char('\n') +
           (result.isCancelled
                ? Text::tr("The import was cancelled. Do not erase the card: import it again.")
                : Text::tr("Do not erase the card. Import it again when the cause is removed."));
}

QString textOf(const ImportProgress& progress)
{
    constexpr double perMegabyte = 1e6;
    QString text = Text::tr("Copying %1: %2 of %3 files")
                       .arg(progress.file)
                       .arg(progress.filesDone)
                       .arg(progress.files);
    if (progress.bytesPerSecond > 0.0)
        text += Text::tr(", %1 MB/s").arg(progress.bytesPerSecond / perMegabyte, 0, 'f', 1);
    if (progress.secondsLeft >= 0.0)
        text += Text::tr(", %1").arg(durationText(progress.secondsLeft));
    return text;
}

} // namespace KOLT::Library
