#include "FKRZipArchiv.h"

#include "FKRArbeitsSperre.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <minizip/zip.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

// Files are streamed through this buffer; a store of hundreds of megabytes never sits in memory.
constexpr qint64 kBlock = qint64(1) << 20;
// General purpose flag bit 11: the entry's name is UTF-8.
constexpr uLong kNameInUtf8 = uLong(1) << 11;
// "Version made by": the attributes are Unix ones (high byte 3), zip format 3.0.
constexpr uLong kGemachtUnterUnix = (uLong(3) << 8) | 30;
// Beyond this size an entry gets the zip64 sizes; a store file still growing while it is read
// stays far below 4 GiB from here.
constexpr qint64 kZip64Ab = qint64(2) << 30;

QString fehlerText(int fehlerNummer)
{
    return QString::fromLocal8Bit(std::strerror(fehlerNummer));
}

bool melde(QString *fehler, const QString &text)
{
    if (fehler)
        *fehler = text;
    return false;
}

// The entry's time in the two forms readers know: the DOS time of the local header (local
// time, two-second steps, 1980 to 2107) and the exact Unix time in an "UT" extra field.
zip_fileinfo eintragsInfo(const struct stat *st)
{
    zip_fileinfo info{};
    const time_t zeit = st ? st->st_mtime : std::time(nullptr);
    struct tm lokal {};
    localtime_r(&zeit, &lokal);
    if (lokal.tm_year < 80) {
        lokal = {};
        lokal.tm_year = 80;
        lokal.tm_mday = 1;
    } else if (lokal.tm_year > 207) {
        lokal.tm_year = 207;
    }
    info.tmz_date.tm_sec = uInt(lokal.tm_sec);
    info.tmz_date.tm_min = uInt(lokal.tm_min);
    info.tmz_date.tm_hour = uInt(lokal.tm_hour);
    info.tmz_date.tm_mday = uInt(lokal.tm_mday);
    info.tmz_date.tm_mon = uInt(lokal.tm_mon);
    info.tmz_date.tm_year = uInt(lokal.tm_year + 1900);
    const mode_t rechte = st ? (st->st_mode & 07777) : 0600;
    info.external_fa = uLong(S_IFREG | rechte) << 16;
    return info;
}

std::array<unsigned char, 9> zeitFeld(const struct stat *st)
{
    qint64 sekunden = st ? qint64(st->st_mtime) : qint64(std::time(nullptr));
    sekunden = std::clamp<qint64>(sekunden, 0, 0x7fffffff);
    const auto wert = quint32(sekunden);
    return {0x55, 0x54, 5, 0, 1, // "UT", five bytes: flags (modification time present), time
            static_cast<unsigned char>(wert), static_cast<unsigned char>(wert >> 8),
            static_cast<unsigned char>(wert >> 16), static_cast<unsigned char>(wert >> 24)};
}

enum class Eintragen { Geschrieben, Uebersprungen, Fehler };

