#include "FKRDatenbankImport.h"

#include "FKRAlertPresenter.h"
#include "FKRAppDelegate.h"
#include "FKRDatensicherung.h"
#include "FKRStoreEinspielung.h"
#include "FKRSyncKoordinator.h"
#include "FKRUhr.h"
#include "ManagedObject.h"
#include "ManagedObjectContext.h"
#include "ManagedObjectModel.h"
#include "QBBenutzerEinstellungen.h"

#include <QFileInfo>
#include <QStandardPaths>
#include <QTimer>

FKRDatenbankImport::FKRDatenbankImport(FKRAppDelegate &delegate, QObject *parent)
    : QObject(parent)
    , m_delegate(delegate)
{
}

FKRDatenbankImport::~FKRDatenbankImport()
{
    if (m_pruefung.joinable())
        m_pruefung.join();
}

void FKRDatenbankImport::setzeZustand(Zustand zustand)
{
    m_zustand = zustand;
    Q_EMIT zustandGeaendert(zustand);
}

void FKRDatenbankImport::beende()
{
    m_einspielung.reset();
    Q_EMIT fortschrittSichtbar(false);
    setzeZustand(Zustand::Bereit);
}

void FKRDatenbankImport::datenbankImportButtonSelected()
{
    if (m_zustand != Zustand::Bereit)
        return;
    FKRAlertPresenter &presenter = m_delegate.presenter();

    setzeZustand(Zustand::Bestaetigen);
    const int antwort = presenter.zeigeAlert({QStringLiteral("ALERT_TITLE_HINWEIS"), QStringLiteral("ALERT_TEXT_REALLY_IMPORT_DATABASE"),
                                              {QStringLiteral("BUTTON_TITLE_OK"), QStringLiteral("BUTTON_TITLE_ABBRECHEN")},
                                              FKRAlert::Stil::Warnung});
    if (antwort != kErsterKnopf) {
        setzeZustand(Zustand::Bereit);
        return;
    }

    setzeZustand(Zustand::DateiWaehlen);
    const QStringList dateien =
        presenter.waehleDateien(QStandardPaths::writableLocation(QStandardPaths::DownloadLocation),
                                QStringLiteral("ALERT_TEXT_WHICH_DATABASE_TO_IMPORT"), m_delegate.dataBackupsDirectory(),
                                {QStringLiteral("PANEL_FILTER_DATENSICHERUNGEN"), {QStringLiteral("fks")}});
    Q_EMIT fortschrittSichtbar(true);
    if (dateien.isEmpty()) {
        beende();
        return;
    }
    m_archiv = dateien.first();
    pruefeArchiv();
}

void FKRDatenbankImport::pruefeArchiv()
{
    setzeZustand(Zustand::Pruefen);
    if (QFileInfo(m_archiv).suffix().toLower() != u"fks") {
        archivGeprueft(FKRZipArchiv::Ergebnis::Abgelehnt, QStringLiteral("not an fks archive"));
        return;
    }
    // Unpacking and opening a large store takes seconds; the spinner keeps turning meanwhile.
    m_einspielung = std::make_unique<FKRStoreEinspielung>(m_delegate.applicationDocumentsDirectory(), m_grenzen);
    if (m_pruefung.joinable())
        m_pruefung.join();
    m_pruefung = std::thread([this, einspielung = m_einspielung.get(), archiv = m_archiv] {
        QString fehler;
        const FKRZipArchiv::Ergebnis ergebnis = einspielung->pruefe(archiv, &fehler);
        QMetaObject::invokeMethod(this, [this, ergebnis, fehler] { archivGeprueft(ergebnis, fehler); },
                                  Qt::QueuedConnection);
    });
}

void FKRDatenbankImport::archivGeprueft(FKRZipArchiv::Ergebnis ergebnis, const QString &fehler)
{
    if (m_pruefung.joinable())
        m_pruefung.join();
    if (ergebnis != FKRZipArchiv::Ergebnis::Erfolg) {
        // Nothing of the user's data has been touched yet, and nothing will be.
        qWarning().noquote() << "Import refused:" << m_archiv << fehler;
        zeigeProblem(ergebnis == FKRZipArchiv::Ergebnis::Abgelehnt ? QStringLiteral("DATABASE_IMPORT_PROBLEM")
                                                                   : QStringLiteral("DATABASE_IMPORT_NOT_UNPACKED"),
                     QFileInfo(m_archiv).fileName());
        beende();
        return;
    }
    sichereStore();
}

