#include "app/GraphJump.h"

#include "graph/ui/DialogDataGraph.h"
#include "graph/ui/EpisodeCard.h"
#include "graph/ui/WidgetGraphBase.h"
#include "ui/NoticeBar.h"

#include <algorithm>

namespace KOLT {

namespace {

constexpr double secondsAround = 30.0;

QStringList namesOf(const std::vector<const ProfileParameter*>& parameters)
{
    QStringList names;
    for (const ProfileParameter* parameter : parameters)
        names << parameter->fullName;
    return names;
}

} // namespace

GraphJump::GraphJump(Profile& profile, const DataWindow& parts, NoticeBar& notice)
    : m_profile(profile)
    , m_parts(parts)
    , m_notice(notice)
{
    connect(parts.window, &DialogData::signalShowInGraph, this, &GraphJump::show);
    for (const EpisodeCard* card : parts.cards)
        connect(card, &EpisodeCard::signalShowInGraph, this, &GraphJump::show);
    connect(&notice, &NoticeBar::signalAction, this, &GraphJump::undo);
}

void GraphJump::show(const GraphTarget& target)
{
    const ProfileParameter* const parameter = m_profile.parameterByFullName(target.parameter);
    if (parameter == nullptr)
        return;
    select(*parameter);
    m_parts.window->setCurrentPage(DialogData::Page::Graph);
    m_parts.window->setTime(target.begin);
    m_parts.graph->showSpan({target.begin - secondsAround, target.end + secondsAround},
                            {target.begin, target.end}, target.parameter);
    // Its keys go on from there; without OpenGL there is none.
    if (auto* const graph = m_parts.graph->findChild<WidgetGraphBase*>())
        graph->setFocus();
}

void GraphJump::select(const ProfileParameter& parameter)
{
    const std::vector<const ProfileParameter*> selected = m_profile.selectedParameters();
    const auto place = std::ranges::find(selected, &parameter) - selected.begin();
    if (place < Graph::maxTraces && place < std::ssize(selected))
        return;
    if (!m_before)
        m_before = {selected, false};
    m_profile.select([&](const ProfileParameter& each) {
        return each.selected || each.fullName == parameter.fullName;
    });
    if (std::ssize(selected) >= Graph::maxTraces) {
        // The graph shows only the first ones.
        m_profile.setDisplayOrder(QStringList{parameter.fullName} + namesOf(selected));
        m_before->isReordered = true;
    }
    m_added << parameter.name;
    emit signalSelectionChanged();
    m_notice.showNotice(
        tr("Added to the selected parameters: %1").arg(m_added.join(QStringLiteral(", "))),
        tr("Undo"));
}

void GraphJump::undo()
{
    const Selection before = m_before.value_or(Selection());
    forget();
    m_profile.select([&](const ProfileParameter& parameter) {
        return std::ranges::find(before.parameters, &parameter) != before.parameters.end();
    });
    if (before.isReordered)
        m_profile.setDisplayOrder(namesOf(before.parameters));
    emit signalSelectionChanged();
}

void GraphJump::forget()
{
    m_before.reset();
    m_added.clear();
    m_notice.hide();
}

} // namespace KOLT
