#include "FKRDatensicherung.h"
#include "FKRZipArchiv.h"

#include "ZipTestSupport.h"
#include "harness/Prozesse.h"

#include <QLocale>
#include <QSet>

using namespace ziptest;

namespace {

const QString kStore = QStringLiteral("VelmoraRechnungen.storedata");
const QString kShm = QStringLiteral("VelmoraRechnungen.storedata-shm");
const QDateTime kMoment(QDate(2026, 3, 14), QTime(10, 0));

struct Gemeldet {
    QString archiv, fehler;
    bool da = false;
};

void merke(FKRDatensicherung &sicherung, Gemeldet &gemeldet)
{
    QObject::connect(&sicherung, &FKRDatensicherung::fertig, &sicherung,
                     [&gemeldet](const QString &archiv, const QString &fehler) { gemeldet = {archiv, fehler, true}; });
}

Gemeldet warteAufMeldung(FKRDatensicherung &sicherung)
{
    Gemeldet gemeldet;
    merke(sicherung, gemeldet);
    EXPECT_TRUE(harness::warteBis([&] { return gemeldet.da; }, 120000)) << "no report from the backup";
    return gemeldet;
}

class FKRDatensicherungTest : public ::testing::Test
{
protected:
    QTemporaryDir wurzel;
    const QString daten = wurzel.filePath(QStringLiteral("Velmora-Rechnungen"));
    const QString sicherungen = daten + QStringLiteral("/dataBackups");
    const QString store = daten + QLatin1Char('/') + kStore;

    void SetUp() override { ASSERT_TRUE(QDir().mkpath(sicherungen)); }

