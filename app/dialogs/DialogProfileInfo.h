#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class QListWidget;
class QTableView;

namespace KOLT {

class ColumnMemory;
class ParameterListModel;
class Profile;

/// Describes the installed profile, lists its parameters with their place in the messages, with a
/// search, and installs another profile file.
class DialogProfileInfo : public QDialog
{
    Q_OBJECT

public:
    explicit DialogProfileInfo(const Profile& profile, QWidget* parent = nullptr);

    /// The profile was reloaded.
    void refresh();

signals:
    /// Another profile file was installed.
    void signalProfileChanged();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void createList();
    void createCheck();
    void showCheck();
    void showProfile();
    void install();

    const Profile& m_profile;
    ParameterListModel* m_model = nullptr;
    QLabel* m_header = nullptr;
    QLineEdit* m_search = nullptr;
    QLabel* m_found = nullptr;
    QLabel* m_checkHeading = nullptr;
    QListWidget* m_check = nullptr; ///< what is doubtful in the file; hidden when nothing is
    QTableView* m_list = nullptr;
    ColumnMemory* m_widths = nullptr;
    bool m_isOutdated = true; ///< the profile was loaded while the dialog was hidden
};

} // namespace KOLT
