#include "FKRDatensicherungQuelle.h"

#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <sqlite3.h>
#include <sys/stat.h>

namespace {

// Pages per step of the copy: about a megabyte, a few milliseconds under the shared lock, so a
// save of the program waits at most that long for the copy.
constexpr int kSeitenJeSchritt = 256;
// A copy restarts from the beginning whenever a save lands in between. After this many restarts
// the rest is copied in one step: one longer wait for a save instead of a copy that never ends.
constexpr int kMaxNeustarts = 4;
// How long the copy keeps trying while the program holds the store locked.
constexpr qint64 kGeduldMs = 30000;
constexpr int kWartezeitMs = 5;

QString meldung(sqlite3 *db, int rc)
{
    return db ? QString::fromUtf8(sqlite3_errmsg(db)) : QString::fromUtf8(sqlite3_errstr(rc));
}

} // namespace

FKRDatensicherungQuelle::FKRDatensicherungQuelle(const QString &storePfad) : m_pfad(storePfad) {}

FKRDatensicherungQuelle::~FKRDatensicherungQuelle() = default;

bool FKRDatensicherungQuelle::oeffne(QString *fehler)
{
    if (!m_db.open(m_pfad, false)) {
        *fehler = m_db.lastError();
        return false;
    }
    // The program's saves hold the file for as long as their fsyncs take; wait as they do.
    m_db.setBusyTimeout(5000);
    if (sqlite3_file_control(m_db.handle(), "main", SQLITE_FCNTL_FILE_POINTER, &m_datei) != SQLITE_OK || !m_datei
        || !m_datei->pMethods) {
        *fehler = QStringLiteral("no file handle for %1").arg(m_pfad);
        m_db.close();
        return false;
    }
    return true;
}

FKRDatensicherungQuelle::Art FKRDatensicherungQuelle::leseZustand(Zustand *zustand, QString *fehler)
{
    sqlite3 *db = m_db.handle();
    if (sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr) != SQLITE_OK) {
        *fehler = meldung(db, SQLITE_ERROR);
        return Art::Fehler;
    }
    // The first read takes the shared lock (rolling back a crashed save's journal first) and
    // keeps it until the end of the transaction: meanwhile nobody writes to the file.
    const int rc = sqlite3_exec(db, "SELECT count(*) FROM sqlite_master", nullptr, nullptr, nullptr);
    Art art = Art::Datenbank;
    if (rc != SQLITE_OK) {
        const int grund = rc & 0xff;
        art = grund == SQLITE_NOTADB || grund == SQLITE_CORRUPT ? Art::KeineDatenbank : Art::Fehler;
        *fehler = meldung(db, rc);
    } else {
        // Header bytes 24 to 27: the file change counter, big-endian.
        unsigned char kopf[4] = {};
        const int gelesen = m_datei->pMethods->xRead(m_datei, kopf, 4, 24);
        sqlite3_int64 groesse = 0;
        struct stat st {};
        if ((gelesen != SQLITE_OK && gelesen != SQLITE_IOERR_SHORT_READ)
            || m_datei->pMethods->xFileSize(m_datei, &groesse) != SQLITE_OK
            || ::stat(QFile::encodeName(m_pfad).constData(), &st) != 0) {
            art = Art::Fehler;
            *fehler = QStringLiteral("cannot read the state of %1").arg(m_pfad);
        } else {
            zustand->aenderungsZaehler = quint32(kopf[0]) << 24 | quint32(kopf[1]) << 16 | quint32(kopf[2]) << 8 | kopf[3];
            zustand->groesse = groesse;
            zustand->geaendertNs = qint64(st.st_mtim.tv_sec) * 1000000000 + st.st_mtim.tv_nsec;
            zustand->inode = quint64(st.st_ino);
        }
    }
    if (sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr) != SQLITE_OK)
        sqlite3_exec(db, "ROLLBACK", nullptr, nullptr, nullptr);
    return art;
}

std::function<qint64(char *, qint64)> FKRDatensicherungQuelle::leser()
{
    m_position = 0;
    return [this](char *puffer, qint64 groesse) -> qint64 {
        sqlite3_int64 laenge = 0;
        if (m_datei->pMethods->xFileSize(m_datei, &laenge) != SQLITE_OK)
            return -1;
        const qint64 anzahl = std::min<qint64>(groesse, laenge - m_position);
        if (anzahl <= 0)
            return 0;
        // A file that shrank under the read gives zeros at its end; the state check afterwards
        // sees the change and the copy is taken instead.
        const int rc = m_datei->pMethods->xRead(m_datei, puffer, int(anzahl), m_position);
        if (rc != SQLITE_OK && rc != SQLITE_IOERR_SHORT_READ)
            return -1;
        m_position += anzahl;
        return anzahl;
    };
}

bool FKRDatensicherungQuelle::kopiere(const QString &zielPfad, QString *fehler)
{
    SqliteDatabase ziel;
    if (!ziel.open(zielPfad, true)) {
        *fehler = ziel.lastError();
        return false;
    }
    // The copy is zipped and deleted right after: it needs neither a journal nor syncs.
    ziel.exec(QStringLiteral("PRAGMA journal_mode = OFF"));
    ziel.exec(QStringLiteral("PRAGMA synchronous = OFF"));
    sqlite3_backup *kopie = sqlite3_backup_init(ziel.handle(), "main", m_db.handle(), "main");
    if (!kopie) {
        *fehler = meldung(ziel.handle(), SQLITE_ERROR);
        return false;
    }
    QElapsedTimer uhr;
    uhr.start();
    int seiten = kSeitenJeSchritt;
    int neustarts = 0;
    int rest = -1;
    int rc = SQLITE_OK;
    for (;;) {
        rc = sqlite3_backup_step(kopie, seiten);
        if (rc == SQLITE_DONE)
            break;
        if (rc == SQLITE_OK) {
            const int jetzt = sqlite3_backup_remaining(kopie);
            if (rest >= 0 && jetzt > rest && ++neustarts >= kMaxNeustarts)
                seiten = -1;
            rest = jetzt;
            continue;
        }
        const int grund = rc & 0xff;
        if ((grund == SQLITE_BUSY || grund == SQLITE_LOCKED) && uhr.elapsed() < kGeduldMs) {
            sqlite3_sleep(kWartezeitMs);
            continue;
        }
        break;
    }
    const int schluss = sqlite3_backup_finish(kopie);
    if (rc != SQLITE_DONE || schluss != SQLITE_OK) {
        *fehler = QStringLiteral("cannot copy %1: %2").arg(m_pfad, QString::fromUtf8(sqlite3_errstr(rc != SQLITE_DONE ? rc : schluss)));
        return false;
    }
    return true;
}
