#pragma once

#include <QByteArray>
#include <QString>

#include <map>
#include <set>
#include <utility>

class QDomDocument;

namespace KOLT {

/// The program's settings: a flat table of named texts, kept in an XML file
/// (docs/formats/settings.md).
///
/// Writers call save() right after a change; nothing is saved implicitly. Several processes may
/// share the file: what this one has set wins, what others have set stays in the file. A file that
/// exists but cannot be read as settings is moved aside to "<name>.broken" by a save, so that
/// nothing of it is lost. GUI thread only.
class SettingsStore
{
public:
    static SettingsStore& instance();

    SettingsStore() = default;
    SettingsStore(const SettingsStore&) = delete;
    SettingsStore& operator=(const SettingsStore&) = delete;

    /// With another file, all of the table is new to it.
    void setFileName(const QByteArray& path);

    const QByteArray& fileName() const { return m_fileName; }

    /// Reads the file into the table on top of what is there. Always true: a missing or broken file
    /// is logged and every reader gets its default.
    bool load();

    /// Replaces the file by the whole table, settings with an empty value left out. Of the settings
    /// that this process has not set, those of the file are written, and stay unknown here. False
    /// when the file could not be written; the old file is then untouched.
    bool save();

    /// What stands in the file could not be read as settings.
    bool isBroken() const { return m_isBroken; }

    /// The name of a broken file's copy since the last call; empty when there was none.
    QString takeKeptCopy() { return std::exchange(m_keptCopy, {}); }

    /// An absent key gives the default. Numbers are read as the C library does: leading digits
    /// count, text without digits is 0. A boolean is true only for "true", "TRUE" and "True".
    QByteArray getText(const QByteArray& key, const QByteArray& fallback = {}) const;
    int getInteger(const QByteArray& key, int fallback) const;
    bool getBoolean(const QByteArray& key, bool fallback) const;
    double getDouble(const QByteArray& key, double fallback) const;

    void setText(const QByteArray& key, const QByteArray& value);
    void setInteger(const QByteArray& key, int value);
    void setBoolean(const QByteArray& key, bool value);

private:
    const QByteArray* find(const QByteArray& key) const;
    bool moveBrokenFileAside();
    std::map<QByteArray, QByteArray> valuesToSave(const QDomDocument& former) const;

    QByteArray m_fileName;
    std::map<QByteArray, QByteArray> m_values;
    std::set<QByteArray> m_changed; ///< keys that this process has set
    QString m_keptCopy;
    bool m_isBroken = false;
};

} // namespace KOLT
