#pragma once

#include "DecimalMetaType.h"

#include <QObject>
#include <QString>

#include <memory>

class QSettings;

// The user's preferences and a few counters of the application, kept in the per-user settings
// file (INI under $XDG_CONFIG_HOME/<organisation>/<application>.conf). One object per process,
// reached through sharedInstance().
//
// Every stored property has a key of exactly its own name; some names carry historical spellings
// (seperatorComma, verwendeiCloudSync) that existing settings files use, so they must stay.
// Setters only change the object and notify; values reach the file through
// sichereBenutzerEinstellungen(). The exceptions are setSeperatorSemikolon() and
// neueDokumentenNummer(), which save at once.
//
// Numbers are Decimals (the dunning letter's days of grace a whole number) and are written as their plain decimal text ("43", "0.5"), never through
// double, so a value read back is exactly the value written. Reading also accepts whatever
// numeric text another writer left behind ("43.0", "4.3e1"); an entry that is missing or does
// not read as a number gives the property's default. Booleans that are missing or unreadable
// read as false.
//
// The object lives on the application's main thread; its properties are not locked.
class QBBenutzerEinstellungen : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool datenbankWurdeNeuImportiert READ datenbankWurdeNeuImportiert
               WRITE setDatenbankWurdeNeuImportiert NOTIFY datenbankWurdeNeuImportiertChanged)
    Q_PROPERTY(bool deaktiviereFaelligeRechnungsMitteilungen READ deaktiviereFaelligeRechnungsMitteilungen
               WRITE setDeaktiviereFaelligeRechnungsMitteilungen NOTIFY deaktiviereFaelligeRechnungsMitteilungenChanged)
    Q_PROPERTY(bool zeigeErklaerungstexte READ zeigeErklaerungstexte
               WRITE setZeigeErklaerungstexte NOTIFY zeigeErklaerungstexteChanged)
    Q_PROPERTY(bool zeitFormat24h READ zeitFormat24h
               WRITE setZeitFormat24h NOTIFY zeitFormat24hChanged)
    Q_PROPERTY(bool zeitFormatDezimal READ zeitFormatDezimal
               WRITE setZeitFormatDezimal NOTIFY zeitFormatDezimalChanged)
    Q_PROPERTY(bool singleRecordModeActivated READ singleRecordModeActivated
               WRITE setSingleRecordModeActivated NOTIFY singleRecordModeActivatedChanged)
    Q_PROPERTY(bool calendarWeekModeActivated READ calendarWeekModeActivated
               WRITE setCalendarWeekModeActivated NOTIFY calendarWeekModeActivatedChanged)
    Q_PROPERTY(bool verwendeiCloudSync READ verwendeiCloudSync
               WRITE setVerwendeiCloudSync NOTIFY verwendeiCloudSyncChanged)
    Q_PROPERTY(bool versteckeArchivierteObjekte READ versteckeArchivierteObjekte
               WRITE setVersteckeArchivierteObjekte NOTIFY versteckeArchivierteObjekteChanged)
    Q_PROPERTY(bool seperatorComma READ seperatorComma
               WRITE setSeperatorComma NOTIFY seperatorCommaChanged)
    Q_PROPERTY(bool pdfExportRevenue READ pdfExportRevenue
               WRITE setPdfExportRevenue NOTIFY pdfExportRevenueChanged)
    Q_PROPERTY(bool pdfExportNotes READ pdfExportNotes
               WRITE setPdfExportNotes NOTIFY pdfExportNotesChanged)
    Q_PROPERTY(Decimal pdfExportLayout READ pdfExportLayout
               WRITE setPdfExportLayout NOTIFY pdfExportLayoutChanged)
    Q_PROPERTY(bool pdfDocumentSizeIsLetter READ pdfDocumentSizeIsLetter
               WRITE setPdfDocumentSizeIsLetter NOTIFY pdfDocumentSizeIsLetterChanged)
    Q_PROPERTY(Decimal backgroundColor READ backgroundColor
               WRITE setBackgroundColor NOTIFY backgroundColorChanged)
    Q_PROPERTY(Decimal backgroundColorRechnungen READ backgroundColorRechnungen
               WRITE setBackgroundColorRechnungen NOTIFY backgroundColorRechnungenChanged)
    Q_PROPERTY(bool startHelperAtLogin READ startHelperAtLogin
               WRITE setStartHelperAtLogin NOTIFY startHelperAtLoginChanged)
    Q_PROPERTY(bool rechnungsNummernMigriert READ rechnungsNummernMigriert
               WRITE setRechnungsNummernMigriert NOTIFY rechnungsNummernMigriertChanged)
    Q_PROPERTY(Decimal anzahlAppStarts READ anzahlAppStarts
               WRITE setAnzahlAppStarts NOTIFY anzahlAppStartsChanged)
    Q_PROPERTY(QString appVersion READ appVersion
               WRITE setAppVersion NOTIFY appVersionChanged)
    Q_PROPERTY(Decimal dokumentenNummerSequence READ dokumentenNummerSequence
               WRITE setDokumentenNummerSequence NOTIFY dokumentenNummerSequenceChanged)
    Q_PROPERTY(Decimal daysToDisplayInNotificationCenter READ daysToDisplayInNotificationCenter
               WRITE setDaysToDisplayInNotificationCenter NOTIFY daysToDisplayInNotificationCenterChanged)
    // Days of grace a dunning letter gives, counted from the day it is written: a whole number
    // within kMinZahlungsfristTage..kMaxZahlungsfristTage, kStandardZahlungsfristTage at first.
    Q_PROPERTY(int mahnungZahlungsfristTage READ mahnungZahlungsfristTage
               WRITE setMahnungZahlungsfristTage NOTIFY mahnungZahlungsfristTageChanged)
    // The sync server as a libpq connection string, never with a password (that is in libpq's
    // password file); empty: none chosen.
    Q_PROPERTY(QString syncServerAdresse READ syncServerAdresse
               WRITE setSyncServerAdresse NOTIFY syncServerAdresseChanged)
    // The negated view of seperatorComma; not a key of its own.
    Q_PROPERTY(bool seperatorSemikolon READ seperatorSemikolon
               WRITE setSeperatorSemikolon NOTIFY seperatorSemikolonChanged STORED false)

