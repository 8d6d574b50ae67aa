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

/// The panel in which the user selects the parameters that the pages show.
///
/// The check boxes are a draft; "Confirm Selection" writes it into the profile's flags and emits
/// signalChanged(). The profile must outlive the panel. Call refresh() when the profile was
/// reloaded or its selection was changed elsewhere.
class DialogProfile : public QWidget
{
    Q_OBJECT

public:
    explicit DialogProfile(Profile& profile, QWidget* parent = nullptr);

    /// Rebuilds the tree from the profile and its flags and discards the draft.
    void refresh();

    /// Rebuilds the tree after the profile was reloaded. The draft is kept, including parameters
    /// that only exist in another variant.
    void reload();

    /// The unit system changed.
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
    std::map<QString, bool> m_changes; ///< earlier draft changes by full name
    QLineEdit* m_filter = nullptr;
    QTreeWidget* m_tree = nullptr;
    QListWidget* m_list = nullptr;
    QTabWidget* m_tabs = nullptr;
    QPushButton* m_clear = nullptr;
    QPushButton* m_confirm = nullptr;
    QTimer m_draftTimer; ///< collects the changes when a whole device is checked
    bool m_isFilling = false;
};

} // namespace KOLT
