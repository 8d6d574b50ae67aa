#pragma once

#include "record/ui/CardList.h"

#include <list>

namespace KOLT {

/// The tab "Raw Data": the record files of the card with what their headers say. Several can be
/// selected.
class RecordList : public CardList
{
    Q_OBJECT

public:
    explicit RecordList(QWidget* parent = nullptr);

    std::list<QString> selectedPaths() const;

    /// Those of the paths that are listed.
    QList<QTreeWidgetItem*> itemsOf(const std::list<QString>& paths) const;

protected:
    void fillTree(const CardContainer& card) override;
};

} // namespace KOLT
