#include "analysis/ui/WidgetFaultMatrix.h"

#include "analysis/ui/WidgetErrorTime.h"
#include "ui/ContentOrNote.h"

#include <QCheckBox>
#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>

namespace KOLT {

namespace {

constexpr int pageMargin = 3;
constexpr int titleGap = 8;

} // namespace

WidgetFaultMatrix::WidgetFaultMatrix(const Profile& profile, QWidget* parent)
    : QWidget(parent)
    , m_profile(profile)
{
    auto* const page = new QWidget(this);
    m_onlyActive = new QCheckBox(tr("Only active"), page);
    m_onlyActive->setToolTip(tr("Hide faults that never occurred in the loaded data"));
    connect(m_onlyActive, &QCheckBox::toggled, this, &WidgetFaultMatrix::showOnlyActive);
    m_summary = new QLabel(page);
    m_summary->setObjectName(QStringLiteral("hint"));
    auto* const bar = new QHBoxLayout;
    bar->addWidget(m_onlyActive);
    bar->addStretch();
    bar->addWidget(m_summary);
    m_area = new QScrollArea(page);
    m_area->setWidgetResizable(true);
    m_area->setFocusPolicy(Qt::NoFocus); // its lines take the focus instead
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* const layout = new QVBoxLayout(page);
    layout->setContentsMargins(pageMargin, pageMargin, pageMargin, pageMargin);
    layout->addLayout(bar);
    layout->addWidget(m_area, 1);

    m_shown = new ContentOrNote(this, page);
    showData(Change::Data);
}

void WidgetFaultMatrix::dropData()
{
    m_rows.clear();
    delete m_area->takeWidget();
    m_matrices.reset();
}

void WidgetFaultMatrix::showData(Changes changes)
{
    if (!changes.testAnyFlags(Change::Data | Change::Font))
        return;
    dropData();
    if (dataSet() == nullptr) {
        m_shown->showNote(tr("Choose a cycle or a flight on the left to see its faults."));
        return;
    }
    m_matrices = faultsOf(m_profile, *dataSet());
    createBlocks();
    if (m_rows.empty())
        m_shown->showNote(tr("The profile has no fault matrix."));
    else
        m_shown->showContent();
    showOnlyActive();
}

void WidgetFaultMatrix::createBlocks()
{
    int nameWidth = 0;
    for (const FaultMatrix& matrix : *m_matrices) {
        for (const FaultHistory& member : matrix.members)
            nameWidth =
                std::max(nameWidth, fontMetrics().horizontalAdvance(member.parameter->name));
    }
    auto* const content = new QWidget;
    content->setObjectName(QStringLiteral("panel"));
    auto* const layout = new QVBoxLayout(content);
    layout->setContentsMargins(pageMargin, pageMargin, pageMargin, pageMargin);
    layout->setSpacing(0);
    for (const FaultMatrix& matrix : *m_matrices) {
        if (!matrix.members.empty())
            addBlock(matrix, nameWidth, *layout);
    }
    layout->addStretch();
    m_area->setWidget(content);
    const auto active = std::ranges::count_if(
        m_rows, [](const WidgetErrorTime* row) { return row->history().count() > 0; });
    m_summary->setText(tr("%1 of %2 faults occurred").arg(active).arg(m_rows.size()));
}

void WidgetFaultMatrix::addBlock(const FaultMatrix& matrix, int nameWidth, QVBoxLayout& layout)
{
    auto* const title = new QLabel(matrix.matrix->name);
    title->setTextFormat(Qt::PlainText);
    QFont font = title->font();
    font.setBold(true);
    title->setFont(font);
    title->setContentsMargins(titleGap, titleGap, 0, titleGap / 2);
    layout.addWidget(title);
    for (const FaultHistory& member : matrix.members) {
        auto* const row =
            new WidgetErrorTime(member, dataSet()->startSeconds, dataSet()->stopSeconds, nameWidth);
        connect(row, &WidgetErrorTime::signalTime, this, &WidgetFaultMatrix::pick);
        layout.addWidget(row);
        m_rows.push_back(row);
    }
}

void WidgetFaultMatrix::showOnlyActive()
{
    for (WidgetErrorTime* row : m_rows)
        row->setVisible(!m_onlyActive->isChecked() || row->history().count() > 0);
}

void WidgetFaultMatrix::showTime()
{
    for (WidgetErrorTime* row : m_rows)
        row->setTime(time());
}

void WidgetFaultMatrix::pick(double seconds)
{
    keepTime(seconds);
    showTime();
    emit signalTime(seconds);
}

} // namespace KOLT