    QString entpackt(const QString &archiv)
    {
        const QString ordner = wurzel.filePath(QStringLiteral("entpackt-") + QFileInfo(archiv).baseName());
        EXPECT_TRUE(QDir().mkpath(ordner));
        QString fehler;
        EXPECT_EQ(FKRZipArchiv::entpackeSicher(archiv, ordner, FKRDatensicherung::storeDateiNamen(), &fehler),
                  FKRZipArchiv::Ergebnis::Erfolg)
            << fehler.toStdString();
        return ordner;
    }
};

TEST(FKRDatensicherungNamen, DieStoreDateienUndDerArchivNameSortiertNachDatumInJederSprache)
{
    // No colon (refused by FAT and NTFS drives), no slash; the same name in every locale.
    EXPECT_EQ(FKRDatensicherung::archivName(kMoment), QStringLiteral("2026-03-14 10.00.00-DataBackup.fks"));
    const QLocale vorher;
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(FKRDatensicherung::archivName(kMoment.addSecs(13 * 3600 + 5 * 60 + 9)), QStringLiteral("2026-03-14 23.05.09-DataBackup.fks"));
    QLocale::setDefault(vorher);
}

TEST_F(FKRDatensicherungTest, SichertDieVorhandenenDateienImHintergrundUndVerliertKeinArchiv)
{
    {
        storetest::OpenStore offen(store);
        for (int i = 1; i <= 3; ++i)
            offen.moc().insertNewObject<FKRRechnung>()->setRechnungsNummer(QStringLiteral("RE-%1").arg(i));
        ASSERT_TRUE(offen.moc().save());
    }
    schreibe(daten + QLatin1Char('/') + kShm, "altes shm");

    FKRDatensicherung sicherung(daten, sicherungen);
    sicherung.starte(kMoment);
    sicherung.warteBisFertig();
    const Gemeldet erstes = warteAufMeldung(sicherung); // still reported through the event loop
    const QString erwartet = sicherungen + QLatin1Char('/') + FKRDatensicherung::archivName(kMoment);
    ASSERT_EQ(erstes.archiv, erwartet) << erstes.fehler.toStdString();

    // Nothing was saved meanwhile: the store went in exactly as it lies on disk.
    const QList<Gelesen> gelesen = liesArchiv(erstes.archiv);
    ASSERT_EQ(namen(gelesen), (QStringList{kStore, kShm}));
    EXPECT_EQ(gelesen[0].inhalt, lies(store));
    EXPECT_EQ(gelesen[1].inhalt, "altes shm");

    // More starts within the same minute count on instead of replacing the first archive; a
    // draft left by a killed backup goes.
    const QString alterEntwurf = sicherungen + QStringLiteral("/.DataBackup-abc123.part");
    schreibe(alterEntwurf, "halb");
    altere(alterEntwurf);
    const QByteArray erstesArchiv = lies(erwartet);
    sicherung.starte(kMoment);
    EXPECT_EQ(warteAufMeldung(sicherung).archiv, sicherungen + QStringLiteral("/2026-03-14 10.00.00 (2)-DataBackup.fks"));
    EXPECT_FALSE(QFile::exists(alterEntwurf));
    EXPECT_EQ(lies(erwartet), erstesArchiv);
    EXPECT_EQ(baum(sicherungen).keys(), (QStringList{QStringLiteral("/2026-03-14 10.00.00 (2)-DataBackup.fks"),
                                                      QStringLiteral("/2026-03-14 10.00.00-DataBackup.fks")}))
        << "no drafts or copies are left behind";
}

TEST_F(FKRDatensicherungTest, FremdeDateienUndUnbrauchbarerSicherungsOrdner)
{
    // A store file that is no database is nobody's store: it goes in byte for byte.
    const QByteArray fremd = "kein SQLite " + zufallsBytes(300000, 7);
    schreibe(store, fremd);
    Gemeldet gemeldet;
    {
        FKRDatensicherung sicherung(daten, sicherungen);
        sicherung.starte(kMoment.addSecs(60));
        gemeldet = warteAufMeldung(sicherung);
    }
    ASSERT_FALSE(gemeldet.archiv.isEmpty()) << gemeldet.fehler.toStdString();
    const QList<Gelesen> gelesen = liesArchiv(gemeldet.archiv);
    ASSERT_EQ(namen(gelesen), QStringList{kStore});
    EXPECT_EQ(gelesen[0].inhalt, fremd);

    // A backups folder that is a file, or that is missing: a report, no archive, no crash.
    for (const QString &ordner : {wurzel.filePath(QStringLiteral("eine-datei")), wurzel.filePath(QStringLiteral("fehlt"))}) {
        SCOPED_TRACE(ordner.toStdString());
        schreibe(wurzel.filePath(QStringLiteral("eine-datei")), "x");
        FKRDatensicherung sicherung(daten, ordner);
        sicherung.starte(kMoment);
        gemeldet = warteAufMeldung(sicherung);
        EXPECT_TRUE(gemeldet.archiv.isEmpty());
        EXPECT_FALSE(gemeldet.fehler.isEmpty());
    }
    EXPECT_EQ(lies(store), fremd);
}

TEST_F(FKRDatensicherungTest, DasArchivHaeltEinenGanzenStandAuchWennWaehrendDessenGespeichertWird)
{
    // Every save rewrites a big PDF with bytes of its own number and adds a document: a copy that
    // mixes two saves shows as a PDF of another number, a missing or extra document.
    constexpr qsizetype kPdf = 24 << 20;
    storetest::OpenStore offen(store);
    ManagedObjectContext &moc = offen.moc();
    auto *zaehler = moc.insertNewObject<FKRRechnung>();
    zaehler->setRechnungsNummer(QStringLiteral("0"));
    zaehler->setBinaryPDF(zufallsBytes(kPdf, 0));
    ASSERT_TRUE(moc.save());
    const QString kennung = *zaehler->uniqueIdentifier();

    FKRDatensicherung sicherung(daten, sicherungen);
    Gemeldet gemeldet;
    merke(sicherung, gemeldet);
    sicherung.starte(kMoment);
    int gespeichert = 0;
    while (!gemeldet.da) {
        ++gespeichert;
        moc.insertNewObject<FKRRechnung>()->setRechnungsNummer(QStringLiteral("Dok %1").arg(gespeichert));
        zaehler->setRechnungsNummer(QString::number(gespeichert));
        zaehler->setBinaryPDF(zufallsBytes(kPdf, quint64(gespeichert)));
        QString fehler;
        ASSERT_TRUE(moc.save(&fehler)) << fehler.toStdString();
        QCoreApplication::processEvents();
    }
    ASSERT_FALSE(gemeldet.archiv.isEmpty()) << gemeldet.fehler.toStdString();
    EXPECT_GE(gespeichert, 2) << "the saves should overlap the backup";

    storetest::OpenStore zurueck(entpackt(gemeldet.archiv) + QLatin1Char('/') + kStore);
    auto *gesichert = static_cast<FKRRechnung *>(zurueck.byIdentifier(QStringLiteral("FKRRechnung"), kennung));
    ASSERT_NE(gesichert, nullptr);
    const int stand = gesichert->rechnungsNummer()->toInt();
    EXPECT_TRUE(gesichert->binaryPDF() == zufallsBytes(kPdf, quint64(stand))) << "PDF of another save than " << stand;
    QSet<QString> nummern;
    for (const FKRRechnung *dokument : zurueck.moc().fetch<FKRRechnung>())
        nummern.insert(*dokument->rechnungsNummer());
    QSet<QString> erwartet{QString::number(stand)};
    for (int i = 1; i <= stand; ++i)
        erwartet.insert(QStringLiteral("Dok %1").arg(i));
    EXPECT_EQ(nummern, erwartet) << "the archive holds state " << stand << " of " << gespeichert;
}

} // namespace
