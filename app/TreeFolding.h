#pragma once

#include <QTreeWidget>

#include <map>

namespace KOLT {

/// Which top-level items of a tree are unfolded, by their text, while a filter unfolds others.
class TreeFolding
{
public:
    bool isKept() const { return !m_isExpanded.empty(); }

    void keep(const QTreeWidget& tree)
    {
        for (int i = 0; i < tree.topLevelItemCount(); ++i) {
            const QTreeWidgetItem* const item = tree.topLevelItem(i);
            m_isExpanded[item->text(0)] = item->isExpanded();
        }
    }

    /// Items that were not there before stay as they are.
    void restore(const QTreeWidget& tree)
    {
        for (int i = 0; i < tree.topLevelItemCount(); ++i) {
            QTreeWidgetItem* const item = tree.topLevelItem(i);
            const auto before = m_isExpanded.find(item->text(0));
            if (before != m_isExpanded.end())
                item->setExpanded(before->second);
        }
        m_isExpanded.clear();
    }

private:
    std::map<QString, bool> m_isExpanded;
};

} // namespace KOLT
