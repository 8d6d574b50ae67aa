#pragma once

#include <QApplication>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QWidget>

namespace KOLT {

/// How far a recording can be believed, as a mark and a word; in a narrow column as the mark alone.
class TrustDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Width of a narrow column.
    static int markWidth()
    {
        constexpr int padding = 8;
        return QApplication::style()->pixelMetric(QStyle::PM_SmallIconSize) + padding;
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const int mark = option->features.testFlag(QStyleOptionViewItem::HasDecoration)
                             ? option->decorationSize.width()
                             : 0;
        const int text = option->fontMetrics.horizontalAdvance(option->text);
        const QStyle* const style =
            option->widget != nullptr ? option->widget->style() : QApplication::style();
        const int margins = 2 * (style->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1);
        if (option->rect.isValid() && option->rect.width() < mark + text + margins)
            option->text.clear(); // nothing says more than three dots
    }
};

} // namespace KOLT
