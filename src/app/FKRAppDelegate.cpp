#include "FKRAppDelegate.h"

#include "FKRAlertPresenter.h"
#include "FKRDatensicherung.h"
#include "FKRFaelligkeitsMitteilungen.h"
#include "FKRFensterSchicht.h"
#include "FKRRechnung.h"
#include "FKRSyncKoordinator.h"
#include "FKRUhr.h"
#include "FKRUrlImport.h"
#include "FKRLocalizationHelper.h"
#include "ManagedObjectContext.h"
#include "ManagedObjectModel.h"
#include "PersistentStoreCoordinator.h"
#include "QBBenutzerEinstellungen.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <cstdlib>

namespace {
const char *const kFehlerDomain = "YOUR_ERROR_DOMAIN";
constexpr int kFehlerCode = 9999;

// Every alert of the quit decision asks the same question: quit anyway while data are still
// being secured, or stay.
FKRAlert datenWerdenGesichertAlert()
{
    return {QStringLiteral("ALERT_TITLE_DATEN_WERDEN_GESICHERT"), QStringLiteral("ALERT_TEXT_DATEN_WERDEN_GESICHERT"),
            {QStringLiteral("BUTTON_TITLE_ABBRECHEN"), QStringLiteral("BUTTON_TITLE_TROTZDEMBEENDEN")},
            FKRAlert::Stil::Warnung};
}
} // namespace

FKRAppDelegate::FKRAppDelegate(FKRAlertPresenter &presenter, QObject *parent)
    : QObject(parent)
    , m_presenter(presenter)
    , m_sync(std::make_unique<FKRSyncKoordinator>())
    , m_prozessEnde([](int status) { std::exit(status); })
{
}

FKRAppDelegate::~FKRAppDelegate()
{
    warteAufDatensicherung();
    // The context refers to the coordinator's database; it must go first.
    m_context.reset();
}

void FKRAppDelegate::setSyncKoordinator(std::unique_ptr<FKRSyncKoordinator> koordinator)
{
    m_sync = std::move(koordinator);
}

// Folders -------------------------------------------------------------------------------------

QString FKRAppDelegate::datenOrdnerPfad()
{
    const QString basis = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return QDir(basis).filePath(QString::fromLatin1(kDatenOrdnerName));
}

QString FKRAppDelegate::applicationDocumentsDirectory()
{
    if (m_documentsDirectory.isEmpty())
        m_documentsDirectory = datenOrdnerPfad();
    return m_documentsDirectory;
}

QString FKRAppDelegate::ordnerBeiErstemGebrauch(const QString &pfad)
{
    // Only a missing folder is made. Something else of that name is left alone: the store or
    // the backup reports the problem when it tries to use the folder.
    const QFileInfo info(pfad);
    if (!info.exists() && !info.isSymLink())
        QDir().mkpath(pfad);
    return pfad;
}

QString FKRAppDelegate::dataBackupsDirectory()
{
    if (m_backupsDirectory.isEmpty())
        m_backupsDirectory = ordnerBeiErstemGebrauch(QDir(applicationDocumentsDirectory()).filePath(QStringLiteral("dataBackups")));
    return m_backupsDirectory;
}

QString FKRAppDelegate::applicationArchiveDirectory()
{
    if (m_archiveDirectory.isEmpty())
        m_archiveDirectory = ordnerBeiErstemGebrauch(QDir(applicationDocumentsDirectory()).filePath(QStringLiteral("archive")));
    return m_archiveDirectory;
}

QString FKRAppDelegate::storeURL()
{
    return QDir(applicationDocumentsDirectory()).filePath(QString::fromLatin1(PersistentStoreCoordinator::kStoreFileName));
}

FKRDatenOrdnerSperre::Ergebnis FKRAppDelegate::sperreDatenOrdner()
{
    const QString ordner = applicationDocumentsDirectory();
    if (!m_sperre.gehalten() && !QFileInfo::exists(ordner))
        QDir().mkpath(ordner);
    return m_sperre.sperre(ordner);
}

void FKRAppDelegate::meldeDatenOrdnerBelegt()
{
    qWarning().noquote() << "Another program works on the data folder" << applicationDocumentsDirectory();
    m_presenter.zeigeAlert({QString::fromLatin1(QT_TRANSLATE_NOOP("Velmora", "ALERT_TITLE_DATENORDNER_BELEGT")),
                            QString::fromLatin1(QT_TRANSLATE_NOOP("Velmora", "ALERT_TEXT_DATENORDNER_BELEGT")),
                            {QString::fromLatin1(QT_TRANSLATE_NOOP("Velmora", "BUTTON_TITLE_OK"))},
                            FKRAlert::Stil::Kritisch,
                            QDir::toNativeSeparators(applicationDocumentsDirectory())});
}

