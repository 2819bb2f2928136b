#pragma once

#include "DateStyle.h"

#include <QDateTime>
#include <QString>

#include <optional>

// Texts and dates in a document's own language. A document written in English by a German user
// takes its labels from the English table; texts of the application itself (alerts, buttons,
// help) follow the user's language through the main table.
//
// All keys live in the translation context kContext. Tables: "de" (German) and "Base" (English),
// compiled from resources/translations and embedded into the program.
class FKRLocalizationHelper
{
public:
    static constexpr const char *kContext = "Velmora";

    // sprache 1: German table, 2: English table; a key missing there (or any other language)
    // falls back to the user's main table, and a key missing everywhere is returned unchanged.
    static QString lokalisierterText(const QString &key, std::optional<int> sprache);

    // The date in the given styles: sprache 2 in "en_US", 1 in "de_DE", anything else in the
    // user's current locale. An invalid date gives the empty text.
    static QString lokalisiertesDatum(const QDateTime &date, DateStyle dateStyle, DateStyle timeStyle,
                                      std::optional<int> sprache);

    // The user's main table: the text of the key in the user's language, the key itself when missing.
    static QString hauptTabellenText(const QString &key);

    // Loads the table of the user's language (German for a German locale, English otherwise)
    // into the application so that hauptTabellenText and tr() find it. Safe to call again after
    // the user's locale changed; tests use it to switch the user's language.
    static void installiereHauptTabelle();
};
