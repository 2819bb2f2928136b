// The reminders of unpaid documents: which are scheduled for when, with which texts. "Now" is a
// fixed moment (FKRUhr) in Europe/Berlin; a private notification daemon receives what is sent.
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

#include <algorithm>
#include <ostream>

inline void PrintTo(const QString &text, std::ostream *out) { *out << '"' << text.toStdString() << '"'; }
inline void PrintTo(const QDateTime &date, std::ostream *out) { *out << date.toString(Qt::ISODate).toStdString(); }

namespace {

using harness::DesktopUmgebung;
using harness::warteBis;
using namespace Qt::Literals::StringLiterals;

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

    // One field of every scheduled reminder, in order.
    template<class Wert>
    QList<Wert> geplant(Wert FKRFaelligkeitsMitteilungen::Geplant::*feld) const
    {
        QList<Wert> werte;
        std::ranges::transform(m_mitteilungen->geplanteMitteilungen(), std::back_inserter(werte), feld);
        return werte;
    }
    QStringList texte() const { return geplant(&FKRFaelligkeitsMitteilungen::Geplant::text); }

    ManagedObjectContext m_context;
    std::unique_ptr<FKRFaelligkeitsMitteilungen> m_mitteilungen;
    const QLocale m_locale;
};

// When a document is reminded of is its own rule (ten o'clock on the due day or the next ten
// o'clock), tested with the document; here: every unpaid document with a due date is scheduled then.
TEST_F(FaelligkeitsMitteilungen, JedesUnbezahlteDokumentMeldetSichZuSeinerErinnerungInDerSpracheDesBenutzers)
{
    FKRUhr::halteAn(berlin(5, 12, 14));
    m_mitteilungen->pruefeFaelligeRechnungen({dokument(berlin(5, 12, 8), u"R-1"_s), dokument(std::nullopt, u"R-2"_s)});
    EXPECT_EQ(geplant(&FKRFaelligkeitsMitteilungen::Geplant::zeit), QList<QDateTime>{berlin(5, 13, 10)});

    // The reminder is the user's, in the user's language, whatever the document's.
    auto *kunde = m_context.insertNewObject<FKREmpfaenger>();
    kunde->setFirma(u"Müller & Söhne"_s);
    kunde->setName(u"Anna Berg"_s);
    const QList<FKRRechnung *> unbezahlte{dokument(berlin(5, 15, 9), u"Invoice: 7"_s, kunde, 2),
                                          dokument(berlin(5, 15, 9), std::nullopt)};
    m_mitteilungen->pruefeFaelligeRechnungen(unbezahlte);
    EXPECT_EQ(texte(), (QStringList{u"Das Dokument Invoice: 7 für Müller & Söhne - Anna Berg ist fällig."_s,
                                    u"Das Dokument  ist fällig."_s}));
    QLocale::setDefault(QLocale(u"en_US"_s));
    FKRLocalizationHelper::installiereHauptTabelle();
    m_mitteilungen->pruefeFaelligeRechnungen({unbezahlte[0]});
    EXPECT_EQ(texte(), QStringList{u"The document Invoice: 7 for Müller & Söhne - Anna Berg is due."_s});
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
