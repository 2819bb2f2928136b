#include "CDEFolderFileSystem.h"

#include "CDESyncLog.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QRegularExpression>
#include <QUuid>

#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kTemp = u".velmora-tmp-"_s;

RecordError keineVerbindung() { return RecordError::sync(RecordError::NoConnection, u"No iCloud connection"_s); }

RecordError dateiFehler(const QString &was, const QString &pfad, const QString &grund)
{
    return RecordError::sync(RecordError::InternalError, u"cannot %1 \"%2\": %3"_s.arg(was, pfad, grund));
}

// Copies `von` to `nach` so that `nach` appears only whole: written under a temporary name next
// to it, flushed to the disk, then renamed.
std::optional<RecordError> schreibeGanz(const QString &von, const QString &nach)
{
    QFile quelle(von);
    if (!quelle.open(QIODevice::ReadOnly))
        return dateiFehler(u"read"_s, von, quelle.errorString());
    QDir().mkpath(QFileInfo(nach).path());
    QFile entwurf(QFileInfo(nach).path() + u'/' + kTemp + QUuid::createUuid().toString(QUuid::Id128));
    // A full disk may take part of the bytes without an error: all of them, or it failed.
    const QByteArray bytes = quelle.readAll();
    if (!entwurf.open(QIODevice::WriteOnly) || entwurf.write(bytes) != bytes.size() || !entwurf.flush()
        || ::fsync(entwurf.handle()) != 0) {
        entwurf.remove();
        return dateiFehler(u"write"_s, nach, entwurf.errorString());
    }
    entwurf.close();
    if (!entwurf.rename(nach)) {
        const QString grund = entwurf.errorString();
        entwurf.remove();
        if (QFileInfo::exists(nach))
            return std::nullopt; // written by another run a moment ago: files never change
        return dateiFehler(u"write"_s, nach, grund);
    }
    return std::nullopt;
}

} // namespace

CDEFolderFileSystem::CDEFolderFileSystem(QString rootFolder, QObject *parent)
    : CDECloudFileSystem(parent), m_root(QDir::cleanPath(rootFolder))
{
    if (rootFolder.isEmpty())
        m_root.clear();
}

CDEFolderFileSystem::~CDEFolderFileSystem()
{
    stopOperations();
}

bool CDEFolderFileSystem::isForeignFile(const QString &fileName)
{
    // Syncthing: "a.sync-conflict-20260301-101500-ABCDEFG.txt", ".syncthing.a.tmp", "~syncthing~a.tmp";
    // Nextcloud: "a (conflicted copy 2026-03-01 101500).txt"; Dropbox: "a (Anna's conflicted copy 2026-03-01).txt".
    static const QRegularExpression fremd(uR"(\.sync-conflict-|conflicted copy|^\.syncthing\.|^~syncthing~|^\.st(folder|versions)$|^\.~)"_s,
                                          QRegularExpression::CaseInsensitiveOption);
    return fileName.startsWith(kTemp) || fremd.match(fileName).hasMatch();
}

std::optional<RecordError> CDEFolderFileSystem::reachable() const
{
    // An unmounted share or a folder that was never made: no connection, as without a server.
    const QFileInfo wurzel(m_root);
    if (m_root.isEmpty() || !wurzel.isDir() || !wurzel.isWritable())
        return keineVerbindung();
    return std::nullopt;
}

QString CDEFolderFileSystem::localPath(const QString &path) const
{
    return QDir::cleanPath(m_root + u'/' + path);
}

void CDEFolderFileSystem::connect(Completion completion)
{
    enqueue<std::optional<RecordError>>([this]() -> std::optional<RecordError> {
        if (!m_root.isEmpty())
            QDir().mkpath(m_root);
        return reachable();
    }, std::move(completion));
}

void CDEFolderFileSystem::fetchUserIdentityWithCompletion(std::function<void(QString, std::optional<RecordError>)> completion)
{
    using R = RecordResult<QString>;
    enqueue<R>([this]() -> R { return {qEnvironmentVariable("USER"), reachable()}; },
               [completion](const R &r) { completion(r.value, r.error); });
}

void CDEFolderFileSystem::primeForActivityWithCompletion(Completion completion)
{
    // The folder is its own picture: nothing to bring up to date.
    run([] { return std::nullopt; }, std::move(completion));
}

void CDEFolderFileSystem::fileExistsAtPath(const QString &path, std::function<void(bool, bool, std::optional<RecordError>)> completion)
{
    struct R {
        bool gibtEs = false, ordner = false;
        std::optional<RecordError> fehler;
    };
    enqueue<R>([this, path]() -> R {
        if (auto fehler = reachable())
            return {false, false, fehler};
        const QFileInfo info(localPath(path));
        return {info.exists() && !isForeignFile(info.fileName()), info.isDir(), std::nullopt};
    }, [completion](const R &r) { completion(r.gibtEs, r.ordner, r.fehler); });
}

