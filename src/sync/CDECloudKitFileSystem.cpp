#include "CDECloudKitFileSystem.h"

#include "CDESyncLog.h"
#include "RecordDatabase.h"
#include "RecordPushListener.h"
#include "SyncServerAdresse.h"

#include <QCryptographicHash>
#include <QFile>
#include <QStandardPaths>

using namespace Qt::Literals::StringLiterals;

namespace {

const QStringList kPrimingKeys{u"isDirectory"_s, u"fileSize"_s, u"path"_s};

QString namenListe(const QStringList &namen) { return u"(%1)"_s.arg(namen.join(u", ")); }

// The server a cache belongs to, without its password: the same zone on another server or of
// another user is another cache. What the address leaves out comes from libpq's environment.
QString serverKennung(const QByteArray &uri)
{
    return QString::fromUtf8(SyncServerAdresse::ohnePasswort(uri)) + u'|' + qEnvironmentVariable("PGHOST") + u'|'
           + qEnvironmentVariable("PGPORT") + u'|' + qEnvironmentVariable("PGUSER");
}

} // namespace

CDECloudKitFileSystem::CDECloudKitFileSystem(const QString &ubiquityContainerIdentifier, int schemaVersion,
                                             const QByteArray &serverUri, const QString &cacheDirectory, QObject *parent)
    : CDECloudFileSystem(parent), m_container(ubiquityContainerIdentifier), m_schema(schemaVersion, u"/"_s),
      m_zone{CDECloudKitSchema::recordZoneName(schemaVersion)}, m_uri(serverUri)
{
    const QString ordner = cacheDirectory.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::CacheLocation) : cacheDirectory;
    const QByteArray kennung = (m_zone.zoneName + u'@' + serverKennung(serverUri)).toUtf8();
    m_cacheFile = ordner + u'/' + QString::fromLatin1(QCryptographicHash::hash(kennung, QCryptographicHash::Md5).toHex())
                  + u".cdecloudkitcache.v2"_s;
    if (!serverUri.isEmpty())
        m_database = std::make_unique<RecordDatabase>(serverUri);
    m_cache = std::make_unique<CDECloudKitCache>(m_cacheFile, m_schema);
    m_cache->prepare();
    if (m_database)
        run([] { return std::nullopt; }, {});
}

CDECloudKitFileSystem::~CDECloudKitFileSystem()
{
    stopOperations();
    m_listener.reset();
}

RecordError CDECloudKitFileSystem::forCaller(const RecordError &error) const
{
    if (error.code() == RecordError::NetworkUnavailable && error.domain() == QLatin1String(RecordError::kDomain))
        return RecordError::sync(RecordError::NoConnection, u"No iCloud connection"_s);
    return error;
}

std::optional<RecordError> CDECloudKitFileSystem::setUp()
{
    if (!m_database)
        return RecordError::sync(RecordError::NoConnection, u"No iCloud connection"_s);
    if (m_setUp)
        return std::nullopt;
    std::optional<RecordError> fehler = m_database->fetchZone(m_zone);
    if (fehler && (fehler->code() == RecordError::ZoneNotFound || fehler->code() == RecordError::UserDeletedZone)) {
        fehler = m_database->saveZone(m_zone);
    } else if (fehler) {
        CDE_LOG(u"Error fetching zone: %1"_s.arg(fehler->message()));
    }
    if (!fehler) {
        const Record wurzel = m_schema.createRootRecord();
        const auto gefunden = m_database->fetchRecords(m_zone, {wurzel.name()});
        fehler = gefunden.error;
        if (fehler && fehler->code() == RecordError::PartialFailure && gefunden.value.isEmpty()) {
            const auto gespeichert = m_database->saveRecords(m_zone, {wurzel});
            // Another machine made it a moment ago: there is one, as wanted.
            fehler = gespeichert.error && !gespeichert.error->onlyIncludesErrorCode(RecordError::ServerRecordChanged)
                         ? gespeichert.error
                         : std::nullopt;
            if (fehler)
                CDE_LOG(u"Failed to create root directory: %1"_s.arg(fehler->message()));
        }
    }
    if (fehler) {
        CDE_LOG(u"Setting up cloud directories in CloudKit failed: %1"_s.arg(fehler->message()));
        return forCaller(*fehler);
    }
    m_setUp = true;
    return std::nullopt;
}

void CDECloudKitFileSystem::connect(Completion completion)
{
    run([] { return std::nullopt; }, std::move(completion));
}

