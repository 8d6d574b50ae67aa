#include "library/ui/DialogImport.h"

#include "library/ui/DialogImports.h"
#include "library/ui/ImportText.h"
#include "library/ui/WorkButton.h"
#include "ui/PlainToolTip.h"

#include <QDir>
#include <QFileDialog>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStandardPaths>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace KOLT::Library {

namespace {

constexpr QSize windowSize(640, 300);
constexpr int steps = 1000; ///< of the progress bar

QString proposedFolder()
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    // Its name may be known although the system never made it; only the last folder is created.
    return (QFileInfo(documents).isDir() ? documents : QDir::homePath()) +
           QStringLiteral("/KOLT Library");
}

} // namespace

DialogImport::DialogImport(QWidget* parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Import Card"));
    auto* const hint =
        new QLabel(tr("Copies the recordings of a card into your library. Each file is read back "
                      "from the disk and compared before it counts as safe. Nothing on the card is "
                      "changed or deleted."),
                   this);
    hint->setWordWrap(true);
    m_state = new QLabel(this);
    m_state->setObjectName(QStringLiteral("importState"));
    m_state->setTextFormat(Qt::PlainText); // file names may look like markup
    m_state->setWordWrap(true);
    m_state->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    m_state->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_progress = new QProgressBar(this);
    m_progress->setRange(0, steps);
    m_failed = new QTreeWidget(this);
    m_failed->setObjectName(QStringLiteral("importFailed"));
    m_failed->setHeaderLabels({tr("File"), tr("Reason")});
    m_failed->setRootIsDecorated(false);
    m_failed->setAccessibleName(tr("Files that are not safe"));
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(hint);
    layout->addLayout(createFolders());
    layout->addWidget(m_progress);
    layout->addWidget(m_state);
    layout->addWidget(m_failed, 1);
    layout->addStretch();
    layout->addLayout(createButtons());
    connect(&m_runner, &ImportRunner::signalProgress, this, &DialogImport::showProgress);
    connect(&m_runner, &ImportRunner::signalFinished, this, &DialogImport::showResult);
    m_failed->hide();
    setWorking(false);
    resize(windowSize);
}

QLayout* DialogImport::createFolders()
{
    auto* const grid = new QGridLayout;
    const auto add = [&](int row, const QString& label, const QString& title, const char* name) {
        auto* const field = new QLineEdit(this);
        field->setObjectName(QLatin1String(name));
        auto* const text = new QLabel(label, this);
        text->setBuddy(field);
        auto* const choose = new QPushButton(tr("Choose..."), this);
        choose->setAutoDefault(false);
        choose->setAccessibleName(title);
        connect(choose, &QPushButton::clicked, this, [this, field, title] {
            const QString folder = QFileDialog::getExistingDirectory(
                this, title, QDir::fromNativeSeparators(field->text()));
            if (!folder.isEmpty())
                field->setText(QDir::toNativeSeparators(folder));
        });
        connect(field, &QLineEdit::textChanged, this, [this] { setWorking(m_runner.isRunning()); });
        grid->addWidget(text, row, 0);
        grid->addWidget(field, row, 1);
        grid->addWidget(choose, row, 2);
        m_places.insert(m_places.end(), {field, choose});
        return field;
    };
    m_card = add(0, tr("&Card:"), tr("Folder of the Card"), "importCard");
    m_library = add(1, tr("&Library:"), tr("Folder of the Library"), "importLibrary");
    m_library->setToolTip(
        tr("A folder of your choice, also on a disk that several computers share. "
           "The first import creates it."));
    return grid;
}

QLayout* DialogImport::createButtons()
{
    auto* const row = new QHBoxLayout;
    m_imports = addWorkButton(*row, tr("Take Back an Import..."), "importTakeBack");
    row->addStretch();
    m_import = addWorkButton(*row, tr("Import"), "importStart");
    m_import->setDefault(true);
    m_cancel = addWorkButton(*row, tr("Cancel"), "importCancel");
    QPushButton* const close = addWorkButton(*row, tr("Close"), "importClose");
    connect(m_imports, &QPushButton::clicked, this, &DialogImport::openImports);
    connect(m_import, &QPushButton::clicked, this, &DialogImport::start);
    connect(m_cancel, &QPushButton::clicked, &m_runner, &ImportRunner::cancel);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    return row;
}

