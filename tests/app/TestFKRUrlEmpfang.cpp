// One running program per data folder: a second program hands its URLs over the local socket
// and learns whether they arrived. Clients run on their own threads because handing over
// blocks, while the receiving side needs this thread's event loop.

#include "FKRUrlEmpfang.h"
#include "../model/StoreTestSupport.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>
#include <QProcess>
#include <QThread>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <future>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

bool warteBis(const std::function<bool()> &erfuellt, int ms = 5000)
{
    QElapsedTimer uhr;
    uhr.start();
    while (!erfuellt() && uhr.elapsed() < ms)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    return erfuellt();
}

// A socket bound to the name's file: listening but never answering, or (closed at once) the
// file a crashed program leaves behind.
int rohSocket(const QString &name, bool lauschen)
{
    sockaddr_un adresse{};
    adresse.sun_family = AF_UNIX;
    qstrncpy(adresse.sun_path, QFile::encodeName(QDir::tempPath() + u'/' + name).constData(), sizeof adresse.sun_path);
    const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
    EXPECT_EQ(::bind(fd, reinterpret_cast<sockaddr *>(&adresse), sizeof adresse), 0);
    EXPECT_EQ(lauschen ? ::listen(fd, 4) : 0, 0);
    return fd;
}

class UrlEmpfang : public ::testing::Test
{
protected:
    QTemporaryDir datenOrdner;
    const QString name = FKRUrlEmpfang::socketName(datenOrdner.path());
    FKRUrlEmpfang empfang;
    QStringList urls;
    int aktivierungen = 0;

    void SetUp() override
    {
        QObject::connect(&empfang, &FKRUrlEmpfang::urlEmpfangen, [this](const QString &url) { urls.append(url); });
        QObject::connect(&empfang, &FKRUrlEmpfang::aktivierungAngefordert, [this] { ++aktivierungen; });
    }
    void TearDown() override { QFile::remove(QDir::tempPath() + u'/' + name); }

    // Hands over from another thread while this one serves.
    bool uebergib(const QStringList &nachrichten, int wartezeitMs = 3000)
    {
        auto ergebnis = std::async(std::launch::async, [&] {
            return FKRUrlEmpfang::uebergebeAnLaufendeInstanz(name, nachrichten, wartezeitMs);
        });
        warteBis([&] { return ergebnis.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }, wartezeitMs + 2000);
        return ergebnis.get();
    }
};

TEST_F(UrlEmpfang, UrlsKommenInReihenfolgeAnUndNurEinProgrammLauscht)
{
    QTemporaryDir anderer;
    EXPECT_TRUE(name.startsWith(u"velmora-"_s) && name.size() <= 32);
    EXPECT_EQ(FKRUrlEmpfang::socketName(datenOrdner.path() + u"/./"_s), name);
    EXPECT_NE(FKRUrlEmpfang::socketName(anderer.path()), name);

    EXPECT_FALSE(uebergib({u"velmora://x"_s}, 500)); // nobody listens yet
    ASSERT_TRUE(empfang.lausche(name));
    EXPECT_TRUE(FKRUrlEmpfang::laeuftInstanz(name));
    const QFile::Permissions rechte = QFile::permissions(QDir::tempPath() + u'/' + name);
    EXPECT_FALSE(rechte & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther));

    const QString umlaute = u"velmora://importRechnungsPosten?auftraggeber=Müller & Söhne"_s;
    EXPECT_TRUE(uebergib({u"velmora://eins"_s, umlaute, u"velmora://a\nb"_s}));
    EXPECT_TRUE(uebergib({}));
    FKRUrlEmpfang zweiter;
    EXPECT_FALSE(zweiter.lausche(name));
    EXPECT_TRUE(uebergib({u"velmora://zwei"_s}));
    ASSERT_TRUE(warteBis([&] { return urls.size() == 4 && aktivierungen == 1; }));
    EXPECT_EQ(urls, (QStringList{u"velmora://eins"_s, umlaute, u"velmora://a%0Ab"_s, u"velmora://zwei"_s}));
}

TEST_F(UrlEmpfang, VerwaisterSocketWirdUebernommenStummerKostetNurDieWartezeit)
{
    const int stumm = rohSocket(name, true);
    QElapsedTimer uhr;
    uhr.start();
    EXPECT_FALSE(uebergib({u"velmora://x"_s}, 300));
    EXPECT_LT(uhr.elapsed(), 2000);
    ::close(stumm); // the file stays, as after a crash

    ASSERT_TRUE(QFile::exists(QDir::tempPath() + u'/' + name));
    EXPECT_FALSE(FKRUrlEmpfang::laeuftInstanz(name));
    ASSERT_TRUE(empfang.lausche(name));
    EXPECT_TRUE(uebergib({u"velmora://nach-absturz"_s}));
    EXPECT_TRUE(warteBis([&] { return urls.size() == 1; }));
}

