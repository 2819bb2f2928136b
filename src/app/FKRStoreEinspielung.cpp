#include "FKRStoreEinspielung.h"

#include "FKRArbeitsSperre.h"
#include "FKRDatensicherung.h"
#include "PersistentStoreCoordinator.h"
#include "StoreCheck.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

QString storeName()
{
    return QString::fromLatin1(PersistentStoreCoordinator::kStoreFileName);
}

bool melde(QString *fehler, const QString &text)
{
    if (fehler)
        *fehler = text;
    return false;
}

} // namespace

FKRStoreEinspielung::FKRStoreEinspielung(const QString &datenOrdner, const FKRZipArchiv::Grenzen &grenzen)
    : m_datenOrdner(QFileInfo(datenOrdner).absoluteFilePath())
    , m_grenzen(grenzen)
{
}

FKRStoreEinspielung::~FKRStoreEinspielung()
{
    verwirf();
}

void FKRStoreEinspielung::verwirf()
{
    m_geprueft = false;
    m_pruefOrdner.reset();
    m_sperre.reset();
}

void FKRStoreEinspielung::raeumeLiegengebliebenesAuf(const QString &datenOrdner)
{
    FKRArbeitsSperre::raeumeAuf(datenOrdner, {QLatin1Char('.') + storeName() + QStringLiteral("*.??????")});
}

FKRZipArchiv::Ergebnis FKRStoreEinspielung::pruefe(const QString &archivPfad, QString *fehler)
{
    verwirf();
    raeumeLiegengebliebenesAuf(m_datenOrdner);
    auto ordner = std::make_unique<QTemporaryDir>(m_datenOrdner + QStringLiteral("/.") + storeName() + QStringLiteral(".XXXXXX"));
    if (!ordner->isValid()) {
        melde(fehler, QStringLiteral("cannot unpack into %1: %2").arg(m_datenOrdner, ordner->errorString()));
        return FKRZipArchiv::Ergebnis::SchreibFehler;
    }
    m_sperre = std::make_unique<FKRArbeitsSperre>(ordner->path());
    m_pruefOrdner = std::move(ordner);

    QString grund;
    const FKRZipArchiv::Ergebnis entpackt = FKRZipArchiv::entpackeSicher(
        archivPfad, m_pruefOrdner->path(), FKRDatensicherung::storeDateiNamen(), &grund, m_grenzen);
    if (entpackt != FKRZipArchiv::Ergebnis::Erfolg) {
        verwirf();
        melde(fehler, grund);
        return entpackt;
    }
    const StoreCheck::Result befund = StoreCheck::check(m_pruefOrdner->path() + QLatin1Char('/') + storeName());
    if (!befund.usable()) {
        verwirf();
        melde(fehler, befund.reason);
        return FKRZipArchiv::Ergebnis::Abgelehnt;
    }
    m_geprueft = true;
    return FKRZipArchiv::Ergebnis::Erfolg;
}

bool FKRStoreEinspielung::setzeEin(QString *fehler)
{
    if (!m_geprueft)
        return melde(fehler, QStringLiteral("no checked store to put in place"));
    // The side files first: until the store itself is renamed, the old store is the one there.
    QStringList namen = FKRDatensicherung::storeDateiNamen();
    namen.move(0, namen.size() - 1);
    QStringList einzusetzen;
    for (const QString &name : std::as_const(namen)) {
        if (!QFileInfo::exists(m_pruefOrdner->filePath(name)))
            continue; // folded into the store by the check, or never in the archive
        // A folder under a store file's name would stop the renames halfway.
        const QFileInfo ziel(m_datenOrdner + QLatin1Char('/') + name);
        if (ziel.isDir() && !ziel.isSymLink())
            return melde(fehler, QStringLiteral("%1 is a folder").arg(ziel.filePath()));
        einzusetzen.append(name);
    }
    for (const QString &name : std::as_const(einzusetzen)) {
        const QByteArray von = QFile::encodeName(m_pruefOrdner->filePath(name));
        const QByteArray nach = QFile::encodeName(m_datenOrdner + QLatin1Char('/') + name);
        // A replaced file keeps its permissions; a new one stays private to the user.
        struct stat alt {};
        if (::stat(nach.constData(), &alt) == 0)
            ::chmod(von.constData(), alt.st_mode & 07777);
        if (::rename(von.constData(), nach.constData()) != 0)
            return melde(fehler, QStringLiteral("cannot replace %1: %2")
                                     .arg(QFile::decodeName(nach), QString::fromLocal8Bit(std::strerror(errno))));
    }
    const int fd = ::open(QFile::encodeName(m_datenOrdner).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd >= 0) {
        ::fsync(fd);
        ::close(fd);
    }
    verwirf();
    return true;
}
