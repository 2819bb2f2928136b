#include "QBBenutzerEinstellungen.h"

#include <QCoreApplication>
#include <QSettings>
#include <QThread>
#include <QVariant>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <type_traits>

namespace {

// The keys of the settings file. Each is the name of its property.
namespace Key {
constexpr char datenbankWurdeNeuImportiert[] = "datenbankWurdeNeuImportiert";
constexpr char deaktiviereFaelligeRechnungsMitteilungen[] = "deaktiviereFaelligeRechnungsMitteilungen";
constexpr char zeigeErklaerungstexte[] = "zeigeErklaerungstexte";
constexpr char zeitFormat24h[] = "zeitFormat24h";
constexpr char zeitFormatDezimal[] = "zeitFormatDezimal";
constexpr char singleRecordModeActivated[] = "singleRecordModeActivated";
constexpr char calendarWeekModeActivated[] = "calendarWeekModeActivated";
constexpr char verwendeiCloudSync[] = "verwendeiCloudSync";
constexpr char versteckeArchivierteObjekte[] = "versteckeArchivierteObjekte";
constexpr char seperatorComma[] = "seperatorComma";
constexpr char pdfExportRevenue[] = "pdfExportRevenue";
constexpr char pdfExportNotes[] = "pdfExportNotes";
constexpr char pdfExportLayout[] = "pdfExportLayout";
constexpr char pdfDocumentSizeIsLetter[] = "pdfDocumentSizeIsLetter";
constexpr char backgroundColor[] = "backgroundColor";
constexpr char backgroundColorRechnungen[] = "backgroundColorRechnungen";
constexpr char startHelperAtLogin[] = "startHelperAtLogin";
constexpr char rechnungsNummernMigriert[] = "rechnungsNummernMigriert";
constexpr char anzahlAppStarts[] = "anzahlAppStarts";
constexpr char appVersion[] = "appVersion";
constexpr char dokumentenNummerSequence[] = "dokumentenNummerSequence";
constexpr char daysToDisplayInNotificationCenter[] = "daysToDisplayInNotificationCenter";
constexpr char mahnungZahlungsfristTage[] = "mahnungZahlungsfristTage";
constexpr char syncServerAdresse[] = "syncServerAdresse";
} // namespace Key

// First-start values that are not false or zero.
constexpr int kStandardFarbeRechnungen = 43;
constexpr int kStandardTageInMitteilungen = 5;
const char *const kStandardAppVersion = "1.3";

// A boolean as any earlier writer may have left it: a bool, "true"/"false", "yes"/"no", or a
// number where anything but zero is true. Missing or unreadable entries are false.
bool leseWahrheitswert(const QSettings &store, const char *key)
{
    const QVariant value = store.value(key);
    if (!value.isValid())
        return false;
    if (value.typeId() == QMetaType::Bool)
        return value.toBool();
    const QString text = value.toString().trimmed().toLower();
    if (text == u"true" || text == u"yes")
        return true;
    const std::optional<Decimal> number = Decimal::parse(text.toStdString());
    return number && !number->isZero();
}

// A number from its decimal text; ints and doubles that another writer stored read through
// their shortest text, which is the number they hold. A bool is not taken as a number.
Decimal leseZahl(const QSettings &store, const char *key, const Decimal &standard)
{
    const QVariant value = store.value(key);
    if (!value.isValid() || value.typeId() == QMetaType::Bool)
        return standard;
    const std::optional<Decimal> number = Decimal::parse(value.toString().trimmed().toStdString());
    return number.value_or(standard);
}

// A count of days: the whole part of the stored number, held within the bounds; missing or
// unreadable entries give the default.
int leseTage(const QSettings &store, const char *key, int standard)
{
    const Decimal zahl = leseZahl(store, key, Decimal(standard));
    if (zahl.isNaN())
        return standard;
    return static_cast<int>(std::clamp<std::int64_t>(zahl.toInt64(), QBBenutzerEinstellungen::kMinZahlungsfristTage,
                                                     QBBenutzerEinstellungen::kMaxZahlungsfristTage));
}

QString leseText(const QSettings &store, const char *key, const QString &standard)
{
    const QVariant value = store.value(key);
    // An unquoted text with commas comes back from an INI file as a list; that is not a
    // version we wrote.
    if (!value.isValid() || value.typeId() == QMetaType::QStringList)
        return standard;
    return value.toString();
}

void schreibeZahl(QSettings &store, const char *key, const Decimal &value)
{
    store.setValue(key, QString::fromStdString(value.toString()));
}

// Assigns and reports whether the value changed. Two NaNs count as the same value, so setting
// NaN twice notifies once.
template <typename T>
bool uebernimm(T &field, const T &value)
{
    if constexpr (std::is_same_v<T, Decimal>) {
        if (field.isNaN() && value.isNaN())
            return false;
    }
    if (field == value)
        return false;
    field = value;
    return true;
}

} // namespace

