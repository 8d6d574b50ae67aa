#pragma once

#include "library/database/LibraryAddress.h"

#include <QDialog>

#include <optional>

class QGroupBox;
class QLabel;
class QLineEdit;
class QSpinBox;

namespace KOLT {

/// Asks where the library is: the folder of the archive, and a server if the database is on one.
/// An empty or new folder becomes a library, after a question.
class DialogLibrary : public QDialog
{
    Q_OBJECT

public:
    explicit DialogLibrary(const Library::LibraryAddress& address, QWidget* parent = nullptr);

    /// As entered; none, and the reason is shown, if it is no address.
    std::optional<Library::LibraryAddress> address();

    /// The address that was accepted.
    const Library::LibraryAddress& accepted() const { return m_address; }

    void accept() override;

private:
    QGroupBox* createServer();
    void chooseFolder();
    bool makeArchive(const QString& folder);

    Library::LibraryAddress m_address;
    QLineEdit* m_folder;
    QGroupBox* m_server;
    QLineEdit* m_host;
    QSpinBox* m_port;
    QLineEdit* m_database;
    QLineEdit* m_user;
    QLabel* m_mistake;
};

} // namespace KOLT
