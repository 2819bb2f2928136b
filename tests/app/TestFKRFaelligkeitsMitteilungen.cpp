// The reminders of unpaid documents: which are scheduled for when, with which texts, and what
// a real notification daemon (dunst, on a private desktop) receives, closes and reports as
// clicked. "Now" is a fixed moment (FKRUhr) in Europe/Berlin.
#include "harness/DesktopSitzung.h"

#include "FKREmpfaenger.h"
#include "FKRFaelligkeitsMitteilungen.h"
#include "FKRLocalizationHelper.h"
#include "FKRRechnung.h"
#include "FKRUhr.h"
#include "ManagedObjectContext.h"
#include "QBBenutzerEinstellungen.h"

#include <QLocale>
#include <QTimeZone>

#include <ostream>

inline void PrintTo(const QString &text, std::ostream *out) { *out << '"' << text.toStdString() << '"'; }
inline void PrintTo(const QDateTime &date, std::ostream *out) { *out << date.toString(Qt::ISODate).toStdString(); }

namespace {

using harness::DesktopUmgebung;
using harness::warteBis;

DesktopUmgebung &umgebung = DesktopUmgebung::registriere();

QDateTime berlin(int monat, int tag, int stunde, int minute = 0)
{
    return QDateTime(QDate(2026, monat, tag), QTime(stunde, minute), QTimeZone("Europe/Berlin"));
}

class FaelligkeitsMitteilungen : public ::testing::Test
{
protected:
    void SetUp() override
    {
        VELMORA_DESKTOP_ODER_UEBERSPRINGEN(umgebung);
        FKRLocalizationHelper::installiereHauptTabelle();
        einstellungen()->setDeaktiviereFaelligeRechnungsMitteilungen(false);
        ASSERT_TRUE(umgebung.raeumeAuf());
        m_mitteilungen = std::make_unique<FKRFaelligkeitsMitteilungen>();
        QObject::connect(m_mitteilungen.get(), &FKRFaelligkeitsMitteilungen::mitteilungAktiviert,
                         [this] { ++m_aktiviert; });
    }
    void TearDown() override
    {
        if (IsSkipped())
            return;
        m_mitteilungen.reset();
        FKRUhr::laufeWeiter();
        einstellungen()->setDeaktiviereFaelligeRechnungsMitteilungen(false);
        QLocale::setDefault(m_locale);
        FKRLocalizationHelper::installiereHauptTabelle();
    }

    static QBBenutzerEinstellungen *einstellungen() { return QBBenutzerEinstellungen::sharedInstance(); }

    FKRRechnung *dokument(std::optional<QDateTime> faellig, std::optional<QString> nummer,
                          FKREmpfaenger *empfaenger = nullptr, qint64 sprache = 1)
    {
        auto *r = m_context.insertNewObject<FKRRechnung>();
        r->setFaelligkeitsDatum(faellig);
        r->setRechnungsNummer(nummer);
        r->setSprache(sprache);
        r->setBezahlt(false);
        r->setEmpfaenger(empfaenger);
        return r;
    }
    FKREmpfaenger *empfaenger(const QString &firma, const QString &name)
    {
        auto *e = m_context.insertNewObject<FKREmpfaenger>();
        e->setFirma(firma);
        e->setName(name);
        return e;
    }

    QList<QDateTime> zeiten() const
    {
        QList<QDateTime> werte;
        for (const auto &mitteilung : m_mitteilungen->geplanteMitteilungen())
            werte << mitteilung.zeit;
        return werte;
    }
    QStringList texte() const
    {
        QStringList werte;
        for (const auto &mitteilung : m_mitteilungen->geplanteMitteilungen())
            werte << mitteilung.text;
        return werte;
    }