void CDECloudKitFileSystem::fetchUserIdentityWithCompletion(std::function<void(QString, std::optional<RecordError>)> completion)
{
    using R = RecordResult<QString>;
    enqueue<R>([this]() -> R {
        CDE_LOG(u"Fetching user identity from CloudKit"_s);
        if (auto fehler = setUp())
            return {{}, fehler};
        R ergebnis = m_database->userName();
        if (ergebnis.error)
            ergebnis.error = forCaller(*ergebnis.error);
        return ergebnis;
    }, [completion](const R &ergebnis) { completion(ergebnis.value, ergebnis.error); });
}

std::optional<RecordError> CDECloudKitFileSystem::prime()
{
    for (;;) {
        const std::optional<RecordChangeToken> alt = m_cache->serverChangeToken();
        if (!alt) {
            CDE_LOG(u"Beginning change processing for CloudKit."_s);
            m_cache->beginEmpty();
        }
        const auto seite = m_database->fetchZoneChanges(m_zone, alt, kPrimingKeys);
        if (seite.error) {
            if (!alt)
                return seite.error;
            // The token is void or the page failed: the whole picture is made again.
            m_cache->clear();
            continue;
        }
        m_cache->apply(seite.value);
        m_cache->setServerChangeToken(seite.value.token);
        if (seite.value.token != alt)
            m_cache->write();
        if (!seite.value.moreComing)
            return std::nullopt;
        CDE_LOG(u"More changes coming..."_s);
    }
}

void CDECloudKitFileSystem::primeForActivityWithCompletion(Completion completion)
{
    run([this] { return prime(); }, std::move(completion));
}

void CDECloudKitFileSystem::fileExistsAtPath(const QString &path,
                                             std::function<void(bool, bool, std::optional<RecordError>)> completion)
{
    struct R {
        bool gibtEs = false, ordner = false;
        std::optional<RecordError> fehler;
    };
    enqueue<R>([this, path]() -> R {
        if (auto fehler = setUp())
            return {false, false, fehler};
        const QString voll = m_schema.fullPathForPath(path);
        std::optional<Record> knoten;
        if (m_cache->isPresent()) {
            knoten = m_cache->record(voll);
        } else {
            const auto gelesen = m_database->fetchRecords(m_zone, {m_schema.recordNameForFullPath(voll)}, kPrimingKeys);
            if (gelesen.error && !gelesen.error->onlyIncludesErrorCode(RecordError::UnknownItem))
                return {false, false, forCaller(*gelesen.error)};
            if (!gelesen.value.isEmpty())
                knoten = gelesen.value.first();
        }
        if (!knoten)
            return {};
        return {true, knoten->number(u"isDirectory"_s).value_or(0) != 0, std::nullopt};
    }, [completion](const R &r) { completion(r.gibtEs, r.ordner, r.fehler); });
}

void CDECloudKitFileSystem::contentsOfDirectoryAtPath(const QString &path,
                                                      std::function<void(QList<CDECloudItem>, std::optional<RecordError>)> completion)
{
    using R = RecordResult<QList<CDECloudItem>>;
    enqueue<R>([this, path]() -> R {
        if (auto fehler = setUp())
            return {{}, fehler};
        const QString voll = m_schema.fullPathForPath(path);
        if (m_cache->isPresent()) {
            if (auto inhalt = m_cache->contents(voll))
                return {*inhalt, std::nullopt};
            return {{}, RecordError::sync(RecordError::UnknownDirectory, u"the directory \"%1\" is not known"_s.arg(voll))};
        }
        const auto gefunden = m_database->queryRecords(
            m_zone, {m_schema.nodeType(), u"directory"_s, m_schema.recordNameForFullPath(voll), u"path"_s, kPrimingKeys});
        if (gefunden.error)
            return {{}, forCaller(*gefunden.error)};
        R ergebnis;
        for (const Record &knoten : gefunden.value) {
            const QString kindPfad = knoten.text(u"path"_s).value_or(QString());
            ergebnis.value.append({kindPfad.section(u'/', -1), m_schema.pathBelowRoot(kindPfad),
                                   knoten.number(u"isDirectory"_s).value_or(0) != 0, knoten.number(u"fileSize"_s).value_or(0)});
        }
        return ergebnis;
    }, [completion](const R &r) { completion(r.value, r.error); });
}

