#include "library/ui/NotesWindow.h"

#include "library/ui/NoteEditor.h"
#include "record/ClockTime.h"
#include "ui/EmptyNote.h"
#include "ui/FirstSize.h"
#include "ui/PlainToolTip.h"

#include <QHeaderView>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace KOLT {

using namespace Library;

namespace {

constexpr QSize firstSize(560, 340);
constexpr int textColumn = 2;

QString aboutText(Note::About about)
{
    switch (about) {
    case Note::About::Engine:
        return NotesWindow::tr("engine");
    case Note::About::Cycle:
        return NotesWindow::tr("cycle");
    case Note::About::Flight:
        return NotesWindow::tr("flight");
    case Note::About::Moment:
        break;
    }
    return NotesWindow::tr("moment");
}

QString timeText(const Note& note)
{
    if (!note.place.seconds)
        return {};
    return timeOfDayText(note.place.dateTime, *note.place.seconds);
}

} // namespace

NotesWindow::NotesWindow(QWidget* parent)
    : QDialog(parent)
    , m_table(new QTreeWidget)
    , m_empty(new EmptyNote(m_table))
{
    setWindowTitle(tr("Notes"));
    setObjectName(QStringLiteral("notesWindow"));
    m_table->setObjectName(QStringLiteral("recordingNotes"));
    m_table->setAccessibleName(tr("Notes on the loaded recording"));
    m_table->setHeaderLabels({tr("Time"), tr("About"), tr("Note"), tr("By")});
    m_table->setRootIsDecorated(false);
    m_table->setAllColumnsShowFocus(true);
    m_table->header()->setStretchLastSection(false);
    for (int column = 0; column < m_table->columnCount(); ++column)
        m_table->header()->setSectionResizeMode(
            column, column == textColumn ? QHeaderView::Stretch : QHeaderView::ResizeToContents);
    auto* const row = new QHBoxLayout;
    const auto button = [&](const QString& text, const QString& tip,
                            std::vector<QPushButton*>& group, auto&& action) {
        auto* const made = new QPushButton(text);
        made->setToolTip(tip);
        made->setAutoDefault(false); // Return opens the chosen note
        connect(made, &QPushButton::clicked, this, action);
        group.push_back(made);
        row->addWidget(made);
        return made;
    };
    button(tr("Moment..."), tr("A note at the moment that is shown"), m_adding, [this] {
        add(Note::About::Moment);
    })->setObjectName(QStringLiteral("addMoment"));
    button(tr("Flight..."), tr("A note on the flight that is shown"), m_adding,
           [this] { add(Note::About::Flight); });
    button(tr("Cycle..."), tr("A note on the whole engine cycle"), m_adding,
           [this] { add(Note::About::Cycle); });
    row->addStretch();
    button(tr("Change..."), tr("Change the chosen note"), m_changing, [this] { change(); });
    button(tr("Remove"), tr("Remove the chosen note"), m_changing, [this] { remove(); });
    auto* const close = new QPushButton(tr("Close"));
    close->setAutoDefault(false);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    row->addWidget(close);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_table);
    layout->addLayout(row);
    connect(m_table, &QTreeWidget::itemSelectionChanged, this, &NotesWindow::showState);
    connect(m_table, &QTreeWidget::itemActivated, this, &NotesWindow::change);
    connect(m_table, &QTreeWidget::itemClicked, this, [this] {
        if (const Note* const note = chosen(); note != nullptr && note->place.seconds)
            emit signalTime(*note->place.seconds);
    });
    resizeForFont(*this, firstSize);
    setNotes({}, false);
}

void NotesWindow::setNotes(const std::vector<Note>& notes, bool isLoaded)
{
    m_list = notes;
    m_isLoaded = isLoaded;
    m_table->clear();
    for (const Note& note : m_list) {
        auto* const item = new QTreeWidgetItem(m_table, {timeText(note), aboutText(note.about),
                                                         note.text.simplified(), note.item.author});
        item->setToolTip(textColumn, plainToolTip(note.text));
    }
    showState();
}

void NotesWindow::showState()
{
    for (QPushButton* button : m_adding)
        button->setEnabled(m_isLoaded);
    for (QPushButton* button : m_changing)
        button->setEnabled(chosen() != nullptr);
    m_empty->showNote(!m_isLoaded      ? tr("Open a cycle or a flight to write notes on it.")
                      : m_list.empty() ? tr("No notes on this recording yet.")
                                       : QString());
}

const Note* NotesWindow::chosen() const
{
    const QList<QTreeWidgetItem*> items = m_table->selectedItems();
    const auto row = static_cast<std::size_t>(
        items.isEmpty() ? -1 : m_table->indexOfTopLevelItem(items.front()));
    return row < m_list.size() ? &m_list[row] : nullptr;
}

void NotesWindow::add(Note::About about)
{
    if (const auto text = askForNote(this, tr("Note on this %1").arg(aboutText(about))))
        emit signalAdd(about, *text);
}

void NotesWindow::change()
{
    const Note* const note = chosen();
    if (note == nullptr)
        return;
    Note changed = *note; // the list may be read anew meanwhile
    const auto text =
        askForNote(this, tr("Note on this %1").arg(aboutText(changed.about)), changed.text);
    if (!text)
        return;
    changed.text = *text;
    emit signalChange(changed);
}

void NotesWindow::remove()
{
    const Note* const note = chosen();
    if (note == nullptr ||
        QMessageBox::question(this, tr("KOLT"), tr("Remove this note?\n\n%1").arg(note->text)) !=
            QMessageBox::Yes)
        return;
    Note removed = *note;
    removed.item.isRemoved = true;
    emit signalChange(removed);
}

} // namespace KOLT
