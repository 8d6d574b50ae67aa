#include "report/ui/DialogReport.h"

#include "record/CardContainer.h"
#include "report/ReportPrinter.h"
#include "report/ReportReader.h"
#include "report/ReportText.h"
#include "ui/DialogFolders.h"
#include "ui/EventPump.h"
#include "ui/Messages.h"
#include "ui/SaveDialog.h"

#include <QComboBox>
#include <QDir>
#include <QFormLayout>
#include <QLabel>
#include <QLocale>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace KOLT {

namespace {

constexpr QSize windowSize(520, 260);
constexpr QSize windowCharacters(72, 18); ///< of text, in width and height; for large fonts
constexpr QSize previewSize(900, 760);
constexpr int wholePercent = 100;

QString folderKind()
{
    return QStringLiteral("Report");
}

} // namespace

DialogReport::DialogReport(const Profile& profile, QWidget* parent)
    : QDialog(parent)
    , m_profile(profile)
{
    setWindowTitle(tr("Engine Report"));
    auto* const hint = new QLabel(
        tr("One document for the shop and the aircraft's papers: the engine and its counters, what "
           "is doubtful in the recording, flights, the worst episodes with their graphs, faults, "
           "lamps, and the check sums of all files."),
        this);
    hint->setWordWrap(true);
    m_paper = new QComboBox(this);
    m_paper->addItem(QStringLiteral("A4"), static_cast<int>(QPageSize::A4));
    m_paper->addItem(QStringLiteral("Letter"), static_cast<int>(QPageSize::Letter));
    if (QLocale::system().measurementSystem() == QLocale::ImperialUSSystem)
        m_paper->setCurrentIndex(1);
    m_state = new QLabel(this);
    m_state->setTextFormat(Qt::PlainText); // file names may look like markup
    m_state->setWordWrap(true);
    m_state->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    m_progress = new QProgressBar(this);
    m_progress->setRange(0, wholePercent);
    m_cancel = new QPushButton(tr("Cancel"), this);
    m_cancel->setAutoDefault(false);
    connect(m_cancel, &QPushButton::clicked, this, [this] { m_isCancelled = true; });

    auto* const form = new QFormLayout;
    form->addRow(tr("&Paper:"), m_paper);
    auto* const work = new QHBoxLayout;
    work->addWidget(m_progress, 1);
    work->addWidget(m_cancel);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(hint);
    layout->addLayout(form);
    layout->addWidget(m_state, 1);
    layout->addLayout(work);
    layout->addLayout(createButtons());
    setWorking(false);
    resize(windowSize);
}

QLayout* DialogReport::createButtons()
{
    const auto add = [this](QLayout& row, const QString& text) {
        auto* const button = new QPushButton(text, this);
        button->setAutoDefault(false);
        row.addWidget(button);
        return button;
    };
    auto* const row = new QHBoxLayout;
    row->addStretch();
    m_preview = add(*row, tr("Preview and Print..."));
    m_pdf = add(*row, tr("Save as PDF..."));
    QPushButton* const close = add(*row, tr("Close"));
    connect(m_preview, &QPushButton::clicked, this, &DialogReport::preview);
    connect(m_pdf, &QPushButton::clicked, this, &DialogReport::savePdf);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    return row;
}

void DialogReport::open(const ReportSource& source)
{
    m_source = source;
    m_hasReport = false;
    m_isCancelled = m_isWorking; // ends a report being made
    m_state->clear();
    setWorking(m_isWorking);
    ensurePolished(); // knows its font
    resize(size().expandedTo({windowCharacters.width() * fontMetrics().averageCharWidth(),
                              windowCharacters.height() * fontMetrics().lineSpacing()}));
    show();
    raise();
    activateWindow();
    emit signalRead();
}

