#pragma once

#include <QString>

// The exclusive lock on a data folder: whoever opens the store or puts other store files in
// place holds it for as long as it does, so two programs never work on one store. It is an
// flock on a hidden file in the folder, released when the object goes or the process ends
// however it ends; programs started from the holder do not inherit it.
class FKRDatenOrdnerSperre
{
public:
    enum class Ergebnis {
        Gehalten, // this object holds the lock
        Belegt,   // another program (or another object of this one) holds it
        Fehler,   // the lock file cannot be made or locked; fehler() tells why
    };

    static constexpr const char *kDateiName = ".velmora.lock";

    FKRDatenOrdnerSperre() = default;
    ~FKRDatenOrdnerSperre();
    FKRDatenOrdnerSperre(const FKRDatenOrdnerSperre &) = delete;
    FKRDatenOrdnerSperre &operator=(const FKRDatenOrdnerSperre &) = delete;

    // Takes the lock of the existing folder `datenOrdner` without waiting. While the object holds
    // a lock, asking again gives Gehalten and changes nothing.
    Ergebnis sperre(const QString &datenOrdner);
    bool gehalten() const { return m_fd >= 0; }
    // The reason of the last Fehler, one line.
    QString fehler() const { return m_fehler; }
    void gibFrei();

private:
    int m_fd = -1;
    QString m_fehler;
};
