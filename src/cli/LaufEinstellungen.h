#pragma once

#include <QLocale>
#include <QString>

#include <optional>

// What a velmora-cli run changes about the user's environment for itself only: the paper size
// (the setting pdfDocumentSizeIsLetter) and the user's locale, which decides how amounts are
// written and which language the program's own texts are in. Both are process-wide, so the
// object puts back what it found when it goes; the paper size is never saved to the user's
// settings file.
class LaufEinstellungen
{
public:
    LaufEinstellungen();
    ~LaufEinstellungen();
    LaufEinstellungen(const LaufEinstellungen &) = delete;
    LaufEinstellungen &operator=(const LaufEinstellungen &) = delete;

    // Letter paper instead of the user's stored choice.
    void setzeLetter();

    // The locale of a name such as "de_DE", "en_US", "fr_CH" or "de" (a "-" instead of "_" and
    // a ".UTF-8" suffix are accepted); nullopt when the name is malformed or names no locale
    // known to the program.
    static std::optional<QLocale> localeAusName(const QString &name);
    // Makes `locale` the user's locale: amounts, dates and the program's text table follow it.
    void setzeLocale(const QLocale &locale);

private:
    bool m_letterVorher;
    std::optional<QLocale> m_localeVorher;
};