QBBenutzerEinstellungen *QBBenutzerEinstellungen::sharedInstance()
{
    // The initialisation of a function-local static runs exactly once; threads that arrive
    // while it runs wait for it. The object is deliberately never deleted: it serves until
    // the process ends, also to code that runs during static destruction.
    static QBBenutzerEinstellungen *const instance = [] {
        auto *settings = new QBBenutzerEinstellungen(
            new QSettings(QSettings::NativeFormat, QSettings::UserScope,
                          QCoreApplication::organizationName(), QCoreApplication::applicationName()));
        // Created by whichever thread asked first; it belongs to the main thread, where the
        // interface observes it.
        if (const QCoreApplication *app = QCoreApplication::instance();
            app && settings->thread() != app->thread())
            settings->moveToThread(app->thread());
        return settings;
    }();
    return instance;
}

std::unique_ptr<QBBenutzerEinstellungen> QBBenutzerEinstellungen::withSettingsFile(const QString &iniFilePath)
{
    return std::unique_ptr<QBBenutzerEinstellungen>(
        new QBBenutzerEinstellungen(new QSettings(iniFilePath, QSettings::IniFormat)));
}

QBBenutzerEinstellungen::QBBenutzerEinstellungen(QSettings *store)
    : m_store(store)
{
    m_store->setParent(this);
    ladeBenutzerEinstellungen();
}

QBBenutzerEinstellungen::~QBBenutzerEinstellungen() = default;

QString QBBenutzerEinstellungen::settingsFilePath() const
{
    return m_store->fileName();
}

void QBBenutzerEinstellungen::erstelleBenutzerEinstellungen()
{
    // The list separator starts as a semicolon whatever the locale's decimal separator is:
    // nothing in the application evaluates it, and a fixed default keeps first-start files
    // the same on every machine.
    QSettings &store = *m_store;
    store.setValue(Key::datenbankWurdeNeuImportiert, false);
    store.setValue(Key::deaktiviereFaelligeRechnungsMitteilungen, false);
    store.setValue(Key::zeigeErklaerungstexte, true);
    store.setValue(Key::zeitFormat24h, false);
    store.setValue(Key::zeitFormatDezimal, false);
    store.setValue(Key::singleRecordModeActivated, false);
    store.setValue(Key::calendarWeekModeActivated, false);
    store.setValue(Key::verwendeiCloudSync, false);
    store.setValue(Key::versteckeArchivierteObjekte, false);
    store.setValue(Key::seperatorComma, false);
    store.setValue(Key::pdfExportRevenue, true);
    store.setValue(Key::pdfExportNotes, false);
    schreibeZahl(store, Key::pdfExportLayout, 0);
    store.setValue(Key::pdfDocumentSizeIsLetter, false);
    schreibeZahl(store, Key::backgroundColor, 0);
    schreibeZahl(store, Key::backgroundColorRechnungen, kStandardFarbeRechnungen);
    store.setValue(Key::startHelperAtLogin, false);
    store.setValue(Key::rechnungsNummernMigriert, false);
    schreibeZahl(store, Key::anzahlAppStarts, 0);
    store.setValue(Key::appVersion, QString::fromLatin1(kStandardAppVersion));
    schreibeZahl(store, Key::dokumentenNummerSequence, 0);
    schreibeZahl(store, Key::daysToDisplayInNotificationCenter, kStandardTageInMitteilungen);
    schreibeZahl(store, Key::mahnungZahlungsfristTage, kStandardZahlungsfristTage);
    store.setValue(Key::syncServerAdresse, QString());
    store.sync();
}