public:
    static constexpr int kMinZahlungsfristTage = 0;
    static constexpr int kMaxZahlungsfristTage = 365;
    static constexpr int kStandardZahlungsfristTage = 14;

    // The settings of this process, in the file named by the application's organisation and
    // application names, which must be set before the first call. Created and loaded on first
    // call; concurrent first calls from several threads get the same object. Never deleted.
    static QBBenutzerEinstellungen *sharedInstance();

    // A separate object over the given INI file, for tests and tools that must not touch the
    // user's own settings. Loads (and on a file without settings first writes the defaults)
    // like the shared object.
    static std::unique_ptr<QBBenutzerEinstellungen> withSettingsFile(const QString &iniFilePath);

    ~QBBenutzerEinstellungen() override;
    Q_DISABLE_COPY_MOVE(QBBenutzerEinstellungen)

    // Path of the file the settings live in.
    QString settingsFilePath() const;

    // Writes every key's first-start default into the file and flushes it. Does not load.
    void erstelleBenutzerEinstellungen();
    // Fills every property from the file. A file without "anzahlAppStarts" has never been
    // written, so the defaults are written first.
    void ladeBenutzerEinstellungen();
    // Writes every stored property into the file and flushes it to disk.
    void sichereBenutzerEinstellungen();
    // Advances dokumentenNummerSequence by one from its whole-number part, saves and returns
    // the new value: 1 on a fresh installation.
    Decimal neueDokumentenNummer();

    bool datenbankWurdeNeuImportiert() const { return m_datenbankWurdeNeuImportiert; }
    bool deaktiviereFaelligeRechnungsMitteilungen() const { return m_deaktiviereFaelligeRechnungsMitteilungen; }
    bool zeigeErklaerungstexte() const { return m_zeigeErklaerungstexte; }
    bool zeitFormat24h() const { return m_zeitFormat24h; }
    bool zeitFormatDezimal() const { return m_zeitFormatDezimal; }
    bool singleRecordModeActivated() const { return m_singleRecordModeActivated; }
    bool calendarWeekModeActivated() const { return m_calendarWeekModeActivated; }
    bool verwendeiCloudSync() const { return m_verwendeiCloudSync; }
    bool versteckeArchivierteObjekte() const { return m_versteckeArchivierteObjekte; }
    bool seperatorComma() const { return m_seperatorComma; }
    bool pdfExportRevenue() const { return m_pdfExportRevenue; }
    bool pdfExportNotes() const { return m_pdfExportNotes; }
    Decimal pdfExportLayout() const { return m_pdfExportLayout; }
    bool pdfDocumentSizeIsLetter() const { return m_pdfDocumentSizeIsLetter; }
    Decimal backgroundColor() const { return m_backgroundColor; }
    Decimal backgroundColorRechnungen() const { return m_backgroundColorRechnungen; }
    bool startHelperAtLogin() const { return m_startHelperAtLogin; }
    bool rechnungsNummernMigriert() const { return m_rechnungsNummernMigriert; }
    Decimal anzahlAppStarts() const { return m_anzahlAppStarts; }
    QString appVersion() const { return m_appVersion; }
    Decimal dokumentenNummerSequence() const { return m_dokumentenNummerSequence; }
    Decimal daysToDisplayInNotificationCenter() const { return m_daysToDisplayInNotificationCenter; }
    int mahnungZahlungsfristTage() const { return m_mahnungZahlungsfristTage; }
    QString syncServerAdresse() const { return m_syncServerAdresse; }
    bool seperatorSemikolon() const { return !m_seperatorComma; }

