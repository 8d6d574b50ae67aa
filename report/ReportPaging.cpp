#include "report/ReportPaging.h"

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

constexpr int entryLevel = 3;
constexpr double footPart = 0.85; ///< of a page; no heading stands below

bool isHeading(const QTextBlock& block)
{
    return block.blockFormat().headingLevel() > 0;
}

/// Where the section below a heading ends.
double endOf(const QTextBlock& heading)
{
    const QAbstractTextDocumentLayout& layout = *heading.document()->documentLayout();
    double bottom = layout.blockBoundingRect(heading).bottom();
    for (QTextBlock block = heading.next(); block.isValid() && !isHeading(block);
         block = block.next())
        bottom = std::max(bottom, layout.blockBoundingRect(block).bottom());
    return bottom;
}

} // namespace

void keepTogether(QTextDocument& document)
{
    const double page = document.pageSize().height();
    document.pageCount(); // a long document is laid out bit by bit otherwise
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (!isHeading(block))
            continue;
        const double top = document.documentLayout()->blockBoundingRect(block).top();
        const double onPage = std::fmod(top, page);
        bool isToMove = onPage > page * footPart;
        if (block.blockFormat().headingLevel() == entryLevel) {
            const double height = endOf(block) - top;
            isToMove = isToMove || (onPage + height > page && height < page);
        }
        if (!isToMove)
            continue;
        QTextBlockFormat format = block.blockFormat();
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        QTextCursor(block).setBlockFormat(format);
        document.pageCount();
    }
}

} // namespace KOLT
