#pragma once

#include <QTreeWidget>

#include <optional>

class QLabel;
class QLineEdit;
class QStackedLayout;

namespace KOLT {

class CardContainer;

/// A tab of the card panel: the name of the open folder above a tree with headings by day, or a
/// note in place of an empty tree. Base of the two lists, which differ in what the tree shows.
class CardList : public QWidget
{
    Q_OBJECT

public:
    QTreeWidget& tree() const { return *m_tree; }

    /// Fills the tree anew. Sends no signal. The note is for a card without files.
    void fill(const CardContainer& card, const QString& note);

    /// Sends no signal.
    void selectOnly(const QList<QTreeWidgetItem*>& items);

protected:
    explicit CardList(QWidget* parent);

    /// Fills the empty tree.
    virtual void fillTree(const CardContainer& card) = 0;

    /// Appends an entry, and before it a heading if the entry before is of another day.
    QTreeWidgetItem* addEntry(const QDate& date);

private:
    void addHeading(const QDate& date);

    QLineEdit* m_name;
    QTreeWidget* m_tree;
    QLabel* m_note;
    QStackedLayout* m_stack;    ///< tree and note
    std::optional<QDate> m_day; ///< of the last entry
};

} // namespace KOLT