public Q_SLOTS:
    void setDatenbankWurdeNeuImportiert(bool value);
    void setDeaktiviereFaelligeRechnungsMitteilungen(bool value);
    void setZeigeErklaerungstexte(bool value);
    void setZeitFormat24h(bool value);
    void setZeitFormatDezimal(bool value);
    void setSingleRecordModeActivated(bool value);
    void setCalendarWeekModeActivated(bool value);
    void setVerwendeiCloudSync(bool value);
    void setVersteckeArchivierteObjekte(bool value);
    void setSeperatorComma(bool value);
    void setPdfExportRevenue(bool value);
    void setPdfExportNotes(bool value);
    void setPdfExportLayout(const Decimal &value);
    void setPdfDocumentSizeIsLetter(bool value);
    void setBackgroundColor(const Decimal &value);
    void setBackgroundColorRechnungen(const Decimal &value);
    void setStartHelperAtLogin(bool value);
    void setRechnungsNummernMigriert(bool value);
    void setAnzahlAppStarts(const Decimal &value);
    void setAppVersion(const QString &value);
    void setDokumentenNummerSequence(const Decimal &value);
    void setDaysToDisplayInNotificationCenter(const Decimal &value);
    // A value outside the bounds is taken as the nearest bound.
    void setMahnungZahlungsfristTage(int value);
    void setSyncServerAdresse(const QString &value);
    // Stores the negation in seperatorComma and saves at once.
    void setSeperatorSemikolon(bool value);

Q_SIGNALS:
    void datenbankWurdeNeuImportiertChanged(bool value);
    void deaktiviereFaelligeRechnungsMitteilungenChanged(bool value);
    void zeigeErklaerungstexteChanged(bool value);
    void zeitFormat24hChanged(bool value);
    void zeitFormatDezimalChanged(bool value);
    void singleRecordModeActivatedChanged(bool value);
    void calendarWeekModeActivatedChanged(bool value);
    void verwendeiCloudSyncChanged(bool value);
    void versteckeArchivierteObjekteChanged(bool value);
    void seperatorCommaChanged(bool value);
    void pdfExportRevenueChanged(bool value);
    void pdfExportNotesChanged(bool value);
    void pdfExportLayoutChanged(const Decimal &value);
    void pdfDocumentSizeIsLetterChanged(bool value);
    void backgroundColorChanged(const Decimal &value);
    void backgroundColorRechnungenChanged(const Decimal &value);
    void startHelperAtLoginChanged(bool value);
    void rechnungsNummernMigriertChanged(bool value);
    void anzahlAppStartsChanged(const Decimal &value);
    void appVersionChanged(const QString &value);
    void dokumentenNummerSequenceChanged(const Decimal &value);
    void daysToDisplayInNotificationCenterChanged(const Decimal &value);
    void mahnungZahlungsfristTageChanged(int value);
    void syncServerAdresseChanged(const QString &value);
    // Emitted together with seperatorCommaChanged.
    void seperatorSemikolonChanged(bool value);

private:
    // Takes ownership of the store and loads from it.
    explicit QBBenutzerEinstellungen(QSettings *store);

    QSettings *m_store; // child of this object, so it follows it to the main thread

    bool m_datenbankWurdeNeuImportiert = false;
    bool m_deaktiviereFaelligeRechnungsMitteilungen = false;
    bool m_zeigeErklaerungstexte = true;
    bool m_zeitFormat24h = false;
    bool m_zeitFormatDezimal = false;
    bool m_singleRecordModeActivated = false;
    bool m_calendarWeekModeActivated = false;
    bool m_verwendeiCloudSync = false;
    bool m_versteckeArchivierteObjekte = false;
    bool m_seperatorComma = false;
    bool m_pdfExportRevenue = true;
    bool m_pdfExportNotes = false;
    Decimal m_pdfExportLayout;
    bool m_pdfDocumentSizeIsLetter = false;
    Decimal m_backgroundColor;
    Decimal m_backgroundColorRechnungen = 43;
    bool m_startHelperAtLogin = false;
    bool m_rechnungsNummernMigriert = false;
    Decimal m_anzahlAppStarts;
    QString m_appVersion = QStringLiteral("1.3");
    Decimal m_dokumentenNummerSequence;
    Decimal m_daysToDisplayInNotificationCenter = 5;
    int m_mahnungZahlungsfristTage = kStandardZahlungsfristTage;
    QString m_syncServerAdresse;
};
