// What the user changes in the window of an engine.
#include "library/ui/EngineWindow.h"
#include "library/ui/LimitEditor.h"
#include "library/ui/NoteEditor.h"

#include <QInputDialog>
#include <QMessageBox>
#include <QTreeWidget>

#include <cmath>

namespace KOLT {

using namespace Library;

namespace {

constexpr double mostHours = 99999.0;

bool isWanted(QWidget* parent, const QString& question)
{
    return QMessageBox::question(parent, EngineWindow::tr("KOLT"), question) == QMessageBox::Yes;
}

template <typename Row>
const Row* chosen(const QTreeWidget& table, const std::vector<Row>& rows)
{
    const QList<QTreeWidgetItem*> items = table.selectedItems();
    const auto row =
        static_cast<std::size_t>(items.isEmpty() ? -1 : table.indexOfTopLevelItem(items.front()));
    return row < rows.size() ? &rows[row] : nullptr;
}

} // namespace

const MaintenanceState* EngineWindow::chosenLimit() const
{
    return chosen(*m_limits, m_ledger.limits);
}

const Note* EngineWindow::chosenNote() const
{
    return chosen(*m_notes, m_ledger.notes);
}

void EngineWindow::addLimit()
{
    MaintenanceLimit limit;
    limit.engine = engine();
    limit.everyHours = 100.0;
    limit.lastHours = std::round(m_ledger.hours * 100.0) / 100.0;
    limit.lastDate = m_today;
    LimitEditor editor(limit, this);
    if (editor.exec() == QDialog::Accepted)
        emit signalLimit(editor.limit());
}

void EngineWindow::editLimit()
{
    const MaintenanceState* const state = chosenLimit();
    if (state == nullptr)
        return;
    LimitEditor editor(state->limit, this);
    if (editor.exec() == QDialog::Accepted)
        emit signalLimit(editor.limit());
}

void EngineWindow::finishLimit()
{
    const MaintenanceState* const state = chosenLimit();
    if (state == nullptr)
        return;
    MaintenanceLimit limit = state->limit;
    limit.lastHours = std::round(m_ledger.hours * 100.0) / 100.0;
    limit.lastDate = m_today;
    emit signalLimit(limit);
}

void EngineWindow::removeLimit()
{
    const MaintenanceState* const state = chosenLimit();
    if (state == nullptr ||
        !isWanted(this, tr("Remove the maintenance limit \"%1\"?").arg(state->limit.title)))
        return;
    MaintenanceLimit limit = state->limit;
    limit.item.isRemoved = true;
    emit signalLimit(limit);
}

void EngineWindow::editNote(const Note* note)
{
    Note edited = note != nullptr ? *note : Note();
    if (note == nullptr)
        edited.engine = engine();
    const auto text = askForNote(this, tr("Note on engine %1").arg(engine()), edited.text);
    if (!text || *text == edited.text)
        return;
    edited.text = *text;
    emit signalNote(edited);
}

void EngineWindow::removeNote()
{
    const Note* const note = chosenNote();
    if (note == nullptr || !isWanted(this, tr("Remove this note?\n\n%1").arg(note->text)))
        return;
    Note removed = *note;
    removed.item.isRemoved = true;
    emit signalNote(removed);
}

void EngineWindow::editHours()
{
    bool isAccepted = false;
    const double before = m_ledger.hours - m_ledger.use.hours.used;
    const double hours = QInputDialog::getDouble(
        this, tr("Hours Before"),
        tr("Hours of engine %1 at its first recorded run, %2:")
            .arg(engine(), m_ledger.engine.first.toString(QStringLiteral("d.M.yyyy"))),
        before, 0.0, mostHours, 2, &isAccepted);
    if (!isAccepted)
        return;
    EngineFacts facts;
    facts.engine = engine();
    facts.hoursBefore = hours;
    emit signalFacts(facts);
}

} // namespace KOLT
