#include "export/ui/DialogExport.h"

#include "export/ExportFile.h"
#include "ui/SaveDialog.h"

#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace KOLT {

namespace {

constexpr int wholePercent = 100;
constexpr int narrowest = 380;

} // namespace

DialogExport::DialogExport(Source source, Format format, QWidget* parent)
    : QDialog(parent)
    , m_source(std::move(source))
    , m_format(std::move(format))
    , m_options(new QWidget(this))
    , m_optionsLayout(new QVBoxLayout(m_options))
    , m_summary(new QLabel(this))
    , m_progress(new QProgressBar(this))
    , m_export(new QPushButton(tr("Export..."), this))
    , m_cancel(new QPushButton(tr("Cancel"), this))
{
    setWindowTitle(m_format.windowTitle);
    m_optionsLayout->setContentsMargins(0, 0, 0, 0);
    m_summary->setObjectName(QStringLiteral("hint"));
    m_summary->setWordWrap(true);
    m_progress->setRange(0, wholePercent);
    QSizePolicy policy = m_progress->sizePolicy();
    policy.setRetainSizeWhenHidden(true); // the layout must not jump
    m_progress->setSizePolicy(policy);
    m_export->setDefault(true);
    m_cancel->setAutoDefault(false);
    connect(m_export, &QPushButton::clicked, this, &DialogExport::start);
    connect(m_cancel, &QPushButton::clicked, this, &DialogExport::reject);
    auto* const title = new QLabel(m_source.title, this);
    title->setTextFormat(Qt::PlainText);
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(m_progress, 1);
    buttons->addWidget(m_export);
    buttons->addWidget(m_cancel);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(title);
    layout->addWidget(m_options);
    layout->addWidget(m_summary);
    layout->addStretch();
    layout->addLayout(buttons);
    setMinimumWidth(narrowest);
    setWorking(false);
}

void DialogExport::setSummary(const QString& text, bool isPossible)
{
    m_summary->setText(text);
    m_isPossible = isPossible;
    m_export->setEnabled(isPossible && !m_isWorking);
}

void DialogExport::setFileKind(const QString& suffix, const QString& filter)
{
    m_format.suffix = suffix;
    m_format.filter = filter;
}

void DialogExport::setWorking(bool isWorking)
{
    m_isWorking = isWorking;
    m_options->setEnabled(!isWorking);
    m_progress->setValue(0);
    m_progress->setVisible(isWorking);
    m_export->setEnabled(m_isPossible && !isWorking);
}

void DialogExport::start()
{
    const QString name =
        QFileInfo(m_source.fileName).completeBaseName() + QLatin1Char('.') + m_format.suffix;
    const QString path =
        askForSavePath(this, m_format.windowTitle, QDir(m_source.folder).filePath(name),
                       m_format.filter, m_format.suffix);
    if (path.isEmpty())
        return;
    emit signalChosen(QFileInfo(path).absolutePath());
    exportTo(path);
}

void DialogExport::exportTo(const QString& path)
{
    m_isCancelled = false;
    setWorking(true);
    m_events.restart();
    const ExportOutcome outcome = exportToFile(path, [this](QIODevice& device) {
        return write(device, [this](int percent) { return goOn(percent); });
    });
    setWorking(false);
    switch (outcome.status) {
    case ExportStatus::Done:
        m_exportedPath = path;
        accept();
        break;
    case ExportStatus::Cancelled:
        m_summary->setText(tr("Cancelled. Nothing was written."));
        break;
    case ExportStatus::Failed:
        tellFailure(path, outcome.error);
        break;
    }
}

bool DialogExport::goOn(int percent)
{
    m_events.tick([&] { m_progress->setValue(percent); });
    return !m_isCancelled;
}

void DialogExport::tellFailure(const QString& path, const QString& error)
{
    QMessageBox box(QMessageBox::Critical, m_format.failureTitle, m_format.failureText,
                    QMessageBox::Ok, this);
    box.setInformativeText(tr("%1\n%2\nPlease check that the folder can be written and is not "
                              "full, or choose another one.")
                               .arg(QDir::toNativeSeparators(path), error));
    box.exec();
}

void DialogExport::reject()
{
    if (m_isWorking)
        m_isCancelled = true;
    else
        QDialog::reject();
}

void DialogExport::closeEvent(QCloseEvent* event)
{
    if (!m_isWorking) {
        QDialog::closeEvent(event);
        return;
    }
    m_isCancelled = true;
    event->ignore();
}

} // namespace KOLT
