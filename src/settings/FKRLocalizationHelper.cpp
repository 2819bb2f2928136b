#include "FKRLocalizationHelper.h"

#include "QBKalender.h"
#include "UserLocale.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QMutex>
#include <QTranslator>
#include <QtGlobal>

#include <unicode/datefmt.h>
#include <unicode/dtptngen.h>
#include <unicode/smpdtfmt.h>
#include <unicode/locid.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

#include <memory>

namespace {

enum class Tabelle { Deutsch, Englisch };

QString tabellenPfad(Tabelle tabelle)
{
    return tabelle == Tabelle::Deutsch ? QStringLiteral(":/i18n/velmora_de.qm")
                                       : QStringLiteral(":/i18n/velmora_en.qm");
}

// A table that cannot be loaded stays empty: every lookup then falls back to the user's table,
// which is better than failing, but it means the program was linked without its resources.
QTranslator *ladeTabelle(Tabelle tabelle)
{
    auto *translator = new QTranslator;
    if (!translator->load(tabellenPfad(tabelle)))
        qWarning("Velmora: text table %s is missing", qPrintable(tabellenPfad(tabelle)));
    return translator;
}

// The two document tables are made once for the whole process; the static initialisation is
// thread-safe, so two threads asking at the same moment share one table. They are deliberately
// never destroyed: a QObject torn down during static destruction may outlive the application
// object and its thread data.
const QTranslator *deutscheTabelle()
{
    static const QTranslator *const tabelle = ladeTabelle(Tabelle::Deutsch);
    return tabelle;
}

const QTranslator *englischeTabelle()
{
    static const QTranslator *const tabelle = ladeTabelle(Tabelle::Englisch);
    return tabelle;
}

const QTranslator *dokumentTabelle(std::optional<int> sprache)
{
    if (sprache == 1)
        return deutscheTabelle();
    if (sprache == 2)
        return englischeTabelle();
    return nullptr;
}

icu::DateFormat::EStyle icuStil(DateStyle style)
{
    switch (style) {
    case DateStyle::None:
        return icu::DateFormat::kNone;
    case DateStyle::Short:
        return icu::DateFormat::kShort;
    case DateStyle::Medium:
        return icu::DateFormat::kMedium;
    case DateStyle::Long:
        return icu::DateFormat::kLong;
    case DateStyle::Full:
        return icu::DateFormat::kFull;
    }
    return icu::DateFormat::kNone;
}

icu::Locale datumsLocale(std::optional<int> sprache)
{
    return icu::Locale(FKRLocalizationHelper::dokumentLocaleId(sprache).c_str());
}

} // namespace

QString FKRLocalizationHelper::lokalisierterText(const QString &key, std::optional<int> sprache)
{
    if (const QTranslator *tabelle = dokumentTabelle(sprache)) {
        const QByteArray quelle = key.toUtf8();
        const QString text = tabelle->translate(kContext, quelle.constData());
        if (!text.isEmpty())
            return text;
    }
    return hauptTabellenText(key);
}

QString FKRLocalizationHelper::lokalisierterMonat(const QDateTime &date, std::optional<int> sprache)
{
    if (!date.isValid())
        return {};
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale locale = datumsLocale(sprache);
    const std::unique_ptr<icu::DateTimePatternGenerator> generator(
        icu::DateTimePatternGenerator::createInstance(locale, status));
    if (U_FAILURE(status) || !generator)
        return {};
    const icu::UnicodeString muster = generator->getBestPattern(icu::UnicodeString(u"yyyy-MMM"), status);
    icu::SimpleDateFormat format(muster, locale, status);
    if (U_FAILURE(status))
        return {};
    format.adoptTimeZone(QBKalender::aktuelleZeitzone().release());
    return QBKalender::formatiere(format, date);
}

QString FKRLocalizationHelper::lokalisiertesDatum(const QDateTime &date, DateStyle dateStyle, DateStyle timeStyle,
                                                  std::optional<int> sprache)
{
    // Neither a date nor a time part asked for: the text is empty, as with the platform formatter.
    if (!date.isValid() || (dateStyle == DateStyle::None && timeStyle == DateStyle::None))
        return {};
    std::unique_ptr<icu::DateFormat> format(
        icu::DateFormat::createDateTimeInstance(icuStil(dateStyle), icuStil(timeStyle), datumsLocale(sprache)));
    if (!format)
        return {};
    // The zone of the moment of the call, not the one ICU cached when it was first asked.
    format->adoptTimeZone(QBKalender::aktuelleZeitzone().release());
    icu::UnicodeString text;
    format->format(static_cast<UDate>(date.toMSecsSinceEpoch()), text);
    return QBKalender::text(text);
}

std::string FKRLocalizationHelper::dokumentLocaleId(std::optional<int> sprache)
{
    if (sprache == 2)
        return "en_US";
    if (sprache == 1)
        return "de_DE";
    return UserLocale::icuLocaleId();
}

QString FKRLocalizationHelper::hauptTabellenText(const QString &key)
{
    const QByteArray quelle = key.toUtf8();
    return QCoreApplication::translate(kContext, quelle.constData());
}

void FKRLocalizationHelper::installiereHauptTabelle()
{
    static QMutex mutex;
    static QTranslator *installiert = nullptr;
    static QTranslator *qtTexte = nullptr;

    const QMutexLocker lock(&mutex);
    // The file and print dialogs and the standard buttons are Qt's own: their texts come from
    // Qt's translations, English being their source language.
    if (qtTexte) {
        QCoreApplication::removeTranslator(qtTexte);
        delete qtTexte;
        qtTexte = nullptr;
    }
    if (QLocale().language() == QLocale::German) {
        auto *qt = new QTranslator;
        if (qt->load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"),
                     QLibraryInfo::path(QLibraryInfo::TranslationsPath))
            && QCoreApplication::installTranslator(qt)) {
            qtTexte = qt;
        } else {
            qWarning("Velmora: Qt's German texts are missing, standard dialogs stay English");
            delete qt;
        }
    }
    auto *neu = new QTranslator;
    const Tabelle tabelle = QLocale().language() == QLocale::German ? Tabelle::Deutsch : Tabelle::Englisch;
    if (!neu->load(tabellenPfad(tabelle)) || !QCoreApplication::installTranslator(neu)) {
        qWarning("Velmora: could not install the text table %s", qPrintable(tabellenPfad(tabelle)));
        delete neu;
        return;
    }
    // The new table is in place before the old one goes, so a lookup in between never falls
    // back to the bare key.
    if (installiert) {
        QCoreApplication::removeTranslator(installiert);
        delete installiert;
    }
    installiert = neu;
}
