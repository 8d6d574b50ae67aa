#include "analysis/ui/WidgetFaultMatrix.h"

#include "analysis/ui/FaultTable.h"
#include "analysis/ui/WidgetErrorTime.h"
#include "ui/ContentOrNote.h"
#include "ui/EmptyNote.h"
#include "ui/PaintedIcon.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QSplitter>
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
    auto* const layout = new QVBoxLayout(page);
    layout->setContentsMargins(pageMargin, pageMargin, pageMargin, pageMargin);
    createBar(*layout);
    m_area = new QScrollArea(page);
    m_area->setWidgetResizable(true);
    m_area->setFocusPolicy(Qt::NoFocus); // its lines take the focus instead
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    createTable();
    auto* const splitter = new QSplitter(Qt::Vertical, page);
    splitter->addWidget(m_area);
    splitter->addWidget(m_table);
    splitter->setChildrenCollapsible(false);
    splitter->setSizes({200, 100});
    splitter->setStretchFactor(0, 2);
    splitter->setStretchFactor(1, 1);
    layout->addWidget(splitter, 1);
    m_summary = new QLabel(page);
    m_summary->setObjectName(QStringLiteral("hint"));
    m_summary->setWordWrap(true);
    layout->addWidget(m_summary);

    m_shown = new ContentOrNote(this, page);
    showData(Change::Data);
}

void WidgetFaultMatrix::createBar(QVBoxLayout& layout)
{
    m_filter = new QLineEdit(this);
    m_filter->setPlaceholderText(tr("Filter the faults"));
    m_filter->setToolTip(tr("Show only faults with this text in their name or class"));
    m_filter->setClearButtonEnabled(true);
    m_filter->addAction(lookIcon(QStringLiteral("filter")), QLineEdit::LeadingPosition);
    connect(m_filter, &QLineEdit::textChanged, this, &WidgetFaultMatrix::showWanted);
    m_onlyOccurred = new QCheckBox(tr("Only faults that occurred"), this);
    m_onlyOccurred->setToolTip(tr("Hide faults that never occurred in the loaded data"));
    connect(m_onlyOccurred, &QCheckBox::toggled, this, &WidgetFaultMatrix::showWanted);
    layout.addWidget(m_filter);
    layout.addWidget(m_onlyOccurred);
}

void WidgetFaultMatrix::createTable()
{
    m_table = new FaultTable(this);
    m_noOccurrence = new EmptyNote(m_table);
    connect(m_table, &FaultTable::signalTime, this, &WidgetFaultMatrix::pick);
    connect(m_table, &FaultTable::signalShowInGraph, this, &WidgetFaultMatrix::signalShowInGraph);
}

void WidgetFaultMatrix::setSettings(const ListSettings& settings)
{
    m_table->setSettings(settings);
}

void WidgetFaultMatrix::dropData()
{
    m_table->setFaults({}, nullptr);
    m_blocks.clear();
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
    if (m_blocks.empty())
        m_shown->showNote(tr("The profile has no fault matrix."));
    else
        m_shown->showContent();
    m_table->fit();
    showWanted();
}

void WidgetFaultMatrix::createBlocks()
{
    int nameWidth = 0;
    std::size_t total = 0;
    std::size_t occurred = 0;
    for (const FaultMatrix& matrix : *m_matrices) {
        for (const FaultHistory& member : matrix.members) {
            nameWidth =
                std::max(nameWidth, fontMetrics().horizontalAdvance(member.parameter->name));
            ++total;
            occurred += member.count() > 0 ? 1U : 0U;
        }
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
    m_summary->setText(tr("%1 of %2 faults occurred").arg(occurred).arg(total));
}

void WidgetFaultMatrix::addBlock(const FaultMatrix& matrix, int nameWidth, QVBoxLayout& layout)
{
    Block& block = m_blocks.emplace_back();
    block.title = new QLabel(matrix.matrix->name);
    block.title->setTextFormat(Qt::PlainText);
    QFont font = block.title->font();
    font.setBold(true);
    block.title->setFont(font);
    block.title->setContentsMargins(titleGap, titleGap, 0, titleGap / 2);
    layout.addWidget(block.title);
    for (const FaultHistory& member : matrix.members) {
        auto* const row =
            new WidgetErrorTime(member, dataSet()->startSeconds, dataSet()->stopSeconds, nameWidth);
        connectRow(*row);
        layout.addWidget(row);
        block.rows.push_back(row);
    }
}

void WidgetFaultMatrix::connectRow(WidgetErrorTime& row)
{
    connect(&row, &WidgetErrorTime::signalTime, this, &WidgetFaultMatrix::pick);
    connect(&row, &WidgetErrorTime::signalPicked, m_table, &FaultTable::showOccurrence);
    connect(&row, &WidgetErrorTime::signalShowInGraph, this, &WidgetFaultMatrix::signalShowInGraph);
}

void WidgetFaultMatrix::showWanted()
{
    const QString wanted = m_filter->text().trimmed();
    std::vector<const FaultHistory*> listed;
    for (const Block& block : m_blocks) {
        bool hasWanted = false;
        for (WidgetErrorTime* row : block.rows) {
            const FaultHistory& fault = row->history();
            const bool isMatch =
                block.title->text().contains(wanted, Qt::CaseInsensitive) ||
                fault.parameter->fullName.contains(wanted, Qt::CaseInsensitive) ||
                errorClassText(fault.parameter->errorType).contains(wanted, Qt::CaseInsensitive);
            const bool isWanted = isMatch && (!m_onlyOccurred->isChecked() || fault.count() > 0);
            row->setVisible(isWanted);
            hasWanted = hasWanted || isWanted;
            if (isMatch)
                listed.push_back(&fault);
        }
        block.title->setVisible(hasWanted);
    }
    m_table->setFaults(listed, dataSet());
    m_table->showTime(time());
    const auto hasOccurred = [](const FaultHistory* fault) { return fault->count() > 0; };
    m_noOccurrence->showNote(std::ranges::any_of(listed, hasOccurred)
                                 ? QString()
                                 : tr("None of these faults occurred."));
}

void WidgetFaultMatrix::showTime()
{
    for (const Block& block : m_blocks) {
        for (WidgetErrorTime* row : block.rows)
            row->setTime(time());
    }
    m_table->showTime(time());
}

void WidgetFaultMatrix::pick(double seconds)
{
    keepTime(seconds);
    showTime();
    emit signalTime(seconds);
}

} // namespace KOLT
