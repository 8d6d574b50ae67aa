#include "app/DialogProfile.h"

#include "profile/Profile.h"
#include "record/DataSet.h"
#include "ui/EmptyNote.h"
#include "ui/LookColors.h"
#include "ui/PaintedIcon.h"
#include "ui/PlainToolTip.h"

#include <QAction>
#include <QEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <set>

namespace KOLT {

namespace {

constexpr int pageMargin = 3;
constexpr int selectedTab = 1;
constexpr int nameRole = Qt::UserRole;
constexpr int selectedRole = Qt::UserRole + 1; ///< selected flag when the tree was filled

QString describe(const Profile& profile, const ProfileParameter& parameter)
{
    const QString& unit = profile.unitLabel(parameter);
    QString text = parameter.fullName;
    if (!unit.isEmpty())
        text += QStringLiteral(" [%1]").arg(unit);
    return text + QLatin1Char('\n') + DialogProfile::tr("Message %1").arg(parameter.id);
}

} // namespace

DialogProfile::DialogProfile(Profile& profile, QWidget* parent)
    : QWidget(parent)
    , m_profile(profile)
{
    m_tabs = new QTabWidget(this);
    m_tabs->addTab(createTreePage(), tr("Parameters"));
    m_list = new QListWidget(m_tabs);
    m_list->setAccessibleName(tr("Selected Parameters"));
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setToolTip(tr("Double click or Del removes a parameter"));
    m_listNote = new EmptyNote(m_list);
    m_tabs->addTab(m_list, tr("Selected Parameters"));
    auto* const remove = new QAction(tr("Remove"), m_list);
    remove->setShortcut(QKeySequence::Delete);
    remove->setShortcutContext(Qt::WidgetShortcut);
    m_list->addAction(remove);
    m_list->setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(remove, &QAction::triggered, this, &DialogProfile::uncheckListed);
    connect(m_list, &QListWidget::itemActivated, this, &DialogProfile::uncheckListed);

    m_clear = new QPushButton(tr("Clear"), this);
    m_clear->setToolTip(tr("Uncheck all parameters"));
    m_confirm = new QPushButton(tr("Confirm Selection"), this);
    m_confirm->setToolTip(tr("Show the checked parameters on all pages"));
    connect(m_clear, &QPushButton::clicked, this, &DialogProfile::clearDraft);
    connect(m_confirm, &QPushButton::clicked, this, &DialogProfile::confirm);
    auto* const buttons = new QHBoxLayout;
    buttons->setContentsMargins(pageMargin, 0, pageMargin, pageMargin);
    buttons->addWidget(m_clear);
    buttons->addWidget(m_confirm, 1);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_tabs);
    layout->addLayout(buttons);
    m_draftTimer.setSingleShot(true);
    m_draftTimer.setInterval(0);
    connect(&m_draftTimer, &QTimer::timeout, this, &DialogProfile::showDraft);
    refresh();
}

void DialogProfile::setTopRow(QWidget* row)
{
    static_cast<QVBoxLayout*>(layout())->insertWidget(0, row);
}

QWidget* DialogProfile::createTreePage()
{
    auto* const page = new QWidget(m_tabs);
    m_filter = new QLineEdit(page);
    m_filter->setPlaceholderText(tr("Filter parameters"));
    m_filter->setClearButtonEnabled(true);
    m_filter->addAction(lookIcon(QStringLiteral("filter")), QLineEdit::LeadingPosition);
    connect(m_filter, &QLineEdit::textChanged, this, &DialogProfile::filter);
    m_tree = new QTreeWidget(page);
    m_tree->setHeaderHidden(true);
    m_tree->setAccessibleName(tr("Parameters"));
    m_tree->setUniformRowHeights(true);
    m_filter->setToolTip(tr("Show only devices and parameters with this text in their name"));
    m_treeNote = new EmptyNote(m_tree);
    connect(m_tree, &QTreeWidget::itemChanged, this, &DialogProfile::slotItemChanged);
    auto* const layout = new QVBoxLayout(page);
    layout->setContentsMargins(pageMargin, pageMargin, pageMargin, pageMargin);
    layout->addWidget(m_filter);
    layout->addWidget(m_tree);
    return page;
}

