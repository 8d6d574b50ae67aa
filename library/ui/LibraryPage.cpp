#include "library/ui/LibraryPage.h"

#include "library/ui/LibraryFilterBar.h"
#include "library/ui/LibraryModel.h"

#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QStackedLayout>
#include <QTreeView>
#include <QVBoxLayout>

namespace KOLT {

using namespace Library;

namespace {

constexpr int settlingMilliseconds = 500;
constexpr int margin = 6;

QLabel* createNote(QWidget* parent)
{
    auto* const label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText); // it may name a folder
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    label->setObjectName(QStringLiteral("emptyNote"));
    return label;
}

} // namespace

LibraryPage::LibraryPage(QWidget* parent)
    : QWidget(parent)
    , m_model(new LibraryModel(this))
    , m_filter(new LibraryFilterBar)
{
    auto* const none = new QWidget;
    m_note = createNote(none);
    auto* const choose = new QPushButton(tr("Choose or create a library..."));
    choose->setObjectName(QStringLiteral("chooseLibrary"));
    choose->setToolTip(tr("A folder that keeps the recordings of all cards; an empty one becomes a "
                          "new library"));
    connect(choose, &QPushButton::clicked, this, &LibraryPage::signalChooseLibrary);
    m_retry = new QPushButton(tr("Try again"));
    m_retry->setObjectName(QStringLiteral("retryLibrary"));
    connect(m_retry, &QPushButton::clicked, this, &LibraryPage::signalShown);
    auto* const noneLayout = new QVBoxLayout(none);
    noneLayout->addStretch();
    noneLayout->addWidget(m_note);
    noneLayout->addWidget(m_retry, 0, Qt::AlignHCenter);
    noneLayout->addWidget(choose, 0, Qt::AlignHCenter);
    noneLayout->addStretch();

    m_stack = new QStackedLayout(this);
    m_stack->addWidget(none);
    m_stack->addWidget(createTree());
    connect(m_filter, &LibraryFilterBar::signalFilter, this, &LibraryPage::fill);
    m_timer.setSingleShot(true);
    m_timer.setInterval(settlingMilliseconds);
    connect(&m_timer, &QTimer::timeout, this, [this] { this->choose(m_tree->currentIndex()); });
    showNote(noLibraryText());
}

QWidget* LibraryPage::createTree()
{
    auto* const page = new QWidget;
    m_tree = new QTreeView;
    m_tree->setObjectName(QStringLiteral("libraryTree"));
    m_tree->setAccessibleName(tr("Library"));
    m_tree->setHeaderHidden(true);
    m_tree->setUniformRowHeights(true);
    m_tree->setModel(m_model);
    m_tree->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_tree->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { m_timer.start(); });
    connect(m_tree, &QTreeView::clicked, this, [this] { m_timer.start(); });
    connect(m_tree, &QWidget::customContextMenuRequested, this, &LibraryPage::showMenu);
    auto* const contents = new QWidget;
    m_empty = createNote(contents);
    m_contents = new QStackedLayout(contents);
    m_contents->addWidget(m_tree);
    m_contents->addWidget(m_empty);
    m_sum = new QLabel;
    m_sum->setObjectName(QStringLiteral("librarySum"));
    m_sum->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_update = new QPushButton;
    m_update->setObjectName(QStringLiteral("updateLibrary"));
    m_update->setToolTip(tr("Work out the figures of recordings that are new, or were evaluated "
                            "with another profile"));
    m_update->hide();
    m_engine = new QPushButton(tr("Engine..."));
    m_engine->setObjectName(QStringLiteral("engineButton"));
    m_engine->setToolTip(tr("What an engine has lived through, and what is due"));
    connect(m_update, &QPushButton::clicked, this, &LibraryPage::signalUpdate);
    connect(m_engine, &QPushButton::clicked, this,
            [this] { emit signalEngine(m_model->engineOf(m_tree->currentIndex())); });
    auto* const row = new QHBoxLayout;
    row->addWidget(m_sum, 1);
    row->addWidget(m_engine);
    auto* const layout = new QVBoxLayout(page);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->addWidget(m_filter);
    layout->addWidget(contents, 1);
    layout->addWidget(m_update);
    layout->addLayout(row);
    return page;
}

QString LibraryPage::noLibraryText()
{
    return tr("No library yet. It keeps the recordings of all cards in one place, and knows what "
              "each engine has lived through. The first import of a card makes one.");
}

void LibraryPage::setLibrary(LibraryDatabase& database, const Logbook::Contents& written)
{
    m_database = &database;
    m_written = written;
    m_stack->setCurrentIndex(1);
    fillAgain();
}