// Storage stack -------------------------------------------------------------------------------

const ManagedObjectModel &FKRAppDelegate::managedObjectModel() const
{
    return ManagedObjectModel::defaultModel();
}

PersistentStoreCoordinator *FKRAppDelegate::persistentStoreCoordinator()
{
    if (m_coordinator)
        return m_coordinator.get();

    const QString ordner = applicationDocumentsDirectory();
    const QFileInfo info(ordner);
    if (!info.exists()) {
        if (!QDir().mkpath(ordner))
            speicherFehlgeschlagen(QString(), QString());
    } else if (!info.isDir()) {
        speicherFehlgeschlagen(FKRLocalizationHelper::hauptTabellenText(
                                   QStringLiteral("Expected a folder to store application data, found a file "))
                                   + QDir::toNativeSeparators(ordner) + QLatin1Char('.'),
                               QString());
    }
    // Two programs on one store would overwrite each other's saves.
    switch (sperreDatenOrdner()) {
    case FKRDatenOrdnerSperre::Ergebnis::Gehalten:
        break;
    case FKRDatenOrdnerSperre::Ergebnis::Belegt:
        meldeDatenOrdnerBelegt();
        m_prozessEnde(EXIT_FAILURE);
        std::_Exit(EXIT_FAILURE);
    case FKRDatenOrdnerSperre::Ergebnis::Fehler:
        speicherFehlgeschlagen(QString(), m_sperre.fehler());
    }

    auto coordinator = std::make_unique<PersistentStoreCoordinator>(managedObjectModel());
    try {
        coordinator->addPersistentStore(storeURL());
    } catch (const StoreError &e) {
        speicherFehlgeschlagen(QString(), e.message() + QStringLiteral(" (") + e.detail() + QLatin1Char(')'));
    }
    m_coordinator = std::move(coordinator);
    return m_coordinator.get();
}

void FKRAppDelegate::speicherFehlgeschlagen(const QString &grund, const QString &ursache)
{
    FKRAnwendungsFehler fehler;
    fehler.domain = QString::fromLatin1(kFehlerDomain);
    fehler.code = kFehlerCode;
    fehler.localizedDescription =
        FKRLocalizationHelper::hauptTabellenText(QStringLiteral("Failed to initialize the application's saved data"));
    fehler.failureReason = grund.isEmpty() ? FKRLocalizationHelper::hauptTabellenText(QStringLiteral(
                                                 "There was an error creating or loading the application's saved data."))
                                           : grund;
    fehler.underlyingError = ursache;
    qWarning().noquote() << fehler.localizedDescription << fehler.failureReason << fehler.underlyingError;
    m_presenter.praesentiereFehler(fehler);
    m_prozessEnde(EXIT_FAILURE);
    std::_Exit(EXIT_FAILURE);
}

ManagedObjectContext *FKRAppDelegate::managedObjectContext()
{
    if (!m_context) {
        PersistentStoreCoordinator *coordinator = persistentStoreCoordinator();
        try {
            m_context = std::make_unique<ManagedObjectContext>(coordinator, managedObjectModel());
        } catch (const StoreError &e) {
            speicherFehlgeschlagen(QString(), e.message() + QStringLiteral(" (") + e.detail() + QLatin1Char(')'));
        }
    }
    return m_context.get();
}

void FKRAppDelegate::setManagedObjectContext(std::unique_ptr<ManagedObjectContext> context)
{
    m_context = std::move(context);
}

// Lifecycle -----------------------------------------------------------------------------------

void FKRAppDelegate::applicationWillFinishLaunching()
{
    // Clicks on notifications arrive from launch on, even before the windows are up.
    connect(&mitteilungen(), &FKRFaelligkeitsMitteilungen::mitteilungAktiviert, this, [this] {
        if (m_fenster)
            m_fenster->zeigeFaelligeRechnungen();
    });
}

void FKRAppDelegate::applicationDidBecomeActive()
{
    synchronisiere();
}

void FKRAppDelegate::applicationWillTerminate()
{
    QBBenutzerEinstellungen::sharedInstance()->sichereBenutzerEinstellungen();
    // An archive cut short would be no backup at all.
    warteAufDatensicherung();
}

bool FKRAppDelegate::commitEditing()
{
    return !m_fenster || m_fenster->commitEditing();
}

void FKRAppDelegate::praesentiere(const FKRAnwendungsFehler &fehler)
{
    qWarning().noquote() << fehler.localizedDescription << fehler.failureReason;
    m_presenter.praesentiereFehler(fehler);
}

