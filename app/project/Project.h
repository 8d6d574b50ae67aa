#pragma once

#include "base/SafeFile.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <map>

namespace KOLT {

class Profile;

/// The selected parameters and a list of CAN properties, kept in a project file
/// (docs/formats/project.md). Process-wide.
///
/// The selection itself is kept in the selected flags of the profile's parameters: reading sets
/// them from the file's names, writing takes them as they are. A name that the profile does not
/// know selects nothing and is dropped by the next write.
class Project
{
public:
    static Project& instance();

    /// The profile that holds the selection, or null. It must outlive its use here.
    void setProfile(Profile* profile) { m_profile = profile; }

    /// Replaces the content by the file's and applies it. Zero when the file cannot be read: the
    /// content is then empty and the profile's selection unchanged.
    int read(const QString& path);

    /// Always true; see lastWrite() for the result. Failures are also logged.
    bool write(const QString& path);

    /// A project file with these parameters, by their full names.
    static QByteArray contentFor(const QStringList& fullNames);

    /// Result of the last write.
    const WriteResult& lastWrite() const { return m_lastWrite; }

    /// Empties the content and deselects every parameter.
    void clear();

    /// The names in the last file read, including those that the profile does not have.
    const std::map<QByteArray, int>& names() const { return m_names; }

    /// Selects exactly the parameters whose names are part of the project.
    void applySelection() const;

private:
    Profile* m_profile = nullptr;
    std::map<QByteArray, int> m_names; ///< a set; the number is always 0
    std::map<QByteArray, QByteArray> m_canProperties;
    WriteResult m_lastWrite;
};

} // namespace KOLT
