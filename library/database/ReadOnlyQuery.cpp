#include "library/database/LibraryConnection.h"
#include "library/database/LibraryDatabase.h"

#include <QCoreApplication>
#include <QJsonObject>
#include <QSqlField>
#include <QSqlRecord>

#include <algorithm>
#include <array>
#include <cmath>

/// Statements of users.
namespace KOLT::Library {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::LibraryDatabase)
};

constexpr std::array readers{"SELECT", "WITH", "VALUES", "EXPLAIN"};

/// Without the end of the statement and what does not matter around it.
QString bare(const QString& sql)
{
    QString text = sql.trimmed();
    while (text.endsWith(QLatin1Char(';')))
        text = text.chopped(1).trimmed();
    return text;
}

/// Why a statement is refused before any database sees it; empty if it is not. The databases do
/// not write either, but one of them takes several statements at once, which could end the
/// transaction that keeps it from writing, and the other can copy itself into a new file.
QString objectionTo(const QString& sql)
{
    if (sql.contains(QLatin1Char(';')))
        return Text::tr("One statement only: \";\" may stand at its end alone, not in a text "
                        "either");
    qsizetype length = 0;
    while (length < sql.size() && sql[length].isLetter())
        ++length;
    const QString word = sql.left(length).toUpper();
    const bool isReader = std::ranges::any_of(
        readers, [&](const char* reader) { return word == QLatin1String(reader); });
    return isReader ? QString()
                    : Text::tr("Only statements that read are possible: SELECT, WITH, VALUES, "
                               "EXPLAIN");
}

QJsonValue jsonOf(const QVariant& value)
{
    if (value.isNull())
        return QJsonValue::Null;
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return value.toLongLong();
    case QMetaType::Float:
    case QMetaType::Double:
        return std::isfinite(value.toDouble()) ? QJsonValue(value.toDouble())
                                               : QJsonValue(QJsonValue::Null);
    default:
        return value.toString();
    }
}

} // namespace

Answer<QJsonArray> LibraryDatabase::query(const QString& sql)
{
    const QString statement = bare(sql);
    const QString objection = objectionTo(statement);
    if (!objection.isEmpty())
        return {{}, objection};
    if (!beginReading())
        return {{}, m_error};
    Answer<QJsonArray> answer;
    {
        QSqlQuery query = m_connection->select(statement);
        const QSqlRecord columns = query.record();
        while (query.isActive() && query.next()) {
            QJsonObject row;
            for (int i = 0; i < columns.count(); ++i)
                row.insert(columns.fieldName(i), jsonOf(query.value(i)));
            answer.value.append(row);
        }
        const bool isDone = query.isActive() && !query.lastError().isValid();
        if (!isDone)
            answer = {{},
                      Text::tr("The library %1: %2")
                          .arg(m_address.shown(), query.lastError().text().simplified())};
    }
    endReading();
    return answer;
}

} // namespace KOLT::Library
