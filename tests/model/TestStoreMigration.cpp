// Stores written by older versions of the application: opening one adds what the schema lacks,
// keeps every stored value and relationship, gives old rows the defaults of new objects, and
// from then on opens without writing a single byte.

#include "StoreTestSupport.h"

#include "ManagedObjectModel.h"

#include <QFileInfo>

#include <vector>

using namespace storetest;
using namespace Qt::Literals::StringLiterals;

namespace {

// A stored value after migration, as describe() renders it; a to-one relationship, target 0 for none.
struct Expected { const char *entity; qint64 pk; const char *key, *value; };
struct Link { const char *entity; qint64 pk; const char *relationship; qint64 target; };
struct OlderStore { const char *sql; std::vector<Expected> values; std::vector<Link> links; };

// Version 0: no cash discount, no identifiers on documents, no frozen PDFs, no letterhead and
// no recipients at all.
const char *const kVersion0 = R"sql(
CREATE TABLE VelmoraStoreMetadata (key TEXT PRIMARY KEY, value TEXT);
INSERT INTO VelmoraStoreMetadata VALUES ('schemaVersion', '0');
CREATE TABLE FKRAbsender ("pk" INTEGER PRIMARY KEY, archiviert INTEGER, bankVerbindungBic TEXT,
  bankVerbindungIban TEXT, bankVerbindungInstitut TEXT, emailAdresse TEXT, faxNummer TEXT, firma TEXT,
  land TEXT, logoImageBinary BLOB, logoImagePath TEXT, name TEXT, ort TEXT, plz TEXT, steuerNummer TEXT,
  strasse TEXT, telefonNummer TEXT, umsatzsteuerId TEXT, uniqueIdentifier TEXT, unterschriftImageBinary BLOB,
  unterschriftImagePath TEXT);
INSERT INTO FKRAbsender ("pk", archiviert, firma, name, ort, plz, logoImageBinary, uniqueIdentifier)
  VALUES (1, 0, 'Studio Weiß', 'Eva Weiß', 'Kiel', '', x'89504e4700ff00', 'A-1');
CREATE TABLE FKRRechnung ("pk" INTEGER PRIMARY KEY, archiviert INTEGER, bezahlt INTEGER, bezahltDatum INTEGER,
  brutto INTEGER, dokumentArt TEXT, faelligkeitsDatum INTEGER, layout TEXT, lieferDatum INTEGER, mwStSatz TEXT,
  rabatt TEXT, rechnungsDatum INTEGER, rechnungsNummer TEXT, rechnungsText TEXT, rechnungsText2 TEXT,
  rechnungsTextAnrede TEXT, sprache INTEGER, versandt INTEGER, waehrung TEXT, zuschlag TEXT, absender INTEGER);
INSERT INTO FKRRechnung VALUES (1, 0, 1, 1425291330250, 1, '3', NULL, '2', NULL, '0.19', '0.1', 1427846400000,
  'RE-2015-001', 'Sehr geehrte Damen und Herren,
anbei die Rechnung für März.', '', NULL, 1, 1, '€', '0', 1);
INSERT INTO FKRRechnung ("pk", dokumentArt, rechnungsNummer, waehrung, rabatt, zuschlag, sprache)
  VALUES (7, '2', 'AN-2015-002', 'CHF', '0', '0.123456789012345678901234567890', 2);
CREATE TABLE FKRPosten ("pk" INTEGER PRIMARY KEY, anzahl TEXT, einzelbetrag TEXT, istVorlage INTEGER,
  mwStSatz TEXT, postenBeschreibung TEXT, postenBezeichnung TEXT, postenNummer INTEGER, uniqueIdentifier TEXT,
  rechnung INTEGER);
INSERT INTO FKRPosten VALUES (1, '2.5', '120', 0, NULL, 'Konzept', 'Beratung', 1, 'P-1', 1),
  (2, '1', '49.99', 0, '0.07', NULL, 'Buch', 2, NULL, 1), (3, '10', '0.5', 0, NULL, NULL, 'Kopien', 3, NULL, 7),
  (4, '1', '80', 1, NULL, NULL, 'Vorlage Stunde', 0, NULL, NULL);
)sql";

const OlderStore kVersion0Store = {
     kVersion0,
     {
         {"FKRRechnung", 1, "rechnungsText", "QString Sehr geehrte Damen und Herren,\nanbei die Rechnung für März."},
         {"FKRRechnung", 1, "rechnungsText2", "QString "}, {"FKRRechnung", 1, "rechnungsTextAnrede", "<absent>"},
         {"FKRRechnung", 1, "bezahltDatum", "date 2015-03-02T10:15:30.250Z"}, {"FKRRechnung", 1, "bezahlt", "bool true"},
         {"FKRRechnung", 1, "rabatt", "Decimal 0.1"}, {"FKRRechnung", 1, "layout", "Decimal 2"},
         {"FKRRechnung", 1, "skonto", "Decimal 0"}, {"FKRRechnung", 1, "skontoZeitraum", "qlonglong 0"},
         {"FKRRechnung", 1, "uniqueIdentifier", "<absent>"}, {"FKRRechnung", 1, "binaryPDF", "<absent>"},
         {"FKRRechnung", 7, "zuschlag", "Decimal 0.12345678901234567890123456789"},
         {"FKRRechnung", 7, "sprache", "qlonglong 2"}, {"FKRRechnung", 7, "brutto", "<absent>"},
         {"FKRAbsender", 1, "logoImageBinary", "bytes[7] 89504e4700ff00"},
         {"FKRAbsender", 1, "geschaeftspapierDrucken", "bool false"}, {"FKRPosten", 2, "mwStSatz", "Decimal 0.07"},
     },
     {{"FKRRechnung", 1, "absender", 1}, {"FKRRechnung", 7, "absender", 0}, {"FKRPosten", 3, "rechnung", 7},
      {"FKRPosten", 4, "rechnung", 0}}};

class StoreMigration : public ::testing::Test
{
protected:
    QTemporaryDir dir;
    const QString path = dir.filePath(QString::fromLatin1(PersistentStoreCoordinator::kStoreFileName));

