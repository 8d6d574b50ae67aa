#pragma once

#include "tests/monkey/Watchdog.h"

#include <QDir>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <memory>
#include <random>
#include <vector>

class QDialog;
class QMessageBox;
class QTreeWidget;

namespace KOLT {
class DialogMain;
}

namespace KOLT::Test {

/// Uses the main window with random events that a seed decides: clicks, keys, text, wheel, drags,
/// sizes, pages, cycles, dropped files, imports into a library, its tab, engine and notes, and
/// closing and opening it in the middle of work. Messages are read: one that no step can have
/// caused is a complaint.
///
/// Steps come from a timer, so that they go on in menus and modal dialogs, as a user does.
class Monkey : public QObject
{
public:
    /// `folder` has "card" (a sound card), "broken" (files that are none) and "out" (to write to).
    /// A library comes into being in "library".
    Monkey(unsigned seed, const QString& folder, Watchdog& watchdog);
    ~Monkey() override;

    /// Returns after that many steps, with the window closed.
    void run(int steps);

    /// What went wrong, a line each.
    const QStringList& complaints() const { return m_complaints; }

    /// How often each kind of step was done.
    QString summary() const;

private:
    struct Kind
    {
        const char* name;
        int weight;
        void (Monkey::*act)();
        int done = 0;
    };

    void open();
    void step();
    void leaveDialogs();
    void act(Kind& kind);
    bool handleDialog();
    bool handleInput(QDialog& dialog);
    void answer(QMessageBox& box);
    void chooseFile(QDialog& dialog);

    void clickSomewhere();
    void doubleClickSomewhere();
    void openContextMenu();
    void drag();
    void turnWheel();
    void pressKey();
    void typeText();
    void resizeWindow();
    void switchPage();
    void chooseCycle();
    void playOrPause();
    void dropFiles();
    void triggerCommand();
    void importCard();
    void useLibrary();
    void useNotes();
    void closeAndOpen();
    void closeDuringLoad();
    void closeDuringImport();
    bool isAtMainWindow() const;
    bool trigger(int command);

    int below(int end);

    bool chance(int percent) { return below(100) < percent; }

    QWidget* top() const;
    QWidget* target();
    QPoint pointIn(const QWidget& widget);

    std::mt19937 m_random;
    const QDir m_folder;
    Watchdog& m_watchdog;
    std::vector<Kind> m_kinds;
    std::unique_ptr<DialogMain> m_window;
    QTimer m_timer;
    int m_left = 0;
    int m_number = 0;
    bool m_isStepDue = false;
    bool m_mustReopen = false;
    int m_lastBadInput = -1000; ///< number of the last step that may be answered by a warning
    QStringList m_complaints;
};

} // namespace KOLT::Test
