#include "app/dialogs/SheetPrinter.h"

#include <QApplication>
#include <QPagedPaintDevice>
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

} // namespace KOLT
