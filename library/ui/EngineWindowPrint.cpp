// The window of an engine on paper and in the clipboard.
#include "library/ledger/LedgerText.h"
#include "library/ui/EngineWindow.h"
#include "library/ui/LedgerView.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QTextDocument>
#include <QUrl>

namespace KOLT {

using namespace Library;

namespace {

constexpr double pictureScale = 3.0;
constexpr int pictureWidth = 640;

} // namespace

std::unique_ptr<QTextDocument> EngineWindow::document(double width) const
{
    auto document = std::make_unique<QTextDocument>();
    QFont font(QApplication::font());
    font.setPointSizeF(9.5);
    document->setDefaultFont(font);
    const LedgerChart chart = ledgerChart(m_ledger);
    QString picture;
    if (!chart.isEmpty()) {
        const QUrl name(QStringLiteral("ledger:picture"));
        document->addResource(QTextDocument::ImageResource, name,
                              LedgerView::picture(chart, pictureWidth, pictureScale, font));
        picture = QStringLiteral("<p><img src=\"%1\" width=\"%2\"></p>")
                      .arg(name.toString())
                      .arg(std::min<double>(width, pictureWidth), 0, 'f', 0);
    }
    document->setHtml(ledgerHtml(m_ledger, m_today, picture));
    return document;
}

void EngineWindow::print()
{
    QPrinter printer;
    printer.setDocName(tr("Ledger of engine %1").arg(engine()));
    QPrintPreviewDialog preview(&printer, this);
    connect(&preview, &QPrintPreviewDialog::paintRequested, this,
            [this](QPrinter* target) { document(pictureWidth)->print(target); });
    preview.exec();
}

void EngineWindow::copy()
{
    auto* const content = new QMimeData;
    content->setImageData(
        LedgerView::picture(m_view->chart(), pictureWidth, pictureScale, QApplication::font()));
    QApplication::clipboard()->setMimeData(content);
}

} // namespace KOLT