void DialogReport::read()
{
    if (!isVisible())
        return;
    m_isCancelled = false;
    m_hasReport = false;
    setWorking(true);
    EventPump events;
    CardContainer card(m_profile);
    card.setClockOffset(m_source.clockOffset);
    if (card.readContainer(m_source.folder)) {
        m_report = readReport(m_profile, card, QDate::currentDate(),
                              [&](const QString& name, int percent) {
                                  events.tick([&] {
                                      m_state->setText(tr("Reading %1").arg(name));
                                      m_progress->setValue(percent);
                                  });
                                  return !m_isCancelled;
                              });
        m_hasReport = !m_report.isCancelled;
        if (m_hasReport && m_source.ledger)
            m_report.ledger = m_source.ledger(m_report.identity.engineSerials);
        m_state->setText(m_hasReport ? summary() : tr("Cancelled"));
    } else {
        m_state->setText(tr("The folder %1 cannot be read. If it is on a card, insert the card and "
                            "open the report again.")
                             .arg(QDir::toNativeSeparators(m_source.folder)));
    }
    setWorking(false);
}

void DialogReport::setWorking(bool isWorking)
{
    m_isWorking = isWorking;
    m_progress->setValue(0);
    m_progress->setVisible(isWorking);
    m_cancel->setVisible(isWorking);
    m_preview->setEnabled(!isWorking && m_hasReport);
    m_pdf->setEnabled(!isWorking && m_hasReport);
}

QString DialogReport::summary() const
{
    std::size_t flights = 0;
    for (const ReportCycle& cycle : m_report.cycles)
        flights += cycle.flights.size();
    QStringList lines{QDir::toNativeSeparators(m_report.folder), reportTitle(m_report),
                      m_report.profile.line,
                      tr("Cycles: %1, flights: %2, episodes: %3, files: %4")
                          .arg(m_report.cycles.size())
                          .arg(flights)
                          .arg(m_report.episodes.size() + m_report.episodesLeftOut)
                          .arg(m_report.files.size())};
    if (!m_report.unreadFiles.isEmpty())
        lines << tr("Incomplete: these files could not be read: %1")
                     .arg(m_report.unreadFiles.join(QStringLiteral(", ")));
    return lines.join(QLatin1Char('\n'));
}

void DialogReport::setUpPage(QPrinter& printer) const
{
    const auto paper = static_cast<QPageSize::PageSizeId>(m_paper->currentData().toInt());
    printer.setPageLayout(reportPage(paper));
    printer.setDocName(reportTitle(m_report));
}

void DialogReport::preview()
{
    QPrinter printer(QPrinter::HighResolution);
    setUpPage(printer);
    QPrintPreviewDialog dialog(&printer, this);
    dialog.resize(previewSize);
    connect(&dialog, &QPrintPreviewDialog::paintRequested, this,
            [this](QPrinter* device) { printReport(m_report, *device); });
    dialog.exec();
}

void DialogReport::savePdf()
{
    const auto suffix = QStringLiteral("pdf");
    const QString proposed = QStringLiteral("%1/EngineReport_%2.pdf")
                                 .arg(m_source.directory, m_report.date.toString(Qt::ISODate));
    const QString path =
        askForSavePath(this, tr("Save as PDF"), DialogFolders::proposal(folderKind(), proposed),
                       tr("PDF Files (*.pdf)"), suffix);
    DialogFolders::note(folderKind(), path);
    if (path.isEmpty())
        return;
    const auto paper = static_cast<QPageSize::PageSizeId>(m_paper->currentData().toInt());
    if (Messages::saveFile(this, path, reportPdf(m_report, paper)))
        emit signalMessage(tr("Saved %1").arg(QDir::toNativeSeparators(path)));
}

void DialogReport::closeEvent(QCloseEvent* event)
{
    m_isCancelled = m_isWorking;
    QDialog::closeEvent(event);
}

void DialogReport::reject()
{
    m_isCancelled = m_isWorking;
    QDialog::reject();
}

} // namespace KOLT
