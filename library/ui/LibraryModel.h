#pragma once

#include "library/database/LibraryQueries.h"
#include "library/ledger/Logbook.h"

#include <QAbstractItemModel>

#include <memory>

namespace KOLT {

/// The recordings of a library as a tree: aircraft or unit, year, day, cycle, flight. Asks the
/// database for the children of an entry when they are wanted for the first time, so that the size
/// of the library does not matter. An answer that fails stands as an entry in its place.
class LibraryModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum class Kind { Root, Unit, Year, Day, Cycle, Flight, Failure };

    explicit LibraryModel(QObject* parent = nullptr);
    ~LibraryModel() override;

    /// Shows what the filter lets through. The database must stay open until the next call; null
    /// empties the tree.
    void show(Library::LibraryDatabase* database, const Library::LibraryFilter& filter,
              const Library::Logbook::Contents& written);

    Kind kindOf(const QModelIndex& index) const;
    /// Names an entry across calls of show().
    QString keyOf(const QModelIndex& index) const;
    /// Of a cycle or flight, below the archive.
    QString folderOf(const QModelIndex& index) const;
    /// From 1; 0 for anything but a flight.
    int flightOf(const QModelIndex& index) const;
    /// Of a cycle or flight, or of the only engine of a unit.
    QString engineOf(const QModelIndex& index) const;
    /// None for an invalid index.
    std::optional<quint32> unitOf(const QModelIndex& index) const;

    /// An error of the database, empty without one.
    const QString& error() const { return m_error; }

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    struct Node;
    using Nodes = std::vector<std::unique_ptr<Node>>;

    Node& nodeOf(const QModelIndex& index) const;
    Nodes childrenOf(const Node& parent);
    Nodes units();
    Nodes years(const Node& parent);
    Nodes days(const Node& parent);
    Nodes cycles(const Node& parent);
    Nodes flights(const Node& parent);
    static std::unique_ptr<Node> failure(const QString& error);

    std::unique_ptr<Library::LibraryQueries> m_queries;
    Library::LibraryFilter m_filter;
    Library::Logbook::Contents m_written;
    std::unique_ptr<Node> m_root;
    QString m_error;
};

/// "3 flights, 1:25 h" of some cycles.
QString librarySumText(const Library::LibrarySums& sums);

} // namespace KOLT
