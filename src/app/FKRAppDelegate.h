#pragma once

#include "FKRAnwendungsFehler.h"
#include "FKRDatenOrdnerSperre.h"
#include "FKRUrlErgebnis.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

class FKRAlertPresenter;
class FKRDatensicherung;
class FKRFaelligkeitsMitteilungen;
class FKRFensterSchicht;
class FKRSyncKoordinator;
class FKRUrlImport;
class ManagedObjectContext;
class ManagedObjectModel;
class PersistentStoreCoordinator;

// The application's core: owns the data folders and the storage stack, runs the start-up
// sequence, the save operation every controller calls after a change, and the quit decision.
// Lives on the main thread. Knows the windows only through FKRFensterSchicht and the user only
// through FKRAlertPresenter, so it runs the same under the desktop, the command line and tests.
class FKRAppDelegate : public QObject
{
    Q_OBJECT

public:
    enum class TerminateReply { TerminateCancel, TerminateNow };

    static constexpr const char *kDatenOrdnerName = "Velmora-Rechnungen";
    static constexpr const char *kAktuelleVersion = "3.13";

    explicit FKRAppDelegate(FKRAlertPresenter &presenter, QObject *parent = nullptr);
    ~FKRAppDelegate() override;

    FKRAlertPresenter &presenter() const { return m_presenter; }
    void setFensterSchicht(FKRFensterSchicht *fenster) { m_fenster = fenster; }
    FKRFensterSchicht *fensterSchicht() const { return m_fenster; }
    // Replaces the sync seam (the delegate takes ownership).
    void setSyncKoordinator(std::unique_ptr<FKRSyncKoordinator> koordinator);
    FKRSyncKoordinator &syncKoordinator() const { return *m_sync; }

    // How the process ends when the store cannot be opened, after the error was presented.
    // Default: leave at once with the given status (nothing is open that could be lost).
    void setProzessEnde(std::function<void(int status)> ende) { m_prozessEnde = std::move(ende); }

    // The data folder of the current user, $XDG_DATA_HOME/Velmora-Rechnungen; nothing is made.
    static QString datenOrdnerPfad();

    // The folders, made on first use.
    QString applicationDocumentsDirectory();
    QString dataBackupsDirectory();
    QString applicationArchiveDirectory();
    QString storeURL();

    // Takes the exclusive lock of the data folder (made when missing), which the store is never
    // opened without; the storage stack takes it itself, a program may take it earlier to learn
    // whether another one works on the folder. Held for the life of the delegate.
    FKRDatenOrdnerSperre::Ergebnis sperreDatenOrdner();
    // Tells the user that another program works on the data folder (one modal alert).
    void meldeDatenOrdnerBelegt();

    // The storage stack, built on first use and kept for the life of the delegate. When the store
    // cannot be opened, or another program holds the data folder, the user is told and the
    // process ends with a failure status.
    const ManagedObjectModel &managedObjectModel() const;
    PersistentStoreCoordinator *persistentStoreCoordinator();
    ManagedObjectContext *managedObjectContext();
    void setManagedObjectContext(std::unique_ptr<ManagedObjectContext> context);

    // Application lifecycle.
    void applicationWillFinishLaunching();
    void applicationDidFinishLaunching();
    void applicationDidBecomeActive();
    void applicationWillTerminate();
    bool applicationShouldTerminateAfterLastWindowClosed() const { return true; }
    TerminateReply applicationShouldTerminate();

    // The save operation: commit edits, save, rebuild the due notifications, one sync step.
    void saveAction();

    // Steps of the start-up sequence, callable on their own.
    void erstelleDatensicherung();
    void vergibFehlendeUUIDs();
    void vergibNeueUUIDs();
    void synchronisiere();
    void registerForURLScheme();
    void checkForVersionUpgrade();
    void pruefeSystemVersion();

    // A URL of the application's scheme, from the desktop or a second process. URLs that arrive
    // before the start-up has registered the handler wait for it; none is dropped. `antwort`
    // learns whether the item was stored once that is decided.
    void nimmUrlEntgegen(const QString &url, const FKRUrlAntwort &antwort = {});
    FKRUrlErgebnis handleGetUrlEvent(const QString &url, const FKRUrlAntwort &antwort = {});
    // Rebuilds the due-document notifications from the unpaid documents.
    void pruefeFaelligeRechnungen();

    FKRFaelligkeitsMitteilungen &mitteilungen();
    // The start-up backup while it is being written, nullptr before and after.
    FKRDatensicherung *laufendeDatensicherung() const;
    // Waits until a running backup has finished (quitting must not cut an archive short).
    void warteAufDatensicherung();

    // The database import replaced the store files: nothing of the open context may be written
    // back over them before the process ends.
    void storeDateienWurdenErsetzt() { m_storeErsetzt = true; }

Q_SIGNALS:
    // The start-up backup has finished; `archivPfad` is empty when it failed.
    void datensicherungBeendet(const QString &archivPfad);
    // The database import asks the application to quit (through the quit decision).
    void beendenAngefordert();

private:
    QString ordnerBeiErstemGebrauch(const QString &pfad);
    [[noreturn]] void speicherFehlgeschlagen(const QString &grund, const QString &ursache);
    bool commitEditing();
    void vergibUUIDs(const char *const vorlagen[4]);
    void praesentiere(const FKRAnwendungsFehler &fehler);

    FKRAlertPresenter &m_presenter;
    FKRFensterSchicht *m_fenster = nullptr;
    std::unique_ptr<FKRSyncKoordinator> m_sync;
    std::function<void(int)> m_prozessEnde;
    QString m_documentsDirectory;
    QString m_backupsDirectory;
    QString m_archiveDirectory;
    // Before the coordinator, so it is released only after the store is closed.
    FKRDatenOrdnerSperre m_sperre;
    std::unique_ptr<PersistentStoreCoordinator> m_coordinator;
    std::unique_ptr<ManagedObjectContext> m_context;
    std::unique_ptr<FKRFaelligkeitsMitteilungen> m_mitteilungen;
    std::unique_ptr<FKRUrlImport> m_urlImport;
    QPointer<FKRDatensicherung> m_datensicherung;
    QList<std::pair<QString, FKRUrlAntwort>> m_wartendeUrls;
    bool m_urlHandlerRegistriert = false;
    bool m_storeErsetzt = false;
};
