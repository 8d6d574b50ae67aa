#pragma once

#include "profile/Profile.h"
#include "record/CardContainer.h"

#include <QMainWindow>

#include <list>
#include <map>

class QAction;

namespace KOLT {

class DialogCard;

/// The top-level window: the list of cycles and flights at the left, the data to its right. It owns
/// the profile and the open card and joins the panels. It is also the event filter of the whole
/// application: Ctrl+Z would undo edits in fields behind the user's back and reaches no widget.
class DialogMain : public QMainWindow
{
    Q_OBJECT

public:
    DialogMain();
    ~DialogMain() override;

    const CardContainer& card() const { return m_card; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void slotMenu(QAction* action);
    void slotTimeoutStartup();
    void slotLoadRecord(const std::list<QString>& paths);
    void slotLoadCycle(unsigned int cycle, int flight);

private:
    /// What an action does; it carries the number as its data.
    enum class Command { OpenDataFolder = 2, Quit = 6 };

    QAction* createAction(Command command, const QString& text, const QKeySequence& shortcut,
                          const QString& tip);
    void createMenus();
    void loadProfile();
    /// Lists the folder; false, with a message to the user, when there is none.
    bool openFolder(const QString& folder);
    void askForFolder();
    void refreshTitle();

    Profile m_profile;
    CardContainer m_card{m_profile};
    DialogCard* m_cardDialog = nullptr;
};

} // namespace KOLT
