#include "app/dialogs/ParameterListModel.h"

namespace KOLT {

void ParameterListModel::refresh()
{
    beginResetModel();
    endResetModel();
}

int ParameterListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_profile.parameters().size());
}

int ParameterListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ParameterListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid) ||
        role != Qt::DisplayRole)
        return {};
    return cell(m_profile.parameters()[static_cast<std::size_t>(index.row())], index.column());
}

QVariant ParameterListModel::cell(const ProfileParameter& parameter, int column) const
{
    const bool isBitField = parameter.rule == DecodingRule::BitField;
    switch (column) {
    case Device:
        return parameter.fullName.left(parameter.fullName.size() - parameter.name.size() - 1);
    case Name:
        return parameter.name;
    case Unit:
        return m_profile.unitLabel(parameter);
    case Message:
        return parameter.id;
    case Byte:
        return parameter.startByte;
    case Bits:
        return isBitField ? QStringLiteral("%1-%2").arg(parameter.startBit).arg(parameter.endBit)
                          : QString();
    case Factor:
        return parameter.factor;
    case Offset:
        return parameter.offset;
    case Enumeration:
        return parameter.enumList != nullptr ? parameter.enumList->name : QString();
    case Limits:
        return parameter.threshold != nullptr ? parameter.threshold->name : QString();
    case Role:
        return parameter.koltDataType;
    default:
        return {};
    }
}

QVariant ParameterListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Device:
        return tr("Device");
    case Name:
        return tr("Parameter");
    case Unit:
        return tr("Unit");
    case Message:
        return tr("Message");
    case Byte:
        return tr("Byte");
    case Bits:
        return tr("Bits");
    case Factor:
        return tr("Factor");
    case Offset:
        return tr("Offset");
    case Enumeration:
        return tr("Enumeration");
    case Limits:
        return tr("Limits");
    case Role:
        return tr("Role");
    default:
        return {};
    }
}

} // namespace KOLT
