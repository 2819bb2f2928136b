// Extraction of an "fks" archive over the store files. An archive comes from outside (the user
// picks any file), so nothing in it is trusted: the whole archive is read and checked before the
// first byte lands in the target folder, and only the expected names are ever written there.

#include "FKRZipArchiv.h"

#include "FKRArbeitsSperre.h"

#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>
#include <QTemporaryFile>

#include <minizip/unzip.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <functional>
#include <limits>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr unsigned kBlock = 1u << 20;
constexpr uLong kNameInUtf8 = uLong(1) << 11;
constexpr uLong kVerschluesselt = 1;
constexpr uLong kDosOrdner = 0x10;
// Makers whose external attributes carry a Unix mode in their high 16 bits.
constexpr uLong kUnix = 3;
constexpr uLong kOsX = 19;
constexpr uLong kMaxNamensLaenge = 255;

using Ergebnis = FKRZipArchiv::Ergebnis;

// A name that can only mean a file directly in the target folder.
bool istSchlichterName(const QString &name)
{
    return !name.isEmpty() && name != u"." && name != u".." && !name.contains(QLatin1Char('/'))
           && !name.contains(QLatin1Char('\\')) && !name.contains(QChar(0));
}

// A name from the archive as it may appear in a one-line reason: control characters (a line
// break in a name would split the message) shown as "?", and no longer than a name can be.
QString alsZeile(const QString &name)
{
    QString zeile = name.left(int(kMaxNamensLaenge));
    for (QChar &c : zeile) {
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator || c == QChar::ParagraphSeparator)
            c = QLatin1Char('?');
    }
    return zeile;
}

struct UnzipDatei {
    unzFile datei;
    ~UnzipDatei()
    {
        if (datei)
            unzClose(datei);
    }
};

enum class Lesen { Ok, Beschaedigt, ZielFehler };

// Reads the current entry to its end and checks its length and checksum; every block goes to
// `ziel` when one is given (false from it stops with ZielFehler).
Lesen leseEintrag(unzFile zip, ZPOS64_T erwarteteLaenge, const std::function<bool(const char *, int)> &ziel,
                  QString *grund)
{
    if (unzOpenCurrentFile(zip) != UNZ_OK) {
        *grund = QStringLiteral("an entry cannot be read");
        return Lesen::Beschaedigt;
    }
    std::vector<char> puffer(kBlock);
    ZPOS64_T gelesen = 0;
    for (;;) {
        const int n = unzReadCurrentFile(zip, puffer.data(), kBlock);
        if (n == 0)
            break;
        if (n < 0) {
            unzCloseCurrentFile(zip);
            *grund = QStringLiteral("the compressed data are damaged (%1)").arg(n);
            return Lesen::Beschaedigt;
        }
        gelesen += ZPOS64_T(n);
        if (ziel && !ziel(puffer.data(), n)) {
            unzCloseCurrentFile(zip);
            return Lesen::ZielFehler;
        }
    }
    // The checksum is compared here, once the declared length has been read.
    const int schluss = unzCloseCurrentFile(zip);
    if (gelesen != erwarteteLaenge || schluss != UNZ_OK) {
        *grund = schluss == UNZ_CRCERROR ? QStringLiteral("an entry fails its checksum")
                                         : QStringLiteral("an entry is shorter than it claims");
        return Lesen::Beschaedigt;
    }
    return Lesen::Ok;
}

// The current entry's name when it is one to extract; empty with `grund` otherwise.
QString pruefeEintrag(unzFile zip, const QStringList &erlaubteNamen, unz_file_info64 &info, QString *grund)
{
    char roh[kMaxNamensLaenge + 1] = {};
    if (unzGetCurrentFileInfo64(zip, &info, roh, sizeof roh, nullptr, 0, nullptr, 0) != UNZ_OK) {
        *grund = QStringLiteral("the archive's directory is damaged");
        return {};
    }
    if (info.size_filename > kMaxNamensLaenge) {
        *grund = QStringLiteral("an entry has an overlong name");
        return {};
    }
    const QByteArray bytes(roh, qsizetype(info.size_filename));
    const QString name = QString::fromUtf8(bytes);
    // Names outside ASCII count only when marked as UTF-8; the bytes must be exactly the name's.
    bool ascii = true;
    for (const char c : bytes)
        ascii = ascii && static_cast<unsigned char>(c) < 0x80;
    if ((!ascii && !(info.flag & kNameInUtf8)) || name.toUtf8() != bytes || !istSchlichterName(name)
        || !erlaubteNamen.contains(name)) {
        *grund = QStringLiteral("the entry \"%1\" is not one of the store files").arg(alsZeile(name));
        return {};
    }
    const uLong macher = (info.version >> 8) & 0xff;
    const auto modus = mode_t(info.external_fa >> 16);
    if ((info.external_fa & kDosOrdner)
        || ((macher == kUnix || macher == kOsX) && (modus & S_IFMT) != 0 && !S_ISREG(modus))) {
        *grund = QStringLiteral("the entry \"%1\" is a folder or a link, not a file").arg(name);
        return {};
    }
    if (info.flag & kVerschluesselt) {
        *grund = QStringLiteral("the entry \"%1\" is encrypted").arg(name);
        return {};
    }
    if (info.compression_method != 0 && info.compression_method != Z_DEFLATED) {
        *grund = QStringLiteral("the entry \"%1\" uses an unknown compression").arg(name);
        return {};
    }
    return name;
}

