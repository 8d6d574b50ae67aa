#pragma once

#include <QTabBar>

namespace KOLT {

/// The tabs of the data window. In a narrow window they scroll.
class PageTabs : public QTabBar
{
public:
    explicit PageTabs(QWidget* parent = nullptr);

    /// `icon` is the name of an icon in the resources.
    void add(const QString& icon, const QString& text);

protected:
    /// Without the room that the style leaves beside the padding of the style sheet.
    QSize tabSizeHint(int index) const override;
};

} // namespace KOLT
