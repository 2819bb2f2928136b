// One running program per data folder: a second one hands its URLs over the local socket and
// learns what became of them. Clients run on their own threads: handing over blocks.

#include "FKRUrlEmpfang.h"
#include "../model/StoreTestSupport.h"
#include "harness/Prozesse.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QTimer>
#include <gmock/gmock.h>

#include <future>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
using harness::warteBis;

namespace {

// A program that hangs: it listens but never answers; once closed, its file stays as after a crash.
int stummerSocket(const QString &name)
{
    sockaddr_un adresse{};
    adresse.sun_family = AF_UNIX;
    qstrncpy(adresse.sun_path, QFile::encodeName(QDir::tempPath() + u'/' + name).constData(), sizeof adresse.sun_path);
    const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
    EXPECT_EQ(::bind(fd, reinterpret_cast<sockaddr *>(&adresse), sizeof adresse), 0);
    EXPECT_EQ(::listen(fd, 4), 0);
    return fd;
}

using Status = FKRUrlEmpfang::Uebergabe::Status;

class UrlEmpfang : public ::testing::Test
{
protected:
    QTemporaryDir datenOrdner;
    const QString name = FKRUrlEmpfang::socketName(datenOrdner.path());
    FKRUrlEmpfang empfang;
    QStringList urls;
    int aktivierungen = 0;
    // URLs whose answer the test gives itself; every other URL is stored at once.
    QList<FKRUrlAntwort> offen;

    void SetUp() override
    {
        empfang.setBearbeiter([this](const QString &url, const FKRUrlAntwort &antwort) {
            urls.append(url);
            if (url.contains(u"langsam"_s))
                offen.append(antwort);
            else
                antwort({true});
        });
        QObject::connect(&empfang, &FKRUrlEmpfang::aktivierungAngefordert, [this] { ++aktivierungen; });
    }
    void TearDown() override { QFile::remove(QDir::tempPath() + u'/' + name); }

    // Hands over from another thread while this one serves.
    FKRUrlEmpfang::Uebergabe uebergib(const QStringList &nachrichten, int wartezeitMs = 3000,
                                      const std::function<void()> &waehrenddessen = {})
    {
        auto ergebnis = std::async(std::launch::async, [&] {
            return FKRUrlEmpfang::uebergebeAnLaufendeInstanz(name, nachrichten, wartezeitMs);
        });
        if (waehrenddessen) {
            warteBis([&] { return !offen.isEmpty(); });
            waehrenddessen();
        }
        warteBis([&] { return ergebnis.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }, wartezeitMs + 2000);
        return ergebnis.get();
    }
};

MATCHER_P(Abgelehnt, grund, "")
{
    return !arg.erledigt && arg.grund == grund;
}

// A crashed program's socket file is taken over; URLs and the program's answers, whenever they
// come, keep their order, and a reason stays one line.
TEST_F(UrlEmpfang, UrlsUndAntwortenKommenInReihenfolgeUndNurEinProgrammLauscht)
{
    EXPECT_EQ(FKRUrlEmpfang::socketName(datenOrdner.path() + u"/./"_s), name);
    const int stumm = stummerSocket(name);
    EXPECT_EQ(uebergib({u"velmora://x"_s}, 300).status, Status::OhneAntwort);
    ::close(stumm);
    EXPECT_FALSE(FKRUrlEmpfang::laeuftInstanz(name));
    EXPECT_EQ(uebergib({u"velmora://x"_s}, 300).status, Status::NiemandLauscht);
    ASSERT_TRUE(empfang.lausche(name));
    EXPECT_TRUE(FKRUrlEmpfang::laeuftInstanz(name));
    const QFile::Permissions rechte = QFile::permissions(QDir::tempPath() + u'/' + name);
    EXPECT_FALSE(rechte & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther));

    const QString umlaute = u"velmora://importRechnungsPosten?auftraggeber=Müller & Söhne"_s;
    EXPECT_TRUE(uebergib({u"velmora://eins"_s, umlaute, u"velmora://a\nb"_s}).allesErledigt());
    EXPECT_TRUE(uebergib({}).allesErledigt()) << "no URL: only brings the program forward";
    FKRUrlEmpfang zweiter;
    EXPECT_FALSE(zweiter.lausche(name));
    ASSERT_TRUE(warteBis([&] { return urls.size() == 3 && aktivierungen == 1; }));
    EXPECT_EQ(urls, (QStringList{u"velmora://eins"_s, umlaute, u"velmora://a%0Ab"_s}));

    const FKRUrlEmpfang::Uebergabe uebergabe = uebergib({u"velmora://langsam"_s, u"velmora://schnell"_s}, 5000, [&] {
        QTimer::singleShot(300, [&] { offen.takeFirst()({false, u"kein Dokument\noffen"_s}); });
    });
    EXPECT_EQ(uebergabe.status, Status::Beantwortet);
    EXPECT_THAT(uebergabe.ergebnisse, ::testing::ElementsAre(Abgelehnt(u"kein Dokument offen"_s),
                                                             ::testing::Field(&FKRUrlErgebnis::erledigt, true)));
    EXPECT_FALSE(uebergabe.allesErledigt());

    empfang.setBearbeiter({});
    EXPECT_THAT(uebergib({u"velmora://x"_s}).ergebnisse, ::testing::ElementsAre(Abgelehnt(u"this program takes no URLs"_s)));
}

