#pragma once

#include <QHash>
#include <QString>

#include <vector>

namespace Zinc2D {

/// Something in a view file that cannot be used as it stands. Line and column count from 1.
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

/// The text of a view file, and where things stand in it.
class ViewSource
{
public:
    ViewSource() = default;
    ViewSource(QString file, QString text);

    const QString& text() const { return m_text; }

    Diagnostic diagnostic(qsizetype offset, const QString& message) const;

    /// Where the values of the attributes of a start tag begin, which starts at the offset.
    QHash<QString, qsizetype> attributeOffsets(qsizetype tagStart) const;

    /// Goes from the beginning of an attribute's value over so many of its characters: an entity
    /// such as "&lt;" is one.
    qsizetype offsetInValue(qsizetype valueStart, qsizetype characters) const;

private:
    QString m_file;
    QString m_text;
    std::vector<qsizetype> m_lineStarts;
};

} // namespace Zinc2D
