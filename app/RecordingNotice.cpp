#include "app/RecordingNotice.h"

#include "app/CardSession.h"
#include "record/CaseFile.h"
#include "record/ClockOffset.h"
#include "record/TrustText.h"
#include "ui/NoticeBar.h"

namespace KOLT {

RecordingNotice::RecordingNotice(const Profile& profile, CardSession& card, NoticeBar& bar)
    : m_profile(profile)
    , m_card(card)
    , m_bar(bar)
{
    connect(&card, &CardSession::signalLoading, &bar, &NoticeBar::hide);
    connect(&card, &CardSession::signalLoaded, this, &RecordingNotice::noteLoaded);
    connect(&card, &CardSession::signalReanalysed, this, &RecordingNotice::refresh);
    connect(&bar, &NoticeBar::signalAction, this, [this] { emit signalVariant(m_better); });
    connect(&bar, &NoticeBar::signalClosed, this, [this] { m_closed.insert(m_recording); });
}

void RecordingNotice::noteLoaded()
{
    m_engines.clear();
    m_lateClock.clear();
    m_recording = m_card.container().folder();
    if (m_card.dataSet() == nullptr)
        return;
    const auto& files = m_card.container().files();
    const std::vector<LoadedFile>& loaded = m_card.dataSet()->files;
    for (const LoadedFile& entry : loaded) {
        m_recording += QLatin1Char('\n') + entry.name;
        if (const auto file = files.find(entry.name); file != files.end())
            m_engines << file->second.info().engineType;
    }
    const auto first = loaded.empty() ? files.end() : files.find(loaded.front().name);
    const double late = first == files.end() ? 0.0 : lateClockSeconds(first->second.info());
    // A case has the date of counter 0, wherever in the run it was cut.
    const std::optional<CaseNote> note = readCaseNote(m_card.container().folder());
    const bool isCase = note && first != files.end() && note->file == first->first;
    if (late > 0.0 && !isCase)
        m_lateClock = TrustText::lateClock(first->first, late);
    refresh();
}

void RecordingNotice::refresh()
{
    m_better.clear();
    if (m_card.dataSet() == nullptr || m_closed.contains(m_recording)) {
        m_bar.hide();
        return;
    }
    const VariantFit fit =
        variantFit(m_profile, recordedEngine(m_engines, m_card.dataSet()->messages));
    m_better = fit.better;
    QStringList texts{fit.text(), m_lateClock};
    texts.removeAll(QString());
    m_bar.showNotice(texts.join(QLatin1Char('\n')),
                     m_better.isEmpty() ? QString() : tr("Use variant %1").arg(m_better));
}

} // namespace KOLT