void CDECloudKitFileSystem::createDirectoryAtPath(const QString &path, Completion completion)
{
    run([this, path]() -> std::optional<RecordError> {
        const auto gespeichert = m_database->saveRecords(m_zone, {m_schema.directoryRecord(m_schema.fullPathForPath(path))});
        return gespeichert.error;
    }, std::move(completion));
}

void CDECloudKitFileSystem::uploadLocalFiles(const QStringList &localFiles, const QStringList &paths, Completion completion)
{
    run([this, localFiles, paths]() -> std::optional<RecordError> {
        if (!m_schema.isValid()) {
            CDE_LOG(u"Invalid schema"_s);
            return RecordError::sync(RecordError::InternalError, u"Invalid schema"_s);
        }
        QList<Record> records;
        for (qsizetype i = 0; i < localFiles.size() && i < paths.size(); ++i) {
            QFile datei(localFiles[i]);
            if (!datei.open(QIODevice::ReadOnly))
                return RecordError::sync(RecordError::InternalError, u"cannot read \"%1\": %2"_s.arg(localFiles[i], datei.errorString()));
            records += m_schema.fileRecords(m_schema.fullPathForPath(paths[i]), datei.readAll());
        }
        const auto gespeichert = m_database->saveRecords(m_zone, records);
        if (gespeichert.error && gespeichert.error->onlyIncludesErrorCode(RecordError::ServerRecordChanged)) {
            CDE_LOG(u"Some records failed to upload due to existing items. Usually due to out-of-date query caching on "
                    "CloudKit. Will self correct. Ignoring: %1"_s.arg(gespeichert.error->message()));
            return std::nullopt;
        }
        return gespeichert.error;
    }, std::move(completion));
}

void CDECloudKitFileSystem::downloadFromPaths(const QStringList &paths, const QStringList &localFiles, Completion completion)
{
    run([this, paths, localFiles]() -> std::optional<RecordError> {
        QStringList namen;
        for (const QString &pfad : paths)
            namen << m_schema.dataRecordNameForFullPath(m_schema.fullPathForPath(pfad));
        const auto gelesen = m_database->fetchRecords(m_zone, namen, {u"data"_s});
        if (gelesen.error) {
            performRepairsIfNecessaryForError(*gelesen.error);
            return gelesen.error;
        }
        for (qsizetype i = 0; i < namen.size() && i < localFiles.size(); ++i) {
            const auto record = std::find_if(gelesen.value.cbegin(), gelesen.value.cend(), [&](const Record &r) { return r.name() == namen[i]; });
            QFile ziel(localFiles[i]);
            if (record == gelesen.value.cend() || !ziel.open(QIODevice::WriteOnly | QIODevice::NewOnly))
                return RecordError::sync(RecordError::InternalError, u"cannot write \"%1\": %2"_s.arg(localFiles[i], ziel.errorString()));
            // A full disk may take part of the bytes without an error: a file is whole or not there.
            const QByteArray bytes = record->asset(u"data"_s).value_or(RecordAsset{}).bytes;
            if (ziel.write(bytes) != bytes.size() || !ziel.flush()) {
                const QString grund = ziel.errorString();
                ziel.remove();
                return RecordError::sync(RecordError::InternalError, u"cannot write \"%1\": %2"_s.arg(localFiles[i], grund));
            }
        }
        return std::nullopt;
    }, std::move(completion));
}

void CDECloudKitFileSystem::performRepairsIfNecessaryForError(const RecordError &error)
{
    if (error.code() != RecordError::PartialFailure)
        return;
    QStringList ohneDaten;
    for (auto it = error.itemErrors().cbegin(); it != error.itemErrors().cend(); ++it) {
        if (it->code() != RecordError::UnknownItem)
            continue;
        // A missing data record (version 1) stands for its node, which is removed.
        const QString name = it.key();
        ohneDaten << (m_schema.version() == 1 && name.startsWith(u"DataFile_"_s) ? m_schema.recordNameForFullPath(name.mid(9)) : name);
    }
    if (ohneDaten.isEmpty())
        return;
    CDE_LOG(u"Located some items in CloudKit without data. Removing: %1"_s.arg(namenListe(ohneDaten)));
    const auto geloescht = m_database->deleteRecords(m_zone, ohneDaten);
    if (geloescht.error)
        CDE_LOG(u"Error occurred while removing items without data in CloudKit: %1"_s.arg(geloescht.error->message()));
    else
        CDE_LOG(u"Deleted records with no data attached: %1"_s.arg(namenListe(geloescht.value)));
}

