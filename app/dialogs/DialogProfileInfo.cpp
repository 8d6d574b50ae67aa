#include "app/dialogs/DialogProfileInfo.h"

#include "app/dialogs/InstallProfile.h"
#include "app/dialogs/ParameterListModel.h"
#include "app/settings/InstalledProfile.h"
#include "profile/ProfileCheck.h"
#include "ui/ColumnMemory.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QVBoxLayout>

#include <set>

namespace KOLT {

namespace {

constexpr QSize dialogSize(880, 640);
constexpr int rowPadding = 6;
constexpr int checkLines = 5;
constexpr int allColumns = -1;

QString variantNames(const Profile& profile)
{
    QStringList names;
    for (const Variant& variant : profile.variants())
        names.push_back(variant.name);
    return names.join(QStringLiteral(", "));
}

QString row(const QString& label, const QString& value)
{
    return QStringLiteral("<tr><td style='padding-right:12px'>%1</td><td>%2</td></tr>")
        .arg(label.toHtmlEscaped(), value.toHtmlEscaped());
}

QString headerText(const Profile& profile)
{
    std::set<int> messages;
    for (const ProfileParameter& parameter : profile.parameters())
        messages.insert(parameter.id);
    return QStringLiteral("<h3>%1</h3><table>").arg(profile.name().toHtmlEscaped()) +
           row(DialogProfileInfo::tr("Identification"), profile.profileId()) +
           row(DialogProfileInfo::tr("Version"), profile.version()) +
           row(DialogProfileInfo::tr("Comment"), profile.comment()) +
           row(DialogProfileInfo::tr("Variants"), variantNames(profile)) +
           row(DialogProfileInfo::tr("Active variant"), profile.activeVariant()) +
           row(DialogProfileInfo::tr("Contents"),
               DialogProfileInfo::tr("Parameters: %1, messages: %2, devices: %3, "
                                     "fault matrices: %4")
                   .arg(profile.parameters().size())
                   .arg(messages.size())
                   .arg(profile.devices().size())
                   .arg(profile.errorMatrices().size())) +
           row(DialogProfileInfo::tr("File"), InstalledProfile::path()) +
           QStringLiteral("</table>");
}

} // namespace

DialogProfileInfo::DialogProfileInfo(const Profile& profile, QWidget* parent)
    : QDialog(parent)
    , m_profile(profile)
{
    setWindowTitle(tr("Profile Information"));
    m_header = new QLabel(this);
    m_header->setTextFormat(Qt::RichText);
    m_header->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_header->setWordWrap(true);
    createList();
    createCheck();

    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->button(QDialogButtonBox::Close)->setAutoDefault(false); // Return is for searching
    QPushButton* const install =
        buttons->addButton(tr("Install Profile..."), QDialogButtonBox::ActionRole);
    install->setAutoDefault(false);
    install->setToolTip(tr("Use another profile file; a backup of this one is kept"));
    connect(install, &QPushButton::clicked, this, &DialogProfileInfo::install);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const search = new QHBoxLayout;
    search->addWidget(m_search, 1);
    search->addWidget(m_found);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_header);
    layout->addLayout(search);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_checkHeading);
    layout->addWidget(m_check);
    layout->addWidget(buttons);
    resize(dialogSize);
}

void DialogProfileInfo::createList()
{
    m_model = new ParameterListModel(m_profile, this);
    auto* const found = new QSortFilterProxyModel(this);
    found->setSourceModel(m_model);
    found->setFilterKeyColumn(allColumns);
    found->setFilterCaseSensitivity(Qt::CaseInsensitive);
    found->setSortCaseSensitivity(Qt::CaseInsensitive);
    m_list = new QTableView(this);
    m_list->setModel(found);
    m_list->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_list->setWordWrap(false);
    m_list->setTabKeyNavigation(false);
    m_list->verticalHeader()->hide();
    m_list->horizontalHeader()->setHighlightSections(false);
    m_widths = new ColumnMemory(*m_list->horizontalHeader(), QStringLiteral("Profile"));
    m_search = new QLineEdit(this);
    m_search->setPlaceholderText(tr("Search in all columns"));
    m_search->setClearButtonEnabled(true);
    m_found = new QLabel(this);
    const auto showCount = [this, found] {
        m_found->setText(tr("%1 of %2").arg(found->rowCount()).arg(m_model->rowCount()));
    };
    connect(m_search, &QLineEdit::textChanged, found, &QSortFilterProxyModel::setFilterFixedString);
    connect(m_search, &QLineEdit::textChanged, this, showCount);
    connect(m_model, &QAbstractItemModel::modelReset, this, showCount);
}

void DialogProfileInfo::createCheck()
{
    m_checkHeading = new QLabel(this);
    m_check = new QListWidget(this);
    m_check->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_check->setWordWrap(true);
    m_check->setTabKeyNavigation(false);
    m_check->setMaximumHeight(checkLines * (fontMetrics().height() + rowPadding));
    m_checkHeading->setBuddy(m_check);
}

void DialogProfileInfo::showCheck()
{
    const std::vector<ProfileFinding> findings = checkProfile(InstalledProfile::path());
    m_check->clear();
    for (const ProfileFinding& finding : findings)
        m_check->addItem(tr("Line %1: %2").arg(finding.line).arg(finding.text));
    m_checkHeading->setText(tr("Doubtful in the file: %1").arg(findings.size()));
    m_checkHeading->setVisible(!findings.empty());
    m_check->setVisible(!findings.empty());
}

void DialogProfileInfo::refresh()
{
    m_model->refresh(); // always: it refers to the profile
    m_isOutdated = true;
    if (isVisible())
        showProfile();
}

void DialogProfileInfo::showEvent(QShowEvent* event)
{
    if (m_isOutdated)
        showProfile();
    QDialog::showEvent(event);
}

// Not at the start of the program: checking the file alone takes a twentieth of it.
void DialogProfileInfo::showProfile()
{
    m_isOutdated = false;
    showCheck();
    m_header->setText(headerText(m_profile));
    m_list->setSortingEnabled(false);
    m_list->resizeColumnsToContents();
    m_widths->restore();
    m_list->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + rowPadding);
    m_list->setSortingEnabled(true);
    m_list->sortByColumn(allColumns, Qt::AscendingOrder); // file order
}

void DialogProfileInfo::install()
{
    const QString path = askForProfile(this);
    if (!path.isEmpty() && installProfile(this, path) == InstalledProfile::Result::Installed)
        emit signalProfileChanged();
}

} // namespace KOLT