void DialogProfile::refresh()
{
    m_changes.clear();
    fill();
}

void DialogProfile::fill()
{
    m_isFilling = true;
    m_tree->clear();
    m_parameters.clear();
    addDevices();
    m_isFilling = false;
    filter(m_filter->text());
    showDraft();
}

void DialogProfile::reload()
{
    // The pointers in m_parameters dangle by now: only the items may be read.
    for (const auto& [item, parameter] : m_parameters) {
        const bool isChecked = item->checkState(0) == Qt::Checked;
        const QString name = item->data(0, nameRole).toString();
        if (isChecked != item->data(0, selectedRole).toBool())
            m_changes[name] = isChecked;
        else
            m_changes.erase(name);
    }
    if (!m_folding.isKept())
        m_folding.keep(*m_tree);
    fill();
    m_isFilling = true;
    for (const auto& [item, parameter] : m_parameters) {
        const auto change = m_changes.find(parameter->fullName);
        if (change != m_changes.end())
            item->setCheckState(0, change->second ? Qt::Checked : Qt::Unchecked);
    }
    m_isFilling = false;
    showDraft();
}

void DialogProfile::refreshUnits()
{
    m_isFilling = true;
    for (const auto& [item, parameter] : m_parameters)
        mark(*item, *parameter);
    m_isFilling = false;
}

void DialogProfile::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || m_confirm == nullptr)
        return;
    refreshUnits(); // marks have colours of the look
    showDraft();
}

void DialogProfile::showData(const DataSet* dataSet)
{
    m_missing.clear();
    for (const ProfileParameter& parameter : m_profile.parameters()) {
        if (dataSet != nullptr &&
            dataSet->messages.series(static_cast<std::uint32_t>(parameter.id)).empty())
            m_missing.insert(parameter.id);
    }
    refreshUnits();
    showDraft();
}

bool DialogProfile::isMissing(const ProfileParameter& parameter) const
{
    return m_missing.contains(parameter.id);
}

/// Grey and slanted, and says why, if the loaded data lack the parameter.
void DialogProfile::mark(QTreeWidgetItem& item, const ProfileParameter& parameter) const
{
    const bool isLacking = isMissing(parameter);
    QFont font; // only the slant is set, the rest is that of the tree
    font.setItalic(isLacking);
    item.setFont(0, font);
    item.setForeground(0, isLacking ? QBrush(lookColor(Tone::Quiet)) : QBrush());
    QString tip = describe(m_profile, parameter);
    if (isLacking)
        tip += QLatin1Char('\n') + tr("The loaded data have no samples of it");
    item.setToolTip(0, plainToolTip(tip));
}

void DialogProfile::addDevices()
{
    for (const Device& device : m_profile.devices()) {
        if (device.parameters.empty())
            continue;
        auto* const group = new QTreeWidgetItem(m_tree, {device.name});
        group->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable |
                        Qt::ItemIsAutoTristate);
        for (const ProfileParameter* parameter : device.parameters) {
            auto* const item = new QTreeWidgetItem(group, {parameter->name});
            item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
            item->setCheckState(0, parameter->selected ? Qt::Checked : Qt::Unchecked);
            item->setData(0, nameRole, parameter->fullName);
            item->setData(0, selectedRole, parameter->selected);
            mark(*item, *parameter);
            m_parameters[item] = parameter;
        }
        group->setExpanded(group->checkState(0) != Qt::Unchecked);
    }
}

