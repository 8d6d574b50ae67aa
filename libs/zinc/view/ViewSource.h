#pragma once

#include <QHash>
#include <QString>

#include <vector>

namespace Zinc2D {

/// A fault in a view file. Line and column start at 1.
struct Diagnostic
{
    QString file;
    qint64 line = 0;
    qint64 column = 0;
    QString message;

    bool operator==(const Diagnostic&) const = default;

    /// "file:line:column: message"
    QString text() const
    {
        return QStringLiteral("%1:%2:%3: %4").arg(file).arg(line).arg(column).arg(message);
    }
};

/// The text of a view file, and positions in it.
class ViewSource
{
public:
    ViewSource() = default;
    ViewSource(QString file, QString text);

    const QString& text() const { return m_text; }

    Diagnostic diagnostic(qsizetype offset, const QString& message) const;

    /// Offsets of the attribute values of the start tag at `tagStart`, by attribute name.
    QHash<QString, qsizetype> attributeOffsets(qsizetype tagStart) const;

    /// Offset of a character of an attribute value, where an entity such as "&lt;" is one
    /// character.
    qsizetype offsetInValue(qsizetype valueStart, qsizetype characters) const;

private:
    QString m_file;
    QString m_text;
    std::vector<qsizetype> m_lineStarts;
};

} // namespace Zinc2D
