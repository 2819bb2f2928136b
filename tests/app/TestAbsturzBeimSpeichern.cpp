#include "AppTestSupport.h"
#include "../model/StoreTestSupport.h"

#include <QRandomGenerator>

using namespace apptest;

namespace {

// The last save the child reported as returned ("gespeichert N" lines), or `bisher`.
qint64 letzteMeldung(const QByteArray &ausgabe, qint64 bisher)
{
    for (const QByteArray &zeile : ausgabe.split('\n'))
        if (zeile.startsWith("gespeichert "))
            bisher = zeile.mid(12).toLongLong();
    return bisher;
}

// The program is killed without warning (power cut, SIGKILL) while it saves one document after
// the other. Every save that returned must be in the store, and the store must open.
TEST(AbsturzBeimSpeichern, JederZurueckgekehrteSpeichervorgangUeberlebtSIGKILL)
{
    DatenHeimat heimat;
    qint64 gemeldet = 0;
    for (int runde = 0; runde < 4; ++runde) {
        const auto kind = harness::starteKind(QStringLiteral(VELMORA_BINARY_DIR "/tests/velmora_test_speicherkind"), {});
        // Let it save a varying number of times, then kill it while it is at it.
        const qint64 ziel = gemeldet + 5 + QRandomGenerator::global()->bounded(25);
        QByteArray ausgabe;
        while (letzteMeldung(ausgabe.left(ausgabe.lastIndexOf('\n') + 1), gemeldet) < ziel)
            ASSERT_TRUE(kind->waitForReadyRead(10000) && !(ausgabe += kind->readAllStandardOutput()).isEmpty())
                << "the child stopped saving: " << kind->readAllStandardError().constData();
        QThread::usleep(QRandomGenerator::global()->bounded(3000));
        kind->kill();
        ASSERT_TRUE(kind->waitForFinished(5000));
        ausgabe += kind->readAllStandardOutput();
        gemeldet = letzteMeldung(ausgabe.left(ausgabe.lastIndexOf('\n') + 1), gemeldet);

        storetest::OpenStore store(heimat.datenOrdner() + "/VelmoraRechnungen.storedata");
        const auto rechnungen = store.moc().fetch<FKRRechnung>();
        QSet<QString> nummern;
        for (const FKRRechnung *rechnung : rechnungen) {
            nummern.insert(rechnung->rechnungsNummer().value_or(QString()));
            EXPECT_EQ(rechnung->posten().size(), 3) << "a document without all its items: a torn save";
        }
        for (qint64 n = 1; n <= gemeldet; ++n)
            ASSERT_TRUE(nummern.contains(QStringLiteral("K-%1").arg(n))) << "save " << n << " was reported but is lost";
        // At most the save in flight may have made it in addition.
        EXPECT_LE(rechnungen.size(), gemeldet + 1);
        gemeldet = rechnungen.size();
    }
}

} // namespace
