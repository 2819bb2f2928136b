#pragma once

#include "DateStyle.h"

#include <QDateTime>
#include <QString>

#include <optional>
#include <string>

// Texts and dates in a document's own language. A document written in English by a German user
// takes its labels from the English table; texts of the application itself (alerts, buttons,
// help) follow the user's language through the main table.
//
// All keys live in the translation context kContext. Tables: "de" (German) and "Base" (English),
// compiled from resources/translations and embedded into the program.
//
// Keys with arguments use QString::arg placeholders; fill them with the multi-argument overload
// (one pass, so an argument that itself contains "%1" is left alone):
//   "HTML_TOKEN_SKONTO_SATZ"  %1 the last day of the cash-discount period (lokalisiertesDatum),
//                             %2 the rate as a formatted number without "%" (the text adds it),
//                             %3 the discount amount, %4 the amount payable after the discount;
//                             lokalisierterText(key, sprache).arg(datum, prozent, skonto, rest).
//   "STORE_ERROR_…"           %1 the path of the store file, %2 the reason the database gave.
//   "MAHNUNG_NUMMER_VOM"      %1 the number of the reminded document, %2 its date;
//   "MAHNUNG_TEXT_…"          %1 that reference (or the number alone), %2 the date it was due.
// Some keys begin or end with a blank that the caller relies on when joining texts, for example
// "PDF_EXPORT_SEITENNUMMER" ("Seite ", then the number), "Umsatzsteuer " (then the rate) and
// " ist fällig am ". "Kopie" carries its own leading blank, because a duplicate's number is the
// source number followed directly by it. Literal keys passed to lokalisierterText,
// hauptTabellenText, QCoreApplication::translate with kContext, tr, QT_TR_NOOP and
// QT_TRANSLATE_NOOP under src/ are checked against both tables by the test suite; a key kept in
// a variable or table should be marked with QT_TRANSLATE_NOOP and the context kContext spelled
// out as "Velmora", so that the check sees it.
// tr() inside a Q_OBJECT class looks in that class's context, not in kContext.
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

    // Month and year of the date in the document's language, from the localised template
    // "yyyy-MMM" ("Nov. 2026" in German, "Nov 2026" in English); locales as lokalisiertesDatum.
    static QString lokalisierterMonat(const QDateTime &date, std::optional<int> sprache);

    // The ICU locale of a document's dates and numbers: sprache 2 "en_US", 1 "de_DE", anything
    // else the user's current locale.
    static std::string dokumentLocaleId(std::optional<int> sprache);

    // The user's main table: the text of the key in the user's language, the key itself when missing.
    static QString hauptTabellenText(const QString &key);

    // Loads the table of the user's language (German for a German locale, English otherwise)
    // into the application so that hauptTabellenText and tr() find it. Safe to call again after
    // the user's locale changed; tests use it to switch the user's language.
    static void installiereHauptTabelle();
};
