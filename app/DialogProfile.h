#pragma once

#include <QTimer>
#include <QWidget>

#include <map>
#include <vector>

class QLineEdit;
class QListWidget;
class QPushButton;
class QTabWidget;
class QTreeWidget;
class QTreeWidgetItem;

namespace KOLT {

class Profile;
struct ProfileParameter;

/// The panel in which the user picks the parameters that the pages show.
///
/// Check boxes are a draft; "Confirm Selection" writes it into the profile's flags and tells. The
/// profile must outlive the panel; call refresh() whenever it was loaded or selected otherwise.
class DialogProfile : public QWidget
{
    Q_OBJECT

public:
    explicit DialogProfile(Profile& profile, QWidget* parent = nullptr);

    /// Fills the tree anew from the profile and its flags; a draft is lost.
    void refresh();

    /// The same after the profile was loaded anew; the draft is kept, also of parameters that only
    /// another variant has.
    void reload();

    /// Other units are shown.
    void refreshUnits();

signals:
    /// The user confirmed a selection.
    void signalChanged();

private:
    QWidget* createTreePage();
    void fill();
    void addDevices();
    void filter(const QString& text);
    void slotItemChanged();
    void showDraft();
    void clearDraft();
    void uncheckListed();
    void confirm();
    std::vector<const ProfileParameter*> draft() const;

    Profile& m_profile;
    std::map<QTreeWidgetItem*, const ProfileParameter*> m_parameters;
    std::map<QString, bool> m_changes; ///< drafts of before, by full names
    QLineEdit* m_filter = nullptr;
    QTreeWidget* m_tree = nullptr;
    QListWidget* m_list = nullptr;
    QTabWidget* m_tabs = nullptr;
    QPushButton* m_clear = nullptr;
    QPushButton* m_confirm = nullptr;
    QTimer m_draftTimer; ///< gathers the changes of a whole device
    bool m_isFilling = false;
};

} // namespace KOLT
