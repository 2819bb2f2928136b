#include "FKRDatensicherung.h"

#include "FKRArbeitsSperre.h"
#include "FKRDatensicherungQuelle.h"
#include "FKRZipArchiv.h"
#include "PersistentStoreCoordinator.h"
#include "QBDatumsTexte.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

namespace {

const QString kEndung = QStringLiteral("-DataBackup.fks");
// Two backups within the same second get the same name; the later archive counts on from here.
constexpr int kMaxZaehler = 1000;
// How much of the store is zipped between two looks at whether it changed meanwhile.
constexpr qint64 kPruefAbstand = qint64(16) << 20;

void ordnerAufPlatte(const QString &ordner)
{
    const int fd = ::open(QFile::encodeName(ordner).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd >= 0) {
        ::fsync(fd);
        ::close(fd);
    }
}

QString systemFehler()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

} // namespace

QStringList FKRDatensicherung::storeDateiNamen()
{
    const QString store = QString::fromLatin1(PersistentStoreCoordinator::kStoreFileName);
    return {store, store + QStringLiteral("-shm"), store + QStringLiteral("-wal")};
}

QString FKRDatensicherung::archivName(const QDateTime &moment)
{
    return QBDatumsTexte::dateiNamenZeitpunkt(moment) + kEndung;
}

QString FKRDatensicherung::mitZaehler(const QString &archivPfad, int zaehler)
{
    const QString marke = QStringLiteral(" (%1)").arg(zaehler);
    if (archivPfad.endsWith(kEndung))
        return archivPfad.chopped(kEndung.size()) + marke + kEndung;
    const QFileInfo info(archivPfad);
    const QString endung = info.suffix().isEmpty() ? QString() : QLatin1Char('.') + info.suffix();
    return archivPfad.chopped(endung.size()) + marke + endung;
}

bool FKRDatensicherung::istBelegt(const QString &pfad)
{
    const QFileInfo info(pfad);
    return info.exists() || info.isSymLink();
}

QString FKRDatensicherung::freierArchivPfad(const QString &ordner, const QDateTime &moment)
{
    const QString erster = ordner + QLatin1Char('/') + archivName(moment);
    QString pfad = erster;
    for (int zaehler = 2; istBelegt(pfad) && zaehler <= kMaxZaehler; ++zaehler)
        pfad = mitZaehler(erster, zaehler);
    return pfad;
}

FKRDatensicherung::FKRDatensicherung(const QString &datenOrdner, const QString &sicherungsOrdner, QObject *parent)
    : QObject(parent), m_datenOrdner(datenOrdner), m_sicherungsOrdner(sicherungsOrdner)
{
}

FKRDatensicherung::~FKRDatensicherung()
{
    warteBisFertig();
}

bool FKRDatensicherung::laeuft() const
{
    return m_laeuft;
}

void FKRDatensicherung::warteBisFertig()
{
    if (m_arbeit.joinable())
        m_arbeit.join();
}

FKRDatensicherung::Auftrag FKRDatensicherung::auftrag(const QString &ziel, bool ersetzen) const
{
    // Which files go in is decided now, on the caller's thread: a file that appears later (the
    // store being created right after) belongs to the next backup.
    Auftrag a{m_datenOrdner, {}, ziel, ersetzen};
    for (const QString &name : storeDateiNamen()) {
        if (QFileInfo::exists(m_datenOrdner + QLatin1Char('/') + name))
            a.dateien.append(name);
    }
    return a;
}

void FKRDatensicherung::raeumeLiegengebliebenesAuf(const QString &ordner)
{
    // Drafts, their growing archives and store copies of a backup that was cut short (the
    // process was killed meanwhile); those another process is still writing are locked by it.
    FKRArbeitsSperre::raeumeAuf(ordner, {QStringLiteral(".DataBackup-??????.part"), QStringLiteral("..DataBackup-??????.part.??????.part"),
                                         QStringLiteral(".DataBackup-??????.storedata")});
}

