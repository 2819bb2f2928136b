#pragma once

#include <QString>

#include <string>

// The user's locale as it is at the moment of the call: the application's default QLocale,
// which follows the desktop's LANG/LC_* settings unless the program sets another one.
// Every "user's locale" formatter asks here, so a changed default takes effect at once.
class UserLocale
{
public:
    // Locale name in ICU/POSIX form, for example "de_DE" or "en_US".
    static std::string icuLocaleId();
    static QString name();
};
