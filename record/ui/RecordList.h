#pragma once

#include "record/TrustFinding.h"
#include "record/ui/CardList.h"

#include <list>
#include <map>

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

    /// Marks the files that the findings of a cycle name. They take the place of those before.
    void setTrust(unsigned int cycle, const std::vector<TrustFinding>& findings);

    /// The name of an entry's file.
    static QString fileOf(const QTreeWidgetItem& item);

protected:
    void fillTree(const CardContainer& card) override;

private:
    Findings findingsOf(const QString& file) const;

    std::map<QString, QTreeWidgetItem*> m_items;                  ///< by file name
    std::map<unsigned int, std::vector<TrustFinding>> m_findings; ///< by number of the cycle
};

} // namespace KOLT
