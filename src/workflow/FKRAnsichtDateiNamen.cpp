#include "FKRAnsichtDateiNamen.h"

#include "QBDatumsTexte.h"

QString FKRAnsichtDateiNamen::archivDateiName(const QDateTime &moment, const QString &nummer)
{
    return dateiName(QBDatumsTexte::dateiNamenZeitpunkt(moment) + QStringLiteral("-") + nummer
                     + QStringLiteral("-archived.pdf"));
}

QString FKRAnsichtDateiNamen::exportVorschlag(const QDateTime &moment, const QString &nummer)
{
    return dateiName(QBDatumsTexte::dateiNamenZeitpunkt(moment) + QStringLiteral("-") + nummer + QStringLiteral(".pdf"));
}

QString FKRAnsichtDateiNamen::dateiName(const QString &text)
{
    QString name;
    name.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c == u'/' || c == u'\\' || c == u'|')
            name.append(u'-');
        else if (c == u':') {
            if (i + 1 == text.size() || !text.at(i + 1).isSpace())
                name.append(u'.');
        } else if (c != u'*' && c != u'?' && c != u'"' && c != u'<' && c != u'>' && c.isPrint())
            name.append(c);
    }
    return name.trimmed();
}
