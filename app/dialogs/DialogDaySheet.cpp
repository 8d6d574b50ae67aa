#include "app/dialogs/DialogDaySheet.h"

#include "app/JobQueue.h"
#include "app/dialogs/SheetPrinter.h"
#include "app/settings/ExportSettingsStore.h"
#include "app/settings/SettingsStore.h"
#include "base/Csv.h"
#include "profile/ProfileLine.h"
#include "record/ClockOffset.h"
#include "ui/ColumnMemory.h"
#include "ui/DialogFolders.h"
#include "ui/EventPump.h"
#include "ui/FirstSize.h"
#include "ui/Messages.h"
#include "ui/SaveDialog.h"

#include <QComboBox>
#include <QDir>
#include <QHeaderView>
#include <QLabel>
#include <QPageLayout>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QTableWidget>
#include <QVBoxLayout>

namespace KOLT {

namespace {

constexpr QSize windowSize(1080, 620); ///< all columns fit
constexpr int rowPadding = 6;
constexpr int noteLines = 5;
constexpr int wholePercent = 100;
constexpr QRgb sumBackground = qRgb(0xf4, 0xf5, 0xf6); ///< as printed

QLabel* plainLabel(QWidget* parent)
{
    auto* const label = new QLabel(parent);
    label->setObjectName(QStringLiteral("hint"));
    label->setTextFormat(Qt::PlainText); // file names may look like markup
    label->setWordWrap(true);
    return label;
}

QString folderKind()
{
    return QStringLiteral("Sheet");
}

} // namespace

DialogDaySheet::DialogDaySheet(const Profile& profile, const SettingsStore& settings,
                               JobQueue& jobs, QWidget* parent)
    : QDialog(parent)
    , m_profile(profile)
    , m_settings(settings)
    , m_jobs(jobs)
{
    setWindowTitle(tr("Day Sheet"));
    m_scope = new QComboBox(this);
    m_scope->setToolTip(tr("Which flights the sheet lists"));
    connect(m_scope, &QComboBox::activated, this, &DialogDaySheet::request);
    m_head = plainLabel(this);
    createTable();
    m_notes = new QPlainTextEdit(this);
    m_notes->setObjectName(QStringLiteral("paper"));
    m_notes->setReadOnly(true);
    m_notes->setTabChangesFocus(true);
    m_state = plainLabel(this);
    m_progress = new QProgressBar(this);
    m_progress->setRange(0, wholePercent);
    m_cancel = new QPushButton(tr("Cancel"), this);
    m_cancel->setAutoDefault(false);
    connect(m_cancel, &QPushButton::clicked, this, [this] { m_isCancelled = true; });

    auto* const top = new QHBoxLayout;
    top->addWidget(new QLabel(tr("Flights of"), this));
    top->addWidget(m_scope, 1);
    auto* const bottom = new QHBoxLayout;
    bottom->addWidget(m_state, 1);
    bottom->addWidget(m_progress);
    bottom->addWidget(m_cancel);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(m_head);
    layout->addWidget(m_table, 1);
    layout->addWidget(m_notes);
    layout->addLayout(bottom);
    createButtons();
    showSheet();
    resizeForFont(*this, windowSize);
}

void DialogDaySheet::createTable()
{
    m_table = new QTableWidget(this);
    m_table->setObjectName(QStringLiteral("paper"));
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setTabKeyNavigation(false);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setHighlightSections(false);
    m_widths = new ColumnMemory(*m_table->horizontalHeader(), QStringLiteral("Sheet"));
    m_table->setToolTip(tr("Double-click or Return opens the flight in the main window"));
    connect(m_table, &QTableWidget::cellDoubleClicked, this, &DialogDaySheet::openRow);
    for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* const shortcut =
            new QShortcut(QKeySequence(key), m_table, nullptr, nullptr, Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, [this] { openRow(m_table->currentRow()); });
    }
}

