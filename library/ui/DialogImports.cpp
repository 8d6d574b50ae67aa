#include "library/ui/DialogImports.h"

#include "ui/FirstSize.h"
#include "ui/PlainToolTip.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <future>

namespace KOLT::Library {

namespace {

constexpr QSize windowSize(640, 360);

enum Column { When, Card, Files, State, ColumnCount };

} // namespace

DialogImports::DialogImports(const Archive& archive, QWidget* parent)
    : QDialog(parent)
    , m_archive(archive)
{
    setWindowTitle(tr("Imports of the Library"));
    auto* const hint = new QLabel(
        tr("Taking back an import moves the files that it added to the folder \"trash\" of the "
           "library, except for those that another card had as well. Nothing is deleted."),
        this);
    hint->setWordWrap(true);
    m_list = new QTreeWidget(this);
    m_list->setObjectName(QStringLiteral("importList"));
    m_list->setAccessibleName(tr("Imports"));
    m_list->setHeaderLabels({tr("Date"), tr("Card"), tr("New Files"), tr("State")});
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->header()->setSectionResizeMode(Card, QHeaderView::Stretch);
    m_list->header()->setStretchLastSection(false);
    m_state = new QLabel(this);
    m_state->setTextFormat(Qt::PlainText);
    m_state->setWordWrap(true);
    m_button = new QPushButton(tr("Take Back this Import..."), this);
    m_button->setObjectName(QStringLiteral("takeBack"));
    auto* const close = new QPushButton(tr("Close"), this);
    for (QPushButton* button : {m_button, close})
        button->setAutoDefault(false);
    auto* const row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(m_button);
    row->addWidget(close);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(hint);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_state);
    layout->addLayout(row);
    connect(m_list, &QTreeWidget::currentItemChanged, this, &DialogImports::refreshButton);
    connect(m_button, &QPushButton::clicked, this, &DialogImports::takeBackCurrent);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    fill();
    resizeForFont(*this, windowSize);
}

void DialogImports::fill()
{
    m_list->clear();
    for (const ImportRecord& record : importsOf(m_archive)) {
        auto* const item = new QTreeWidgetItem(m_list);
        item->setText(When, record.when.toLocalTime().toString(QStringLiteral("d.M.yyyy hh:mm")));
        item->setText(Card, record.card);
        item->setToolTip(Card, plainToolTip(record.card));
        item->setText(Files, QString::number(record.added.size()));
        item->setTextAlignment(Files, Qt::AlignRight | Qt::AlignVCenter);
        item->setText(State, record.isTakenBack ? tr("taken back") : QString());
        item->setData(When, Qt::UserRole, record.id);
        item->setDisabled(record.isTakenBack || record.added.isEmpty());
        // The newest one, which is most often the wrong one.
        if (m_list->currentItem() == nullptr && !item->isDisabled())
            m_list->setCurrentItem(item);
    }
    for (const int column : {When, Files, State})
        m_list->resizeColumnToContents(column);
    refreshButton();
}

void DialogImports::refreshButton()
{
    const QTreeWidgetItem* const item = m_list->currentItem();
    m_button->setEnabled(item != nullptr && !item->isDisabled());
}

void DialogImports::takeBackCurrent()
{
    const QTreeWidgetItem* const item = m_list->currentItem();
    const QString question =
        tr("Move the %n file(s) that the import of %1 added to the trash of the library?", nullptr,
           item->text(Files).toInt())
            .arg(item->text(Card));
    if (QMessageBox::question(this, tr("KOLT Warning"), question) != QMessageBox::Yes)
        return;
    const QString id = item->data(When, Qt::UserRole).toString();
    std::vector<ArchivedCycle> changed;
    QStringList removed;
    ArchiveListener listener;
    listener.cycleChanged = [&](const ArchivedCycle& cycle) { changed.push_back(cycle); };
    listener.cycleRemoved = [&](const QString& folder) { removed << folder; };
    setEnabled(false);
    m_state->setText(tr("Moving the files"));
    auto work = std::async(std::launch::async, [&] { return takeBack(m_archive, id, listener); });
    while (work.wait_for(std::chrono::milliseconds(20)) != std::future_status::ready)
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    const TakeBackResult result = work.get();
    setEnabled(true);
    for (const QString& folder : std::as_const(removed))
        emit signalCycleRemoved(folder);
    for (const ArchivedCycle& cycle : changed)
        emit signalCycleChanged(cycle);
    fill();
    m_state->setText(result.error.isEmpty() ? tr("%n file(s) are now in %1.", nullptr, result.files)
                                                  .arg(QDir::toNativeSeparators(result.folder))
                                            : result.error);
}

} // namespace KOLT::Library
