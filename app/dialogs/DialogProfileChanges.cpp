#include "app/dialogs/DialogProfileChanges.h"

#include "profile/ProfileVersion.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace KOLT {

namespace {

constexpr QSize dialogSize(640, 420);

} // namespace

DialogProfileChanges::DialogProfileChanges(const QString& installed, const QString& newer,
                                           QWidget* parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Newer Profile"));
    auto* const heading =
        new QLabel(tr("What would change, from your profile (version %1) to the one that came with "
                      "the program (version %2). What you edited yourself is among it; your "
                      "profile would be kept as a backup.")
                       .arg(profileVersion(installed).version, profileVersion(newer).version),
                   this);
    heading->setTextFormat(Qt::PlainText);
    heading->setWordWrap(true);
    const QStringList changes = profileChanges(installed, newer);
    auto* const list = new QPlainTextEdit(this);
    list->setReadOnly(true);
    list->setPlainText(changes.isEmpty() ? tr("Nothing but the version and comments.")
                                         : changes.join(QStringLiteral("\n\n")));
    auto* const install = new QPushButton(tr("Install Newer Profile"), this);
    auto* const keep = new QPushButton(tr("Keep Mine"), this);
    connect(install, &QPushButton::clicked, this, [this] { choose(Choice::Install); });
    connect(keep, &QPushButton::clicked, this, [this] { choose(Choice::Keep); });
    install->setAutoDefault(false);
    keep->setDefault(true);
    auto* const row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(install);
    row->addWidget(keep);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(heading);
    layout->addWidget(list, 1);
    layout->addLayout(row);
    resize(dialogSize);
}

void DialogProfileChanges::choose(Choice choice)
{
    m_choice = choice;
    accept();
}

} // namespace KOLT