void CDEFolderFileSystem::contentsOfDirectoryAtPath(const QString &path,
                                                    std::function<void(QList<CDECloudItem>, std::optional<RecordError>)> completion)
{
    using R = RecordResult<QList<CDECloudItem>>;
    enqueue<R>([this, path]() -> R {
        if (auto fehler = reachable())
            return {{}, fehler};
        const QDir ordner(localPath(path));
        if (!ordner.exists())
            return {{}, RecordError::sync(RecordError::UnknownDirectory, u"the directory \"%1\" is not known"_s.arg(path))};
        R ergebnis;
        for (const QFileInfo &info : ordner.entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden, QDir::Name)) {
            if (isForeignFile(info.fileName()))
                continue;
            ergebnis.value.append({info.fileName(), QDir(m_root).relativeFilePath(info.filePath()), info.isDir(),
                                   info.isDir() ? 0 : info.size()});
        }
        return ergebnis;
    }, [completion](const R &r) { completion(r.value, r.error); });
}

void CDEFolderFileSystem::createDirectoryAtPath(const QString &path, Completion completion)
{
    run([this, path]() -> std::optional<RecordError> {
        if (QDir().mkpath(localPath(path)))
            return std::nullopt;
        return dateiFehler(u"make the folder"_s, localPath(path), u"no permission or no space"_s);
    }, std::move(completion));
}

void CDEFolderFileSystem::uploadLocalFiles(const QStringList &localFiles, const QStringList &paths, Completion completion)
{
    run([this, localFiles, paths]() -> std::optional<RecordError> {
        QStringList schonDa;
        for (qsizetype i = 0; i < localFiles.size() && i < paths.size(); ++i) {
            if (QFileInfo::exists(localPath(paths[i]))) {
                schonDa << paths[i];
                continue;
            }
            if (auto fehler = schreibeGanz(localFiles[i], localPath(paths[i])))
                return fehler;
        }
        if (!schonDa.isEmpty())
            CDE_LOG(u"Some files already exist and are kept as they are: %1"_s.arg(schonDa.join(u", ")));
        return std::nullopt;
    }, std::move(completion));
}

void CDEFolderFileSystem::downloadFromPaths(const QStringList &paths, const QStringList &localFiles, Completion completion)
{
    run([this, paths, localFiles]() -> std::optional<RecordError> {
        QMap<QString, RecordError> fehlend;
        for (const QString &pfad : paths)
            if (!QFileInfo(localPath(pfad)).isFile())
                fehlend.insert(pfad, RecordError(RecordError::UnknownItem, u"no file \"%1\" (yet)"_s.arg(pfad)));
        if (!fehlend.isEmpty())
            return RecordError::partial(fehlend);
        for (qsizetype i = 0; i < paths.size() && i < localFiles.size(); ++i) {
            QFile quelle(localPath(paths[i]));
            if (!quelle.copy(localFiles[i]))
                return dateiFehler(u"copy to"_s, localFiles[i], quelle.errorString());
        }
        return std::nullopt;
    }, std::move(completion));
}

void CDEFolderFileSystem::removeItemsAtPaths(const QStringList &paths, Completion completion)
{
    run([this, paths]() -> std::optional<RecordError> {
        for (const QString &pfad : paths) {
            const QFileInfo info(localPath(pfad));
            const bool weg = !info.exists() || (info.isDir() ? QDir(info.filePath()).removeRecursively() : QFile::remove(info.filePath()));
            if (!weg)
                return dateiFehler(u"remove"_s, info.filePath(), u"no permission"_s);
        }
        return std::nullopt;
    }, std::move(completion));
}

void CDEFolderFileSystem::removeAllItemsWithCompletion(Completion completion)
{
    run([this]() -> std::optional<RecordError> {
        CDE_LOG(u"Deleting all data in the folder %1"_s.arg(m_root));
        for (const QFileInfo &info : QDir(m_root).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden)) {
            if (isForeignFile(info.fileName()))
                continue;
            if (!(info.isDir() ? QDir(info.filePath()).removeRecursively() : QFile::remove(info.filePath())))
                return dateiFehler(u"remove"_s, info.filePath(), u"no permission"_s);
        }
        return std::nullopt;
    }, std::move(completion));
}

void CDEFolderFileSystem::watchFolders()
{
    QStringList ordner{m_root};
    for (QDirIterator it(m_root, QDir::Dirs | QDir::NoDotAndDotDot, QDirIterator::Subdirectories); it.hasNext();)
        ordner << it.next();
    const QStringList beobachtet = m_watcher->directories();
    for (const QString &o : std::as_const(ordner))
        if (!beobachtet.contains(o))
            m_watcher->addPath(o);
}

void CDEFolderFileSystem::subscribeForPushNotificationsWithCompletion(Completion completion)
{
    run([] { return std::nullopt; }, [this, completion](const std::optional<RecordError> &fehler) {
        if (!fehler && !m_watcher) {
            m_watcher = std::make_unique<QFileSystemWatcher>();
            // A new folder is watched too; every change is worth a sync step.
            QObject::connect(m_watcher.get(), &QFileSystemWatcher::directoryChanged, this, [this] {
                watchFolders();
                Q_EMIT pushNotificationReceived();
            });
            watchFolders();
        }
        if (completion)
            completion(fehler);
    });
}
