#include "LaufEinstellungen.h"

#include "FKRLocalizationHelper.h"
#include "QBBenutzerEinstellungen.h"

#include <QRegularExpression>

LaufEinstellungen::LaufEinstellungen()
    : m_letterVorher(QBBenutzerEinstellungen::sharedInstance()->pdfDocumentSizeIsLetter())
{
}

LaufEinstellungen::~LaufEinstellungen()
{
    QBBenutzerEinstellungen::sharedInstance()->setPdfDocumentSizeIsLetter(m_letterVorher);
    if (m_localeVorher) {
        QLocale::setDefault(*m_localeVorher);
        FKRLocalizationHelper::installiereHauptTabelle();
    }
}

void LaufEinstellungen::setzeLetter()
{
    // Only the object: the settings reach the file through an explicit save, which no command does.
    QBBenutzerEinstellungen::sharedInstance()->setPdfDocumentSizeIsLetter(true);
}

std::optional<QLocale> LaufEinstellungen::localeAusName(const QString &name)
{
    // language, optional script, optional territory, optional encoding: de, de_DE, sr_Latn_RS,
    // en-US, de_DE.UTF-8.
    static const QRegularExpression form(QStringLiteral(
        "^([A-Za-z]{2,3})(?:[_-]([A-Za-z]{4}))?(?:[_-]([A-Za-z]{2}|[0-9]{3}))?(?:\\.[A-Za-z0-9-]+)?$"));
    const QRegularExpressionMatch teile = form.match(name);
    if (!teile.hasMatch())
        return std::nullopt;
    const QString ohneKodierung = name.section(u'.', 0, 0);
    const QLocale locale(ohneKodierung);
    // Qt answers a name it does not know with the C locale or with the nearest one it has
    // ("de_XX" becomes de_DE); neither is what the user asked for.
    if (locale.language() == QLocale::C || locale.language() == QLocale::AnyLanguage)
        return std::nullopt;
    if (QLocale::codeToLanguage(teile.captured(1).toLower()) != locale.language())
        return std::nullopt;
    const QString gebiet = teile.captured(3);
    if (!gebiet.isEmpty() && QLocale::codeToTerritory(gebiet.toUpper()) != locale.territory())
        return std::nullopt;
    return locale;
}

void LaufEinstellungen::setzeLocale(const QLocale &locale)
{
    if (!m_localeVorher)
        m_localeVorher = QLocale();
    // Every formatter of the user's locale asks the default QLocale at the moment it formats.
    QLocale::setDefault(locale);
    FKRLocalizationHelper::installiereHauptTabelle();
}