    ManagedObjectContext m_context;
    std::unique_ptr<FKRFaelligkeitsMitteilungen> m_mitteilungen;
    int m_aktiviert = 0;
    const QLocale m_locale;
};

TEST_F(FaelligkeitsMitteilungen, JedesUnbezahlteDokumentMitFaelligkeitBekommtSeineZehnUhrMitteilung)
{
    FKRUhr::halteAn(berlin(5, 12, 14));
    FKREmpfaenger *kunde = empfaenger(QStringLiteral("Müller & Söhne"), QStringLiteral("Anna Berg"));
    const QList<FKRRechnung *> unbezahlte{
        dokument(berlin(5, 15, 9), QStringLiteral("Rechnung: 2026-17"), kunde),
        dokument(std::nullopt, QStringLiteral("Angebot: ohne Datum"), kunde),
        dokument(berlin(5, 15, 18), QStringLiteral("Rechnung: 2026-18")),
        // English document of a German user: the reminder is the user's, in German.
        dokument(berlin(5, 20, 23, 59), QStringLiteral("Invoice: 7"), nullptr, 2),
        dokument(berlin(5, 21, 0), std::nullopt),
    };
    m_mitteilungen->pruefeFaelligeRechnungen(unbezahlte);

    EXPECT_EQ(zeiten(), (QList<QDateTime>{berlin(5, 15, 10), berlin(5, 15, 10), berlin(5, 20, 10), berlin(5, 21, 10)}));
    EXPECT_EQ(texte(), (QStringList{
                           QStringLiteral("Das Dokument Rechnung: 2026-17 für Müller & Söhne - Anna Berg ist fällig."),
                           QStringLiteral("Das Dokument Rechnung: 2026-18 ist fällig."),
                           QStringLiteral("Das Dokument Invoice: 7 ist fällig."),
                           // Without a number the reminder still comes, with an empty number.
                           QStringLiteral("Das Dokument  ist fällig."),
                       }));

    // An English-speaking user reads English reminders, also for a German document.
    QLocale::setDefault(QLocale(QStringLiteral("en_US")));
    FKRLocalizationHelper::installiereHauptTabelle();
    m_mitteilungen->pruefeFaelligeRechnungen({unbezahlte[0]});
    EXPECT_EQ(texte(), QStringList{QStringLiteral("The document Rechnung: 2026-17 for Müller & Söhne - Anna Berg is due.")});
}

TEST_F(FaelligkeitsMitteilungen, UeberfaelligeDokumenteMeldenSichUmZehnUhrHeuteOderMorgen)
{
    FKRRechnung *gestern = dokument(berlin(5, 11, 12), QStringLiteral("R-1"));
    FKRRechnung *heuteFrueh = dokument(berlin(5, 12, 8), QStringLiteral("R-2"));

    FKRUhr::halteAn(berlin(5, 12, 9));
    m_mitteilungen->pruefeFaelligeRechnungen({gestern, heuteFrueh});
    EXPECT_EQ(zeiten(), (QList<QDateTime>{berlin(5, 12, 10), berlin(5, 12, 10)}));

    FKRUhr::halteAn(berlin(5, 12, 11));
    m_mitteilungen->pruefeFaelligeRechnungen({gestern, heuteFrueh});
    EXPECT_EQ(zeiten(), (QList<QDateTime>{berlin(5, 13, 10), berlin(5, 13, 10)}));
}

TEST_F(FaelligkeitsMitteilungen, JederAufbauErsetztDenVorigenUndDieEinstellungSchaltetAllesAb)
{
    FKRUhr::halteAn(berlin(5, 12, 14));
    FKRRechnung *a = dokument(berlin(5, 15, 9), QStringLiteral("A"));
    FKRRechnung *b = dokument(berlin(5, 16, 9), QStringLiteral("B"));
    m_mitteilungen->pruefeFaelligeRechnungen({a, b});
    m_mitteilungen->zeigeFaelligkeitsMitteilung(QStringLiteral("Titel"), QStringLiteral("von Hand"), berlin(5, 30, 10));
    EXPECT_EQ(texte().size(), 3);

    // B was paid: the next save hands over only A.
    m_mitteilungen->pruefeFaelligeRechnungen({a});
    EXPECT_EQ(texte(), QStringList{QStringLiteral("Das Dokument A ist fällig.")});

    einstellungen()->setDeaktiviereFaelligeRechnungsMitteilungen(true);
    m_mitteilungen->pruefeFaelligeRechnungen({a, b});
    EXPECT_TRUE(m_mitteilungen->geplanteMitteilungen().isEmpty());
    FKRUhr::halteAn(berlin(5, 20, 14));
    harness::laufe(100);
    EXPECT_TRUE(umgebung.protokoll().isEmpty());
}

TEST_F(FaelligkeitsMitteilungen, ErreichteErinnerungKommtBeimDienstAnWirdGeschlossenUndGeklickt)
{
    FKRUhr::halteAn(berlin(5, 12, 10));
    FKRRechnung *heute = dokument(berlin(5, 12, 8), QStringLiteral("Rechnung: 41"),
                                  empfaenger(QStringLiteral("Müller & Söhne"), QStringLiteral("Anna Berg")));
    FKRRechnung *spaeter = dokument(berlin(5, 14, 8), QStringLiteral("Rechnung: 42"));
    m_mitteilungen->pruefeFaelligeRechnungen({heute, spaeter});
    EXPECT_EQ(texte().size(), 2) << "sent from the event loop, after the save has returned";

    ASSERT_TRUE(warteBis([] { return umgebung.protokoll().size() == 1; }));
    const harness::Gezeigt gezeigt = umgebung.protokoll().first();
    EXPECT_EQ(gezeigt.titel, QStringLiteral("Fälliges Dokument"));
    EXPECT_EQ(gezeigt.text, QStringLiteral("Das Dokument Rechnung: 41 für Müller &amp; Söhne - Anna Berg ist fällig."));
    EXPECT_EQ(texte(), QStringList{QStringLiteral("Das Dokument Rechnung: 42 ist fällig.")});

    DesktopUmgebung::dunstctl({QStringLiteral("action"), QStringLiteral("0")});
    EXPECT_TRUE(warteBis([this] { return m_aktiviert == 1; }));

    // The user switches the reminders off: the shown one goes, the waiting one is dropped.
    ASSERT_EQ(DesktopUmgebung::angezeigt(), 1);
    einstellungen()->setDeaktiviereFaelligeRechnungsMitteilungen(true);
    m_mitteilungen->pruefeFaelligeRechnungen({heute, spaeter});
    EXPECT_TRUE(warteBis([] { return DesktopUmgebung::angezeigt() == 0; }));
    EXPECT_TRUE(m_mitteilungen->geplanteMitteilungen().isEmpty());
    EXPECT_EQ(umgebung.protokoll().size(), 1);
}

TEST_F(FaelligkeitsMitteilungen, DerWeckerSendetZurZeitDerUhrUndNichtFrueher)
{
    // The clock stands still before the time, however often the timer fires.
    const QDateTime jetzt = berlin(5, 12, 9, 59);
    FKRUhr::halteAn(jetzt);
    m_mitteilungen->zeigeFaelligkeitsMitteilung(QStringLiteral("Gleich"), QStringLiteral("erst um 10"), jetzt.addMSecs(300));
    harness::laufe(800);
    EXPECT_TRUE(umgebung.protokoll().isEmpty());
    EXPECT_EQ(m_mitteilungen->geplanteMitteilungen().size(), 1);

    FKRUhr::halteAn(jetzt.addMSecs(300));
    ASSERT_TRUE(warteBis([] { return umgebung.protokoll().size() == 1; }, 2000));
    EXPECT_EQ(umgebung.protokoll().first().text, QStringLiteral("erst um 10"));
}

} // namespace