void DialogProfile::filter(const QString& text)
{
    const QString wanted = text.trimmed();
    if (!wanted.isEmpty() && !m_folding.isKept())
        m_folding.keep(*m_tree);
    m_isFilling = true;
    bool isAnyShown = false;
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem* const group = m_tree->topLevelItem(i);
        const bool isGroupMatch = group->text(0).contains(wanted, Qt::CaseInsensitive);
        bool hasMatch = false;
        for (int k = 0; k < group->childCount(); ++k) {
            const bool isMatch =
                isGroupMatch || group->child(k)->text(0).contains(wanted, Qt::CaseInsensitive);
            group->child(k)->setHidden(!isMatch);
            hasMatch = hasMatch || isMatch;
        }
        group->setHidden(!hasMatch);
        isAnyShown = isAnyShown || hasMatch;
        if (!wanted.isEmpty())
            group->setExpanded(hasMatch);
        // Checking the whole device would also check parameters that are filtered out.
        group->setFlags(
            group->flags().setFlag(Qt::ItemIsUserCheckable, wanted.isEmpty() || isGroupMatch));
    }
    m_isFilling = false;
    m_treeNote->showNote(isAnyShown                        ? QString()
                         : m_tree->topLevelItemCount() > 0 ? tr("No parameter has this text.")
                                                           : tr("The profile has no parameters."));
    if (wanted.isEmpty())
        m_folding.restore(*m_tree);
}

std::vector<const ProfileParameter*> DialogProfile::draft() const
{
    std::vector<const ProfileParameter*> checked;
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* const group = m_tree->topLevelItem(i);
        for (int k = 0; k < group->childCount(); ++k) {
            if (group->child(k)->checkState(0) == Qt::Checked)
                checked.push_back(m_parameters.at(group->child(k)));
        }
    }
    return checked;
}

void DialogProfile::slotItemChanged()
{
    if (!m_isFilling)
        m_draftTimer.start();
}

void DialogProfile::showDraft()
{
    const std::vector<const ProfileParameter*> checked = draft();
    const std::vector<const ProfileParameter*> shown = m_profile.selectedParameters();
    // In the order of the graph, what is not confirmed yet behind.
    std::vector<const ProfileParameter*> listed = checked;
    std::ranges::stable_sort(listed, {}, [&](const ProfileParameter* parameter) {
        return std::ranges::find(shown, parameter) - shown.begin();
    });
    m_list->clear();
    for (const ProfileParameter* parameter : listed) {
        auto* const item = new QListWidgetItem(parameter->fullName, m_list);
        if (isMissing(*parameter)) {
            QFont font;
            font.setItalic(true);
            item->setFont(font);
            item->setForeground(lookColor(Tone::Quiet));
            item->setToolTip(tr("The loaded data have no samples of it"));
        }
    }
    m_listNote->showNote(checked.empty() ? tr("No parameters are selected. Check some in the tab "
                                              "\"Parameters\", and confirm.")
                                         : QString());
    m_tabs->setTabText(selectedTab, checked.empty()
                                        ? tr("Selected Parameters")
                                        : tr("Selected Parameters (%1)").arg(checked.size()));
    m_clear->setEnabled(!checked.empty());
    const auto asSet = [](const std::vector<const ProfileParameter*>& parameters) {
        return std::set<const ProfileParameter*>(parameters.begin(), parameters.end());
    };
    m_confirm->setEnabled(asSet(checked) != asSet(shown));
}

void DialogProfile::clearDraft()
{
    m_changes.clear();
    m_isFilling = true;
    for (const auto& [item, parameter] : m_parameters)
        item->setCheckState(0, Qt::Unchecked);
    m_isFilling = false;
    showDraft();
}

void DialogProfile::uncheckListed()
{
    std::set<QString> names;
    for (const QListWidgetItem* item : m_list->selectedItems())
        names.insert(item->text());
    m_isFilling = true;
    for (const auto& [item, parameter] : m_parameters) {
        if (names.contains(parameter->fullName))
            item->setCheckState(0, Qt::Unchecked);
    }
    m_isFilling = false;
    const int row = m_list->currentRow();
    showDraft();
    m_list->setCurrentRow(std::min(row, m_list->count() - 1));
}

void DialogProfile::confirm()
{
    const std::vector<const ProfileParameter*> checked = draft();
    const std::set<const ProfileParameter*> chosen(checked.begin(), checked.end());
    m_profile.select(
        [&](const ProfileParameter& parameter) { return chosen.contains(&parameter); });
    m_isFilling = true;
    for (const auto& [item, parameter] : m_parameters)
        item->setData(0, selectedRole, parameter->selected);
    m_isFilling = false;
    showDraft();
    emit signalChanged();
}

} // namespace KOLT
