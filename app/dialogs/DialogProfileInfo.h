#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class QTableView;

namespace KOLT {

class ParameterListModel;
class Profile;

/// What the profile in use says about itself, its parameters with their message positions in a
/// list that can be searched, and the installation of another profile file.
class DialogProfileInfo : public QDialog
{
    Q_OBJECT

public:
    explicit DialogProfileInfo(const Profile& profile, QWidget* parent = nullptr);

    /// The profile was loaded anew.
    void refresh();

signals:
    /// Another profile file was installed.
    void signalProfileChanged();

private:
    void createList();
    void install();

    const Profile& m_profile;
    ParameterListModel* m_model = nullptr;
    QLabel* m_header = nullptr;
    QLineEdit* m_search = nullptr;
    QLabel* m_found = nullptr;
    QTableView* m_list = nullptr;
};

} // namespace KOLT