// How many bytes the entries of an archive of `archivGroesse` bytes may unpack to.
quint64 erlaubteGroesse(const FKRZipArchiv::Grenzen &grenzen, qint64 archivGroesse)
{
    const auto verhaeltnis = quint64(std::max<qint64>(grenzen.verhaeltnis, 0));
    const auto archiv = quint64(std::max<qint64>(archivGroesse, 0));
    const quint64 nachVerhaeltnis = verhaeltnis != 0 && archiv > std::numeric_limits<quint64>::max() / verhaeltnis
                                        ? std::numeric_limits<quint64>::max()
                                        : archiv * verhaeltnis;
    return std::min(quint64(std::max<qint64>(grenzen.hoechstens, 0)),
                    std::max(quint64(std::max<qint64>(grenzen.ohneVerhaeltnis, 0)), nachVerhaeltnis));
}

struct Inhalt {
    QStringList namen;
    QList<ZPOS64_T> groessen;
    quint64 gesamt = 0;
};

// The whole archive: every entry allowed, none twice, all within `erlaubt` bytes, each one
// readable with a right checksum. The sizes are those the archive declares: minizip never hands
// out more than an entry declares, and one that unpacks to less fails the check, so a bomb is
// refused before any of it is unpacked.
bool pruefeArchiv(unzFile zip, const QStringList &erlaubteNamen, quint64 erlaubt, Inhalt *inhalt, QString *grund)
{
    int rc = unzGoToFirstFile(zip);
    if (rc == UNZ_END_OF_LIST_OF_FILE) {
        *grund = QStringLiteral("the archive holds no files");
        return false;
    }
    while (rc == UNZ_OK) {
        unz_file_info64 info{};
        const QString name = pruefeEintrag(zip, erlaubteNamen, info, grund);
        if (name.isEmpty())
            return false;
        if (inhalt->namen.contains(name)) {
            *grund = QStringLiteral("the archive holds \"%1\" twice").arg(name);
            return false;
        }
        if (info.uncompressed_size > erlaubt - inhalt->gesamt) {
            *grund = QStringLiteral("the archive would unpack to more than the %1 bytes allowed for its size").arg(erlaubt);
            return false;
        }
        if (leseEintrag(zip, info.uncompressed_size, {}, grund) != Lesen::Ok)
            return false;
        inhalt->namen.append(name);
        inhalt->groessen.append(info.uncompressed_size);
        inhalt->gesamt += info.uncompressed_size;
        rc = unzGoToNextFile(zip);
    }
    if (rc != UNZ_END_OF_LIST_OF_FILE) {
        *grund = QStringLiteral("the archive's directory is damaged");
        return false;
    }
    return true;
}

} // namespace

