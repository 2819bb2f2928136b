#pragma once

#include "FKRZipArchiv.h"

#include <QString>

#include <memory>

class FKRArbeitsSperre;
class QTemporaryDir;

// A backup archive's store on its way in place of the user's store (velmora-cli restore, the
// import of the settings screen), in two steps that the caller can keep apart:
//
// `pruefe` unpacks the archive, within bounds on its size, into a hidden folder of the data
// folder and opens the store there as the program would (StoreCheck). Nothing of the user's
// files is touched, so a refused archive leaves the data folder exactly as it was.
//
// `setzeEin` then puts the checked files in place of the store files. The hidden folder is on
// the data folder's file system, so each file arrives by one atomic rename.
class FKRStoreEinspielung
{
public:
    explicit FKRStoreEinspielung(const QString &datenOrdner, const FKRZipArchiv::Grenzen &grenzen = {});
    ~FKRStoreEinspielung(); // removes the unpacked files unless they were put in place

    // Abgelehnt: the archive or the store in it is not one to use, `fehler` says why in one
    // line. SchreibFehler: it could not be unpacked here (disk full, folder not writable).
    FKRZipArchiv::Ergebnis pruefe(const QString &archivPfad, QString *fehler = nullptr);
    bool istGeprueft() const { return m_geprueft; }

    // After a successful pruefe: the checked files replace the store files, the store itself
    // last; side files the archive did not have stay as they are. False with `fehler` when a
    // file could not be replaced; the store file is then still the old one.
    bool setzeEin(QString *fehler = nullptr);

    // Removes what a killed restore or import left in the data folder: unpacked stores under
    // check and the unpacked files of earlier versions, ".VelmoraRechnungen.storedata….XXXXXX".
    static void raeumeLiegengebliebenesAuf(const QString &datenOrdner);

private:
    void verwirf();

    QString m_datenOrdner;
    FKRZipArchiv::Grenzen m_grenzen;
    std::unique_ptr<QTemporaryDir> m_pruefOrdner;
    std::unique_ptr<FKRArbeitsSperre> m_sperre;
    bool m_geprueft = false;
};
