#pragma once

// A fresh data home per test, and window and sync stand-ins that record what the core asked.

#include "FKRFensterSchicht.h"
#include "FKRSyncKoordinator.h"
#include "ManagedObjectContext.h"
#include "harness/Prozesse.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <functional>

namespace apptest {

// XDG_DATA_HOME points at an empty folder while it lives: every delegate finds its own data.
class DatenHeimat
{
public:
    DatenHeimat() : m_alt(qgetenv("XDG_DATA_HOME")) { qputenv("XDG_DATA_HOME", m_ordner.path().toUtf8()); }
    ~DatenHeimat() { qputenv("XDG_DATA_HOME", m_alt); }
    QString pfad() const { return m_ordner.path(); }
    QString datenOrdner() const { return m_ordner.path() + QStringLiteral("/Velmora-Rechnungen"); }

private:
    QTemporaryDir m_ordner;
    QByteArray m_alt;
};

inline bool warteBis(const std::function<bool()> &bedingung, int ms = 10000) { return harness::warteBis(bedingung, ms); }

struct FensterAttrappe : FKRFensterSchicht {
    FKROffenerEditor *editor = nullptr;
    int hilfeAufrufe = 0;

    FKROffenerEditor *offenerEditor() override { return editor; }
    QList<FKRRechnung *> unbezahlteRechnungen() override { return {}; }
    void zeigeFaelligeRechnungen() override {}
    void zeigeHilfe() override { ++hilfeAufrufe; }
    bool commitEditing() override { return true; }
};

struct SyncAttrappe : FKRSyncKoordinator {
    QStringList aufrufe;
    bool beschaeftigt = false;

    void merke(const char *name) { aufrufe.append(QString::fromLatin1(name)); }
    void synchronisiere() override { merke("synchronisiere"); }
    void synchronisiereMitAbschluss(std::function<void()> abschluss) override
    {
        merke("synchronisiereMitAbschluss");
        FKRSyncKoordinator::synchronisiereMitAbschluss(std::move(abschluss));
    }
    void trenneSyncMitAbschluss(std::function<void()> abschluss) override
    {
        merke("trenneSyncMitAbschluss");
        FKRSyncKoordinator::trenneSyncMitAbschluss(std::move(abschluss));
    }
    bool istBeschaeftigt() const override { return beschaeftigt; }
};

// Thrown by a delegate's process end, so the test goes on after a store failure.
struct ProzessEnde {
    int status;
};

} // namespace apptest
