#include "StoreCheck.h"

#include "ManagedObjectContext.h"
#include "PersistentStoreCoordinator.h"
#include "SqliteDatabase.h"
#include "StoreError.h"

#include <QFileInfo>

#include <exception>
#include <sqlite3.h>

using Verdict = StoreCheck::Verdict;

namespace {

const QString kMetadataTable = QStringLiteral("VelmoraStoreMetadata");

// Texts taken from the file go into a one-line reason: line breaks folded, length bounded.
QString einzeilig(const QString &text)
{
    return text.simplified().left(200);
}

// A failed read of the file: what the failure says about the file.
StoreCheck::Result leseFehler(const SqliteDatabase &db)
{
    const int code = db.lastErrorCode() & 0xff;
    if (code == SQLITE_NOTADB)
        return {Verdict::NotADatabase, QStringLiteral("the store file is not an SQLite database")};
    if (code == SQLITE_CORRUPT)
        return {Verdict::Damaged, QStringLiteral("the store file is damaged: ") + einzeilig(db.lastError())};
    return {Verdict::CannotOpen, QStringLiteral("the store file cannot be read: ") + einzeilig(db.lastError())};
}

} // namespace

StoreCheck::Result StoreCheck::inspect(const QString &path)
{
    const QFileInfo info(path);
    if (!info.isFile())
        return {Verdict::CannotOpen, QStringLiteral("the store is not a regular file")};
    // SQLite would take an empty file for a new, empty database.
    if (info.size() == 0)
        return {Verdict::Empty, QStringLiteral("the store file is empty")};
    SqliteDatabase db;
    if (!db.open(path, false))
        return {Verdict::CannotOpen, QStringLiteral("the store file cannot be opened: ") + einzeilig(db.lastError())};
    db.exec(QStringLiteral("PRAGMA trusted_schema = OFF"));

    // A store of ours has tables and their indexes only. A view or a trigger would run code of
    // the file's maker whenever the program reads or writes (a view can loop for ever).
    bool hatMetadaten = false;
    {
        auto schema = db.prepare(QStringLiteral("SELECT type, name FROM sqlite_master"));
        while (schema && schema->step()) {
            const QString art = schema->columnText(0);
            if (art != u"table" && art != u"index")
                return {Verdict::Foreign, QStringLiteral("the store file holds a %1, which no store of Velmora Rechnungen has")
                                              .arg(einzeilig(art))};
            hatMetadaten = hatMetadaten || (art == u"table" && schema->columnText(1) == kMetadataTable);
        }
        if (!schema || !schema->ok())
            return leseFehler(db);
    }
    if (!hatMetadaten)
        return {Verdict::Foreign, QStringLiteral("the store file is not a store of Velmora Rechnungen (no store metadata)")};

    // A store without a version row predates the row and is read as version 0, as on opening.
    auto version = db.prepare(QStringLiteral("SELECT value FROM ") + kMetadataTable + QStringLiteral(" WHERE key = 'schemaVersion'"));
    if (version && version->step()) {
        const QString text = version->columnText(0);
        bool zahl = false;
        const int nummer = text.toInt(&zahl);
        if (!zahl || nummer < 0)
            return {Verdict::Damaged, QStringLiteral("the store's schema version \"%1\" is no version number").arg(einzeilig(text))};
        if (nummer > ManagedObjectModel::kSchemaVersion)
            return {Verdict::NewerVersion,
                    QStringLiteral("the store was written by a newer version of Velmora Rechnungen (schema version %1, this "
                                   "version reads up to %2)")
                        .arg(nummer)
                        .arg(ManagedObjectModel::kSchemaVersion)};
    }
    if (!version)
        return {Verdict::Damaged, QStringLiteral("the store's metadata cannot be read: ") + einzeilig(db.lastError())};
    if (!version->ok())
        return leseFehler(db);
    version.reset();

    auto integritaet = db.prepare(QStringLiteral("PRAGMA integrity_check(1)"));
    const bool zeile = integritaet && integritaet->step();
    if (!zeile)
        return leseFehler(db);
    const QString befund = integritaet->columnText(0);
    if (befund != u"ok")
        return {Verdict::Damaged, QStringLiteral("the store file is damaged: ") + einzeilig(befund)};
    return {};
}

StoreCheck::Result StoreCheck::check(const QString &path, const ManagedObjectModel &model)
{
    Result ergebnis = inspect(path);
    if (!ergebnis.usable())
        return ergebnis;
    bool geoeffnet = false;
    try {
        PersistentStoreCoordinator coordinator(model);
        coordinator.addPersistentStore(path);
        geoeffnet = true;
        // Every object read as the program reads them at start-up.
        const ManagedObjectContext context(&coordinator, model);
    } catch (const StoreError &e) {
        const QString detail = einzeilig(e.detail());
        if (geoeffnet)
            return {Verdict::Damaged, QStringLiteral("the store's objects cannot be read: ") + detail};
        switch (e.kind()) {
        case StoreError::Kind::NotAStore:
            return {Verdict::Foreign, QStringLiteral("the store file is not a store of Velmora Rechnungen: ") + detail};
        case StoreError::Kind::NewerVersion:
            return {Verdict::NewerVersion, QStringLiteral("the store was written by a newer version of Velmora Rechnungen")};
        case StoreError::Kind::Damaged:
            return {Verdict::Damaged, QStringLiteral("the store file is damaged: ") + detail};
        case StoreError::Kind::CannotOpen:
        case StoreError::Kind::SaveFailed:
            break;
        }
        return {Verdict::CannotMigrate, QStringLiteral("the store cannot be brought to the current schema: ") + detail};
    } catch (const std::exception &e) {
        return {Verdict::Damaged, QStringLiteral("the store cannot be read: ") + einzeilig(QString::fromLocal8Bit(e.what()))};
    }
    return ergebnis;
}
