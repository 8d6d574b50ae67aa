#include "library/ui/DialogMove.h"

#include "library/ui/WorkButton.h"
#include "ui/DialogFolders.h"

#include <QCloseEvent>
#include <QDir>
#include <QFileDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace KOLT::Library {

namespace {

constexpr QSize windowSize(640, 280);
constexpr int steps = 1000; ///< of the progress bar

QString shown(const QString& folder)
{
    return QDir::toNativeSeparators(folder);
}

} // namespace

DialogMove::DialogMove(const Archive& archive, QWidget* parent)
    : QDialog(parent)
    , m_archive(archive)
{
    setWindowTitle(tr("Move the Library"));
    setObjectName(QStringLiteral("moveLibrary"));
    auto* const hint = new QLabel(
        tr("Copies the library to another folder, which KOLT uses from then on. Each file is read "
           "back from the disk and compared. The old folder is kept as it is."),
        this);
    hint->setWordWrap(true);
    m_state = new QLabel(this);
    m_state->setObjectName(QStringLiteral("moveState"));
    m_state->setTextFormat(Qt::PlainText); // it names folders
    m_state->setWordWrap(true);
    m_state->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    m_state->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_progress = new QProgressBar(this);
    m_progress->setRange(0, steps);
    m_progress->hide();
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(hint);
    layout->addLayout(createFolders());
    layout->addWidget(m_progress);
    layout->addWidget(m_state, 1);
    layout->addLayout(createButtons());
    connect(m_folder, &QLineEdit::textChanged, this, &DialogMove::showState);
    connect(this, &DialogMove::signalProgress, this, &DialogMove::showProgress);
    showState();
    resize(windowSize);
    growToText();
}

DialogMove::~DialogMove()
{
    cancel();
    if (m_thread.joinable())
        m_thread.join();
}

QLayout* DialogMove::createFolders()
{
    auto* const grid = new QGridLayout;
    auto* const old = new QLineEdit(shown(m_archive.root()), this);
    old->setReadOnly(true);
    old->setFocusPolicy(Qt::ClickFocus); // nothing is entered there
    m_folder = new QLineEdit(this);
    m_folder->setObjectName(QStringLiteral("moveFolder"));
    m_folder->setToolTip(tr("An empty or a new folder, also on another disk"));
    m_choose = new QPushButton(tr("Choose..."), this);
    m_choose->setAutoDefault(false);
    connect(m_choose, &QPushButton::clicked, this, &DialogMove::chooseFolder);
    auto* const oldLabel = new QLabel(tr("Now:"), this);
    auto* const label = new QLabel(tr("&New folder:"), this);
    label->setBuddy(m_folder);
    grid->addWidget(oldLabel, 0, 0);
    grid->addWidget(old, 0, 1, 1, 2);
    grid->addWidget(label, 1, 0);
    grid->addWidget(m_folder, 1, 1);
    grid->addWidget(m_choose, 1, 2);
    return grid;
}

QLayout* DialogMove::createButtons()
{
    auto* const row = new QHBoxLayout;
    row->addStretch();
    m_start = addWorkButton(*row, tr("Move"), "moveStart");
    m_start->setDefault(true);
    m_cancel = addWorkButton(*row, tr("Cancel"), "moveCancel");
    QPushButton* const close = addWorkButton(*row, tr("Close"), "moveClose");
    connect(m_start, &QPushButton::clicked, this, &DialogMove::start);
    connect(m_cancel, &QPushButton::clicked, this, &DialogMove::cancel);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    return row;
}

void DialogMove::chooseFolder()
{
    const QString folder = QFileDialog::getExistingDirectory(
        this, tr("New Folder of the Library"),
        DialogFolders::proposal(QStringLiteral("Library"), m_folder->text()));
    if (folder.isEmpty())
        return;
    // Into a folder with other things, under the library's own name.
    const bool isFree =
        QDir(folder).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    const QString name = QFileInfo(m_archive.root()).fileName();
    m_folder->setText(shown(isFree ? folder : QDir(folder).filePath(name)));
}

QString DialogMove::target() const
{
    return QDir::cleanPath(QDir::fromNativeSeparators(m_folder->text().trimmed()));
}

void DialogMove::start()
{
    m_move = std::make_unique<ArchiveMove>(m_archive, target());
    m_state->setText(tr("Reading the library"));
    m_progress->setValue(0);
    m_progress->show();
    growToText();
    showState();
    m_thread = std::thread([this] {
        const auto tell = [this](auto function) {
            QMetaObject::invokeMethod(this, function, Qt::QueuedConnection);
        };
        const MoveResult result = m_move->run([&](const MoveProgress& progress) {
            tell([this, progress] { emit signalProgress(progress); });
        });
        tell([this, result] { finish(result); });
    });
}

void DialogMove::cancel()
{
    if (m_move != nullptr)
        m_move->cancel();
}

void DialogMove::showProgress(const MoveProgress& progress)
{
    m_state->setText(tr("Copying %1: %2 of %3 files")
                         .arg(shown(progress.file))
                         .arg(progress.filesDone)
                         .arg(progress.files));
    if (progress.bytes > 0)
        m_progress->setValue(
            static_cast<int>(std::min<qint64>(progress.bytesDone * steps / progress.bytes, steps)));
}

void DialogMove::finish(const MoveResult& result)
{
    m_thread.join();
    m_move.reset();
    if (result.isComplete()) {
        m_moved = target();
        m_progress->setValue(steps);
        m_state->setText(
            tr("%n file(s) were copied and compared. The library is now in\n%1\nThe old folder is "
               "kept as it was; delete it yourself when you no longer need it. Other computers "
               "use it until they are told the new one in their preferences.",
               nullptr, result.files)
                .arg(shown(m_moved)));
    } else {
        m_progress->hide();
        m_state->setText((result.isCancelled ? tr("Cancelled.") : result.error) +
                         QLatin1Char('\n') + tr("The library stays where it is."));
    }
    showState();
    growToText();
    emit signalFinished(result);
    if (m_isClosing)
        QDialog::reject();
}

void DialogMove::showState()
{
    const bool isFree = !isRunning() && m_moved.isEmpty();
    for (QWidget* widget : {static_cast<QWidget*>(m_folder), static_cast<QWidget*>(m_choose)})
        widget->setEnabled(isFree);
    if (m_start == nullptr)
        return;
    m_start->setEnabled(isFree && !m_folder->text().trimmed().isEmpty());
    m_cancel->setEnabled(isRunning());
}

/// While it copies, the window stays until the copies are removed.
void DialogMove::reject()
{
    m_isClosing = isRunning();
    cancel();
    if (!m_isClosing)
        QDialog::reject();
}

void DialogMove::closeEvent(QCloseEvent* event)
{
    if (isRunning()) {
        reject();
        event->ignore();
    } else {
        QDialog::closeEvent(event);
    }
}

/// Wrapped texts in a large font need more than the first size.
void DialogMove::growToText()
{
    const int needed = layout()->totalHeightForWidth(width());
    if (needed > height())
        resize(width(), needed);
}

} // namespace KOLT::Library
