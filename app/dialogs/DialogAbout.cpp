#include "app/dialogs/DialogAbout.h"

#include "base/Version.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QVBoxLayout>

namespace KOLT {

namespace {

constexpr QSize dialogSize(680, 520);
constexpr int iconPixels = 64;

QPlainTextEdit* createText(const QString& name)
{
    auto* const text = new QPlainTextEdit;
    text->setReadOnly(true);
    text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    QFile file(QStringLiteral(":/licenses/%1.txt").arg(name));
    if (file.open(QIODevice::ReadOnly))
        text->setPlainText(QString::fromUtf8(file.readAll()));
    return text;
}

} // namespace

DialogAbout::DialogAbout(QWidget* parent)
    : QDialog(parent)
{
    setWindowTitle(tr("About KOLT"));
    auto* const icon = new QLabel(this);
    icon->setPixmap(QIcon(QStringLiteral(":/icons/app.svg")).pixmap(iconPixels));
    auto* const title =
        new QLabel(QStringLiteral("<h2>%1</h2><p>%2</p><p>%3</p>")
                       .arg(QLatin1String(versionText),
                            tr("Debriefing viewer for the recordings of an engine management unit"),
                            tr("Version of %1, with Qt %2")
                                .arg(QLatin1String(versionDate), QLatin1String(qVersion()))),
                   this);
    auto* const head = new QHBoxLayout;
    head->addWidget(icon, 0, Qt::AlignTop);
    head->addWidget(title, 1);

    auto* const tabs = new QTabWidget(this);
    tabs->addTab(createText(QStringLiteral("parts")), tr("Components"));
    tabs->addTab(createText(QStringLiteral("KOLT")), QStringLiteral("KOLT (MIT)"));
    tabs->addTab(createText(QStringLiteral("LGPL-3")), QStringLiteral("Qt (LGPL 3)"));
    tabs->addTab(createText(QStringLiteral("GPL-3")), QStringLiteral("GPL 3"));

    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(head);
    layout->addWidget(tabs, 1);
    layout->addWidget(buttons);
    resize(dialogSize);
}

} // namespace KOLT