void DialogDaySheet::createButtons()
{
    const auto add = [this](QLayout& row, const QString& text) {
        auto* const button = new QPushButton(text, this);
        button->setAutoDefault(false);
        row.addWidget(button);
        return button;
    };
    auto* const row = new QHBoxLayout;
    row->addStretch();
    m_print = add(*row, tr("Print..."));
    m_pdf = add(*row, tr("Save as PDF..."));
    m_csv = add(*row, tr("Save as CSV..."));
    QPushButton* const close = add(*row, tr("Close"));
    connect(m_print, &QPushButton::clicked, this, &DialogDaySheet::print);
    connect(m_pdf, &QPushButton::clicked, this, &DialogDaySheet::savePdf);
    connect(m_csv, &QPushButton::clicked, this, &DialogDaySheet::saveCsv);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

void DialogDaySheet::open(const SheetSource& source)
{
    m_source = source;
    m_choices.clear();
    m_scope->clear();
    const auto add = [this](const QString& text, const SheetChoice& choice) {
        m_scope->addItem(text);
        m_choices.push_back(choice);
    };
    for (const QDate& day : source.days())
        add(day.isValid() ? day.toString(QStringLiteral("dd.MM.yyyy")) : tr("Unknown Date"),
            {SheetChoice::Kind::Day, day});
    if (!source.loadedFiles.empty())
        add(source.loadedName, {SheetChoice::Kind::Loaded});
    add(tr("All of %1").arg(QDir::toNativeSeparators(source.folder)), {SheetChoice::Kind::Folder});
    show();
    raise();
    activateWindow();
    request();
}

void DialogDaySheet::request()
{
    m_isCancelled = m_isWorking; // ends a sheet being made
    const SheetChoice choice = m_choices[static_cast<std::size_t>(m_scope->currentIndex())];
    m_jobs.run([this, choice] {
        if (isVisible())
            work(choice);
    });
}

void DialogDaySheet::work(const SheetChoice& choice)
{
    m_isCancelled = false;
    setWorking(true);
    EventPump events;
    SheetContent content =
        readSheet(m_profile, m_source, choice, [&](const QString& name, int percent) {
            events.tick([&] {
                m_state->setText(tr("Reading %1").arg(name));
                m_progress->setValue(percent);
            });
            return !m_isCancelled;
        });
    if (m_isCancelled)
        content = {};
    m_unreadFiles = content.unreadFiles;
    m_sheet = DaySheet(std::move(content.cycles));
    showSheet();
}

void DialogDaySheet::setWorking(bool isWorking)
{
    m_isWorking = isWorking;
    m_progress->setValue(0);
    m_progress->setVisible(isWorking);
    m_cancel->setVisible(isWorking);
    for (QPushButton* button : {m_print, m_pdf, m_csv})
        button->setEnabled(!isWorking && !m_sheet.isEmpty());
}

void DialogDaySheet::showSheet()
{
    fillTable();
    QStringList lines{m_sheet.unitLine(), profileLine(m_profile), clockLine(m_source.clockOffset)};
    lines.removeAll(QString());
    m_head->setText(lines.join(QLatin1Char('\n')));
    m_head->setHidden(m_sheet.isEmpty());
    QStringList notes;
    for (qsizetype i = 0; i < m_sheet.notes().size(); ++i)
        notes << QStringLiteral("[%1] %2").arg(i + 1).arg(m_sheet.notes()[i]);
    m_notes->setPlainText(notes.join(QLatin1Char('\n')));
    m_notes->setFixedHeight(fontMetrics().lineSpacing() * noteLines);
    m_notes->setHidden(notes.isEmpty());
    if (m_isCancelled)
        m_state->setText(tr("Cancelled"));
    else if (!m_unreadFiles.isEmpty())
        m_state->setText(remark());
    else
        m_state->setText(m_sheet.isEmpty() ? tr("No flights were found.")
                                           : DaySheet::explanation());
    setWorking(false);
}

void DialogDaySheet::fillTable()
{
    const std::vector<DaySheet::Column> columns = m_sheet.columns();
    QStringList headings;
    for (const DaySheet::Column column : columns)
        headings << DaySheet::heading(column).replace(QLatin1String(" ["), QLatin1String("\n["));
    m_table->clearSpans();
    m_table->setRowCount(0);
    m_table->setColumnCount(static_cast<int>(headings.size()));
    m_table->setHorizontalHeaderLabels(headings);
    m_table->setRowCount(static_cast<int>(m_sheet.rows().size()));
    m_table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + rowPadding);
    for (int row = 0; row < m_table->rowCount(); ++row)
        fillRow(row, columns);
    m_table->resizeColumnsToContents();
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_widths->restore();
}