void LibraryPage::fillAgain()
{
    noteState();
    fill();
    openAgain({});
    m_timer.stop(); // what becomes current again is not opened again
    m_tree->doItemsLayout();
    m_tree->verticalScrollBar()->setValue(m_top);
}

void LibraryPage::noteState()
{
    if (m_model->rowCount() == 0)
        return;
    m_open.clear();
    noteOpen({});
    const QModelIndex index = m_tree->currentIndex();
    m_current = index.isValid() ? m_model->keyOf(index) : QString();
    m_top = m_tree->verticalScrollBar()->value();
}

void LibraryPage::noteOpen(const QModelIndex& parent)
{
    for (int row = 0; row < m_model->rowCount(parent); ++row) {
        const QModelIndex index = m_model->index(row, 0, parent);
        if (m_tree->isExpanded(index)) {
            m_open.insert(m_model->keyOf(index));
            noteOpen(index);
        }
    }
}

void LibraryPage::openAgain(const QModelIndex& parent)
{
    for (int row = 0; row < m_model->rowCount(parent); ++row) {
        const QModelIndex index = m_model->index(row, 0, parent);
        const QString key = m_model->keyOf(index);
        if (key == m_current)
            m_tree->setCurrentIndex(index);
        if (!m_open.contains(key))
            continue;
        if (m_model->canFetchMore(index))
            m_model->fetchMore(index);
        m_tree->expand(index);
        openAgain(index);
    }
}

void LibraryPage::showNote(const QString& text, bool canRetry)
{
    m_database = nullptr;
    m_timer.stop();
    noteState();
    m_model->show(nullptr, {}, {});
    m_note->setText(text);
    m_retry->setVisible(canRetry);
    m_stack->setCurrentIndex(0);
}

QString LibraryPage::note() const
{
    return m_database == nullptr ? m_note->text() : QString();
}

void LibraryPage::setStale(int cycles)
{
    m_update->setText(tr("Evaluate %n recording(s)", nullptr, cycles));
    m_update->setVisible(cycles > 0);
}

void LibraryPage::setNoted(const QStringList& folders)
{
    m_noted = folders;
    if (m_filter->withNote())
        fillAgain();
}

void LibraryPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    emit signalShown();
}

void LibraryPage::fill()
{
    if (m_database == nullptr)
        return;
    m_timer.stop();
    LibraryFilter filter = m_filter->filter();
    if (m_filter->withNote())
        filter.folders = m_noted;
    m_model->show(m_database, filter, m_written);
    if (const QString error = m_model->error(); !error.isEmpty()) {
        showNote(error, true);
        return;
    }
    const auto sums = LibraryQueries(*m_database).sums(filter);
    m_sum->setText(sums ? librarySumText(sums.value) : QString());
    m_sum->setToolTip(m_sum->text());
    const bool isEmpty = m_model->rowCount() == 0;
    if (isEmpty) {
        m_empty->setText(filter.isEmpty() ? tr("The library has no recordings yet. Import a card.")
                                          : tr("Nothing in the library is like this."));
    }
    m_contents->setCurrentIndex(isEmpty ? 1 : 0);
    // One aircraft needs no click, and what is searched is shown as far as a screen holds it.
    QModelIndex index = m_model->rowCount() == 1 ? m_model->index(0, 0) : QModelIndex();
    while (index.isValid() && m_model->kindOf(index) != LibraryModel::Kind::Cycle) {
        if (m_model->canFetchMore(index))
            m_model->fetchMore(index); // the tree does it later, if it is not shown yet
        m_tree->expand(index);
        index = m_model->rowCount(index) == 1 ? m_model->index(0, 0, index) : QModelIndex();
    }
}

void LibraryPage::choose(const QModelIndex& index)
{
    const LibraryModel::Kind kind = m_model->kindOf(index);
    if (index.isValid() &&
        (kind == LibraryModel::Kind::Cycle || kind == LibraryModel::Kind::Flight))
        emit signalOpen(m_model->folderOf(index), m_model->flightOf(index));
}

void LibraryPage::showMenu(const QPoint& place)
{
    const QModelIndex index = m_tree->indexAt(place);
    if (!index.isValid())
        return;
    QMenu menu(this);
    const QString engine = m_model->engineOf(index);
    menu.addAction(tr("Engine..."), this, [&] { emit signalEngine(engine); });
    menu.addAction(tr("Installations..."), this, &LibraryPage::signalInstallations);
    if (m_model->kindOf(index) == LibraryModel::Kind::Unit) {
        const quint32 unit = m_model->unitOf(index).value_or(0);
        menu.addAction(tr("Name of the aircraft..."), this, [&] { emit signalName(unit); });
    }
    menu.exec(m_tree->viewport()->mapToGlobal(place));
}

} // namespace KOLT
