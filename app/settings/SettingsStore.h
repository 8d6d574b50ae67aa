#pragma once

#include <QByteArray>
#include <QString>

#include <map>
#include <set>
#include <utility>

class QDomDocument;

namespace KOLT {

/// The settings: a flat table of named texts, kept in an XML file (docs/formats/settings.md).
///
/// Nothing is saved implicitly: whoever changes a value calls save(). Several processes may share
/// the file: a save writes the values that this process has set and keeps the others in the file. A
/// file that cannot be parsed is first moved aside to "<name>.broken". GUI thread only.
class SettingsStore
{
public:
    static SettingsStore& instance();

    SettingsStore() = default;
    SettingsStore(const SettingsStore&) = delete;
    SettingsStore& operator=(const SettingsStore&) = delete;

    /// Changing the file marks all values as set by this process, so that save() writes them.
    void setFileName(const QByteArray& path);

    const QByteArray& fileName() const { return m_fileName; }

    /// Adds the file's values to the table, replacing those of the same key. Always true; a missing
    /// or broken file is logged and adds nothing.
    bool load();

    /// Replaces the file; empty values are left out. Values in the file that this process has not
    /// set are kept in it, but not taken over into the table. False when the file could not be
    /// written; the old file is then unchanged.
    bool save();

    /// The file exists but could not be parsed.
    bool isBroken() const { return m_isBroken; }

    /// Path under which a broken file was kept since the last call; empty when there was none.
    QString takeKeptCopy() { return std::exchange(m_keptCopy, {}); }

    /// A missing key gives the fallback. Numbers are parsed as by strtol and strtod: leading digits
    /// count, text without digits is 0. A boolean is true only for "true", "TRUE" and "True".
    QByteArray getText(const QByteArray& key, const QByteArray& fallback = {}) const;
    int getInteger(const QByteArray& key, int fallback) const;
    bool getBoolean(const QByteArray& key, bool fallback) const;
    double getDouble(const QByteArray& key, double fallback) const;

    void setText(const QByteArray& key, const QByteArray& value);
    void setInteger(const QByteArray& key, int value);
    void setBoolean(const QByteArray& key, bool value);
    /// As the shortest text that reads as the same number.
    void setDouble(const QByteArray& key, double value);

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