FKRZipArchiv::Ergebnis FKRZipArchiv::entpackeSicher(const QString &archivPfad, const QString &zielOrdner,
                                                    const QStringList &erlaubteNamen, QString *fehler,
                                                    const Grenzen &grenzen)
{
    QString grund;
    auto ende = [&](Ergebnis ergebnis, const QString &text) {
        if (fehler)
            *fehler = text;
        return ergebnis;
    };
    const QFileInfo archiv(archivPfad);
    if (!archiv.isFile())
        return ende(Ergebnis::Abgelehnt, QStringLiteral("%1 is not a file").arg(archivPfad));
    UnzipDatei zip{unzOpen64(QFile::encodeName(archivPfad).constData())};
    if (!zip.datei)
        return ende(Ergebnis::Abgelehnt, QStringLiteral("%1 is not a readable zip archive").arg(archivPfad));
    Inhalt inhalt;
    if (!pruefeArchiv(zip.datei, erlaubteNamen, erlaubteGroesse(grenzen, archiv.size()), &inhalt, &grund))
        return ende(Ergebnis::Abgelehnt, grund);
    const QStringList &namen = inhalt.namen;
    // Side files without the file they belong to would be put next to a store they do not fit.
    if (!erlaubteNamen.isEmpty() && !namen.contains(erlaubteNamen.first()))
        return ende(Ergebnis::Abgelehnt, QStringLiteral("the archive holds no %1").arg(erlaubteNamen.first()));

    const QFileInfo ordner(zielOrdner);
    if (!ordner.isDir())
        return ende(Ergebnis::SchreibFehler, QStringLiteral("%1 is not a folder").arg(zielOrdner));
    const QString basis = ordner.absoluteFilePath() + QLatin1Char('/');
    const qint64 frei = QStorageInfo(ordner.absoluteFilePath()).bytesAvailable();
    if (frei >= 0 && inhalt.gesamt + quint64(std::max<qint64>(grenzen.freiLassen, 0)) > quint64(frei))
        return ende(Ergebnis::SchreibFehler, QStringLiteral("not enough free space in %1 for the %2 bytes of the archive")
                                                 .arg(zielOrdner)
                                                 .arg(inhalt.gesamt));
    // A file that is there is replaced by a rename; a folder under a store file's name would make
    // that rename fail halfway through, after other files were already replaced.
    for (const QString &name : std::as_const(namen)) {
        if (QFileInfo(basis + name).isDir() && !QFileInfo(basis + name).isSymLink())
            return ende(Ergebnis::SchreibFehler, QStringLiteral("%1 is a folder").arg(basis + name));
    }

    // Every entry first goes into a temporary file of the target folder and onto the disk; the
    // temporary files vanish with their objects unless they were renamed into place.
    // Each is locked while it is this run's: a later run removes only what a killed one left.
    std::vector<std::unique_ptr<QTemporaryFile>> neue;
    std::vector<std::unique_ptr<FKRArbeitsSperre>> sperren;
    int rc = unzGoToFirstFile(zip.datei);
    for (qsizetype i = 0; i < namen.size(); ++i) {
        const QString &name = namen[i];
        unz_file_info64 info{};
        if (rc != UNZ_OK || pruefeEintrag(zip.datei, erlaubteNamen, info, &grund) != name
            || info.uncompressed_size != inhalt.groessen[i])
            return ende(Ergebnis::Abgelehnt, QStringLiteral("the archive changed while it was read"));
        auto datei = std::make_unique<QTemporaryFile>(basis + QLatin1Char('.') + name + QStringLiteral(".XXXXXX"));
        if (!datei->open())
            return ende(Ergebnis::SchreibFehler, QStringLiteral("cannot write into %1: %2").arg(zielOrdner, datei->errorString()));
        sperren.push_back(std::make_unique<FKRArbeitsSperre>(datei->fileName()));
        const Lesen gelesen = leseEintrag(zip.datei, info.uncompressed_size, [&datei](const char *daten, int laenge) {
            return datei->write(daten, laenge) == laenge;
        }, &grund);
        if (gelesen == Lesen::Beschaedigt)
            return ende(Ergebnis::Abgelehnt, grund);
        if (gelesen == Lesen::ZielFehler || !datei->flush() || ::fsync(datei->handle()) != 0)
            return ende(Ergebnis::SchreibFehler, QStringLiteral("cannot write %1: %2").arg(basis + name, datei->errorString()));
        // A replaced file keeps its permissions; a new one stays private to the user.
        struct stat alt {};
        if (::stat(QFile::encodeName(basis + name).constData(), &alt) == 0)
            ::fchmod(datei->handle(), alt.st_mode & 07777);
        neue.push_back(std::move(datei));
        rc = unzGoToNextFile(zip.datei);
    }
    for (std::size_t i = 0; i < neue.size(); ++i) {
        const QString ziel = basis + namen[qsizetype(i)];
        if (::rename(QFile::encodeName(neue[i]->fileName()).constData(), QFile::encodeName(ziel).constData()) != 0)
            return ende(Ergebnis::SchreibFehler, QStringLiteral("cannot replace %1: %2").arg(ziel, QString::fromLocal8Bit(std::strerror(errno))));
        neue[i]->setAutoRemove(false);
    }
    aufPlatte(ordner.absoluteFilePath());
    return ende(Ergebnis::Erfolg, QString());
}
