#include "StoreColumns.h"

#include "EntityDescription.h"
#include "SqliteDatabase.h"

QString StoreColumns::quoted(const QString &identifier)
{
    return QLatin1Char('"') + identifier + QLatin1Char('"');
}

QString StoreColumns::columnType(AttributeKind kind)
{
    switch (kind) {
    case AttributeKind::Flag:
    case AttributeKind::Integer:
    case AttributeKind::Date:
        return QStringLiteral("INTEGER");
    case AttributeKind::DecimalNum:
    case AttributeKind::Text:
        return QStringLiteral("TEXT");
    case AttributeKind::Binary:
        return QStringLiteral("BLOB");
    }
    return QStringLiteral("BLOB");
}

QString StoreColumns::sqlLiteral(const AttributeValue &value)
{
    if (const bool *b = std::get_if<bool>(&value))
        return *b ? QStringLiteral("1") : QStringLiteral("0");
    if (const qint64 *n = std::get_if<qint64>(&value))
        return QString::number(*n);
    QString text;
    if (const Decimal *d = std::get_if<Decimal>(&value))
        text = QString::fromStdString(d->toString());
    else if (const QString *s = std::get_if<QString>(&value))
        text = *s;
    else
        return QString();
    return QLatin1Char('\'') + text.replace(QLatin1Char('\''), QStringLiteral("''")) + QLatin1Char('\'');
}

QString StoreColumns::columnDefinition(const AttributeDescription &attribute)
{
    QString definition = quoted(attribute.name) + QLatin1Char(' ') + columnType(attribute.kind);
    const QString literal = sqlLiteral(attribute.defaultValue);
    if (!literal.isEmpty())
        definition += QStringLiteral(" DEFAULT ") + literal;
    return definition;
}

QStringList StoreColumns::foreignKeyColumns(const EntityDescription &entity)
{
    QStringList columns;
    for (const RelationshipDescription &relationship : entity.relationships()) {
        if (!relationship.toMany)
            columns.append(relationship.name);
    }
    return columns;
}

AttributeValue StoreColumns::readColumn(const SqliteStatement &row, int column, AttributeKind kind)
{
    if (row.isNull(column))
        return AttributeValue();
    switch (kind) {
    case AttributeKind::Flag:
        return AttributeValue(row.columnInt(column) != 0);
    case AttributeKind::Integer:
        return AttributeValue(row.columnInt(column));
    case AttributeKind::DecimalNum: {
        // Text as written; a number column of an older store reads through its text too.
        const auto d = Decimal::parse(row.columnUtf8(column));
        return d ? AttributeValue(*d) : AttributeValue();
    }
    case AttributeKind::Text:
        return AttributeValue(row.columnText(column));
    case AttributeKind::Date:
        return AttributeValue(QDateTime::fromMSecsSinceEpoch(row.columnInt(column)));
    case AttributeKind::Binary:
        return AttributeValue(BlobFault{}); // the SELECT only asked whether there is one
    }
    return AttributeValue();
}

void StoreColumns::bindValue(SqliteStatement &statement, int index, const AttributeValue &value)
{
    std::visit(
        [&](const auto &v) {
            using T = std::decay_t<decltype(v)>;
            if constexpr (std::is_same_v<T, bool>)
                statement.bindInt(index, v ? 1 : 0);
            else if constexpr (std::is_same_v<T, qint64>)
                statement.bindInt(index, v);
            else if constexpr (std::is_same_v<T, Decimal>)
                statement.bindText(index, QString::fromStdString(v.toString()));
            else if constexpr (std::is_same_v<T, QString>)
                statement.bindText(index, v);
            else if constexpr (std::is_same_v<T, QDateTime>)
                statement.bindInt(index, v.toMSecsSinceEpoch());
            else if constexpr (std::is_same_v<T, QByteArray>)
                statement.bindBlob(index, v);
            else
                statement.bindNull(index);
        },
        value);
}
