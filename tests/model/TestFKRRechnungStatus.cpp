// The due test, reminder times, number labels and the sender of a new document. "Now" is a
// fixed moment (FKRUhr); the suite runs in Europe/Berlin.
#include "FKRAbsender.h"
#include "FKRRechnung.h"
#include "FKRUhr.h"
#include "ManagedObjectContext.h"

#include <QTimeZone>
#include <gtest/gtest.h>

#include <ostream>

using namespace Qt::Literals::StringLiterals;

inline void PrintTo(const QString &text, std::ostream *out) { *out << '"' << text.toStdString() << '"'; }
inline void PrintTo(const QDateTime &date, std::ostream *out) { *out << date.toString(Qt::ISODate).toStdString(); }

namespace {

QDateTime berlin(int monat, int tag, int stunde, int minute = 0, int sekunde = 0)
{
    return QDateTime(QDate(2026, monat, tag), QTime(stunde, minute, sekunde), QTimeZone("Europe/Berlin"));
}

QDateTime iso(const char *text) { return QDateTime::fromString(QString::fromLatin1(text), Qt::ISODate); }

class Status : public ::testing::Test
{
protected:
    void TearDown() override { FKRUhr::laufeWeiter(); }

    FKRRechnung *dokument(std::optional<QDateTime> faellig = std::nullopt, qint64 sprache = 1,
                          std::optional<QString> nummer = std::nullopt)
    {
        auto *r = m_context.insertNewObject<FKRRechnung>();
        r->setFaelligkeitsDatum(faellig);
        r->setSprache(sprache);
        r->setRechnungsNummer(nummer);
        return r;
    }

    ManagedObjectContext m_context;
};

// An unpaid document is due from the start of its due day in Berlin; its reminder is at ten o'clock
// on the due day, or the next ten o'clock after now.
TEST_F(Status, DueFromTheStartOfTheDueDayAndRemindedAtTenOClock)
{
    const QDateTime jetzt = berlin(5, 12, 14), gestern = berlin(5, 11, 18), frueh = berlin(5, 12, 8);
    const struct {
        QDateTime jetzt;
        std::optional<QDateTime> faellig;
        bool istFaellig;
        QDateTime erinnerung; // invalid: not checked
        std::optional<bool> bezahlt = false, versandt = false;
    } faelle[] = {
        {jetzt, gestern, true}, {jetzt, gestern, false, {}, true},
        {jetzt, gestern, false, {}, std::nullopt}, // only "exactly false" is unpaid
        {jetzt, std::nullopt, false}, {berlin(5, 12, 0), berlin(5, 12, 23, 59), true},
        {berlin(5, 11, 23, 59, 59), berlin(5, 12, 23, 59), false},
        // 22:30 UTC on the 12th is already the 13th in Berlin.
        {jetzt, iso("2026-05-12T21:30:00Z"), true}, {jetzt, iso("2026-05-12T22:30:00Z"), false},
        {jetzt, berlin(5, 15, 16), false, berlin(5, 15, 10)}, {berlin(5, 12, 9, 30), gestern, true, berlin(5, 12, 10)},
        {berlin(5, 12, 10), gestern, true, berlin(5, 13, 10)},
        {berlin(5, 12, 10), frueh, true, berlin(5, 12, 10)}, // not before now: still today
        // Across the spring change "tomorrow 10:00" is 22 hours after 11:00, at 08:00 UTC.
        {berlin(3, 28, 11), berlin(3, 27, 12), true, iso("2026-03-29T08:00:00Z")},
    };
    for (const auto &fall : faelle) {
        SCOPED_TRACE(&fall - faelle);
        FKRUhr::halteAn(fall.jetzt);
        FKRRechnung *r = dokument(fall.faellig);
        r->setBezahlt(fall.bezahlt);
        r->setVersandt(fall.versandt);
        EXPECT_EQ(r->isFaellig(), fall.istFaellig);
        if (fall.erinnerung.isValid())
            EXPECT_EQ(r->erinnerungsDatum(), fall.erinnerung);
    }
    EXPECT_EQ(dokument()->erinnerungsDatum(), std::nullopt);
    // In the repeated autumn hour (02:30 CET = 01:30 UTC) 10:00 is CET again.
    EXPECT_EQ(FKRRechnung::zehnUhrAm(iso("2026-10-25T01:30:00Z")), iso("2026-10-25T09:00:00Z"));
}

TEST_F(Status, ACopysNumberIsLabelledInTheCopysLanguage)
{
    const FKRRechnung *quelle = dokument(std::nullopt, 1, u"Rechnung: 2026-001"_s);
    FKRRechnung *copy = dokument(std::nullopt, 2);
    copy->setzeNummerAlsKopieVon(*quelle);
    EXPECT_EQ(copy->rechnungsNummer(), u"Rechnung: 2026-001 Copy"_s);
}

// A type change exchanges the label and keeps the number; a language change relabels only the
// labels the number begins with. Either knows the labels of the document's language only.
TEST_F(Status, TypeAndLanguageChangesRelabelTheNumber)
{
    const struct {
        qint64 von;
        std::optional<QString> nummer;
        int art;
        qint64 nach;
        std::optional<QString> erwartet;
    } faelle[] = {
        {1, u"Rechnung: 2026-001"_s, 2, 1, u"Angebot: 2026-001"_s}, {1, u"Angebot: 2026-001"_s, 7, 1, u" 2026-001"_s},
        {2, u"Rechnung: 2026-001"_s, 2, 2, u"Rechnung: 2026-001"_s},
        {1, std::nullopt, 1, 1, std::nullopt}, {2, u"Quote: 7"_s, 0, 1, u"Angebot: 7"_s},
        {1, u"Mahnung für: Rechnung: 5"_s, 0, 2, u"Reminder for: Invoice: 5"_s},
        {1, u"2026 Rechnung: 1"_s, 0, 2, u"2026 Rechnung: 1"_s}, {2, u"Rechnung: 9"_s, 0, 1, u"Rechnung: 9"_s},
    };
    for (const auto &fall : faelle) {
        SCOPED_TRACE(fall.nummer.value_or(u"-"_s).toStdString());
        FKRRechnung *r = dokument(std::nullopt, fall.von, fall.nummer);
        if (fall.art) {
            r->wechsleDokumentArt(Decimal(fall.art));
            EXPECT_EQ(r->dokumentArt(), Decimal(fall.art));
        } else {
            r->wechsleSprache(fall.nach);
        }
        EXPECT_EQ(r->sprache(), fall.nach);
        EXPECT_EQ(r->rechnungsNummer(), fall.erwartet);
    }
}

TEST_F(Status, NewDocumentTakesTheNewestDocumentsSender)
{
    auto *a = m_context.insertNewObject<FKRAbsender>(), *b = m_context.insertNewObject<FKRAbsender>();
    FKRRechnung *alt = dokument(), *neu = dokument();
    alt->setAbsender(a), alt->setRechnungsDatum(berlin(3, 9, 9));
    neu->setAbsender(b), neu->setRechnungsDatum(berlin(3, 10, 9));
    EXPECT_EQ(FKRRechnung::absenderFuerNeuesDokument({a, b}, {neu, alt}), b);
}

} // namespace
