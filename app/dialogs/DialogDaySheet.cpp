#include "app/dialogs/DialogDaySheet.h"

#include "app/JobQueue.h"
#include "app/dialogs/SheetPrinter.h"
#include "app/settings/ExportSettingsStore.h"
#include "app/settings/ProgramSettings.h"
#include "app/settings/SettingsStore.h"
#include "base/Csv.h"
#include "record/CardContainer.h"
#include "ui/EventPump.h"
#include "ui/Messages.h"
#include "ui/SaveDialog.h"

#include <QBuffer>
#include <QComboBox>
#include <QDir>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPageLayout>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace KOLT {

namespace {

constexpr QSize windowSize(900, 560);
constexpr int rowPadding = 6;
constexpr int wholePercent = 100;

} // namespace

DialogDaySheet::DialogDaySheet(const Profile& profile, JobQueue& jobs, QWidget* parent)
    : QDialog(parent)
    , m_profile(profile)
    , m_jobs(jobs)
{
    setWindowTitle(tr("Day Sheet"));
    m_scope = new QComboBox(this);
    m_scope->setToolTip(tr("Which flights the sheet lists"));
    connect(m_scope, &QComboBox::activated, this, &DialogDaySheet::request);
    m_table = new QTableWidget(this);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setTabKeyNavigation(false);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setHighlightSections(false);
    m_state = new QLabel(this);
    m_state->setObjectName(QStringLiteral("hint"));
    m_state->setTextFormat(Qt::PlainText); // file names may look like markup
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
    layout->addWidget(m_table, 1);
    layout->addLayout(bottom);
    createButtons();
    setWorking(false);
    resize(windowSize);
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

void DialogDaySheet::open(const Source& source)
{
    m_source = source;
    m_scope->clear();
    if (!source.loadedFiles.empty())
        m_scope->addItem(source.loadedName, Loaded);
    m_scope->addItem(tr("All of %1").arg(QDir::toNativeSeparators(source.folder)), WholeFolder);
    show();
    raise();
    activateWindow();
    request();
}

void DialogDaySheet::request()
{
    m_isCancelled = m_isWorking; // ends a sheet being made
    const auto scope = static_cast<Scope>(m_scope->currentData().toInt());
    m_jobs.run([this, scope] {
        if (isVisible())
            work(scope);
    });
}

void DialogDaySheet::work(Scope scope)
{
    m_isCancelled = false;
    setWorking(true);
    std::vector<FlightLine> lines;
    m_unreadFiles.clear();
    CardContainer card(m_profile);
    card.setClockOffset(ProgramSettings().clockOffset());
    EventPump events;
    const auto tick = [&](int percent) { events.tick([&] { m_progress->setValue(percent); }); };
    card.readContainer(m_source.folder, [&](int) { tick(0); });
    const auto add = [&] {
        const FlightLog log = flightLog(m_profile, *card.dataSet());
        lines.insert(lines.end(), log.lines.begin(), log.lines.end());
        for (const QString& name : card.dataSet()->unreadFiles)
            m_unreadFiles.push_back(name);
    };
    if (scope == Loaded) {
        if (card.loadFiles(m_source.loadedFiles, tick))
            add();
    } else {
        const int count = static_cast<int>(card.cycles().size());
        int done = 0;
        for (const auto& [number, cycle] : card.cycles()) {
            m_state->setText(tr("Reading %1").arg(cycle.name));
            const bool isLoaded = card.loadCycle(
                number, [&](int percent) { tick((done * wholePercent + percent) / count); });
            if (m_isCancelled)
                break;
            if (isLoaded)
                add();
            ++done;
        }
    }
    setWorking(false);
    if (m_isCancelled)
        lines.clear();
    m_sheet = DaySheet(std::move(lines));
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
    const QStringList headings = DaySheet::headings();
    m_table->setRowCount(0);
    m_table->setColumnCount(static_cast<int>(headings.size()));
    m_table->setHorizontalHeaderLabels(headings);
    m_table->setRowCount(static_cast<int>(m_sheet.rows().size()));
    m_table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + rowPadding);
    int row = 0;
    for (const DaySheet::Row& line : m_sheet.rows()) {
        for (int column = 0; column < headings.size(); ++column) {
            auto* const item = new QTableWidgetItem(line.cells[column]);
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            if (line.isSum) {
                QFont font = item->font();
                font.setBold(true);
                item->setFont(font);
                item->setBackground(palette().color(QPalette::AlternateBase));
            }
            m_table->setItem(row, column, item);
        }
        ++row;
    }
    m_table->resizeColumnsToContents();
    m_table->horizontalHeader()->setStretchLastSection(true);
    if (m_isCancelled)
        m_state->setText(tr("Cancelled"));
    else if (!m_unreadFiles.isEmpty())
        m_state->setText(remark());
    else
        m_state->setText(m_sheet.isEmpty() ? tr("No flights were found.")
                                           : DaySheet::explanation());
    setWorking(false);
}

QString DialogDaySheet::title() const
{
    return tr("Flights of %1").arg(m_scope->currentText());
}

QString DialogDaySheet::remark() const
{
    return m_unreadFiles.isEmpty() ? QString()
                                   : tr("Incomplete: these files could not be read: %1")
                                         .arg(m_unreadFiles.join(QStringLiteral(", ")));
}

QString DialogDaySheet::html() const
{
    return m_sheet.toHtml(title(), remark());
}

QString DialogDaySheet::proposedName(const QString& suffix) const
{
    const QString directory = loadExportFolder(SettingsStore::instance(), "Csv");
    const QString day = m_sheet.rows().front().cells.front();
    return QStringLiteral("%1/Flights_%2.%3")
        .arg(directory, QString(day).replace(QLatin1Char(' '), QLatin1Char('_')), suffix);
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
    if (path.isEmpty())
        return;
    QByteArray content;
    QBuffer buffer(&content);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        const bool isLetter = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
        writer.setPageLayout(QPageLayout(QPageSize(isLetter ? QPageSize::Letter : QPageSize::A4),
                                         QPageLayout::Landscape, {}));
        writer.setTitle(title());
        printSheet(html(), writer);
    }
    Messages::saveFile(this, path, content);
}

void DialogDaySheet::saveCsv()
{
    const auto suffix = QStringLiteral("csv");
    const QString path = askForSavePath(this, tr("Save as CSV"), proposedName(suffix),
                                        tr("CSV Files (*.csv)"), suffix);
    if (path.isEmpty())
        return;
    const ListSettings settings = loadListSettings(SettingsStore::instance());
    Messages::saveFile(this, path, csvFile(m_sheet.toCsv(settings)));
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