TEST_F(UrlEmpfang, SchlechteClientsHaltenGuteNichtAuf)
{
    ASSERT_TRUE(empfang.lausche(name));
    QLocalSocket stumm, muell, zuLang, stueckweise;
    for (QLocalSocket *s : {&stumm, &muell, &zuLang, &stueckweise}) {
        s->connectToServer(name);
        ASSERT_TRUE(s->waitForConnected(1000));
    }
    muell.write(QByteArray("\x00\xff\xfe without end", 15));
    zuLang.write(QByteArray(100 * 1024, 'x') + '\n');
    stueckweise.write("velmora://stueck");
    QCoreApplication::processEvents();

    EXPECT_TRUE(uebergib({u"velmora://gut"_s}));
    ASSERT_TRUE(warteBis([&] { return urls.size() == 1; }));
    EXPECT_EQ(urls.first(), u"velmora://gut"_s);
    // The over-long line costs its sender the connection, and nothing of it arrives.
    EXPECT_TRUE(warteBis([&] { return zuLang.state() == QLocalSocket::UnconnectedState; }));

    // A line in two pieces is one URL, confirmed once whole.
    stueckweise.write("weise\r\n");
    ASSERT_TRUE(warteBis([&] { return urls.size() == 2 && stueckweise.canReadLine(); }));
    EXPECT_EQ(urls.last(), u"velmora://stueckweise"_s);
    EXPECT_EQ(stueckweise.readLine(), "ok\n");
}

// The desktop's road: the program runs, the desktop starts it again with a URL, and that second
// process hands the URL over and ends at once.
TEST(UrlUebergabeZwischenProgrammen, ZweiterStartUebergibtUndEndetSofort)
{
    const QString programm = QStringLiteral(VELMORA_BINARY_DIR "/src/desktop/velmora");
    if (!QFile::exists(programm))
        GTEST_SKIP() << "velmora is not built";
    QTemporaryDir heim;
    QProcessEnvironment umgebung = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME"})
        umgebung.insert(QString::fromLatin1(name), heim.filePath(QString::fromLatin1(name).mid(4).toLower()));
    umgebung.insert(u"HOME"_s, heim.path());
    umgebung.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    umgebung.insert(u"QT_LOGGING_RULES"_s, u"velmora.urlimport.debug=true"_s);
    umgebung.insert(u"QT_FORCE_STDERR_LOGGING"_s, u"1"_s);
    umgebung.remove(u"DBUS_SESSION_BUS_ADDRESS"_s); // no notifications on the developer's desktop
    const QString datenOrdner = heim.filePath(u"data_home/Velmora-Rechnungen"_s);
    ASSERT_TRUE(QDir().mkpath(datenOrdner));
    const QString name = FKRUrlEmpfang::socketName(datenOrdner);
    // A document with two items.
    const QString store = datenOrdner + u"/VelmoraRechnungen.storedata"_s;
    {
        storetest::OpenStore offen(store);
        auto *rechnung = offen.moc().insertNewObject<FKRRechnung>();
        rechnung->setRechnungsNummer(u"RE-7"_s);
        for (int nummer = 1; nummer <= 2; ++nummer) {
            auto *posten = offen.moc().insertNewObject<FKRPosten>();
            posten->setPostenNummer(nummer);
            posten->setRechnung(rechnung);
        }
        ASSERT_TRUE(offen.moc().save());
    }

    QProcess erster;
    erster.setProcessEnvironment(umgebung);
    erster.start(programm, {});
    ASSERT_TRUE(warteBis([&] { return FKRUrlEmpfang::laeuftInstanz(name); }, 15000)) << erster.readAllStandardError().toStdString();

    const auto zweiterStart = [&](const QStringList &argumente) {
        QProcess zweiter;
        zweiter.setProcessEnvironment(umgebung);
        QElapsedTimer uhr;
        uhr.start();
        zweiter.start(programm, argumente);
        EXPECT_TRUE(zweiter.waitForFinished(10000));
        EXPECT_EQ(zweiter.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(zweiter.exitCode(), 0) << zweiter.readAllStandardError().toStdString();
        EXPECT_LT(uhr.elapsed(), 5000);
    };
    zweiterStart({u"velmora://importRechnungsPosten?auftraggeber=Acme&summeStunden=5400&summeErtraege=120"_s});
    QString protokoll;
    EXPECT_TRUE(warteBis([&] {
        erster.waitForReadyRead(50);
        protokoll += QString::fromUtf8(erster.readAllStandardError());
        return protokoll.contains(u"importing an item handed over by URL"_s);
    }, 10000)) << protokoll.toStdString();
    // No editor is open in the first program: it asks the user to open a document and stores
    // nothing (the item reaching an open editor is covered with the real windows in-process).
    QThread::msleep(300);
    {
        storetest::OpenStore offen(store);
        EXPECT_EQ(offen.moc().fetch<FKRPosten>().size(), 2);
    }
    zweiterStart({}); // only brings the running program forward
    EXPECT_EQ(erster.state(), QProcess::Running);

    erster.terminate();
    if (!erster.waitForFinished(5000))
        erster.kill();
    erster.waitForFinished(5000);
    QLocalServer::removeServer(name);
}

} // namespace
