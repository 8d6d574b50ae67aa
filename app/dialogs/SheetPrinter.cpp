#include "app/dialogs/SheetPrinter.h"

#include <QApplication>
#include <QBuffer>
#include <QLocale>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPdfWriter>
#include <QTextDocument>

namespace KOLT {

namespace {

constexpr double pointSize = 9.5;

} // namespace

void printSheet(const QString& html, QPagedPaintDevice& device)
{
    QTextDocument document;
    QFont font(QApplication::font());
    font.setPointSizeF(pointSize);
    document.setDefaultFont(font);
    document.setHtml(html);
    document.print(&device);
}

QByteArray sheetPdf(const QString& html, const QString& title)
{
    QByteArray content;
    QBuffer buffer(&content);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        const bool isLetter = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
        writer.setPageLayout(QPageLayout(QPageSize(isLetter ? QPageSize::Letter : QPageSize::A4),
                                         QPageLayout::Landscape, {}));
        writer.setTitle(title);
        printSheet(html, writer);
    }
    return content;
}

} // namespace KOLT
