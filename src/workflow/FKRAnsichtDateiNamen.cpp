#include "FKRAnsichtDateiNamen.h"

#include "QBDatumsTexte.h"

#include <QUrl>

QString FKRAnsichtDateiNamen::archivDateiName(const QDateTime &moment, const QString &nummer)
{
    const QString name = QBDatumsTexte::formattedShortDateAndTimeString(moment) + QStringLiteral("-") + nummer
                         + QStringLiteral("-archived.pdf");
    // Unreserved characters stay as they are anyway; these are the sub-delimiters and the
    // characters of IPv6 literals a host may hold besides.
    return QString::fromLatin1(QUrl::toPercentEncoding(name, "!$&'()*+,;=:[]"));
}

QString FKRAnsichtDateiNamen::exportVorschlag(const QDateTime &moment, const QString &nummer)
{
    const QString text = QBDatumsTexte::formattedShortDateAndTimeString(moment) + QStringLiteral("-") + nummer
                         + QStringLiteral(".pdf");
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
