#pragma once

#include "FKRZipArchiv.h"

#include <QObject>
#include <QString>

#include <chrono>

class FKRAppDelegate;

// The import of a backup archive in place of the current database, as the settings screen
// drives it: confirm, choose the archive, empty the database and hand the deletions to sync,
// withdraw from sync, check and unpack the archive over the store files, then quit so that the
// next start opens the imported store. Runs on the main thread; the waits are timers, so the
// window stays alive meanwhile.
class FKRDatenbankImport : public QObject
{
    Q_OBJECT

public:
    enum class Zustand { Bereit, Bestaetigen, DateiWaehlen, Leeren, Entpacken, Fertig };

    explicit FKRDatenbankImport(FKRAppDelegate &delegate, QObject *parent = nullptr);

    // How long each of the two waits for the sync engine lasts (10 s).
    void setWartezeit(std::chrono::milliseconds wartezeit) { m_wartezeit = wartezeit; }

    // How much the archive may unpack to.
    void setGrenzen(const FKRZipArchiv::Grenzen &grenzen) { m_grenzen = grenzen; }

    // Starts the sequence; ignored while one is running.
    void datenbankImportButtonSelected();

    Zustand zustand() const { return m_zustand; }

Q_SIGNALS:
    // The settings screen's progress indicator: shown and spinning, or hidden.
    void fortschrittSichtbar(bool sichtbar);
    void zustandGeaendert(FKRDatenbankImport::Zustand zustand);

private:
    void setzeZustand(Zustand zustand);
    void beende();
    bool leereDatenbank();
    void schiebeLoeschungenZurSynchronisation();
    void trenneSynchronisation();
    void entpackeArchiv();
    void zeigeProblem();

    FKRAppDelegate &m_delegate;
    std::chrono::milliseconds m_wartezeit{10000};
    Zustand m_zustand = Zustand::Bereit;
    QString m_archiv;
    FKRZipArchiv::Grenzen m_grenzen;
};