void FKRDatensicherung::starte(const QDateTime &moment)
{
    warteBisFertig();
    raeumeLiegengebliebenesAuf(m_sicherungsOrdner);
    // The archive's name is taken only when it is complete, counting on past names already
    // taken at that moment (veroeffentliche): no earlier archive is ever replaced.
    const Auftrag a = auftrag(m_sicherungsOrdner + QLatin1Char('/') + archivName(moment), false);
    auto melde = [this](const QString &archiv, const QString &fehler) {
        QMetaObject::invokeMethod(this, [this, archiv, fehler] { Q_EMIT fertig(archiv, fehler); }, Qt::QueuedConnection);
    };
    m_laeuft = true;
    try {
        m_arbeit = std::thread([this, a, melde] {
            QString archiv;
            QString fehler;
            bool ok = false;
            try {
                ok = sichere(a, &archiv, &fehler);
            } catch (const std::exception &e) {
                fehler = QString::fromLocal8Bit(e.what());
            } catch (...) {
                fehler = QStringLiteral("the backup stopped unexpectedly");
            }
            melde(ok ? archiv : QString(), ok ? QString() : fehler);
            m_laeuft = false;
        });
    } catch (const std::exception &e) {
        melde(QString(), QString::fromLocal8Bit(e.what()));
        m_laeuft = false;
    }
}

bool FKRDatensicherung::erstelleJetzt(const QString &archivPfad, QString *fehler)
{
    QString archiv;
    QString grund;
    raeumeLiegengebliebenesAuf(QFileInfo(archivPfad).absolutePath());
    const bool ok = sichere(auftrag(QFileInfo(archivPfad).absoluteFilePath(), true), &archiv, &grund);
    if (fehler)
        *fehler = ok ? QString() : grund;
    return ok;
}

