#include "analysis/TimeTableModel.h"

#include "analysis/MomentText.h"
#include "profile/ValueDecoder.h"

#include <QColor>
#include <QTextDocument>

#include <algorithm>
#include <cmath>
#include <limits>

namespace KOLT {

namespace {

/// Without tabs and line breaks, which the profile's texts may have and which would break a table.
QString onOneLine(QString text)
{
    return text.replace(QLatin1Char('\t'), QLatin1Char(' '))
        .replace(QLatin1Char('\n'), QLatin1Char(' '));
}

std::size_t at(int index)
{
    return static_cast<std::size_t>(index);
}

} // namespace

TimeTableModel::TimeTableModel(const Profile& profile, QObject* parent)
    : QAbstractTableModel(parent)
    , m_profile(profile)
{
}

void TimeTableModel::setTable(const DataSet& dataSet,
                              std::vector<const ProfileParameter*> parameters)
{
    beginResetModel();
    m_momentRow = -1;
    m_table = TimeTable(dataSet, std::move(parameters));
    m_start = dataSet.dateTime;
    endResetModel();
}

void TimeTableModel::clear()
{
    beginResetModel();
    m_momentRow = -1;
    m_table = {};
    endResetModel();
}

void TimeTableModel::tellNewTexts()
{
    emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

void TimeTableModel::setClockShown(bool isShown)
{
    m_isClockShown = isShown;
    tellNewTexts();
}

int TimeTableModel::setMoment(double seconds)
{
    m_moment = seconds;
    m_momentRow = rowCount() > 0 ? static_cast<int>(m_table.rowAt(seconds)) : -1;
    return m_momentRow;
}

int TimeTableModel::rowCount(const QModelIndex& parent) const
{
    constexpr auto most = static_cast<std::size_t>(std::numeric_limits<int>::max());
    return parent.isValid() ? 0 : static_cast<int>(std::min(m_table.rowCount(), most));
}

int TimeTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_table.columns().size()) + 1;
}

QVariant TimeTableModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
    if (index.column() != timeColumn)
        return value(at(index.row()), at(index.column() - 1), role);
    if (role == Qt::DisplayRole)
        return timeText(at(index.row()), QLatin1Char(' '));
    return role == copyRole ? timeText(at(index.row()), QLatin1Char('\t')) : QVariant();
}

QString TimeTableModel::timeText(std::size_t row, QLatin1Char separator) const
{
    const double seconds = m_table.seconds(row);
    const QString counter = counterText(seconds);
    if (!isClockShown())
        return counter;
    const QDateTime moment = m_start.addMSecs(std::llround(seconds * 1000.0));
    return counter + separator + moment.toString(QStringLiteral("hh:mm:ss.zzz"));
}

QVariant TimeTableModel::value(std::size_t row, std::size_t column, int role) const
{
    if (role == copyRole)
        return onOneLine(value(row, column, Qt::DisplayRole).toString());
    if (role != Qt::DisplayRole && role != Qt::ForegroundRole && role != Qt::BackgroundRole &&
        role != Qt::DecorationRole)
        return {};
    const TimeTable::Cell cell = static_cast<int>(row) == m_momentRow
                                     ? m_table.cellAt(m_moment, row, column)
                                     : m_table.cell(row, column);
    if (cell.sample == nullptr)
        return {};
    if (role == Qt::ForegroundRole)
        return cell.isFresh ? QVariant() : QVariant(QColor(Qt::gray)); // the view has a tone for it
    const ProfileParameter& parameter = *m_table.columns()[column];
    const double number = decodeNumber(cell.sample->data, parameter);
    if (role == Qt::DisplayRole)
        return textOf(m_profile, parameter, cell.sample->data, number);
    const Grade grade = gradeOf(parameter, number);
    if (role == Qt::DecorationRole)
        return parameter.threshold != nullptr ? QVariant(QColor(grade.color)) : QVariant();
    return grade.state != ThresholdState::Ok ? QVariant(QColor(grade.color)) : QVariant();
}

QVariant TimeTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    if (section == timeColumn) {
        if (role != Qt::DisplayRole && role != copyRole)
            return {};
        if (!isClockShown())
            return tr("Time");
        return tr("Time") + QLatin1Char(role == copyRole ? '\t' : '\n') + tr("Clock time");
    }
    const ProfileParameter& parameter = *m_table.columns()[at(section - 1)];
    if (role == Qt::ToolTipRole) // a name is plain text, whatever it looks like
        return Qt::mightBeRichText(parameter.fullName)
                   ? Qt::convertFromPlainText(parameter.fullName)
                   : parameter.fullName;
    if (role == copyRole)
        return onOneLine(heading(parameter));
    return role == Qt::DisplayRole ? heading(parameter) : QVariant();
}

QString TimeTableModel::heading(const ProfileParameter& parameter) const
{
    const bool isAmbiguous =
        std::ranges::count(m_table.columns(), parameter.name, &ProfileParameter::name) > 1;
    const QString& name = isAmbiguous ? parameter.fullName : parameter.name;
    const QString& unit = m_profile.unitLabel(parameter);
    return unit.isEmpty() ? name : QStringLiteral("%1\n[%2]").arg(name, unit);
}

int TimeTableModel::changedRow(const QModelIndex& from, Direction direction) const
{
    if (!from.isValid() || from.column() == timeColumn)
        return -1;
    const std::size_t row = at(from.row());
    const std::size_t column = at(from.column() - 1);
    const auto changed = direction == Direction::Forward
                             ? m_table.nextChange(m_profile, row, column)
                             : m_table.previousChange(m_profile, row, column);
    return changed ? static_cast<int>(*changed) : -1;
}

} // namespace KOLT
