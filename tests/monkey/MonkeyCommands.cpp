// The commands of the main window, its library, and closing it.
#include "app/DialogMain.h"
#include "app/MainActions.h"
#include "tests/monkey/Monkey.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTreeView>
#include <QtTest>

namespace KOLT::Test {

bool Monkey::isAtMainWindow() const
{
    return QApplication::activeModalWidget() == nullptr &&
           QApplication::activePopupWidget() == nullptr;
}

bool Monkey::trigger(int command)
{
    for (QAction* action : m_window->actions()) {
        if (action->data().toInt() == command && action->isEnabled() && isAtMainWindow()) {
            action->trigger();
            return true;
        }
    }
    return false;
}

void Monkey::importCard()
{
    if (!trigger(static_cast<int>(Command::ImportCard)))
        return;
    auto* const card = m_window->findChild<QLineEdit*>(QStringLiteral("importCard"));
    auto* const library = m_window->findChild<QLineEdit*>(QStringLiteral("importLibrary"));
    auto* const start = m_window->findChild<QPushButton*>(QStringLiteral("importStart"));
    if (card == nullptr || library == nullptr || start == nullptr || !card->isEnabled())
        return;
    card->setText(
        m_folder.filePath(chance(85) ? QStringLiteral("card") : QStringLiteral("broken")));
    library->setText(
        m_folder.filePath(chance(90) ? QStringLiteral("library") : QStringLiteral("card")));
    QTest::mouseClick(start, Qt::LeftButton);
}

/// Its tab, an entry of its tree, and its buttons.
void Monkey::useLibrary()
{
    auto* const tree = m_window->findChild<QTreeView*>(QStringLiteral("libraryTree"));
    if (tree == nullptr || !isAtMainWindow())
        return;
    for (auto* bar : m_window->findChildren<QTabBar*>()) {
        for (int i = 0; i < bar->count(); ++i) {
            if (bar->tabText(i) == QLatin1String("Library") && bar->isVisible())
                QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(i).center());
        }
    }
    if (chance(60)) {
        QModelIndex index = tree->model()->index(below(tree->model()->rowCount()), 0);
        while (index.isValid() && chance(85) && tree->model()->rowCount(index) > 0) {
            tree->expand(index);
            index = tree->model()->index(below(tree->model()->rowCount(index)), 0, index);
        }
        if (index.isValid() && tree->isVisible()) {
            tree->scrollTo(index);
            QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                              tree->visualRect(index).center());
        }
        return;
    }
    static constexpr const char* names[] = {"engineButton", "updateLibrary", "chooseLibrary"};
    auto* const button =
        m_window->findChild<QPushButton*>(QLatin1String(names[below(std::size(names))]));
    if (button != nullptr && button->isVisible())
        QTest::mouseClick(button, Qt::LeftButton);
}

void Monkey::useNotes()
{
    if (!trigger(static_cast<int>(Command::Notes)))
        return;
    auto* const notes = m_window->findChild<QDialog*>(QStringLiteral("notesWindow"));
    QList<QPushButton*> buttons =
        notes != nullptr ? notes->findChildren<QPushButton*>() : QList<QPushButton*>();
    buttons.removeIf([](const QPushButton* one) { return !one->isEnabled(); });
    if (!buttons.isEmpty())
        QTest::mouseClick(buttons[below(static_cast<int>(buttons.size()))], Qt::LeftButton);
}

/// Any command but the one that ends the program.
void Monkey::triggerCommand()
{
    if (!isAtMainWindow())
        return;
    QList<QAction*> actions = m_window->actions();
    actions.removeIf([](const QAction* action) {
        return !action->isEnabled() || action->data().toInt() == static_cast<int>(Command::Quit);
    });
    if (actions.isEmpty())
        return;
    QAction* const action = actions[below(static_cast<int>(actions.size()))];
    m_watchdog.setStep(QStringLiteral("step %1: command \"%2\"").arg(m_number).arg(action->text()));
    action->trigger();
}

void Monkey::closeAndOpen()
{
    if (!isAtMainWindow())
        return;
    m_window->close();
    m_mustReopen = true;
}

void Monkey::closeDuringLoad()
{
    chooseCycle();
    closeAndOpen();
}

void Monkey::closeDuringImport()
{
    importCard();
    closeAndOpen();
}

} // namespace KOLT::Test
