#include "AppTestSupport.h"
#include "../model/StoreTestSupport.h"

#include <QProcess>
#include <QRandomGenerator>

using namespace apptest;

namespace {

// The program is killed without warning (power cut, SIGKILL) while it saves one document after
// the other. Every save that returned must be in the store, and the store must open.
TEST(AbsturzBeimSpeichern, JederZurueckgekehrteSpeichervorgangUeberlebtSIGKILL)
{
    DatenHeimat heimat;
    qint64 gemeldet = 0;
    for (int runde = 0; runde < 4; ++runde) {
        QProcess kind;
        kind.setProgram(QStringLiteral(VELMORA_BINARY_DIR "/tests/velmora_test_speicherkind"));
        kind.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        kind.start();
        ASSERT_TRUE(kind.waitForStarted(5000));
        // Let it save a varying number of times, then kill it while it is at it.
        const qint64 ziel = gemeldet + 5 + QRandomGenerator::global()->bounded(25);
        QByteArray ausgabe;
        while (gemeldet < ziel) {
            ASSERT_TRUE(kind.waitForReadyRead(10000)) << "the child stopped saving";
            ausgabe += kind.readAllStandardOutput();
            qsizetype zeile;
            while ((zeile = ausgabe.indexOf('\n')) >= 0) {
                const QByteArray text = ausgabe.left(zeile);
                ausgabe.remove(0, zeile + 1);
                ASSERT_TRUE(text.startsWith("gespeichert ")) << text.constData();
                gemeldet = text.mid(12).toLongLong();
            }
        }
        QThread::usleep(QRandomGenerator::global()->bounded(3000));
        kind.kill();
        ASSERT_TRUE(kind.waitForFinished(5000));
        ausgabe += kind.readAllStandardOutput();
        for (const QByteArray &text : ausgabe.split('\n')) {
            if (text.startsWith("gespeichert "))
                gemeldet = text.mid(12).toLongLong();
        }

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
