#pragma once

#include <QIcon>
#include <QTabBar>

namespace KOLT {

/// The tabs of the data window. In a narrow window they lose their icons first; then their texts
/// are cut. They never scroll.
class PageTabs : public QTabBar
{
public:
    explicit PageTabs(QWidget* parent = nullptr);

    /// `icon` is the name of an icon in the resources.
    void add(const QString& icon, const QString& text);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QList<QIcon> m_icons; ///< by tab
};

} // namespace KOLT