void QBBenutzerEinstellungen::ladeBenutzerEinstellungen()
{
    const QSettings &store = *m_store;
    if (!store.contains(Key::anzahlAppStarts))
        erstelleBenutzerEinstellungen();

    setDokumentenNummerSequence(leseZahl(store, Key::dokumentenNummerSequence, 0));
    setAnzahlAppStarts(leseZahl(store, Key::anzahlAppStarts, 0));
    setAppVersion(leseText(store, Key::appVersion, QString::fromLatin1(kStandardAppVersion)));
    setRechnungsNummernMigriert(leseWahrheitswert(store, Key::rechnungsNummernMigriert));
    setDatenbankWurdeNeuImportiert(leseWahrheitswert(store, Key::datenbankWurdeNeuImportiert));
    setDeaktiviereFaelligeRechnungsMitteilungen(
        leseWahrheitswert(store, Key::deaktiviereFaelligeRechnungsMitteilungen));
    setZeigeErklaerungstexte(leseWahrheitswert(store, Key::zeigeErklaerungstexte));
    setZeitFormat24h(leseWahrheitswert(store, Key::zeitFormat24h));
    setZeitFormatDezimal(leseWahrheitswert(store, Key::zeitFormatDezimal));
    setSingleRecordModeActivated(leseWahrheitswert(store, Key::singleRecordModeActivated));
    setCalendarWeekModeActivated(leseWahrheitswert(store, Key::calendarWeekModeActivated));
    setVerwendeiCloudSync(leseWahrheitswert(store, Key::verwendeiCloudSync));
    setVersteckeArchivierteObjekte(leseWahrheitswert(store, Key::versteckeArchivierteObjekte));
    setSeperatorComma(leseWahrheitswert(store, Key::seperatorComma));
    setPdfExportRevenue(leseWahrheitswert(store, Key::pdfExportRevenue));
    setPdfExportNotes(leseWahrheitswert(store, Key::pdfExportNotes));
    setPdfExportLayout(leseZahl(store, Key::pdfExportLayout, 0));
    setPdfDocumentSizeIsLetter(leseWahrheitswert(store, Key::pdfDocumentSizeIsLetter));
    setBackgroundColor(leseZahl(store, Key::backgroundColor, 0));
    setBackgroundColorRechnungen(leseZahl(store, Key::backgroundColorRechnungen, kStandardFarbeRechnungen));
    setStartHelperAtLogin(leseWahrheitswert(store, Key::startHelperAtLogin));
    setDaysToDisplayInNotificationCenter(
        leseZahl(store, Key::daysToDisplayInNotificationCenter, kStandardTageInMitteilungen));
    setMahnungZahlungsfristTage(leseTage(store, Key::mahnungZahlungsfristTage, kStandardZahlungsfristTage));
    setSyncServerAdresse(leseText(store, Key::syncServerAdresse, QString()));
}

