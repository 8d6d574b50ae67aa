#include "library/ui/InstallationsWindow.h"

#include "library/ledger/Installations.h"
#include "library/ui/InstallationEditor.h"
#include "ui/EmptyNote.h"
#include "ui/FirstSize.h"
#include "ui/PlainToolTip.h"
#include "ui/StateMark.h"

#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace KOLT {

using namespace Library;

namespace {

constexpr QSize firstSize(620, 320);
constexpr int markColumn = 0;

QString dayText(const QDate& day, const QString& open)
{
    return day.isValid() ? day.toString(QStringLiteral("d.M.yyyy")) : open;
}

} // namespace

InstallationsWindow::InstallationsWindow(QWidget* parent)
    : QDialog(parent)
    , m_table(new QTreeWidget)
    , m_empty(new EmptyNote(m_table))
    , m_state(new QLabel)
{
    setWindowTitle(tr("Installations"));
    setObjectName(QStringLiteral("installationsWindow"));
    auto* const hint = new QLabel(
        tr("Which engine was in which unit. Where nothing is said here, the engine counts that the "
           "recordings name."));
    hint->setObjectName(QStringLiteral("hint"));
    hint->setWordWrap(true);
    m_table->setObjectName(QStringLiteral("installationTable"));
    m_table->setAccessibleName(tr("Installations"));
    m_table->setHeaderLabels({tr("Unit"), tr("Engine"), tr("From"), tr("To"), tr("By")});
    m_table->setRootIsDecorated(false);
    m_table->setUniformRowHeights(true);
    m_table->setAllColumnsShowFocus(true);
    m_state->setObjectName(QStringLiteral("installationState"));
    m_state->setTextFormat(Qt::PlainText);
    m_state->setWordWrap(true);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(hint);
    layout->addWidget(m_table, 1);
    layout->addWidget(m_state);
    layout->addLayout(createButtons());
    connect(m_table, &QTreeWidget::itemSelectionChanged, this, &InstallationsWindow::showState);
    connect(m_table, &QTreeWidget::itemActivated, this, [this] {
        if (chosen() != nullptr)
            edit(*chosen());
    });
    resizeForFont(*this, firstSize);
    setInstallations({}, {}, {});
}

QLayout* InstallationsWindow::createButtons()
{
    auto* const row = new QHBoxLayout;
    const auto button = [&](const QString& text, const QString& tip, auto&& action) {
        auto* const made = new QPushButton(text);
        made->setToolTip(tip);
        made->setAutoDefault(false);
        connect(made, &QPushButton::clicked, this, action);
        row->addWidget(made);
        return made;
    };
    button(tr("Add..."), tr("Say which engine was in a unit"), [this] {
        add();
    })->setObjectName(QStringLiteral("addInstallation"));
    m_ofChosen.push_back(
        button(tr("Change..."), tr("Change the chosen entry"), [this] { edit(*chosen()); }));
    m_ofChosen.push_back(button(tr("Remove"), tr("Remove the chosen entry"), [this] { remove(); }));
    row->addStretch();
    button(tr("Close"), {}, [this] { close(); });
    return row;
}

void InstallationsWindow::setInstallations(const std::vector<WrittenInstallation>& installations,
                                           const QStringList& engines, const QStringList& units)
{
    m_list = inOrder(installations);
    m_engines = engines;
    m_units = units;
    m_table->clear();
    for (const WrittenInstallation& one : m_list) {
        auto* const item = new QTreeWidgetItem(
            m_table, {QString::number(one.unit), one.engine, dayText(one.from, tr("the beginning")),
                      dayText(one.to, tr("now")), one.item.author});
        const QString objection = objectionTo(one, m_list);
        if (objection.isEmpty())
            continue;
        item->setIcon(markColumn, markIcon(StateMark::Warning));
        for (int column = 0; column < m_table->columnCount(); ++column)
            item->setToolTip(column, plainToolTip(objection));
    }
    for (int column = 0; column + 1 < m_table->columnCount(); ++column)
        m_table->resizeColumnToContents(column);
    showState();
}

const WrittenInstallation* InstallationsWindow::chosen() const
{
    const QList<QTreeWidgetItem*> items = m_table->selectedItems();
    const auto row = static_cast<std::size_t>(
        items.isEmpty() ? -1 : m_table->indexOfTopLevelItem(items.front()));
    return row < m_list.size() ? &m_list[row] : nullptr;
}

void InstallationsWindow::showState()
{
    for (QPushButton* button : m_ofChosen)
        button->setEnabled(chosen() != nullptr);
    m_empty->showNote(m_list.empty() ? tr("Nothing is entered yet.") : QString());
    QString text;
    for (const WrittenInstallation& one : m_list) {
        if (const QString objection = objectionTo(one, m_list); !objection.isEmpty())
            text = tr("These entries contradict each other: %1 That which begins later counts.")
                       .arg(objection);
    }
    m_state->setText(text);
    m_state->setVisible(!text.isEmpty());
}

void InstallationsWindow::add()
{
    WrittenInstallation installation;
    installation.unit = m_units.size() == 1 ? m_units.front().toUInt() : 0;
    installation.from = QDate::currentDate();
    edit(installation);
}

void InstallationsWindow::edit(const WrittenInstallation& installation)
{
    InstallationEditor editor(installation, m_list, m_engines, m_units, this);
    if (editor.exec() == QDialog::Accepted)
        emit signalInstallation(editor.installation());
}

void InstallationsWindow::remove()
{
    WrittenInstallation removed = *chosen();
    const QString question = tr("Remove engine %1 from unit %2, %3?")
                                 .arg(removed.engine)
                                 .arg(removed.unit)
                                 .arg(spanText(removed));
    if (QMessageBox::question(this, tr("KOLT"), question) != QMessageBox::Yes)
        return;
    removed.item.isRemoved = true;
    emit signalInstallation(removed);
}

} // namespace KOLT
