#pragma once

#include "FKRZipArchiv.h"

#include <QObject>
#include <QString>

#include <chrono>
#include <memory>
#include <thread>

class FKRAppDelegate;
class FKRDatensicherung;
class FKRStoreEinspielung;

// The import of a backup archive in place of the current database, as the settings screen
// drives it: confirm, choose the archive, check it completely (unpacked next to the store and
// opened as a store of ours), back up the current store, empty the database and hand the
// deletions to sync, withdraw from sync, put the checked files in place, then quit so that the
// next start opens the imported store.
//
// Nothing is emptied before the archive has passed the check: a file that is not a backup, or a
// backup whose store cannot be used, leaves the user's data exactly as they were. The check runs
// on a worker thread and the waits are timers, so the window stays alive meanwhile.
class FKRDatenbankImport : public QObject
{
    Q_OBJECT

public:
    enum class Zustand { Bereit, Bestaetigen, DateiWaehlen, Pruefen, Sichern, Leeren, Entpacken, Fertig };

    explicit FKRDatenbankImport(FKRAppDelegate &delegate, QObject *parent = nullptr);
    ~FKRDatenbankImport() override; // waits for a running check

    // How long each of the two waits for the sync engine lasts (10 s).
    void setWartezeit(std::chrono::milliseconds wartezeit) { m_wartezeit = wartezeit; }

    // How much the archive may unpack to.
    void setGrenzen(const FKRZipArchiv::Grenzen &grenzen) { m_grenzen = grenzen; }

    // Starts the sequence; ignored while one is running.
    void datenbankImportButtonSelected();

    Zustand zustand() const { return m_zustand; }
    // The backup of the store as it was before the import (empty until one was written).
    const QString &sicherungVorDemImport() const { return m_sicherung; }

Q_SIGNALS:
    // The settings screen's progress indicator: shown and spinning, or hidden.
    void fortschrittSichtbar(bool sichtbar);
    void zustandGeaendert(FKRDatenbankImport::Zustand zustand);

private:
    void setzeZustand(Zustand zustand);
    void beende();
    void pruefeArchiv();
    void archivGeprueft(FKRZipArchiv::Ergebnis ergebnis, const QString &fehler);
    void sichereStore();
    void storeGesichert(const QString &archivPfad, const QString &fehler);
    bool leereDatenbank();
    void schiebeLoeschungenZurSynchronisation();
    void trenneSynchronisation();
    void setzeArchivEin();
    void zeigeProblem(const QString &textSchluessel, const QString &zusatz = {});

    FKRAppDelegate &m_delegate;
    std::chrono::milliseconds m_wartezeit{10000};
    Zustand m_zustand = Zustand::Bereit;
    QString m_archiv;
    QString m_sicherung;
    FKRZipArchiv::Grenzen m_grenzen;
    std::unique_ptr<FKRStoreEinspielung> m_einspielung;
    std::unique_ptr<FKRDatensicherung> m_datensicherung;
    std::thread m_pruefung;
};
