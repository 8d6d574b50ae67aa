#include "analysis/FaultListModel.h"

#include "analysis/MomentText.h"
#include "base/Csv.h"

#include <QTextDocument>

#include <algorithm>

namespace KOLT {

namespace {

double startOf(const FaultEntry& occurrence)
{
    return occurrence.interval->start;
}

QString endText(const FaultInterval& interval)
{
    return interval.isOpen ? FaultListModel::tr("until the end of the data")
                           : counterText(interval.end);
}

} // namespace

GraphTarget FaultEntry::target() const
{
    return {history->parameter->fullName, interval->start, interval->end};
}

QString errorClassText(ErrorType type)
{
    switch (type) {
    case ErrorType::Info:
        return FaultListModel::tr("Info");
    case ErrorType::Warning:
        return FaultListModel::tr("Warning");
    case ErrorType::Fault:
        return FaultListModel::tr("Fault");
    case ErrorType::None:
        break;
    }
    return FaultListModel::tr("No class");
}

void FaultListModel::setFaults(const std::vector<const FaultHistory*>& faults)
{
    beginResetModel();
    m_rows.clear();
    for (const FaultHistory* fault : faults) {
        for (const FaultInterval& interval : fault->intervals)
            m_rows.push_back({fault, &interval});
    }
    std::ranges::stable_sort(m_rows, {}, startOf);
    endResetModel();
}

int FaultListModel::rowAt(double seconds) const
{
    const auto behind = std::ranges::upper_bound(m_rows, seconds, {}, startOf);
    const auto before = static_cast<int>(behind - m_rows.begin()) - 1;
    return m_rows.empty() ? -1 : std::max(before, 0);
}

int FaultListModel::rowOf(const FaultEntry& occurrence) const
{
    const double start = startOf(occurrence);
    auto row = std::ranges::lower_bound(m_rows, start, {}, startOf);
    while (row != m_rows.end() && startOf(*row) == start && row->interval != occurrence.interval)
        ++row;
    const bool isListed = row != m_rows.end() && row->interval == occurrence.interval;
    return isListed ? static_cast<int>(row - m_rows.begin()) : -1;
}

int FaultListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int FaultListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant FaultListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const auto& [history, interval] = occurrence(index.row());
    const ProfileParameter& parameter = *history->parameter;
    if (role == Qt::ToolTipRole) // a name is plain text, whatever it looks like
        return Qt::mightBeRichText(parameter.fullName)
                   ? Qt::convertFromPlainText(parameter.fullName)
                   : parameter.fullName;
    if (role != Qt::DisplayRole)
        return {};
    switch (index.column()) {
    case Fault:
        return parameter.name;
    case Begin:
        return counterText(interval->start);
    case Duration:
        return tr("%1 s").arg(interval->end - interval->start, 0, 'f', 1);
    case End:
        return endText(*interval);
    default:
        return {};
    }
}

QVariant FaultListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Fault:
        return tr("Fault");
    case Begin:
        return tr("Begin");
    case Duration:
        return tr("Duration");
    case End:
        return tr("End");
    default:
        return {};
    }
}

QString FaultListModel::csv(const DataSet& dataSet, const ListSettings& settings) const
{
    const auto number = [&](double value) {
        return settings.numberText(QString::number(value, 'f', 3));
    };
    QString text =
        csvLine({tr("Fault"), tr("Class"), tr("Begin"), tr("Begin [s]"), tr("Date"),
                 tr("Clock time"), tr("End"), tr("End [s]"), tr("Duration [s]"), tr("Message")},
                settings.separator);
    for (const auto& [history, interval] : m_rows) {
        const ProfileParameter& parameter = *history->parameter;
        const QDateTime moment = momentOf(dataSet, interval->start);
        text += csvLine(
            {parameter.fullName, errorClassText(parameter.errorType), counterText(interval->start),
             number(interval->start), moment.toString(QStringLiteral("dd.MM.yyyy")),
             moment.toString(QStringLiteral("hh:mm:ss")), endText(*interval), number(interval->end),
             number(interval->end - interval->start), QString::number(parameter.id)},
            settings.separator);
    }
    return text;
}

} // namespace KOLT
