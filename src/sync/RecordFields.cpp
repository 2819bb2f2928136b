#include "RecordFields.h"

#include <QJsonDocument>
#include <QJsonObject>

QByteArray RecordFields::toJson(const Record &record)
{
    QJsonObject objekt;
    for (auto it = record.fields().cbegin(); it != record.fields().cend(); ++it) {
        if (const auto *zahl = std::get_if<qint64>(&*it))
            objekt.insert(it.key(), QJsonObject{{QStringLiteral("n"), QString::number(*zahl)}});
        else if (const auto *text = std::get_if<QString>(&*it))
            objekt.insert(it.key(), QJsonObject{{QStringLiteral("t"), *text}});
        else if (const auto *verweis = std::get_if<RecordReference>(&*it))
            objekt.insert(it.key(), QJsonObject{{QStringLiteral("r"), verweis->recordName}});
    }
    return QJsonDocument(objekt).toJson(QJsonDocument::Compact);
}

bool RecordFields::wanted(const QString &key, const QStringList &desiredKeys)
{
    return desiredKeys.isEmpty() || desiredKeys.contains(key);
}

bool RecordFields::addFromJson(Record &record, const QByteArray &json, const QStringList &desiredKeys)
{
    const QJsonObject objekt = QJsonDocument::fromJson(json).object();
    for (auto it = objekt.constBegin(); it != objekt.constEnd(); ++it) {
        if (!wanted(it.key(), desiredKeys))
            continue;
        const QJsonObject wert = it.value().toObject();
        if (wert.contains(u"n")) {
            bool ok = false;
            const qint64 zahl = wert.value(u"n").toString().toLongLong(&ok);
            if (!ok)
                return false;
            record.set(it.key(), zahl);
        } else if (wert.contains(u"t")) {
            record.set(it.key(), wert.value(u"t").toString());
        } else if (wert.contains(u"r")) {
            record.set(it.key(), RecordReference{wert.value(u"r").toString()});
        } else {
            return false;
        }
    }
    return true;
}
