// The start-up sequence of the application delegate: backup, identifiers, first sync step,
// URL handler, version bookkeeping.

#include "FKRAppDelegate.h"

#include "FKRFensterSchicht.h"
#include "FKRStoreEinspielung.h"
#include "ManagedObject.h"
#include "ManagedObjectContext.h"
#include "ManagedObjectModel.h"
#include "QBBenutzerEinstellungen.h"

#include <QTimer>

namespace {
const char *const kFehlendeUUIDVorlagen[4] = {"AbsenderOhneUUIDFetchRequest", "EmpfaengerOhneUUIDFetchRequest",
                                             "PostenOhneUUIDFetchRequest", "RechnungOhneUUIDFetchRequest"};
const char *const kAlleVorlagen[4] = {"AlleAbsenderFetchRequest", "AlleEmpfaengerFetchRequest",
                                     "AllePostenFetchRequest", "AlleRechungenFetchRequest"};

// The start counts at which the help panels open by themselves after a version change: the
// first three starts, then now and then.
bool zeigtHilfeBeiStart(const Decimal &anzahl)
{
    return anzahl < Decimal(3) || anzahl == Decimal(5) || anzahl == Decimal(10) || anzahl == Decimal(15);
}
} // namespace

void FKRAppDelegate::applicationDidFinishLaunching()
{
    // What a killed restore or import left next to the store goes before anything else.
    FKRStoreEinspielung::raeumeLiegengebliebenesAuf(applicationDocumentsDirectory());
    erstelleDatensicherung();

    QBBenutzerEinstellungen *einstellungen = QBBenutzerEinstellungen::sharedInstance();
    if (einstellungen->datenbankWurdeNeuImportiert()) {
        // Imported objects carry the identities of the machine they came from; they get new
        // ones so that sync never mistakes them for the originals.
        vergibNeueUUIDs();
        einstellungen->setDatenbankWurdeNeuImportiert(false);
        einstellungen->sichereBenutzerEinstellungen();
    } else {
        vergibFehlendeUUIDs();
    }

    synchronisiere();
    registerForURLScheme();
    QTimer::singleShot(1000, this, &FKRAppDelegate::checkForVersionUpgrade);
    QTimer::singleShot(0, this, &FKRAppDelegate::pruefeSystemVersion);
}

void FKRAppDelegate::vergibFehlendeUUIDs()
{
    vergibUUIDs(kFehlendeUUIDVorlagen);
}

void FKRAppDelegate::vergibNeueUUIDs()
{
    vergibUUIDs(kAlleVorlagen);
}

void FKRAppDelegate::vergibUUIDs(const char *const vorlagen[4])
{
    QList<FetchRequest> anfragen;
    for (int i = 0; i < 4; ++i) {
        std::optional<FetchRequest> anfrage = managedObjectModel().fetchRequestTemplate(QString::fromLatin1(vorlagen[i]));
        if (!anfrage)
            return;
        anfragen.append(*anfrage);
    }
    // Senders, recipients, items, documents: each entity is saved on its own, as far as it got.
    for (const FetchRequest &anfrage : std::as_const(anfragen)) {
        const QList<ManagedObject *> objekte = managedObjectContext()->executeFetchRequest(anfrage);
        if (objekte.isEmpty())
            continue;
        for (ManagedObject *objekt : objekte)
            objekt->setValue(QStringLiteral("uniqueIdentifier"), ManagedObject::neueKennung());
        saveAction();
    }
}

void FKRAppDelegate::registerForURLScheme()
{
    m_urlHandlerRegistriert = true;
    const auto wartende = std::exchange(m_wartendeUrls, {});
    for (const auto &[url, antwort] : wartende)
        handleGetUrlEvent(url, antwort);
}

void FKRAppDelegate::nimmUrlEntgegen(const QString &url, const FKRUrlAntwort &antwort)
{
    if (m_urlHandlerRegistriert)
        handleGetUrlEvent(url, antwort);
    else
        m_wartendeUrls.append({url, antwort});
}

void FKRAppDelegate::checkForVersionUpgrade()
{
    QBBenutzerEinstellungen *einstellungen = QBBenutzerEinstellungen::sharedInstance();
    const Decimal aktuell = *Decimal::parse(kAktuelleVersion);
    // A version text that is no number (never written by any release) is left as it is.
    const std::optional<Decimal> gespeichert = Decimal::parse(einstellungen->appVersion().toStdString());
    if (gespeichert && !gespeichert->isNaN() && *gespeichert < aktuell) {
        einstellungen->setAppVersion(QString::fromLatin1(kAktuelleVersion));
        einstellungen->setAnzahlAppStarts(Decimal(0));
        einstellungen->sichereBenutzerEinstellungen();
    }

    const Decimal anzahl = einstellungen->anzahlAppStarts();
    if (zeigtHilfeBeiStart(anzahl)) {
        QTimer::singleShot(0, this, [this] {
            if (m_fenster)
                m_fenster->zeigeHilfe();
        });
    }
    einstellungen->setAnzahlAppStarts(anzahl + Decimal(1));
    einstellungen->sichereBenutzerEinstellungen();
}

void FKRAppDelegate::pruefeSystemVersion()
{
    // Every Linux system this program builds on is supported: there is no system the user
    // would have to be warned about, so no alert is shown. The check keeps its place in the
    // start-up so that a future minimum requirement has one spot to live.
}