void QBBenutzerEinstellungen::sichereBenutzerEinstellungen()
{
    QSettings &store = *m_store;
    store.setValue(Key::datenbankWurdeNeuImportiert, m_datenbankWurdeNeuImportiert);
    store.setValue(Key::deaktiviereFaelligeRechnungsMitteilungen, m_deaktiviereFaelligeRechnungsMitteilungen);
    store.setValue(Key::zeigeErklaerungstexte, m_zeigeErklaerungstexte);
    store.setValue(Key::zeitFormat24h, m_zeitFormat24h);
    store.setValue(Key::zeitFormatDezimal, m_zeitFormatDezimal);
    store.setValue(Key::singleRecordModeActivated, m_singleRecordModeActivated);
    store.setValue(Key::calendarWeekModeActivated, m_calendarWeekModeActivated);
    store.setValue(Key::verwendeiCloudSync, m_verwendeiCloudSync);
    store.setValue(Key::versteckeArchivierteObjekte, m_versteckeArchivierteObjekte);
    store.setValue(Key::seperatorComma, m_seperatorComma);
    store.setValue(Key::pdfExportRevenue, m_pdfExportRevenue);
    store.setValue(Key::pdfExportNotes, m_pdfExportNotes);
    schreibeZahl(store, Key::pdfExportLayout, m_pdfExportLayout);
    store.setValue(Key::pdfDocumentSizeIsLetter, m_pdfDocumentSizeIsLetter);
    schreibeZahl(store, Key::backgroundColor, m_backgroundColor);
    schreibeZahl(store, Key::backgroundColorRechnungen, m_backgroundColorRechnungen);
    store.setValue(Key::startHelperAtLogin, m_startHelperAtLogin);
    schreibeZahl(store, Key::anzahlAppStarts, m_anzahlAppStarts);
    store.setValue(Key::appVersion, m_appVersion);
    store.setValue(Key::rechnungsNummernMigriert, m_rechnungsNummernMigriert);
    schreibeZahl(store, Key::daysToDisplayInNotificationCenter, m_daysToDisplayInNotificationCenter);
    schreibeZahl(store, Key::dokumentenNummerSequence, m_dokumentenNummerSequence);
    schreibeZahl(store, Key::mahnungZahlungsfristTage, m_mahnungZahlungsfristTage);
    store.setValue(Key::syncServerAdresse, m_syncServerAdresse);
    store.sync();
}

Decimal QBBenutzerEinstellungen::neueDokumentenNummer()
{
    // Only the whole-number part counts, so a sequence edited to 7.9 continues with 8.
    setDokumentenNummerSequence(Decimal(m_dokumentenNummerSequence.toInt32()) + Decimal(1));
    sichereBenutzerEinstellungen();
    return m_dokumentenNummerSequence;
}

void QBBenutzerEinstellungen::setSeperatorSemikolon(bool value)
{
    setSeperatorComma(!value);
    sichereBenutzerEinstellungen();
}

void QBBenutzerEinstellungen::setSeperatorComma(bool value)
{
    if (uebernimm(m_seperatorComma, value)) {
        Q_EMIT seperatorCommaChanged(value);
        Q_EMIT seperatorSemikolonChanged(!value);
    }
}

void QBBenutzerEinstellungen::setDatenbankWurdeNeuImportiert(bool value)
{
    if (uebernimm(m_datenbankWurdeNeuImportiert, value))
        Q_EMIT datenbankWurdeNeuImportiertChanged(value);
}

void QBBenutzerEinstellungen::setDeaktiviereFaelligeRechnungsMitteilungen(bool value)
{
    if (uebernimm(m_deaktiviereFaelligeRechnungsMitteilungen, value))
        Q_EMIT deaktiviereFaelligeRechnungsMitteilungenChanged(value);
}

void QBBenutzerEinstellungen::setZeigeErklaerungstexte(bool value)
{
    if (uebernimm(m_zeigeErklaerungstexte, value))
        Q_EMIT zeigeErklaerungstexteChanged(value);
}

void QBBenutzerEinstellungen::setZeitFormat24h(bool value)
{
    if (uebernimm(m_zeitFormat24h, value))
        Q_EMIT zeitFormat24hChanged(value);
}

void QBBenutzerEinstellungen::setZeitFormatDezimal(bool value)
{
    if (uebernimm(m_zeitFormatDezimal, value))
        Q_EMIT zeitFormatDezimalChanged(value);
}

void QBBenutzerEinstellungen::setSingleRecordModeActivated(bool value)
{
    if (uebernimm(m_singleRecordModeActivated, value))
        Q_EMIT singleRecordModeActivatedChanged(value);
}