void DialogDaySheet::fillRow(int index, const std::vector<DaySheet::Column>& columns)
{
    const DaySheet::Row& row = m_sheet.rows()[static_cast<std::size_t>(index)];
    for (std::size_t i = 0; i < columns.size(); ++i) {
        auto* const item = new QTableWidgetItem(row.text(columns[i]));
        item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        if (row.kind == DaySheet::Kind::Sum) {
            QFont font = item->font();
            font.setBold(true);
            item->setFont(font);
            item->setBackground(QColor(sumBackground));
        }
        QStringList notes;
        for (const int note : row.notes[columns[i]])
            notes << m_sheet.notes()[note - 1];
        if (!notes.isEmpty())
            item->setToolTip(notes.join(QLatin1Char('\n')));
        m_table->setItem(index, static_cast<int>(i), item);
        if (const int span = row.span(columns[i], columns); span > 1)
            m_table->setSpan(index, static_cast<int>(i), 1, span);
    }
}

void DialogDaySheet::openRow(int index)
{
    if (index < 0 || m_isWorking)
        return;
    const DaySheet::Row& row = m_sheet.rows()[static_cast<std::size_t>(index)];
    if (row.kind == DaySheet::Kind::Sum)
        return;
    const std::optional<int> cycle = m_sheet.cycles()[row.cycle].number;
    if (cycle)
        emit signalOpen(m_source.folder, *cycle, row.flight ? static_cast<int>(*row.flight) : -1);
    else
        m_state->setText(tr("These flights are of single files. Choose a day to open them."));
}

DaySheet::Head DialogDaySheet::head() const
{
    return {tr("Flights of %1").arg(m_scope->currentText()), profileLine(m_profile),
            clockLine(m_source.clockOffset), remark()};
}

QString DialogDaySheet::remark() const
{
    return m_unreadFiles.isEmpty() ? QString()
                                   : tr("Incomplete: these files could not be read: %1")
                                         .arg(m_unreadFiles.join(QStringLiteral(", ")));
}

QString DialogDaySheet::html() const
{
    return m_sheet.toHtml(head());
}

QString DialogDaySheet::proposedName(const QString& suffix) const
{
    const QString directory = loadExportFolder(m_settings, "Csv");
    const QString dates = m_sheet.isoDates();
    return DialogFolders::proposal(
        folderKind(),
        QStringLiteral("%1/Flights%2.%3")
            .arg(directory, dates.isEmpty() ? dates : QLatin1Char('_') + dates, suffix));
}

void DialogDaySheet::print()
{
    QPrinter printer;
    printer.setPageOrientation(QPageLayout::Landscape);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    printSheet(html(), printer);
}

void DialogDaySheet::savePdf()
{
    const auto suffix = QStringLiteral("pdf");
    const QString path = askForSavePath(this, tr("Save as PDF"), proposedName(suffix),
                                        tr("PDF Files (*.pdf)"), suffix);
    DialogFolders::note(folderKind(), path);
    if (!path.isEmpty())
        save(path, sheetPdf(html(), head().title));
}

void DialogDaySheet::saveCsv()
{
    const auto suffix = QStringLiteral("csv");
    const QString path = askForSavePath(this, tr("Save as CSV"), proposedName(suffix),
                                        tr("CSV Files (*.csv)"), suffix);
    DialogFolders::note(folderKind(), path);
    if (!path.isEmpty())
        save(path, csvFile(m_sheet.toCsv(head(), loadListSettings(m_settings))));
}

void DialogDaySheet::save(const QString& path, const QByteArray& content)
{
    if (Messages::saveFile(this, path, content))
        emit signalMessage(tr("Saved %1").arg(QDir::toNativeSeparators(path)));
}

void DialogDaySheet::closeEvent(QCloseEvent* event)
{
    m_isCancelled = m_isWorking;
    QDialog::closeEvent(event);
}

void DialogDaySheet::reject()
{
    m_isCancelled = m_isWorking;
    QDialog::reject();
}

} // namespace KOLT
