#pragma once

#include "AttributeValue.h"

#include <QString>
#include <QStringList>

class EntityDescription;
struct AttributeDescription;
class SqliteStatement;

// How attributes map to SQLite columns: their column types and defaults, and the conversion of
// values in both directions. Decimals are exact text, dates milliseconds since 1970 UTC.
class StoreColumns
{
public:
    static QString quoted(const QString &identifier);
    static QString columnType(AttributeKind kind);
    // The value as an SQL literal for a column default; empty when it has none.
    static QString sqlLiteral(const AttributeValue &value);
    static QString columnDefinition(const AttributeDescription &attribute);
    // The to-one relationships, each a column holding the target's primary key.
    static QStringList foreignKeyColumns(const EntityDescription &entity);
    static AttributeValue readColumn(const SqliteStatement &row, int column, AttributeKind kind);
    static void bindValue(SqliteStatement &statement, int index, const AttributeValue &value);
};
