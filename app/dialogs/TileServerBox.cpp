#include "app/dialogs/TileServerBox.h"

#include "libs/tessamap/tiles/TileCheck.h"

#include <QDir>
#include <QFileDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace KOLT {

namespace {

constexpr int fieldWidth = 360;

} // namespace

TileServerBox::TileServerBox(QWidget* parent)
    : QWidget(parent)
    , m_address(new QLineEdit)
    , m_result(new QLabel)
    , m_check(new Tessa::TileCheck(this))
{
    m_address->setObjectName(QStringLiteral("tileServer"));
    m_address->setMinimumWidth(fieldWidth);
    m_address->setToolTip(tr("A plain address, a template with {z}, {x} and {y}, or a folder with "
                             "tiles as zoom/column/row.png"));
    setFocusProxy(m_address);
    m_result->setObjectName(QStringLiteral("tileResult"));
    m_result->setWordWrap(true);
    m_result->hide();
    auto* const folder = new QPushButton(tr("Folder..."));
    folder->setToolTip(tr("Choose a folder with map tiles on this computer"));
    connect(folder, &QPushButton::clicked, this, &TileServerBox::chooseFolder);
    auto* const test = new QPushButton(tr("Test"));
    test->setObjectName(QStringLiteral("tileTest"));
    test->setToolTip(tr("Ask the server, or look into the folder, for a tile"));
    connect(test, &QPushButton::clicked, this, &TileServerBox::test);
    connect(m_address, &QLineEdit::textChanged, m_result, &QLabel::hide); // it told of the former
    connect(m_check, &Tessa::TileCheck::finished, this, &TileServerBox::showResult);
    auto* const layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_address, 0, 0);
    layout->addWidget(folder, 0, 1);
    layout->addWidget(test, 0, 2);
    layout->addWidget(m_result, 1, 0, 1, 3);
    layout->setColumnStretch(0, 1);
}

QString TileServerBox::address() const
{
    return m_address->text();
}

void TileServerBox::setSettings(const MapSettings& settings)
{
    m_address->setText(settings.tileServer);
    m_check->setUserAgent(settings.userAgent);
    m_isNetworkEnabled = settings.isNetworkEnabled;
}

void TileServerBox::chooseFolder()
{
    const QString start = QDir::isAbsolutePath(address()) ? address() : QDir::homePath();
    const QString folder =
        QFileDialog::getExistingDirectory(this, tr("Folder with map tiles"), start);
    if (!folder.isEmpty())
        m_address->setText(QDir::toNativeSeparators(folder));
}

void TileServerBox::test()
{
    m_result->setText(tr("Testing ..."));
    m_result->show();
    m_tested = address();
    m_check->start(m_tested, m_isNetworkEnabled);
}

void TileServerBox::showResult(bool isGood, const QString& text)
{
    if (address() != m_tested)
        return; // another one has been entered meanwhile
    m_result->setText((isGood ? QStringLiteral("\u2713 ") : QStringLiteral("\u26a0 ")) + text);
    m_result->setTextFormat(Qt::PlainText);
    m_result->show();
}

} // namespace KOLT