TEST_F(UrlEmpfang, SchlechteZeilenWerdenAbgelehntUndHaltenGuteNichtAuf)
{
    ASSERT_TRUE(empfang.lausche(name));
    QLocalSocket stumm, muell, stueckweise;
    for (QLocalSocket *s : {&stumm, &muell, &stueckweise}) {
        s->connectToServer(name);
        ASSERT_TRUE(s->waitForConnected(1000));
    }
    muell.write(QByteArray("\x00\xff\xfe without end", 15));
    const QByteArray laengste = "velmora://" + QByteArray(FKRUrlEmpfang::kLaengsteZeile - 10, 's');
    stueckweise.write(laengste);
    ASSERT_TRUE(warteBis([&] { return stueckweise.bytesToWrite() == 0; }));

    // Too long, no UTF-8: refused, and the next line of the same client is handled.
    const QString zuLang = u"velmora://"_s + QString(FKRUrlEmpfang::kLaengsteZeile - 9, u'x');
    const QString genauLang = u"velmora://"_s + QString(FKRUrlEmpfang::kLaengsteZeile - 10, u'y');
    const FKRUrlEmpfang::Uebergabe uebergabe = uebergib({zuLang, u"velmora://gut"_s, genauLang});
    EXPECT_THAT(uebergabe.ergebnisse, ::testing::ElementsAre(Abgelehnt(u"the URL is longer than 65536 bytes"_s),
                                                             ::testing::Field(&FKRUrlErgebnis::erledigt, true),
                                                             ::testing::Field(&FKRUrlErgebnis::erledigt, true)));
    // The end of an over-long line may come with the next line, which is handled.
    muell.write("\n\xff\xfe\n" + QByteArray(100 * 1024, 'z'));
    ASSERT_TRUE(warteBis([&] { return QByteArray(muell.peek(4096)).count('\n') == 3 && muell.bytesToWrite() == 0; }));
    harness::laufe(200);
    muell.write("\nvelmora://danach\n");
    ASSERT_TRUE(warteBis([&] { return QByteArray(muell.peek(4096)).count('\n') == 4 && urls.size() == 3; }));
    EXPECT_EQ(muell.readAll(), "refused the message is not UTF-8 text\nrefused the message is not UTF-8 text\n"
                               "refused the URL is longer than 65536 bytes\nstored\n");
    EXPECT_EQ(urls, (QStringList{u"velmora://gut"_s, genauLang, u"velmora://danach"_s}));

    // A line in two pieces is one URL, answered once whole, even at the longest a line may be.
    stueckweise.write("\r\n");
    ASSERT_TRUE(warteBis([&] { return urls.size() == 4 && stueckweise.canReadLine(); }));
    EXPECT_EQ(urls.last(), QString::fromLatin1(laengste));
    EXPECT_EQ(stueckweise.readLine(), "stored\n");
}

// The desktop's road: the program runs, the desktop starts it again with a URL, and that second
// process hands the URL over, learns what became of it and ends with that status at once.
TEST(UrlUebergabeZwischenProgrammen, ZweiterStartMeldetWasAusDerUrlWurdeUndStartetNieEinZweitesProgramm)
{
    const QString programm = QStringLiteral(VELMORA_BINARY_DIR "/src/desktop/velmora");
    if (!QFile::exists(programm))
        GTEST_SKIP() << "velmora is not built";
    QTemporaryDir heim;
    QProcessEnvironment umgebung = harness::privateUmgebung(heim.path());
    umgebung.remove(u"DBUS_SESSION_BUS_ADDRESS"_s); // no notifications on the developer's desktop
    const QString datenOrdner = heim.filePath(u"data_home/Velmora-Rechnungen"_s);
    ASSERT_TRUE(QDir().mkpath(datenOrdner));
    const QString name = FKRUrlEmpfang::socketName(datenOrdner);
    const QString store = datenOrdner + u"/VelmoraRechnungen.storedata"_s;
    {
        storetest::OpenStore offen(store);
        offen.moc().insertNewObject<FKRPosten>()->setRechnung(offen.moc().insertNewObject<FKRRechnung>());
        ASSERT_TRUE(offen.moc().save());
    }

    const auto erster = harness::starteKind(programm, {}, umgebung);
    ASSERT_TRUE(warteBis([&] { return FKRUrlEmpfang::laeuftInstanz(name); }, 15000)) << erster->readAllStandardError().toStdString();

    struct Lauf {
        int status = -1;
        QStringList fehler; // its own lines on stderr, without what Qt logs
    };
    const auto zweiterStart = [&](const QStringList &argumente) {
        const auto zweiter = harness::starteKind(programm, argumente, umgebung);
        EXPECT_TRUE(zweiter->waitForFinished(10000));
        EXPECT_EQ(zweiter->exitStatus(), QProcess::NormalExit);
        const QStringList zeilen = QString::fromUtf8(zweiter->readAllStandardError()).split(u'\n');
        return Lauf{zweiter->exitCode(), zeilen.filter(u"velmora: "_s)};
    };
    // No editor is open in the first program: the sender learns so.
    const Lauf ohneEditor = zweiterStart({u"velmora://importRechnungsPosten?auftraggeber=Acme&summeStunden=5400&summeErtraege=120"_s});
    EXPECT_EQ(ohneEditor.status, 1);
    EXPECT_EQ(ohneEditor.fehler, QStringList{u"velmora: the item was not imported: no document is open in the editor; open one and send the item again"_s});
    const Lauf nachVorne = zweiterStart({}); // only brings the running program forward
    EXPECT_EQ(nachVorne.status, 0) << nachVorne.fehler.join(u'\n').toStdString();
    EXPECT_EQ(erster->state(), QProcess::Running);

    // A SIGTERM (the session ending) closes the program the way its window does.
    erster->terminate();
    EXPECT_TRUE(erster->waitForFinished(5000));
    EXPECT_EQ(erster->exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(erster->exitCode(), 0);
    QLocalServer::removeServer(name);
    storetest::OpenStore offen(store);
    EXPECT_EQ(offen.moc().fetch<FKRPosten>().size(), 1);
}

} // namespace