void FKRAppDelegate::saveAction()
{
    if (!commitEditing())
        qWarning("%s unable to commit editing before saving", metaObject()->className());
    ManagedObjectContext *context = managedObjectContext();
    if (context->hasChanges() && !m_storeErsetzt) {
        QString meldung;
        if (!context->save(&meldung))
            praesentiere({QString::fromLatin1(kFehlerDomain), kFehlerCode, meldung, QString(), QString()});
    }
    pruefeFaelligeRechnungen();
    synchronisiere();
}

FKRAppDelegate::TerminateReply FKRAppDelegate::applicationShouldTerminate()
{
    if (m_sync->istBeschaeftigt() && m_presenter.zeigeAlert(datenWerdenGesichertAlert()) != kZweiterKnopf)
        return TerminateReply::TerminateCancel;
    // The database import has put other files in place of the store: the emptied context must
    // not be written over them.
    if (m_storeErsetzt || !m_context)
        return TerminateReply::TerminateNow;

    if (!commitEditing()) {
        qWarning("%s unable to commit editing to terminate", metaObject()->className());
        if (m_presenter.zeigeAlert(datenWerdenGesichertAlert()) != kZweiterKnopf)
            return TerminateReply::TerminateCancel;
    }
    if (m_context->hasChanges()) {
        QString meldung;
        if (!m_context->save(&meldung)) {
            qWarning().noquote() << meldung;
            if (m_presenter.praesentiereFehler({QString::fromLatin1(kFehlerDomain), kFehlerCode, meldung, QString(), QString()}))
                return TerminateReply::TerminateCancel;
            return m_presenter.zeigeAlert(datenWerdenGesichertAlert()) == kZweiterKnopf ? TerminateReply::TerminateNow
                                                                                         : TerminateReply::TerminateCancel;
        }
    }
    synchronisiere();
    return TerminateReply::TerminateNow;
}

// Backups -------------------------------------------------------------------------------------

void FKRAppDelegate::erstelleDatensicherung()
{
    auto *sicherung = new FKRDatensicherung(applicationDocumentsDirectory(), dataBackupsDirectory(), this);
    m_datensicherung = sicherung;
    connect(sicherung, &FKRDatensicherung::fertig, this, [this, sicherung](const QString &archivPfad, const QString &fehler) {
        sicherung->deleteLater();
        if (archivPfad.isEmpty()) {
            qWarning().noquote() << "Backup failed:" << fehler;
            m_presenter.zeigeAlert({QStringLiteral("ALERT_TITLE_EXPORT"), QStringLiteral("DATABASE_EXPORT_PROBLEM"),
                                    {QStringLiteral("BUTTON_TITLE_OK")}, FKRAlert::Stil::Information, fehler});
        }
        Q_EMIT datensicherungBeendet(archivPfad);
    });
    sicherung->starte(FKRUhr::jetzt());
}

FKRDatensicherung *FKRAppDelegate::laufendeDatensicherung() const
{
    return m_datensicherung && m_datensicherung->laeuft() ? m_datensicherung.data() : nullptr;
}

void FKRAppDelegate::warteAufDatensicherung()
{
    if (m_datensicherung)
        m_datensicherung->warteBisFertig();
}

// Notifications and URLs ----------------------------------------------------------------------

FKRFaelligkeitsMitteilungen &FKRAppDelegate::mitteilungen()
{
    if (!m_mitteilungen)
        m_mitteilungen = std::make_unique<FKRFaelligkeitsMitteilungen>();
    return *m_mitteilungen;
}

void FKRAppDelegate::pruefeFaelligeRechnungen()
{
    QList<FKRRechnung *> unbezahlte;
    if (m_fenster) {
        unbezahlte = m_fenster->unbezahlteRechnungen();
    } else {
        unbezahlte = managedObjectContext()->fetch<FKRRechnung>([](const ManagedObject &object) {
            return static_cast<const FKRRechnung &>(object).bezahlt() == false;
        });
    }
    mitteilungen().pruefeFaelligeRechnungen(unbezahlte);
}

FKRUrlErgebnis FKRAppDelegate::handleGetUrlEvent(const QString &url, const FKRUrlAntwort &antwort)
{
    if (!m_urlImport) {
        m_urlImport = std::make_unique<FKRUrlImport>(
            m_presenter, [this]() { return m_fenster ? m_fenster->offenerEditor() : nullptr; },
            [this]() {
                saveAction();
                // A failed save has been presented and keeps its changes in the context.
                return !managedObjectContext()->hasChanges();
            });
    }
    return m_urlImport->handleGetUrlEvent(url, antwort);
}

void FKRAppDelegate::synchronisiere()
{
    m_sync->synchronisiere();
}
