#include "SyncServerAdresse.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QSaveFile>

#include <libpq-fe.h>

namespace {

// The options the user gave, by keyword; nothing when libpq cannot read the text.
std::optional<QMap<QByteArray, QByteArray>> optionen(const QByteArray &adresse, QString *fehler = nullptr)
{
    char *meldung = nullptr;
    PQconninfoOption *alle = PQconninfoParse(adresse.constData(), &meldung);
    if (!alle) {
        if (fehler)
            *fehler = meldung ? QString::fromUtf8(meldung).trimmed() : QStringLiteral("out of memory");
        PQfreemem(meldung);
        return std::nullopt;
    }
    QMap<QByteArray, QByteArray> gesetzt;
    for (PQconninfoOption *o = alle; o->keyword; ++o)
        if (o->val && *o->val)
            gesetzt.insert(o->keyword, o->val);
    PQconninfoFree(alle);
    return gesetzt;
}

// A field of a password-file line: ":" and "\" are escaped.
QByteArray feld(const QByteArray &wert, const char *ersatz)
{
    QByteArray text = wert.isEmpty() ? QByteArray(ersatz) : wert;
    return text.replace('\\', "\\\\").replace(':', "\\:");
}

} // namespace

bool SyncServerAdresse::pruefe(const QByteArray &adresse, QString *fehler)
{
    return optionen(adresse, fehler).has_value();
}

QByteArray SyncServerAdresse::ohnePasswort(const QByteArray &adresse)
{
    const auto gesetzt = optionen(adresse);
    if (!gesetzt)
        return {};
    QByteArray text;
    for (auto it = gesetzt->cbegin(); it != gesetzt->cend(); ++it) {
        if (it.key() == "password")
            continue;
        QByteArray wert = it.value();
        wert.replace('\\', "\\\\").replace('\'', "\\'");
        text += (text.isEmpty() ? "" : " ") + it.key() + "='" + wert + '\'';
    }
    return text;
}

QString SyncServerAdresse::passwortDatei()
{
    const QString gesetzt = qEnvironmentVariable("PGPASSFILE");
    return gesetzt.isEmpty() ? QDir::homePath() + QStringLiteral("/.pgpass") : gesetzt;
}

bool SyncServerAdresse::merkePasswort(const QByteArray &adresse, QString *fehler)
{
    const auto gesetzt = optionen(adresse, fehler);
    if (!gesetzt)
        return false;
    if (!gesetzt->contains("password"))
        return true;
    const QByteArray kopf = feld(gesetzt->value("host"), "localhost") + ':' + feld(gesetzt->value("port"), "5432") + ':'
                            + feld(gesetzt->value("dbname"), "*") + ':' + feld(gesetzt->value("user"), "*") + ':';
    QByteArray inhalt;
    QFile alt(passwortDatei());
    if (alt.open(QIODevice::ReadOnly)) {
        for (const QByteArray &zeile : alt.readAll().split('\n'))
            if (!zeile.isEmpty() && !zeile.startsWith(kopf))
                inhalt += zeile + '\n';
    }
    inhalt += kopf + feld(gesetzt->value("password"), "") + '\n';
    QSaveFile datei(passwortDatei());
    // libpq ignores a password file that others may read.
    if (!datei.open(QIODevice::WriteOnly) || !datei.setPermissions(QFile::ReadOwner | QFile::WriteOwner)
        || datei.write(inhalt) != inhalt.size() || !datei.commit()) {
        if (fehler)
            *fehler = QStringLiteral("cannot write the password file %1: %2").arg(passwortDatei(), datei.errorString());
        return false;
    }
    return true;
}
