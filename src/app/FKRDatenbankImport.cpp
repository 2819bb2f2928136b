#include "FKRDatenbankImport.h"

#include "FKRAlertPresenter.h"
#include "FKRAppDelegate.h"
#include "FKRStoreEinspielung.h"
#include "FKRSyncKoordinator.h"
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

void FKRDatenbankImport::setzeZustand(Zustand zustand)
{
    m_zustand = zustand;
    Q_EMIT zustandGeaendert(zustand);
}

void FKRDatenbankImport::beende()
{
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
                                QStringLiteral("ALERT_TEXT_WHICH_DATABASE_TO_IMPORT"), m_delegate.dataBackupsDirectory());
    Q_EMIT fortschrittSichtbar(true);
    if (dateien.isEmpty()) {
        beende();
        return;
    }
    m_archiv = dateien.first();

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
    QTimer::singleShot(m_wartezeit, this, &FKRDatenbankImport::entpackeArchiv);
}

void FKRDatenbankImport::zeigeProblem()
{
    m_delegate.presenter().zeigeAlert({QStringLiteral("ALERT_TITLE_PROBLEM"), QStringLiteral("DATABASE_IMPORT_PROBLEM"),
                                       {QStringLiteral("BUTTON_TITLE_CLOSE")}, FKRAlert::Stil::Warnung});
}

void FKRDatenbankImport::entpackeArchiv()
{
    QBBenutzerEinstellungen *einstellungen = QBBenutzerEinstellungen::sharedInstance();
    einstellungen->setVerwendeiCloudSync(false);
    einstellungen->sichereBenutzerEinstellungen();

    setzeZustand(Zustand::Entpacken);
    if (QFileInfo(m_archiv).suffix() != u"fks") {
        zeigeProblem();
        beende();
        return;
    }
    // The archive's store is opened as a store of ours before it may replace anything.
    FKRStoreEinspielung einspielung(m_delegate.applicationDocumentsDirectory(), m_grenzen);
    QString fehler;
    const FKRZipArchiv::Ergebnis ergebnis = einspielung.pruefe(m_archiv, &fehler);
    if (ergebnis == FKRZipArchiv::Ergebnis::Abgelehnt) {
        // Nothing of the archive was written; the (emptied) store files are as they were.
        qWarning().noquote() << "Import refused:" << m_archiv << fehler;
        zeigeProblem();
        beende();
        return;
    }
    if (ergebnis == FKRZipArchiv::Ergebnis::Erfolg && einspielung.setzeEin(&fehler))
        m_delegate.storeDateienWurdenErsetzt();
    else
        qWarning().noquote() << "Import could not write the store files:" << fehler;

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
