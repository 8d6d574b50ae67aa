#include "analysis/ui/DialogRecording.h"

#include "analysis/ui/RowPicker.h"
#include "record/ClockTime.h"
#include "ui/ColumnMemory.h"
#include "ui/ContentOrNote.h"
#include "ui/PlainToolTip.h"
#include "ui/TrustMark.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <optional>

namespace KOLT {

namespace {

enum Column {
    severityColumn,
    kindColumn,
    fromColumn,
    toColumn,
    filesColumn,
    textColumn,
    columnCount
};

constexpr QSize dialogSize(900, 420);
constexpr qsizetype mostFiles = 3; ///< named in a cell

TrustMark markOf(TrustSeverity severity)
{
    switch (severity) {
    case TrustSeverity::Wrong:
        return TrustMark::Wrong;
    case TrustSeverity::Doubtful:
        return TrustMark::Doubtful;
    case TrustSeverity::Note:
        break;
    }
    return TrustMark::Note;
}

QString severityText(TrustSeverity severity)
{
    switch (severity) {
    case TrustSeverity::Wrong:
        return DialogRecording::tr("Wrong: figures or sums are off");
    case TrustSeverity::Doubtful:
        return DialogRecording::tr("Doubtful: figures may be off");
    case TrustSeverity::Note:
        break;
    }
    return DialogRecording::tr("Note: figures are not affected");
}

QString timeText(const std::optional<double>& seconds)
{
    return seconds ? durationText(*seconds) : QString();
}

QTableWidgetItem* createCell(const QString& text)
{
    auto* const item = new QTableWidgetItem(text);
    item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    item->setTextAlignment(Qt::AlignLeft | Qt::AlignTop);
    return item;
}

QStringList cellsOf(const TrustFinding& finding)
{
    return {trustSeverityName(trustSeverity(finding.kind)),
            trustKindTitle(finding.kind),
            timeText(finding.from),
            timeText(finding.to),
            QStringList(finding.files.begin(), finding.files.end()).join(QStringLiteral(", ")),
            finding.text};
}

} // namespace

DialogRecording::DialogRecording(QWidget* parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Recording"));
    auto* const content = new QWidget(this);
    createTable();
    m_heading = new QLabel(this);
    m_heading->setTextFormat(Qt::PlainText);
    m_heading->setWordWrap(true);
    auto* const inside = new QVBoxLayout(content);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->addWidget(m_heading);
    inside->addWidget(m_table, 1);
    auto* const page = new QWidget(this);
    m_stack = new ContentOrNote(page, content);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    m_copy = buttons->addButton(tr("&Copy"), QDialogButtonBox::ActionRole);
    m_copy->setToolTip(tr("Copy all findings as text"));
    for (QAbstractButton* button : buttons->buttons())
        static_cast<QPushButton*>(button)->setAutoDefault(false); // Return goes to the moment
    connect(m_copy, &QPushButton::clicked, this, [this] { copy(false); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(page, 1);
    layout->addWidget(buttons);
    resize(dialogSize);
    setNote({});
}

void DialogRecording::createTable()
{
    m_table = new QTableWidget(0, columnCount, this);
    m_table->setObjectName(QStringLiteral("findingsTable"));
    m_table->setHorizontalHeaderLabels(
        {QString(), tr("Finding"), tr("From"), tr("To"), tr("Files"), tr("What it means")});
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setTabKeyNavigation(false);
    m_table->setWordWrap(true);
    m_table->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel); // rows may be high
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->horizontalHeader()->setSectionResizeMode(textColumn, QHeaderView::Stretch);
    m_widths = new ColumnMemory(*m_table->horizontalHeader(), QStringLiteral("Recording"));
    connect(m_table, &QTableWidget::cellClicked, this, &DialogRecording::pick);
    auto* const picker = new RowPicker(m_table);
    connect(picker, &RowPicker::signalPicked, this, &DialogRecording::pick);
    connect(picker, &RowPicker::signalCopy, this, [this] { copy(true); });
}

void DialogRecording::setFindings(const QString& name, const std::vector<TrustFinding>& findings)
{
    const int current = m_table->currentRow();
    const QString before = current >= 0 ? m_table->item(current, textColumn)->text() : QString();
    m_findings = findings;
    m_table->setRowCount(0);
    m_copy->setEnabled(!findings.empty());
    if (findings.empty()) {
        m_stack->showNote(tr("%1\nNothing doubtful was found in this recording.").arg(name));
        return;
    }
    m_heading->setText(tr("%1: %n finding(s). A click goes to the moment.", nullptr,
                          static_cast<int>(findings.size()))
                           .arg(name));
    for (const TrustFinding& finding : findings)
        addRow(finding);
    fitColumns();
    const auto same = std::ranges::find(findings, before, &TrustFinding::text);
    m_table->selectRow(same != findings.end() ? static_cast<int>(same - findings.begin()) : 0);
    m_stack->showContent();
}

void DialogRecording::setNote(const QString& text)
{
    m_findings.clear();
    m_table->setRowCount(0);
    m_copy->setEnabled(false);
    m_stack->showNote(text);
}

void DialogRecording::addRow(const TrustFinding& finding)
{
    const int row = m_table->rowCount();
    m_table->insertRow(row);
    const QStringList cells = cellsOf(finding);
    for (int column = 0; column < columnCount; ++column)
        m_table->setItem(row, column, createCell(cells[column]));
    const TrustSeverity severity = trustSeverity(finding.kind);
    QTableWidgetItem* const mark = m_table->item(row, severityColumn);
    mark->setText({});
    mark->setIcon(trustIcon(markOf(severity)));
    mark->setToolTip(severityText(severity));
    mark->setData(Qt::AccessibleTextRole, severityText(severity));
    QTableWidgetItem* const files = m_table->item(row, filesColumn);
    files->setToolTip(plainToolTip(files->text()));
    QStringList names(finding.files.begin(), finding.files.end());
    if (names.size() > mostFiles) {
        const auto more = static_cast<int>(names.size() - mostFiles);
        names.resize(mostFiles);
        names << tr("and %n more", nullptr, more);
    }
    files->setText(names.join(QLatin1Char('\n')));
}

void DialogRecording::fitColumns()
{
    for (int column = 0; column < textColumn; ++column)
        m_table->resizeColumnToContents(column);
    m_widths->restore();
}

void DialogRecording::select(int finding)
{
    if (finding < 0 || finding >= m_table->rowCount())
        return;
    m_table->selectRow(finding);
    m_table->scrollToItem(m_table->item(finding, textColumn));
    m_table->setFocus(Qt::OtherFocusReason);
}

void DialogRecording::pick(int row)
{
    if (row < 0 || row >= static_cast<int>(m_findings.size()))
        return;
    const TrustFinding& finding = m_findings[static_cast<std::size_t>(row)];
    if (const std::optional<double> seconds = finding.from ? finding.from : finding.to)
        emit signalTime(*seconds);
}

QString DialogRecording::text(bool onlySelected) const
{
    QStringList lines;
    for (std::size_t i = 0; i < m_findings.size(); ++i) {
        const auto row = static_cast<int>(i);
        if (!onlySelected || m_table->item(row, textColumn)->isSelected())
            lines << cellsOf(m_findings[i]).join(QLatin1Char('\t'));
    }
    return lines.join(QLatin1Char('\n'));
}

void DialogRecording::copy(bool onlySelected) const
{
    QApplication::clipboard()->setText(text(onlySelected));
}

void DialogRecording::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::FontChange && m_stack != nullptr)
        fitColumns();
}

} // namespace KOLT
