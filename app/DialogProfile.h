#pragma once

#include "app/TreeFolding.h"

#include <QTimer>
#include <QWidget>

#include <map>
#include <set>
#include <vector>

class QLineEdit;
class QListWidget;
class QPushButton;
class QTabWidget;
class QTreeWidgetItem;

namespace KOLT {

class EmptyNote;
class Profile;
struct DataSet;
struct ProfileParameter;

/// The panel in which the user selects the parameters that the pages show.
///
/// Parameters that the loaded data lack are marked. The check boxes are a draft; "Confirm
/// Selection" writes it into the profile's flags and emits signalChanged(). The profile must
/// outlive the panel. Call refresh() when the profile was reloaded or its selection was changed
/// elsewhere.
class DialogProfile : public QWidget
{
    Q_OBJECT

public:
    explicit DialogProfile(Profile& profile, QWidget* parent = nullptr);

    /// Puts a row above the tabs.
    void setTopRow(QWidget* row);

    /// Rebuilds the tree from the profile and its flags and discards the draft.
    void refresh();

    /// Rebuilds the tree after the profile was reloaded. The draft is kept, including parameters
    /// that only exist in another variant.
    void reload();

    /// The unit system changed.
    void refreshUnits();

    /// The order of the selected parameters changed.
    void refreshOrder() { showDraft(); }

    /// Marks the parameters that the data have no samples of; null: none are loaded. Keeps no
    /// pointer to the data.
    void showData(const DataSet* dataSet);

protected:
    void changeEvent(QEvent* event) override;

signals:
    /// The user confirmed a selection.
    void signalChanged();

private:
    QWidget* createTreePage();
    void fill();
    void addDevices();
    void filter(const QString& text);
    bool isMissing(const ProfileParameter& parameter) const;
    void mark(QTreeWidgetItem& item, const ProfileParameter& parameter) const;
    void slotItemChanged();
    void showDraft();
    void clearDraft();
    void uncheckListed();
    void confirm();
    std::vector<const ProfileParameter*> draft() const;

    Profile& m_profile;
    std::map<QTreeWidgetItem*, const ProfileParameter*> m_parameters;
    std::map<QString, bool> m_changes; ///< earlier draft changes by full name
    std::set<int> m_missing;           ///< messages that the loaded data lack
    /// Of the devices without a filter; kept while there is one.
    TreeFolding m_folding;
    QLineEdit* m_filter = nullptr;
    QTreeWidget* m_tree = nullptr;
    QListWidget* m_list = nullptr;
    EmptyNote* m_treeNote = nullptr;
    EmptyNote* m_listNote = nullptr;
    QTabWidget* m_tabs = nullptr;
    QPushButton* m_clear = nullptr;
    QPushButton* m_confirm = nullptr;
    QTimer m_draftTimer; ///< collects the changes when a whole device is checked
    bool m_isFilling = false;
};

} // namespace KOLT