    void SetUp() override { RawSql(path, true).mustExec(kVersion0Store.sql); }

    static ManagedObject *object(ManagedObjectContext &moc, const char *entity, qint64 pk)
    {
        for (ManagedObject *o : moc.executeFetchRequest({QString::fromLatin1(entity), {}, {}}))
            if (o->primaryKey() == pk)
                return o;
        ADD_FAILURE() << entity << " " << pk << " is missing";
        return nullptr;
    }
};

TEST_F(StoreMigration, Version0KeepsEveryValueAndAddsWhatIsMissing)
{
    {
        OpenStore store(path);
        for (const Expected &e : kVersion0Store.values)
            if (const ManagedObject *o = object(store.moc(), e.entity, e.pk))
                EXPECT_EQ(describe(o->value(QString::fromLatin1(e.key))), e.value) << e.entity << " " << e.pk << " " << e.key;
        for (const Link &l : kVersion0Store.links) {
            const ManagedObject *o = object(store.moc(), l.entity, l.pk);
            const ManagedObject *target = o ? o->toOne(QString::fromLatin1(l.relationship)) : nullptr;
            EXPECT_EQ(target ? target->primaryKey() : 0, l.target) << l.entity << " " << l.pk << " " << l.relationship;
        }
        EXPECT_FALSE(store.moc().hasChanges());
    }
    {
        RawSql migrated(path);
        EXPECT_EQ(migrated.number(u"SELECT value FROM VelmoraStoreMetadata WHERE key = 'schemaVersion'"_s),
                  ManagedObjectModel::kSchemaVersion);
        for (const auto &entity : ManagedObjectModel::defaultModel().entities()) {
            const QStringList columns = migrated.columns(entity->name());
            for (const AttributeDescription &attribute : entity->attributes())
                EXPECT_TRUE(columns.contains(attribute.name)) << entity->name().toStdString() << "." << attribute.name.toStdString();
        }
    }

    // The migrated store is a store like any other: a second open writes nothing.
    const QByteArray migratedBytes = fileBytes(path);
    const QDateTime migratedAt = QFileInfo(path).lastModified();
    {
        OpenStore again(path);
    }
    EXPECT_EQ(fileBytes(path), migratedBytes);
    EXPECT_EQ(QFileInfo(path).lastModified(), migratedAt);
    EXPECT_EQ(sideFiles(path), QStringList());
}


} // namespace
