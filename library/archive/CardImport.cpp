#include "library/archive/CardImport.h"

#include "library/archive/CardFacts.h"
#include "library/archive/ImportWork.h"

#include <QCoreApplication>
#include <QDir>

namespace KOLT::Library {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::Library::CardImport)
};

} // namespace

struct CardImport::Work
{
    Archive archive;
    QString card;
    std::optional<CardFacts> facts;
};

CardImport::CardImport(const Archive& archive, const QString& card,
                       const std::function<void()>& onFile)
    : m_work(std::make_unique<Work>(Work{archive, card, listCard(card, onFile)}))
{
}

CardImport::~CardImport() = default;

ImportResult CardImport::run(const Progress& progress, const ArchiveListener& listener)
{
    ImportResult result;
    const QString native = QDir::toNativeSeparators(m_work->card);
    if (!m_work->facts)
        result.error = Text::tr("The folder %1 cannot be read. Is the card inserted?").arg(native);
    else if (m_work->facts->files.empty())
        result.error = Text::tr("There are no recordings in %1.").arg(native);
    else
        result = ImportWork(m_work->archive, m_work->card, *m_work->facts, m_isCancelled)
                     .run(progress, listener);
    return result;
}

} // namespace KOLT::Library
