#pragma once

#include "base/SafeFile.h"

#include <QByteArray>
#include <QString>

#include <map>

namespace KOLT {

class Profile;

/// The user's selection of parameters and a list of CAN properties, kept in a project file
/// (docs/formats/project.md). Process-wide.
///
/// The selection itself lives in the active profile's parameters: reading copies the file's names
/// into their selected flags, writing takes the flags as they are. A name that the profile does not
/// know selects nothing and is dropped by the next write.
class Project
{
public:
    static Project& instance();

    /// The profile that carries the selection; it must outlive its use here. Null: none.
    void setProfile(Profile* profile) { m_profile = profile; }

    /// Replaces the content by the file's and applies it. Zero when the file cannot be read: the
    /// content is then empty, and the profile's selection is as it was.
    int read(const QString& path);

    /// Always true; a file that cannot be written is logged, and lastWrite() tells.
    bool write(const QString& path);

    /// Whether the last write reached the disk.
    const WriteResult& lastWrite() const { return m_lastWrite; }

    /// Empties the content and deselects every parameter.
    void clear();

    /// The names of the file that was read last; also those that the profile does not have.
    const std::map<QByteArray, int>& names() const { return m_names; }

    /// Sets every parameter's selected flag to whether its name is part of the project.
    void applySelection() const;

private:
    Profile* m_profile = nullptr;
    std::map<QByteArray, int> m_names; ///< a set; the number is always 0
    std::map<QByteArray, QByteArray> m_canProperties;
    WriteResult m_lastWrite;
};

} // namespace KOLT
