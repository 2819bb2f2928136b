// Desktop notifications against a real daemon on a private session bus and X server.
#include "harness/DesktopSitzung.h"

#include "FKRDesktopMitteilungen.h"
#include "FKRLocalizationHelper.h"

#include <QDBusMessage>

namespace {

using namespace Qt::Literals::StringLiterals;
using harness::DesktopUmgebung;
using harness::warteBis;

DesktopUmgebung &umgebung = DesktopUmgebung::registriere();

class DesktopMitteilungen : public ::testing::Test
{
protected:
    void SetUp() override
    {
        VELMORA_DESKTOP_ODER_UEBERSPRINGEN(umgebung);
        FKRLocalizationHelper::installiereHauptTabelle();
        ASSERT_TRUE(umgebung.raeumeAuf());
        m_mitteilungen = std::make_unique<FKRDesktopMitteilungen>();
        QObject::connect(m_mitteilungen.get(), &FKRDesktopMitteilungen::gezeigt, [this](uint id) { m_gezeigt << id; });
        QObject::connect(m_mitteilungen.get(), &FKRDesktopMitteilungen::aktiviert, [this] { ++m_aktiviert; });
    }
    void TearDown() override
    {
        if (!IsSkipped() && !DesktopUmgebung::dienstDa())
            EXPECT_TRUE(umgebung.starteDunst());
    }

    uint zeigeUndWarte(const QString &text)
    {
        const qsizetype vorher = m_gezeigt.size();
        m_mitteilungen->zeige(u"Titel"_s, text);
        EXPECT_TRUE(warteBis([&] { return m_gezeigt.size() > vorher; })) << "never shown: " << text.toStdString();
        return m_gezeigt.value(vorher);
    }

    static void sendeAktion(uint id, const QString &aktion)
    {
        QDBusMessage signal = QDBusMessage::createSignal(QString::fromLatin1(FKRDesktopMitteilungen::kPfad),
                                                         QString::fromLatin1(FKRDesktopMitteilungen::kSchnittstelle),
                                                         u"ActionInvoked"_s);
        signal << id << aktion;
        QDBusConnection::sessionBus().send(signal);
    }

    std::unique_ptr<FKRDesktopMitteilungen> m_mitteilungen;
    QList<uint> m_gezeigt;
    int m_aktiviert = 0;
};

TEST_F(DesktopMitteilungen, SchliesseAlleSchliesstAuchDieNochUnterwegsSind)
{
    zeigeUndWarte(u"erste"_s);
    zeigeUndWarte(u"zweite <b>&</b>"_s);
    ASSERT_TRUE(warteBis([] { return DesktopUmgebung::angezeigt() == 2; }));
    EXPECT_EQ(umgebung.protokoll().value(1).text, u"zweite &lt;b&gt;&amp;&lt;/b&gt;"_s) << "the daemon renders markup";

    m_mitteilungen->schliesseAlle();
    EXPECT_TRUE(warteBis([] { return DesktopUmgebung::angezeigt() == 0; }));

    // A third one closed before the service answered: its id is closed at once when it comes.
    m_mitteilungen->zeige(u"Drei"_s, u"dritte"_s);
    m_mitteilungen->schliesseAlle();
    ASSERT_TRUE(warteBis([] { return umgebung.protokoll().size() == 3; }));
    EXPECT_TRUE(warteBis([] { return DesktopUmgebung::angezeigt() == 0; }));
}

TEST_F(DesktopMitteilungen, NurDerKlickAufEigeneMitteilungenZaehlt)
{
    const uint id = zeigeUndWarte(u"klick mich"_s);
    sendeAktion(id + 1000, u"default"_s); // another program's notification
    sendeAktion(id, u"andere"_s);
    harness::laufe(200);
    EXPECT_EQ(m_aktiviert, 0);

    DesktopUmgebung::dunstctl({u"action"_s, u"0"_s});
    EXPECT_TRUE(warteBis([this] { return m_aktiviert == 1; }));

    // Closed by the user: forgotten, and a late click on it no longer counts.
    DesktopUmgebung::dunstctl({u"close"_s});
    EXPECT_TRUE(warteBis([this] { return m_mitteilungen->gezeigteIds().isEmpty(); }));
    sendeAktion(id, u"default"_s);
    harness::laufe(200);
    EXPECT_EQ(m_aktiviert, 1);
}

TEST_F(DesktopMitteilungen, OhneDienstEineZeileImLogUndDanachGehtEsWeiter)
{
    ASSERT_TRUE(umgebung.stoppeDunst());
    {
        harness::Warnungen warnungen;
        m_mitteilungen->zeige(u"Eins"_s, u"ins Leere"_s);
        m_mitteilungen->zeige(u"Zwei"_s, u"auch ins Leere"_s);
        EXPECT_TRUE(warteBis([&] { return !warnungen.zeilen().isEmpty(); }));
        m_mitteilungen->zeige(u"Drei"_s, u"wieder ins Leere"_s);
        harness::laufe(300);
        ASSERT_EQ(warnungen.zeilen().size(), 1) << warnungen.zeilen().join(u'\n').toStdString();
    }

    // The service is back: the next notification arrives, none of the lost ones.
    ASSERT_TRUE(umgebung.starteDunst());
    zeigeUndWarte(u"angekommen"_s);
    EXPECT_TRUE(warteBis([] { return umgebung.protokoll().size() == 1; }));

    // Gone again after it was back: that is worth a line again.
    ASSERT_TRUE(umgebung.stoppeDunst());
    harness::Warnungen warnungen;
    m_mitteilungen->zeige(u"Vier"_s, u"wieder weg"_s);
    EXPECT_TRUE(warteBis([&] { return warnungen.zeilen().size() == 1; }));
}

} // namespace
