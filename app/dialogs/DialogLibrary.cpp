#include "app/dialogs/DialogLibrary.h"

#include "library/archive/Archive.h"
#include "library/database/LibraryDatabase.h"
#include "ui/DialogFolders.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>
#include <QUrl>
#include <QUrlQuery>
#include <QVBoxLayout>

namespace KOLT {

using namespace Library;

namespace {

constexpr int serverPort = 5432;
constexpr int lastPort = 65535;
constexpr int fieldWidth = 360;

QLabel* createHint(const QString& text)
{
    auto* const hint = new QLabel(text);
    hint->setObjectName(QStringLiteral("hint"));
    hint->setWordWrap(true);
    return hint;
}

} // namespace

DialogLibrary::DialogLibrary(const LibraryAddress& address, QWidget* parent)
    : QDialog(parent)
    , m_address(address)
    , m_folder(new QLineEdit(QDir::toNativeSeparators(address.archive)))
    , m_host(new QLineEdit)
    , m_port(new QSpinBox)
    , m_database(new QLineEdit)
    , m_user(new QLineEdit)
    , m_mistake(new QLabel)
{
    setWindowTitle(tr("Library"));
    m_folder->setObjectName(QStringLiteral("libraryFolder"));
    m_folder->setMinimumWidth(fieldWidth);
    auto* const choose = new QPushButton(tr("Choose..."));
    connect(choose, &QPushButton::clicked, this, &DialogLibrary::chooseFolder);
    auto* const row = new QHBoxLayout;
    row->addWidget(m_folder, 1);
    row->addWidget(choose);
    auto* const form = new QFormLayout;
    auto* const label = new QLabel(tr("&Folder"));
    label->setBuddy(m_folder);
    form->addRow(label, row);
    form->addRow(QString(), createHint(tr("Recordings, notes and maintenance limits are kept here. "
                                          "An empty folder becomes a new library.")));
    m_server = createServer();
    m_mistake->setObjectName(QStringLiteral("mistake"));
    m_mistake->setWordWrap(true);
    m_mistake->hide();
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &DialogLibrary::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(m_server);
    layout->addWidget(m_mistake);
    layout->addStretch();
    layout->addWidget(buttons);
}

QGroupBox* DialogLibrary::createServer()
{
    auto* const box = new QGroupBox(tr("Database on a PostgreSQL server"));
    box->setCheckable(true);
    box->setObjectName(QStringLiteral("libraryServer"));
    auto* const form = new QFormLayout(box);
    const QUrl url(m_address.server);
    m_host->setText(url.host());
    m_port->setRange(1, lastPort);
    m_port->setValue(url.port(serverPort));
    m_database->setText(url.path().mid(1));
    m_user->setText(url.userName());
    m_host->setObjectName(QStringLiteral("libraryHost"));
    m_database->setObjectName(QStringLiteral("libraryDatabase"));
    m_user->setObjectName(QStringLiteral("libraryUser"));
    form->addRow(tr("&Host"), m_host);
    form->addRow(tr("&Port"), m_port);
    form->addRow(tr("&Database"), m_database);
    form->addRow(tr("&User"), m_user);
    form->addRow(createHint(
        LibraryDatabase::hasServers()
            ? tr("For several computers that share the folder. The password comes from libpq's "
                 "password file, or is asked for; KOLT does not store it.")
            : tr("SQLite only: this system has no driver for PostgreSQL. The database is a file in "
                 "the folder.")));
    box->setChecked(m_address.isServer() && LibraryDatabase::hasServers());
    box->setEnabled(LibraryDatabase::hasServers());
    return box;
}

void DialogLibrary::chooseFolder()
{
    const QString folder = QFileDialog::getExistingDirectory(
        this, tr("Folder of the Library"),
        DialogFolders::proposal(QStringLiteral("Library"), m_folder->text()));
    if (folder.isEmpty())
        return;
    DialogFolders::note(QStringLiteral("Library"), folder + QStringLiteral("/."));
    m_folder->setText(QDir::toNativeSeparators(folder));
}

std::optional<LibraryAddress> DialogLibrary::address()
{
    const QString folder = QDir::cleanPath(QDir::fromNativeSeparators(m_folder->text().trimmed()));
    QString library = folder;
    if (m_server->isEnabled() && m_server->isChecked()) {
        QUrl url;
        url.setScheme(QStringLiteral("postgresql"));
        url.setUserName(m_user->text().trimmed());
        url.setHost(m_host->text().trimmed());
        if (m_port->value() != serverPort)
            url.setPort(m_port->value());
        url.setPath(QLatin1Char('/') + m_database->text().trimmed());
        url.setQuery(QUrl(m_address.server).query()); // options that this window does not show
        library = url.toString(QUrl::FullyEncoded);
    }
    ParsedAddress parsed = m_folder->text().trimmed().isEmpty()
                               ? ParsedAddress{{}, tr("Choose the folder of the library.")}
                               : parseLibraryAddress(library, folder);
    m_mistake->setText(parsed.error);
    m_mistake->setVisible(!parsed.address);
    return parsed.address;
}

bool DialogLibrary::makeArchive(const QString& folder)
{
    const QString shown = QDir::toNativeSeparators(folder);
    if (QMessageBox::question(this, tr("KOLT"),
                              tr("There is no library in\n%1\nyet. Make one there?").arg(shown)) !=
        QMessageBox::Yes)
        return false;
    const QString error = Archive::create(folder);
    m_mistake->setText(error);
    m_mistake->setVisible(!error.isEmpty());
    return error.isEmpty();
}

void DialogLibrary::accept()
{
    const std::optional<LibraryAddress> entered = address();
    if (!entered || (!Archive::isArchive(entered->archive) && !makeArchive(entered->archive)))
        return;
    m_address = *entered;
    QDialog::accept();
}

} // namespace KOLT
