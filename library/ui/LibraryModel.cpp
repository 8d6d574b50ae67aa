#include "library/ui/LibraryModel.h"

#include "record/ClockTime.h"
#include "ui/PaintedIcon.h"
#include "ui/PlainToolTip.h"
#include "ui/StateMark.h"

#include <cmath>

namespace KOLT {

using namespace Library;

struct LibraryModel::Node
{
    Kind kind = Kind::Root;
    Node* parent = nullptr;
    int row = 0;
    QString text;
    QString tip;
    StateMark mark = StateMark::None;
    quint32 unit = 0;
    int year = 0;
    QDate day;
    qint64 cycle = 0;
    QString folder;
    QString engine;
    int flight = 0;
    bool isFetched = false;
    Nodes children;
};

namespace {

StateMark markOf(ThresholdState worst)
{
    return worst == ThresholdState::Limit     ? StateMark::Limit
           : worst == ThresholdState::Warning ? StateMark::Warning
                                              : StateMark::Good;
}

QIcon iconOf(LibraryModel::Kind kind)
{
    switch (kind) {
    case LibraryModel::Kind::Unit:
        return lookIcon(QStringLiteral("aircraft"));
    case LibraryModel::Kind::Cycle:
        return lookIcon(QStringLiteral("cycle"));
    case LibraryModel::Kind::Flight:
        return lookIcon(QStringLiteral("flight"));
    default:
        return {};
    }
}

} // namespace

QString librarySumText(const LibrarySums& sums)
{
    const auto minutes = static_cast<qint64>(std::llround(sums.runSeconds / 60.0));
    return LibraryModel::tr("%n flight(s)", nullptr, sums.flights) + QStringLiteral(", ") +
           LibraryModel::tr("%1:%2 h").arg(minutes / 60).arg(minutes % 60, 2, 10, QLatin1Char('0'));
}

LibraryModel::LibraryModel(QObject* parent)
    : QAbstractItemModel(parent)
    , m_root(std::make_unique<Node>())
{
    m_root->isFetched = true;
}

LibraryModel::~LibraryModel() = default;

void LibraryModel::show(LibraryDatabase* database, const LibraryFilter& filter,
                        const Logbook::Contents& written)
{
    beginResetModel();
    m_error.clear();
    m_filter = filter;
    m_written = written;
    m_root = std::make_unique<Node>();
    m_root->isFetched = true;
    m_queries = database != nullptr ? std::make_unique<LibraryQueries>(*database) : nullptr;
    if (m_queries != nullptr) {
        m_root->children = units();
        int row = 0;
        for (const auto& child : m_root->children) {
            child->parent = m_root.get();
            child->row = row++;
        }
    }
    endResetModel();
}

LibraryModel::Node& LibraryModel::nodeOf(const QModelIndex& index) const
{
    return index.isValid() ? *static_cast<Node*>(index.internalPointer()) : *m_root;
}

std::unique_ptr<LibraryModel::Node> LibraryModel::failure(const QString& error)
{
    auto node = std::make_unique<Node>();
    node->kind = Kind::Failure;
    node->text = error;
    node->tip = error;
    node->isFetched = true;
    return node;
}

LibraryModel::Nodes LibraryModel::units()
{
    const auto answer = m_queries->units(m_filter);
    m_error = answer.error;
    Nodes nodes;
    for (const UnitRow& row : answer.value) {
        auto& node = nodes.emplace_back(std::make_unique<Node>());
        node->kind = Kind::Unit;
        node->unit = row.unit;
        const QString name = m_written.nameOf(row.unit);
        const QString serial = QString::number(row.unit);
        node->text = QStringLiteral("%1 (%2)").arg(
            name.isEmpty() ? tr("Unit %1").arg(serial) : name, librarySumText(row.sums));
        node->tip = tr("Unit %1 %2\nEngines: %3\n%4 to %5")
                        .arg(serial, row.ecuType, row.engines.join(QStringLiteral(", ")),
                             row.first.toString(QStringLiteral("d.M.yyyy")),
                             row.last.toString(QStringLiteral("d.M.yyyy")));
        node->engine = row.engines.size() == 1 ? row.engines.constFirst() : QString();
    }
    return nodes;
}

LibraryModel::Nodes LibraryModel::years(const Node& parent)
{
    const auto answer = m_queries->years(parent.unit, m_filter);
    Nodes nodes;
    for (const YearRow& row : answer.value) {
        auto& node = nodes.emplace_back(std::make_unique<Node>());
        node->kind = Kind::Year;
        node->unit = parent.unit;
        node->year = row.year;
        node->text = QStringLiteral("%1 (%2)").arg(row.year == 0 ? tr("Without a date")
                                                                 : QString::number(row.year),
                                                   librarySumText(row.sums));
    }
    if (!answer)
        nodes.push_back(failure(answer.error));
    return nodes;
}

LibraryModel::Nodes LibraryModel::days(const Node& parent)
{
    const auto answer = m_queries->days(parent.unit, parent.year, m_filter);
    Nodes nodes;
    for (const DayRow& row : answer.value) {
        auto& node = nodes.emplace_back(std::make_unique<Node>());
        node->kind = Kind::Day;
        node->unit = parent.unit;
        node->day = row.date;
        node->text = QStringLiteral("%1 (%2)").arg(
            row.date.isValid() ? row.date.toString(QStringLiteral("d.M.yyyy"))
                               : tr("Without a date"),
            librarySumText(row.sums));
    }
    if (!answer)
        nodes.push_back(failure(answer.error));
    return nodes;
}

LibraryModel::Nodes LibraryModel::cycles(const Node& parent)
{
    const auto answer = m_queries->cycles(parent.unit, parent.day, m_filter);
    Nodes nodes;
    for (const CycleRow& row : answer.value) {
        auto& node = nodes.emplace_back(std::make_unique<Node>());
        node->kind = Kind::Cycle;
        node->unit = row.unit;
        node->cycle = row.id;
        node->folder = row.folder;
        node->engine = row.engine;
        const QString time =
            row.dateTime.isValid() ? row.dateTime.toString(QStringLiteral("h:mm:ss")) : tr("Cycle");
        node->text =
            row.hasFigures
                ? QStringLiteral("%1 (%2)").arg(time, durationText(row.sums.recordedSeconds))
                : tr("%1 (not evaluated yet)").arg(time);
        node->mark = row.hasFigures ? markOf(row.worst) : StateMark::None;
        node->tip = tr("Engine %1, %2\n%n file(s)", nullptr, row.files)
                        .arg(row.engine, librarySumText(row.sums));
        node->isFetched = row.sums.flights == 0;
    }
    if (!answer)
        nodes.push_back(failure(answer.error));
    return nodes;
}

LibraryModel::Nodes LibraryModel::flights(const Node& parent)
{
    const auto answer = m_queries->flights(parent.cycle);
    Nodes nodes;
    for (const FlightRow& row : answer.value) {
        auto& node = nodes.emplace_back(std::make_unique<Node>());
        node->kind = Kind::Flight;
        node->unit = row.unit;
        node->folder = row.folder;
        node->engine = row.engine;
        node->flight = row.number;
        node->isFetched = true;
        const Flight& flight = row.figures.flight;
        node->text = tr("Flight %1 %2 (%3)")
                         .arg(QString::number(row.number),
                              flight.dateTime.toString(QStringLiteral("hh:mm:ss")),
                              durationText(static_cast<double>(row.figures.airSeconds)));
        node->mark = markOf(row.worst);
    }
    if (!answer)
        nodes.push_back(failure(answer.error));
    return nodes;
}

LibraryModel::Nodes LibraryModel::childrenOf(const Node& parent)
{
    switch (parent.kind) {
    case Kind::Unit:
        return years(parent);
    case Kind::Year:
        return days(parent);
    case Kind::Day:
        return cycles(parent);
    case Kind::Cycle:
        return flights(parent);
    default:
        return {};
    }
}

LibraryModel::Kind LibraryModel::kindOf(const QModelIndex& index) const
{
    return nodeOf(index).kind;
}

QString LibraryModel::keyOf(const QModelIndex& index) const
{
    const Node& node = nodeOf(index);
    return QStringLiteral("%1/%2/%3/%4/%5")
        .arg(QString::number(node.unit), QString::number(node.year), node.day.toString(Qt::ISODate),
             node.folder, QString::number(node.flight));
}

QString LibraryModel::folderOf(const QModelIndex& index) const
{
    return nodeOf(index).folder;
}

int LibraryModel::flightOf(const QModelIndex& index) const
{
    return nodeOf(index).flight;
}

QString LibraryModel::engineOf(const QModelIndex& index) const
{
    return nodeOf(index).engine;
}

std::optional<quint32> LibraryModel::unitOf(const QModelIndex& index) const
{
    return index.isValid() ? std::optional(nodeOf(index).unit) : std::nullopt;
}

QModelIndex LibraryModel::index(int row, int column, const QModelIndex& parent) const
{
    const Node& node = nodeOf(parent);
    if (column != 0 || row < 0 || row >= static_cast<int>(node.children.size()))
        return {};
    return createIndex(row, column, node.children[static_cast<std::size_t>(row)].get());
}

QModelIndex LibraryModel::parent(const QModelIndex& index) const
{
    Node* const above = index.isValid() ? nodeOf(index).parent : nullptr;
    return above == nullptr || above == m_root.get() ? QModelIndex()
                                                     : createIndex(above->row, 0, above);
}

int LibraryModel::rowCount(const QModelIndex& parent) const
{
    return static_cast<int>(nodeOf(parent).children.size());
}

int LibraryModel::columnCount(const QModelIndex& /*parent*/) const
{
    return 1;
}

bool LibraryModel::hasChildren(const QModelIndex& parent) const
{
    const Node& node = nodeOf(parent);
    return !node.isFetched || !node.children.empty();
}

bool LibraryModel::canFetchMore(const QModelIndex& parent) const
{
    return !nodeOf(parent).isFetched;
}

void LibraryModel::fetchMore(const QModelIndex& parent)
{
    Node& node = nodeOf(parent);
    if (node.isFetched)
        return;
    node.isFetched = true;
    Nodes children = childrenOf(node);
    if (children.empty())
        return;
    beginInsertRows(parent, 0, static_cast<int>(children.size()) - 1);
    int row = 0;
    for (const auto& child : children) {
        child->parent = &node;
        child->row = row++;
    }
    node.children = std::move(children);
    endInsertRows();
}

QVariant LibraryModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const Node& node = nodeOf(index);
    switch (role) {
    case Qt::DisplayRole:
        return node.text;
    case Qt::ToolTipRole:
        // A narrow tree cuts the end of a line.
        return plainToolTip(node.tip.isEmpty() || node.tip == node.text
                                ? node.text
                                : node.text + QLatin1Char('\n') + node.tip);
    case Qt::DecorationRole: {
        const QIcon icon = iconOf(node.kind);
        return icon.isNull()
                   ? QVariant()
                   : QVariant(node.mark == StateMark::None ? icon : markedIcon(icon, node.mark));
    }
    default:
        return {};
    }
}

} // namespace KOLT