bool FKRDatensicherung::sichere(const Auftrag &auftrag, QString *archivPfad, QString *fehler)
{
    using Quelle = FKRDatensicherungQuelle;
    const QString storeName = QString::fromLatin1(PersistentStoreCoordinator::kStoreFileName);
    const QString ordner = QFileInfo(auftrag.ziel).absolutePath();

    // The store is zipped as it lies, without holding a lock, so the program's saves never wait
    // for the compression. Its state before and after tells whether a save came in between.
    std::unique_ptr<Quelle> quelle;
    Quelle::Zustand vorher;
    bool pruefen = false;
    if (auftrag.dateien.contains(storeName)) {
        quelle = std::make_unique<Quelle>(auftrag.datenOrdner + QLatin1Char('/') + storeName);
        QString grund;
        if (!quelle->oeffne(&grund)) {
            quelle.reset(); // a store that cannot be opened is skipped like any unreadable file
        } else {
            const Quelle::Art art = quelle->leseZustand(&vorher, &grund);
            if (art == Quelle::Art::Fehler) {
                *fehler = grund;
                return false;
            }
            // A file that is no database is nobody's store: it is archived byte for byte.
            pruefen = art == Quelle::Art::Datenbank;
        }
    }
    auto eintraege = [&](const std::function<qint64(char *, qint64)> &storeLeser) {
        QList<FKRZipArchiv::Eintrag> liste;
        for (const QString &name : auftrag.dateien) {
            FKRZipArchiv::Eintrag eintrag{auftrag.datenOrdner + QLatin1Char('/') + name, name};
            if (name == storeName) {
                if (!quelle)
                    continue;
                eintrag.leser = storeLeser;
            }
            liste.append(eintrag);
        }
        return liste;
    };

    // Hidden drafts in the backups folder: the archive gets its real name only when it is
    // complete and checked.
    QTemporaryFile entwurf(ordner + QStringLiteral("/.DataBackup-XXXXXX.part"));
    if (!entwurf.open()) {
        *fehler = QStringLiteral("cannot write into the backups folder %1: %2").arg(ordner, entwurf.errorString());
        return false;
    }
    const FKRArbeitsSperre entwurfGesperrt(entwurf.fileName());
    entwurf.close();
    // Now and then the read looks whether a save has come in meanwhile; then the rest of the
    // file is not worth compressing and the copy is taken at once.
    bool geaendert = false;
    auto unveraendert = [&] {
        Quelle::Zustand jetzt;
        QString grund;
        geaendert = quelle->leseZustand(&jetzt, &grund) != Quelle::Art::Datenbank || !(jetzt == vorher);
        return !geaendert;
    };
    std::function<qint64(char *, qint64)> storeLeser;
    if (quelle) {
        storeLeser = [&, leser = quelle->leser(), seitPruefung = qint64(0)](char *puffer, qint64 groesse) mutable {
            const qint64 gelesen = leser(puffer, groesse);
            seitPruefung += std::max<qint64>(gelesen, 0);
            if (pruefen && seitPruefung >= kPruefAbstand) {
                seitPruefung = 0;
                if (!unveraendert())
                    return qint64(-1);
            }
            return gelesen;
        };
    }
    if (!FKRZipArchiv::erstelle(entwurf.fileName(), eintraege(storeLeser), fehler) && !geaendert)
        return false;

    if (pruefen) {
        if (geaendert || !unveraendert()) {
            // A save landed while the file was read, so the archive may hold pages of two states.
            // The store goes in once more, from a consistent copy.
            QTemporaryFile kopie(ordner + QStringLiteral("/.DataBackup-XXXXXX.storedata"));
            if (!kopie.open()) {
                *fehler = QStringLiteral("cannot write into the backups folder %1: %2").arg(ordner, kopie.errorString());
                return false;
            }
            const FKRArbeitsSperre kopieGesperrt(kopie.fileName());
            kopie.close();
            if (!quelle->kopiere(kopie.fileName(), fehler))
                return false;
            QFile kopieDatei(kopie.fileName());
            if (!kopieDatei.open(QIODevice::ReadOnly)) {
                *fehler = QStringLiteral("cannot read %1: %2").arg(kopie.fileName(), kopieDatei.errorString());
                return false;
            }
            const auto kopieLeser = [&kopieDatei](char *puffer, qint64 groesse) { return kopieDatei.read(puffer, groesse); };
            if (!FKRZipArchiv::erstelle(entwurf.fileName(), eintraege(kopieLeser), fehler))
                return false;
        }
    }
    if (!veroeffentliche(entwurf.fileName(), auftrag, archivPfad, fehler))
        return false;
    entwurf.setAutoRemove(false);
    return true;
}

bool FKRDatensicherung::veroeffentliche(const QString &entwurf, const Auftrag &auftrag, QString *archivPfad, QString *fehler)
{
    const QByteArray von = QFile::encodeName(entwurf);
    for (int zaehler = 1; zaehler <= kMaxZaehler; ++zaehler) {
        const QString ziel = zaehler == 1 ? auftrag.ziel : mitZaehler(auftrag.ziel, zaehler);
        const QByteArray nach = QFile::encodeName(ziel);
        int rc = 0;
        if (auftrag.ersetzen) {
            rc = ::rename(von.constData(), nach.constData());
        } else {
            // No backup may be lost: an archive of that name (an earlier start within the same
            // minute) is never replaced, not even by a race between two processes.
            rc = ::renameat2(AT_FDCWD, von.constData(), AT_FDCWD, nach.constData(), RENAME_NOREPLACE);
            if (rc != 0 && (errno == EINVAL || errno == ENOSYS)) {
                // A file system without that kind of rename: check, then rename.
                const bool belegt = istBelegt(ziel);
                rc = belegt ? -1 : ::rename(von.constData(), nach.constData());
                if (belegt)
                    errno = EEXIST;
            }
        }
        if (rc == 0) {
            ordnerAufPlatte(QFileInfo(ziel).absolutePath());
            *archivPfad = ziel;
            return true;
        }
        if (errno != EEXIST) {
            *fehler = QStringLiteral("cannot write the archive %1: %2").arg(ziel, systemFehler());
            return false;
        }
    }
    *fehler = QStringLiteral("no free archive name for %1").arg(auftrag.ziel);
    return false;
}
