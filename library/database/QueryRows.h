#pragma once

#include "library/database/LibraryDatabase.h"

#include <QSqlError>
#include <QSqlQuery>

namespace KOLT::Library {

/// The rows of a statement, each made by `make(query)`.
template <typename Row, typename Make>
Answer<std::vector<Row>> rowsOf(LibraryDatabase& database, const QString& sql,
                                const QVariantList& values, Make&& make)
{
    QSqlQuery query = database.select(sql, values);
    if (!query.isActive())
        return {{}, database.error()};
    Answer<std::vector<Row>> answer;
    while (query.next())
        answer.value.push_back(make(query));
    if (query.lastError().isValid())
        return {{}, query.lastError().text()};
    return answer;
}

/// With a limit, unless it is below 0.
inline QString limitedSql(const QString& sql, int limit)
{
    return limit < 0 ? sql : QStringLiteral("%1 LIMIT %2").arg(sql).arg(limit);
}

} // namespace KOLT::Library
