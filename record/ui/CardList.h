#pragma once

#include <QDate>
#include <QTreeWidget>

#include <optional>
#include <vector>

class QLineEdit;
class QStackedLayout;

namespace KOLT {

class EmptyNote;
class CardContainer;
struct TrustFinding;

/// A tab of the card panel: the name of the open folder above a tree with headings by day, or a
/// note in place of an empty tree. Base of the two lists, which differ in what the tree shows.
///
/// A second, narrow column has the marks of entries that cannot be believed as they stand. It is
/// there only while some entry has one.
class CardList : public QWidget
{
    Q_OBJECT

public:
    QTreeWidget& tree() const { return *m_tree; }

    /// Fills the tree anew. Sends no signal. The note is for a card without files.
    void fill(const CardContainer& card, const QString& note);

    /// Sends no signal.
    void selectOnly(const QList<QTreeWidgetItem*>& items);

signals:
    /// The mark of an entry was clicked, which does not select the entry.
    void signalMark(QTreeWidgetItem* item);

protected:
    using Findings = std::vector<const TrustFinding*>;

    explicit CardList(QWidget* parent);

    /// Fills the empty tree.
    virtual void fillTree(const CardContainer& card) = 0;

    /// Appends an entry, and before it a heading if the entry before is of another day.
    QTreeWidgetItem* addEntry(const QDate& date);

    /// Marks an entry by the worst finding, and tells all of them in a tool tip of the mark. Notes
    /// alone give no mark.
    void showTrust(QTreeWidgetItem& item, const Findings& findings);

private:
    void createColumns();
    void addHeading(const QDate& date);

    QLineEdit* m_name;
    QTreeWidget* m_tree;
    EmptyNote* m_note;
    QStackedLayout* m_stack;    ///< tree and note
    std::optional<QDate> m_day; ///< of the last entry
};

} // namespace KOLT
