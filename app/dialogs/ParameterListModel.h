#pragma once

#include "profile/Profile.h"

#include <QAbstractTableModel>

namespace KOLT {

/// The parameters of a profile in file order, with their place in the messages.
class ParameterListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column {
        Device,
        Name,
        Unit,
        Message,
        Byte,
        Bits,
        Factor,
        Offset,
        Enumeration,
        Limits,
        Role,
        ColumnCount
    };

    explicit ParameterListModel(const Profile& profile, QObject* parent = nullptr)
        : QAbstractTableModel(parent)
        , m_profile(profile)
    {
    }

    /// Call after the profile was reloaded, before the model is used again.
    void refresh();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    QVariant cell(const ProfileParameter& parameter, int column) const;

    const Profile& m_profile;
};

} // namespace KOLT
