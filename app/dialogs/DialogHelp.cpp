#include "app/dialogs/DialogHelp.h"

#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace KOLT {

namespace {

constexpr QSize dialogSize(760, 640);

QUrl manual(const QString& locale)
{
    const QString name = QStringLiteral("/help/%1.html");
    const QString wanted = name.arg(locale);
    return QUrl(
        QStringLiteral("qrc") + QLatin1Char(':') +
        (QFile::exists(QLatin1Char(':') + wanted) ? wanted : name.arg(QStringLiteral("us"))));
}

} // namespace

DialogHelp::DialogHelp(const QString& locale, QWidget* parent)
    : QDialog(parent)
{
    setWindowTitle(tr("KOLT Help"));
    m_browser = new QTextBrowser(this);
    m_browser->setOpenExternalLinks(true);
    m_browser->setSource(manual(locale));

    auto* const home = new QPushButton(tr("Contents"), this);
    auto* const back = new QPushButton(tr("Back"), this);
    for (QPushButton* button : {home, back})
        button->setAutoDefault(false); // Return in the search field must search
    back->setEnabled(false);
    connect(home, &QPushButton::clicked, m_browser, &QTextBrowser::home);
    connect(back, &QPushButton::clicked, m_browser, &QTextBrowser::backward);
    connect(m_browser, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
    m_search = new QLineEdit(this);
    m_search->setPlaceholderText(tr("Search"));
    m_search->setClearButtonEnabled(true);
    m_search->setToolTip(tr("Return finds the next match, Shift+Return the previous one"));
    connect(m_search, &QLineEdit::returnPressed, this, [this] { find({}); });
    auto* const before = new QShortcut(QKeySequence(Qt::SHIFT | Qt::Key_Return), m_search);
    before->setContext(Qt::WidgetShortcut);
    connect(before, &QShortcut::activated, this, [this] { find(QTextDocument::FindBackward); });
    auto* const search = new QShortcut(QKeySequence::Find, this);
    connect(search, &QShortcut::activated, m_search, qOverload<>(&QLineEdit::setFocus));

    auto* const bar = new QHBoxLayout;
    bar->addWidget(home);
    bar->addWidget(back);
    bar->addStretch();
    bar->addWidget(m_search);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(bar);
    layout->addWidget(m_browser, 1);
    resize(dialogSize);
}

void DialogHelp::find(QTextDocument::FindFlags direction)
{
    if (m_browser->find(m_search->text(), direction))
        return;
    const bool isBackward = direction.testFlag(QTextDocument::FindBackward);
    m_browser->moveCursor(isBackward ? QTextCursor::End : QTextCursor::Start); // wraps around
    m_browser->find(m_search->text(), direction);
}

} // namespace KOLT
