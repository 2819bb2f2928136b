#pragma once

#include <QObject>

#include <functional>

// Where the store meets synchronisation across the user's machines. Until the store is attached
// to a sync ensemble there is nothing to merge: every step finishes at once and nothing is ever
// busy. The start-up, the save operation, the quit decision and the database import already
// call it at the places where the merging will happen.
class FKRSyncKoordinator : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    // One sync step (leech or merge); returns as soon as it is started.
    virtual void synchronisiere();
    // One sync step; `abschluss` runs on the main thread when the step has finished.
    virtual void synchronisiereMitAbschluss(std::function<void()> abschluss);
    // Withdraws the store from the ensemble; `abschluss` runs on the main thread afterwards.
    virtual void trenneSyncMitAbschluss(std::function<void()> abschluss);
    // True while the ensemble merges, attaches or detaches the store, when quitting would lose
    // what is being carried.
    virtual bool istBeschaeftigt() const;
};
