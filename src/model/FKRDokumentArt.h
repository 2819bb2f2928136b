#pragma once

#include <QCoreApplication>
#include <QString>

#include <optional>

// The five kinds of business document, stored in dokumentArt as their integer code.
enum class FKRDokumentArt { Anschreiben = 1, Angebot = 2, Rechnung = 3, Honorarnote = 4, Mahnung = 5 };

// The key of the type's label ("Rechnung:") that prefixes a new document's number; nullopt for a
// code outside 1..5.
inline std::optional<QString> nummernLabelSchluessel(qint64 code)
{
    switch (code) {
    case 1:
        return QStringLiteral(QT_TRANSLATE_NOOP("Velmora", "Anschreiben:"));
    case 2:
        return QStringLiteral(QT_TRANSLATE_NOOP("Velmora", "Angebot:"));
    case 3:
        return QStringLiteral(QT_TRANSLATE_NOOP("Velmora", "Rechnung:"));
    case 4:
        return QStringLiteral(QT_TRANSLATE_NOOP("Velmora", "Honorarnote:"));
    case 5:
        return QStringLiteral(QT_TRANSLATE_NOOP("Velmora", "Mahnung:"));
    default:
        return std::nullopt;
    }
}
