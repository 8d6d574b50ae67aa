#include "report/ReportPrinter.h"

#include "base/Version.h"
#include "report/ReportGraphs.h"
#include "report/ReportPaging.h"
#include "report/ReportText.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QCoreApplication>
#include <QFontDatabase>
#include <QHashFunctions>
#include <QPainter>
#include <QPdfWriter>
#include <QTextDocument>

namespace KOLT {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::EngineReport)
};

constexpr double pointSize = 8.0;
constexpr double footPoints = 7.0;
constexpr QMarginsF margins(15.0, 12.0, 15.0, 10.0); // millimetres
constexpr double footLines = 2.0;

/// The same on each machine that has these fonts, whatever the windows' font is.
QFont reportFont()
{
    QFont font;
    font.setFamilies({QStringLiteral("Liberation Sans"), QStringLiteral("Arial"),
                      QStringLiteral("Helvetica"), QStringLiteral("DejaVu Sans")});
    font.setStyleHint(QFont::SansSerif);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setPointSizeF(pointSize);
    // Any spacing turns off ligatures: with them, the "ff" of a check sum is not found.
    font.setLetterSpacing(QFont::AbsoluteSpacing, 0.02);
    return font;
}

/// The PDF engine writes fonts in the order of a hash table, whose seed is another in each run.
class FixedHashOrder
{
public:
    FixedHashOrder() { QHashSeed::setDeterministicGlobalSeed(); }

    ~FixedHashOrder() { QHashSeed::resetRandomGlobalSeed(); }

    FixedHashOrder(const FixedHashOrder&) = delete;
    FixedHashOrder& operator=(const FixedHashOrder&) = delete;
};

void drawFoot(QPainter& painter, const QRectF& area, const EngineReport& report,
              const QString& page)
{
    const QString left = QStringLiteral("%1, %2").arg(
        reportTitle(report), report.date.toString(QStringLiteral("dd.MM.yyyy")));
    painter.setPen(Qt::darkGray);
    painter.drawText(area, Qt::AlignLeft | Qt::AlignBottom | Qt::TextSingleLine, left);
    painter.drawText(area, Qt::AlignRight | Qt::AlignBottom | Qt::TextSingleLine, page);
}

} // namespace

bool canPrintReports()
{
    return !QFontDatabase::families().isEmpty();
}

QPageLayout reportPage(QPageSize::PageSizeId paper)
{
    return {QPageSize(paper), QPageLayout::Portrait, margins, QPageLayout::Millimeter};
}

void printReport(const EngineReport& report, QPagedPaintDevice& device)
{
    QPainter painter(&device);
    const QFont font = reportFont();
    QFont small = font;
    small.setPointSizeF(footPoints);
    painter.setFont(small);
    const QSizeF page(device.width(), device.height());
    const double foot = footLines * QFontMetricsF(small, &device).height();
    const QSizeF body(page.width(), page.height() - foot);
    ReportGraphs graphs(report, font);
    QTextDocument document;
    document.setUndoRedoEnabled(false);
    document.setDocumentMargin(0.0);
    document.setDefaultFont(font);
    document.documentLayout()->setPaintDevice(&device);
    document.documentLayout()->registerHandler(QTextFormat::ImageObject, &graphs);
    document.setPageSize(body);
    document.setHtml(reportHtml(report));
    keepTogether(document);
    const int pages = document.pageCount();
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, Qt::black);
    for (int i = 0; i < pages; ++i) {
        if (i > 0)
            device.newPage();
        const double top = i * body.height();
        context.clip = QRectF(QPointF(0.0, top), body);
        painter.save();
        painter.translate(0.0, -top);
        painter.setClipRect(context.clip);
        document.documentLayout()->draw(&painter, context);
        painter.restore();
        drawFoot(painter, {0.0, body.height(), page.width(), foot}, report,
                 Text::tr("Page %1 of %2").arg(i + 1).arg(pages));
    }
}

QByteArray reportPdf(const EngineReport& report, QPageSize::PageSizeId paper)
{
    const FixedHashOrder order;
    QByteArray content;
    QBuffer buffer(&content);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setPageLayout(reportPage(paper));
        writer.setTitle(reportTitle(report));
        writer.setCreator(QLatin1String(versionText));
        printReport(report, writer);
    }
    return content;
}

} // namespace KOLT