void DialogImport::open(const ArchiveSettings& settings, const QString& card)
{
    if (!m_runner.isRunning()) {
        m_settings = settings;
        m_card->setText(QDir::toNativeSeparators(card));
        m_library->setText(QDir::toNativeSeparators(settings.folder.isEmpty() ? proposedFolder()
                                                                              : settings.folder));
        m_state->setText(
            settings.folder.isEmpty()
                ? tr("Choose where your library is to be. It needs as much room as all "
                     "cards that you will ever import.")
                : QString());
        m_progress->hide();
        m_failed->hide();
        setWorking(false);
        growToText();
    }
    show();
    raise();
    activateWindow();
}

/// Returns what went wrong. A library that was used before is not made anew: its disk may be
/// unplugged.
QString DialogImport::openArchive(Archive& archive)
{
    const QString folder = QDir::fromNativeSeparators(m_library->text());
    if (!Archive::isArchive(folder) && folder != m_settings.folder) {
        if (const QString error = Archive::create(folder); !error.isEmpty())
            return error;
    }
    if (!archive.open(folder))
        return archive.error();
    m_settings.folder = folder;
    emit signalSettings(m_settings);
    return {};
}

void DialogImport::start()
{
    m_failed->hide();
    Archive archive;
    if (const QString error = openArchive(archive); !error.isEmpty()) {
        m_state->setText(error);
        return;
    }
    m_state->setText(tr("Reading the card"));
    m_progress->setValue(0);
    m_progress->show();
    setWorking(true);
    m_runner.start(archive, QDir::fromNativeSeparators(m_card->text()));
}

void DialogImport::showProgress(const ImportProgress& progress)
{
    m_state->setText(textOf(progress));
    if (progress.bytes > 0)
        m_progress->setValue(static_cast<int>(progress.bytesDone * steps / progress.bytes));
}

void DialogImport::showResult(const ImportResult& result)
{
    const QString sentence = sentenceOf(result);
    m_state->setText(sentence);
    m_failed->clear();
    for (const ImportResult::Failure& failure : result.failed) {
        auto* const item = new QTreeWidgetItem(m_failed, {failure.name, failure.reason});
        item->setToolTip(1, plainToolTip(failure.reason));
    }
    m_failed->resizeColumnToContents(0);
    m_failed->setVisible(!result.failed.isEmpty());
    if (result.isComplete())
        m_progress->setValue(steps);
    setWorking(false);
    growToText();
    emit signalMessage(sentence.section(QLatin1Char('\n'), 0, 0));
    emit signalChanged();
}

void DialogImport::setWorking(bool isWorking)
{
    if (m_import == nullptr)
        return;
    if (isWorking) {
        m_cancel->setEnabled(true);
        m_cancel->setFocus(); // whatever had it will be disabled
    }
    for (QWidget* widget : m_places)
        widget->setEnabled(!isWorking);
    m_import->setEnabled(!isWorking && !m_card->text().isEmpty() && !m_library->text().isEmpty());
    m_imports->setEnabled(!isWorking &&
                          Archive::isArchive(QDir::fromNativeSeparators(m_library->text())));
    m_cancel->setEnabled(isWorking);
}

void DialogImport::openImports()
{
    Archive archive;
    if (const QString error = openArchive(archive); !error.isEmpty()) {
        m_state->setText(error);
        return;
    }
    DialogImports dialog(archive, this);
    connect(&dialog, &DialogImports::signalCycleChanged, &m_runner,
            &ImportRunner::signalCycleChanged);
    connect(&dialog, &DialogImports::signalCycleRemoved, &m_runner,
            &ImportRunner::signalCycleRemoved);
    dialog.exec();
    emit signalChanged();
}

/// While it imports, the window stays: it has to tell which files are safe.
void DialogImport::reject()
{
    if (m_runner.isRunning())
        m_runner.cancel();
    else
        QDialog::reject();
}

/// Wrapped texts in a large font need more than the first size.
void DialogImport::growToText()
{
    const int needed = layout()->totalHeightForWidth(width());
    if (needed > height())
        resize(width(), needed);
}

} // namespace KOLT::Library