void QBBenutzerEinstellungen::setCalendarWeekModeActivated(bool value)
{
    if (uebernimm(m_calendarWeekModeActivated, value))
        Q_EMIT calendarWeekModeActivatedChanged(value);
}

void QBBenutzerEinstellungen::setVerwendeiCloudSync(bool value)
{
    if (uebernimm(m_verwendeiCloudSync, value))
        Q_EMIT verwendeiCloudSyncChanged(value);
}

void QBBenutzerEinstellungen::setVersteckeArchivierteObjekte(bool value)
{
    if (uebernimm(m_versteckeArchivierteObjekte, value))
        Q_EMIT versteckeArchivierteObjekteChanged(value);
}

void QBBenutzerEinstellungen::setPdfExportRevenue(bool value)
{
    if (uebernimm(m_pdfExportRevenue, value))
        Q_EMIT pdfExportRevenueChanged(value);
}

void QBBenutzerEinstellungen::setPdfExportNotes(bool value)
{
    if (uebernimm(m_pdfExportNotes, value))
        Q_EMIT pdfExportNotesChanged(value);
}

void QBBenutzerEinstellungen::setPdfExportLayout(const Decimal &value)
{
    if (uebernimm(m_pdfExportLayout, value))
        Q_EMIT pdfExportLayoutChanged(value);
}

void QBBenutzerEinstellungen::setPdfDocumentSizeIsLetter(bool value)
{
    if (uebernimm(m_pdfDocumentSizeIsLetter, value))
        Q_EMIT pdfDocumentSizeIsLetterChanged(value);
}

void QBBenutzerEinstellungen::setBackgroundColor(const Decimal &value)
{
    if (uebernimm(m_backgroundColor, value))
        Q_EMIT backgroundColorChanged(value);
}

void QBBenutzerEinstellungen::setBackgroundColorRechnungen(const Decimal &value)
{
    if (uebernimm(m_backgroundColorRechnungen, value))
        Q_EMIT backgroundColorRechnungenChanged(value);
}

void QBBenutzerEinstellungen::setStartHelperAtLogin(bool value)
{
    if (uebernimm(m_startHelperAtLogin, value))
        Q_EMIT startHelperAtLoginChanged(value);
}

void QBBenutzerEinstellungen::setRechnungsNummernMigriert(bool value)
{
    if (uebernimm(m_rechnungsNummernMigriert, value))
        Q_EMIT rechnungsNummernMigriertChanged(value);
}

void QBBenutzerEinstellungen::setAnzahlAppStarts(const Decimal &value)
{
    if (uebernimm(m_anzahlAppStarts, value))
        Q_EMIT anzahlAppStartsChanged(value);
}

void QBBenutzerEinstellungen::setAppVersion(const QString &value)
{
    if (uebernimm(m_appVersion, value))
        Q_EMIT appVersionChanged(value);
}

void QBBenutzerEinstellungen::setDokumentenNummerSequence(const Decimal &value)
{
    if (uebernimm(m_dokumentenNummerSequence, value))
        Q_EMIT dokumentenNummerSequenceChanged(value);
}

void QBBenutzerEinstellungen::setDaysToDisplayInNotificationCenter(const Decimal &value)
{
    if (uebernimm(m_daysToDisplayInNotificationCenter, value))
        Q_EMIT daysToDisplayInNotificationCenterChanged(value);
}

void QBBenutzerEinstellungen::setMahnungZahlungsfristTage(int value)
{
    if (uebernimm(m_mahnungZahlungsfristTage, std::clamp(value, kMinZahlungsfristTage, kMaxZahlungsfristTage)))
        Q_EMIT mahnungZahlungsfristTageChanged(m_mahnungZahlungsfristTage);
}

void QBBenutzerEinstellungen::setSyncServerAdresse(const QString &value)
{
    if (uebernimm(m_syncServerAdresse, value))
        Q_EMIT syncServerAdresseChanged(value);
}
