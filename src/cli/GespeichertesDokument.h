#pragma once

#include <QString>
#include <QTemporaryDir>

#include <memory>

class FKRRechnung;
class ManagedObjectContext;
class PersistentStoreCoordinator;

// One document of a store file, found by its uniqueIdentifier, for a command that only reads.
//
// Opening a store may bring an older file up to date and sets its journal mode, and the desktop
// program may have the file open at the same time; so the store is never opened where it lies.
// Its file and journal are copied into a private folder and the copy is opened there: whatever
// happens, the user's store keeps every byte. The copy lives as long as this object, because
// images are read from it on first use.
class GespeichertesDokument
{
public:
    // Throws EingabeFehler when the file cannot be opened as a store or holds no document with
    // that identifier, std::runtime_error when no private copy can be made.
    GespeichertesDokument(const QString &storePfad, const QString &uniqueIdentifier);
    ~GespeichertesDokument();
    GespeichertesDokument(const GespeichertesDokument &) = delete;
    GespeichertesDokument &operator=(const GespeichertesDokument &) = delete;

    FKRRechnung &rechnung() const { return *m_rechnung; }

private:
    QTemporaryDir m_kopie;
    std::unique_ptr<PersistentStoreCoordinator> m_coordinator;
    std::unique_ptr<ManagedObjectContext> m_context;
    FKRRechnung *m_rechnung = nullptr;
};
