// A backup archive from outside, as velmora-cli restore and the import of the settings screen
// take it: checked (unpacked within bounds beside the store and opened as a store of ours) and,
// when sound, put in place of the store. Whatever the bytes: a refused archive leaves the data
// folder byte for byte as it was, nothing is ever written outside it, and an archive that was
// put in place leaves a store the program can open.
#include "FKRDatensicherung.h"
#include "FKRStoreEinspielung.h"
#include "FuzzUmgebung.h"
#include "PersistentStoreCoordinator.h"
#include "StoreCheck.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <map>
#include <set>

namespace {

// Every file below `ordner` (hidden ones too) with a hash of its bytes.
std::map<QString, QByteArray> inhalt(const QString &ordner)
{
    std::map<QString, QByteArray> dateien;
    QDirIterator it(ordner, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString pfad = it.next();
        QFile datei(pfad);
        erwarte(datei.open(QIODevice::ReadOnly));
        dateien[QDir(ordner).relativeFilePath(pfad)] = QCryptographicHash::hash(datei.readAll(), QCryptographicHash::Sha256);
    }
    return dateien;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *daten, std::size_t groesse)
{
    const QString arbeit = FuzzUmgebung::arbeitsOrdner();
    const QString archiv = FuzzUmgebung::alsDatei(daten, groesse, QStringLiteral("archiv.fks"));
    const QString datenOrdner = arbeit + QStringLiteral("/daten");
    erwarte(QDir().mkpath(datenOrdner));
    {
        QFile alt(datenOrdner + QLatin1Char('/') + QString::fromLatin1(PersistentStoreCoordinator::kStoreFileName));
        erwarte(alt.open(QIODevice::WriteOnly) && alt.write("the store before") > 0);
    }
    const auto vorher = inhalt(arbeit);

    // Bounds far below the program's, so that a bomb costs the search little.
    FKRZipArchiv::Grenzen grenzen;
    grenzen.hoechstens = qint64(32) << 20;
    grenzen.ohneVerhaeltnis = qint64(1) << 20;
    QString fehler;
    {
        FKRStoreEinspielung einspielung(datenOrdner, grenzen);
        const FKRZipArchiv::Ergebnis ergebnis = einspielung.pruefe(archiv, &fehler);
        if (ergebnis == FKRZipArchiv::Ergebnis::Erfolg) {
            erwarte(einspielung.setzeEin(&fehler));
        } else {
            erwarte(!fehler.isEmpty() && !fehler.contains(QLatin1Char('\n')));
        }
    }
    // Only the store files may have changed, and only into a store the program can open.
    const auto nachher = inhalt(arbeit);
    std::set<QString> geaendert;
    for (const auto *seite : {&vorher, &nachher})
        for (const auto &[name, hash] : *seite)
            if (vorher.count(name) != nachher.count(name) || vorher.at(name) != nachher.at(name))
                geaendert.insert(name);
    for (const QString &name : geaendert)
        erwarte(name.startsWith(QStringLiteral("daten/")) && FKRDatensicherung::storeDateiNamen().contains(name.mid(6)));
    if (!geaendert.empty())
        erwarte(StoreCheck::check(datenOrdner + QLatin1Char('/') + QString::fromLatin1(PersistentStoreCoordinator::kStoreFileName)).usable());
    FuzzUmgebung::leere();
    return 0;
}