Eintragen schreibeEintrag(zipFile zip, const FKRZipArchiv::Eintrag &eintrag, int stufe, QString *grund)
{
    struct stat st {};
    const bool hatStat = ::stat(QFile::encodeName(eintrag.quellPfad).constData(), &st) == 0;
    auto leser = eintrag.leser;
    std::unique_ptr<QFile> datei;
    if (!leser) {
        // Only regular files: a folder or a device under a store file's name is not archived.
        if (!hatStat || !S_ISREG(st.st_mode))
            return Eintragen::Uebersprungen;
        datei = std::make_unique<QFile>(eintrag.quellPfad);
        if (!datei->open(QIODevice::ReadOnly))
            return Eintragen::Uebersprungen;
        leser = [&datei](char *puffer, qint64 groesse) { return datei->read(puffer, groesse); };
    }

    const zip_fileinfo info = eintragsInfo(hatStat ? &st : nullptr);
    const auto feld = zeitFeld(hatStat ? &st : nullptr);
    const QByteArray name = eintrag.name.toUtf8();
    const int zip64 = hatStat && st.st_size >= kZip64Ab ? 1 : 0;
    const int methode = stufe == 0 ? 0 : Z_DEFLATED;
    if (zipOpenNewFileInZip4_64(zip, name.constData(), &info, feld.data(), uInt(feld.size()), feld.data(),
                                uInt(feld.size()), nullptr, methode, stufe, 0, -MAX_WBITS, DEF_MEM_LEVEL,
                                Z_DEFAULT_STRATEGY, nullptr, 0, kGemachtUnterUnix, kNameInUtf8, zip64)
        != ZIP_OK) {
        *grund = QStringLiteral("cannot add %1 to the archive").arg(eintrag.name);
        return Eintragen::Fehler;
    }
    std::vector<char> puffer(std::size_t(kBlock), '\0');
    for (;;) {
        const qint64 gelesen = leser(puffer.data(), kBlock);
        if (gelesen == 0)
            break;
        if (gelesen < 0) {
            // Half a file under its full name would pass for a complete backup.
            *grund = QStringLiteral("cannot read %1").arg(eintrag.quellPfad);
            return Eintragen::Fehler;
        }
        if (zipWriteInFileInZip(zip, puffer.data(), unsigned(gelesen)) != ZIP_OK) {
            *grund = QStringLiteral("cannot write the archive: %1").arg(fehlerText(errno));
            return Eintragen::Fehler;
        }
    }
    if (zipCloseFileInZip(zip) != ZIP_OK) {
        *grund = QStringLiteral("cannot write the archive: %1").arg(fehlerText(errno));
        return Eintragen::Fehler;
    }
    return Eintragen::Geschrieben;
}

} // namespace

bool FKRZipArchiv::aufPlatte(const QString &pfad)
{
    const int fd = ::open(QFile::encodeName(pfad).constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return false;
    const bool ok = ::fsync(fd) == 0;
    ::close(fd);
    return ok;
}

bool FKRZipArchiv::erstelle(const QString &archivPfad, const QList<Eintrag> &eintraege, QString *fehler, int stufe)
{
    const QFileInfo ziel(archivPfad);
    // The archive grows under a name of its own and takes the real name only when complete, so
    // a failure (a full disk, a crash) never leaves a cut-off archive or spoils an older one.
    QTemporaryFile teil(ziel.absolutePath() + QStringLiteral("/.") + ziel.fileName() + QStringLiteral(".XXXXXX.part"));
    if (!teil.open())
        return melde(fehler, QStringLiteral("cannot create an archive in %1: %2").arg(ziel.absolutePath(), teil.errorString()));
    // Held until the archive has its name: the draft is this run's, not a killed run's leftover.
    const FKRArbeitsSperre sperre(teil.fileName());
    teil.close();
    const QByteArray teilPfad = QFile::encodeName(teil.fileName());
    zipFile zip = zipOpen64(teilPfad.constData(), APPEND_STATUS_CREATE);
    if (!zip)
        return melde(fehler, QStringLiteral("cannot create the archive %1: %2").arg(archivPfad, fehlerText(errno)));

    QString grund;
    bool ok = true;
    for (const Eintrag &eintrag : eintraege) {
        if (schreibeEintrag(zip, eintrag, stufe, &grund) == Eintragen::Fehler) {
            ok = false;
            break;
        }
    }
    errno = 0;
    if (zipClose(zip, nullptr) != ZIP_OK && ok) {
        ok = false;
        grund = QStringLiteral("cannot complete the archive %1: %2").arg(archivPfad, fehlerText(errno));
    }
    if (!ok)
        return melde(fehler, grund);
    if (!aufPlatte(teil.fileName()))
        return melde(fehler, QStringLiteral("cannot complete the archive %1: %2").arg(archivPfad, fehlerText(errno)));
    if (::rename(teilPfad.constData(), QFile::encodeName(ziel.absoluteFilePath()).constData()) != 0)
        return melde(fehler, QStringLiteral("cannot write the archive %1: %2").arg(archivPfad, fehlerText(errno)));
    teil.setAutoRemove(false);
    aufPlatte(ziel.absolutePath());
    return true;
}