RecordResult<QStringList> CDECloudKitFileSystem::recordsForRemoval(const QStringList &fullPaths)
{
    RecordResult<QStringList> ergebnis;
    QStringList offen;
    for (const QString &pfad : fullPaths)
        offen << m_schema.recordNameForFullPath(pfad);
    const auto gefunden = m_database->fetchRecords(m_zone, offen, kPrimingKeys);
    if (gefunden.error && !gefunden.error->onlyIncludesErrorCode(RecordError::UnknownItem))
        return {{}, gefunden.error};
    QList<Record> stapel = gefunden.value;
    while (!stapel.isEmpty()) {
        const Record knoten = stapel.takeFirst();
        ergebnis.value << knoten.name();
        const QString pfad = knoten.text(u"path"_s).value_or(QString());
        if (m_schema.version() == 1 && knoten.number(u"isDirectory"_s).value_or(0) == 0)
            ergebnis.value << m_schema.dataRecordNameForFullPath(pfad);
        if (knoten.number(u"isDirectory"_s).value_or(0) == 0)
            continue;
        const auto kinder = m_database->queryRecords(m_zone, {m_schema.nodeType(), u"directory"_s, knoten.name(), u"path"_s, kPrimingKeys});
        if (kinder.error)
            return {{}, kinder.error};
        stapel += kinder.value;
    }
    return ergebnis;
}

void CDECloudKitFileSystem::removeItemsAtPaths(const QStringList &paths, Completion completion)
{
    run([this, paths]() -> std::optional<RecordError> {
        QStringList voll;
        for (const QString &pfad : paths)
            voll << m_schema.fullPathForPath(pfad);
        const auto gesammelt = recordsForRemoval(voll);
        if (gesammelt.error) {
            CDE_LOG(u"Error while fetching for deletion: %1"_s.arg(gesammelt.error->message()));
            return gesammelt.error;
        }
        CDE_LOG(u"Fetched records for removal: %1"_s.arg(namenListe(gesammelt.value)));
        if (gesammelt.value.isEmpty())
            return std::nullopt;
        const auto geloescht = m_database->deleteRecords(m_zone, gesammelt.value);
        if (geloescht.error && geloescht.error->onlyIncludesErrorCode(RecordError::UnknownItem)) {
            CDE_LOG(u"Some records failed to be removed. Usually due to out-of-date query caching or other devices "
                    "removing items. Will self correct. Ignoring: %1"_s.arg(geloescht.error->message()));
            return std::nullopt;
        }
        return geloescht.error;
    }, std::move(completion));
}

void CDECloudKitFileSystem::removeAllItemsWithCompletion(Completion completion)
{
    run([this]() -> std::optional<RecordError> {
        CDE_LOG(u"Deleting all cloudkit data"_s);
        const auto alle = m_database->queryRecords(m_zone, {{}, {}, {}, {}, {u"-"_s}});
        if (alle.error) {
            CDE_LOG(u"Error while querying records for deletion: %1"_s.arg(alle.error->message()));
            return alle.error;
        }
        QStringList namen;
        for (const Record &record : alle.value)
            namen << record.name();
        if (namen.isEmpty())
            return std::nullopt;
        const auto geloescht = m_database->deleteRecords(m_zone, namen);
        return geloescht.error;
    }, std::move(completion));
}

void CDECloudKitFileSystem::subscribeForPushNotificationsWithCompletion(Completion completion)
{
    run([this]() -> std::optional<RecordError> {
        const auto fehler = m_database->saveSubscription(
            m_zone, {u"CDEFileAddedSubscription"_s, m_schema.nodeType(), u"fileSize"_s});
        if (fehler)
            CDE_LOG(u"Error while saving CloudKit subscription: %1"_s.arg(fehler->message()));
        return fehler;
    }, [this, completion](const std::optional<RecordError> &fehler) {
        if (!fehler && !m_listener) {
            m_listener = std::make_unique<RecordPushListener>(m_uri);
            QObject::connect(m_listener.get(), &RecordPushListener::connected, this, &CDECloudKitFileSystem::pushNotificationReceived);
            QObject::connect(m_listener.get(), &RecordPushListener::notified, this, [this](const QString &zone) {
                if (zone == m_zone.zoneName)
                    Q_EMIT pushNotificationReceived();
            });
            m_listener->start();
        }
        if (completion)
            completion(fehler);
    });
}
