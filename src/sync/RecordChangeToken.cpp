#include "RecordChangeToken.h"

#include <QList>

QByteArray RecordChangeToken::toBytes() const
{
    return QByteArray::number(generation) + ':' + QByteArray::number(counter);
}

std::optional<RecordChangeToken> RecordChangeToken::fromBytes(const QByteArray &bytes)
{
    const QList<QByteArray> teile = bytes.split(':');
    if (teile.size() != 2)
        return std::nullopt;
    bool gen = false, zahl = false;
    const RecordChangeToken token{teile[0].toLongLong(&gen), teile[1].toLongLong(&zahl)};
    if (!gen || !zahl || token.generation <= 0 || token.counter < 0)
        return std::nullopt;
    return token;
}