void FKRDatenbankImport::sichereStore()
{
    // The store as it is now goes into the backups folder first: the start's backup lacks
    // everything done since, and should the checked files fail to replace the emptied store,
    // this archive is where the user's data are.
    setzeZustand(Zustand::Sichern);
    m_delegate.saveAction();
    m_datensicherung =
        std::make_unique<FKRDatensicherung>(m_delegate.applicationDocumentsDirectory(), m_delegate.dataBackupsDirectory());
    connect(m_datensicherung.get(), &FKRDatensicherung::fertig, this, &FKRDatenbankImport::storeGesichert);
    m_datensicherung->starte(FKRUhr::jetzt());
}

void FKRDatenbankImport::storeGesichert(const QString &archivPfad, const QString &fehler)
{
    m_datensicherung.release()->deleteLater();
    if (archivPfad.isEmpty()) {
        qWarning().noquote() << "Import stopped, the current store could not be backed up:" << fehler;
        zeigeProblem(QStringLiteral("DATABASE_IMPORT_NO_BACKUP"));
        beende();
        return;
    }
    m_sicherung = archivPfad;
    setzeZustand(Zustand::Leeren);
    if (!leereDatenbank()) {
        beende();
        return;
    }
    schiebeLoeschungenZurSynchronisation();
}

bool FKRDatenbankImport::leereDatenbank()
{
    static const char *const vorlagen[] = {"AlleAbsenderFetchRequest", "AlleEmpfaengerFetchRequest",
                                          "AllePostenFetchRequest", "AlleRechungenFetchRequest"};
    ManagedObjectContext *context = m_delegate.managedObjectContext();
    for (const char *name : vorlagen) {
        const std::optional<FetchRequest> anfrage = m_delegate.managedObjectModel().fetchRequestTemplate(QString::fromLatin1(name));
        if (!anfrage)
            return false;
        for (ManagedObject *objekt : context->executeFetchRequest(*anfrage))
            context->deleteObject(objekt);
    }
    m_delegate.saveAction();
    return true;
}

void FKRDatenbankImport::schiebeLoeschungenZurSynchronisation()
{
    // With sync on, the other machines must learn of the deletions before this one leaves the
    // ensemble; the sync engine gets its time while the window stays responsive.
    m_delegate.syncKoordinator().synchronisiereMitAbschluss({});
    QTimer::singleShot(m_wartezeit, this, &FKRDatenbankImport::trenneSynchronisation);
}

void FKRDatenbankImport::trenneSynchronisation()
{
    m_delegate.syncKoordinator().trenneSyncMitAbschluss({});
    QTimer::singleShot(m_wartezeit, this, &FKRDatenbankImport::setzeArchivEin);
}

void FKRDatenbankImport::zeigeProblem(const QString &textSchluessel, const QString &zusatz)
{
    m_delegate.presenter().zeigeAlert({QStringLiteral("ALERT_TITLE_PROBLEM"), textSchluessel,
                                       {QStringLiteral("BUTTON_TITLE_CLOSE")}, FKRAlert::Stil::Warnung, zusatz});
}

void FKRDatenbankImport::setzeArchivEin()
{
    QBBenutzerEinstellungen *einstellungen = QBBenutzerEinstellungen::sharedInstance();
    einstellungen->setVerwendeiCloudSync(false);
    einstellungen->sichereBenutzerEinstellungen();

    setzeZustand(Zustand::Entpacken);
    QString fehler;
    if (!m_einspielung->setzeEin(&fehler)) {
        // The emptied store is still the one in place and still sound; the program goes on
        // with it, and the user learns where the data from before are.
        qWarning().noquote() << "Import could not write the store files:" << fehler;
        zeigeProblem(QStringLiteral("DATABASE_IMPORT_FAILED"), m_sicherung);
        beende();
        return;
    }
    m_einspielung.reset();
    m_delegate.storeDateienWurdenErsetzt();

    m_delegate.presenter().zeigeAlert({QStringLiteral("ALERT_TITLE_HINWEIS"), QStringLiteral("DATABASE_IMPORT_SUCCESSFUL"),
                                       {QStringLiteral("BUTTON_TITLE_CLOSE")}});
    // However the alert was closed: the open context no longer matches the files on disk, so
    // the program must not go on working with it.
    einstellungen->setDatenbankWurdeNeuImportiert(true);
    einstellungen->sichereBenutzerEinstellungen();
    Q_EMIT fortschrittSichtbar(false);
    setzeZustand(Zustand::Fertig);
    Q_EMIT m_delegate.beendenAngefordert();
}
