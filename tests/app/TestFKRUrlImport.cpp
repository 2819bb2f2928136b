// Items handed over by a time tracker fill a new item of the open document; the client becomes
// its recipient.

#include "ImportEditor.h"
#include "SkriptPresenter.h"

#include <gtest/gtest.h>

#include "FKRImportAnfrage.h"
#include "FKRUrlImport.h"

using namespace Qt::Literals::StringLiterals;

namespace {

Decimal dec(const char *text) { return *Decimal::parse(text); }

class UrlImport : public ::testing::Test
{
protected:
    ManagedObjectContext moc;
    SkriptPresenter presenter;
    ImportEditor editor{moc};
    bool editorOffen = true;
    bool speichernGelingt = true;
    int speicherungen = 0;
    FKRUrlImport import{presenter, [this] { return editorOffen ? &editor : nullptr; }, [this] {
                            ++speicherungen;
                            EXPECT_TRUE(moc.save());
                            return speichernGelingt;
                        }};
    FKRUrlErgebnis antwort;
    qsizetype alertsVorDerAntwort = -1;

    FKREmpfaenger *empfaenger(const QString &name, const QString &firma)
    {
        auto *e = editor.angeordnet.emplace_back(moc.insertNewObject<FKREmpfaenger>());
        e->setName(name);
        e->setFirma(firma);
        return e;
    }

    FKRUrlErgebnis sende(const QString &url)
    {
        int antworten = 0;
        const FKRUrlErgebnis ergebnis = import.handleGetUrlEvent(url, [&](const FKRUrlErgebnis &e) {
            ++antworten;
            antwort = e;
            alertsVorDerAntwort = presenter.alerts.size();
        });
        EXPECT_EQ(antworten, 1) << url.toStdString();
        EXPECT_EQ(ergebnis.erledigt, antwort.erledigt);
        EXPECT_EQ(ergebnis.grund, antwort.grund);
        return ergebnis;
    }

    FKRPosten *importiere(const QString &query)
    {
        const qsizetype vorher = editor.ausgewaehlt.size();
        const bool gespeichert = sende(u"velmora://importRechnungsPosten?"_s + query).erledigt;
        FKRPosten *posten = editor.ausgewaehlt.size() > vorher ? editor.ausgewaehlt.last() : nullptr;
        EXPECT_EQ(gespeichert, posten != nullptr) << query.toStdString();
        // The real editor recomputes its sums now; they must work for whatever was imported.
        EXPECT_NO_THROW(editor.dokument->rechnungsSumme());
        return posten;
    }
};

TEST_F(UrlImport, AcmeWirdDritterPostenUndEmpfaengerWirdAngelegtDannGefunden)
{
    FKRPosten *posten = importiere(u"auftraggeber=Acme&auftrag=Web&aufgabe=Layout&summeStunden=5400&summeErtraege=120"_s);
    ASSERT_NE(posten, nullptr);
    EXPECT_EQ(posten->postenNummer(), 3);
    EXPECT_EQ(posten->postenBezeichnung(), u"Acme Web Layout"_s);
    EXPECT_EQ(posten->postenBeschreibung(), u" - "_s);
    EXPECT_EQ(posten->anzahl(), dec("1.5"));
    EXPECT_EQ(posten->einzelbetrag(), dec("80"));
    ASSERT_NE(editor.dokument->empfaenger(), nullptr);
    EXPECT_EQ(editor.dokument->empfaenger()->firma(), u"Acme"_s);
    EXPECT_EQ(speicherungen, 2); // the new recipient, then the item
    EXPECT_FALSE(moc.hasChanges());
    EXPECT_TRUE(presenter.alerts.isEmpty());
}

TEST_F(UrlImport, EmpfaengerNachNameOderFirmaInAngezeigterReihenfolgeGenauVerglichen)
{
    empfaenger(u"Bob"_s, u"Acme GmbH"_s);
    FKREmpfaenger *nachFirma = empfaenger({}, u"Acme"_s);
    empfaenger(u"Acme"_s, {});
    importiere(u"auftraggeber=Acme"_s);
    EXPECT_EQ(editor.dokument->empfaenger(), nachFirma);

    // A new recipient takes the note (an address: line breaks of any convention and tabs stay,
    // as line feeds); a found one keeps its own.
    importiere(u"auftraggeber=acme&auftraggeberNotiz=Weg 1%0D%0A12345 Ort%0DDE%09x"_s);
    importiere(u"auftraggeber=acme&auftraggeberNotiz=Weg 2"_s);
    EXPECT_EQ(editor.neueEmpfaenger, 1);
    EXPECT_EQ(editor.dokument->empfaenger()->notiz(), u"Weg 1\n12345 Ort\nDE\tx"_s);

    // Without a client, with an empty one, or without a recipient list the recipient stays.
    FKREmpfaenger *vorher = editor.dokument->empfaenger();
    importiere(u"auftraggeber=&auftrag=Web"_s);
    editor.mitListe = false;
    ASSERT_NE(importiere(u"auftraggeber=Neu&auftrag=Web"_s), nullptr);
    EXPECT_EQ(editor.dokument->empfaenger(), vorher);
    EXPECT_EQ(editor.neueEmpfaenger, 1);
}

TEST_F(UrlImport, NurDasSchemaMitGenauDiesemHostZaehltUndOhneEditorKommtEinHinweis)
{
    // Without an editor every accepted URL shows the alert and changes nothing.
    editorOffen = false;
    for (const QString &url : {u"velmora://importrechnungsposten?auftrag=x"_s, u"https://importRechnungsPosten?auftrag=x"_s,
                               u"velmora:importRechnungsPosten?x"_s}) {
        EXPECT_FALSE(sende(url).erledigt);
        EXPECT_TRUE(antwort.grund.startsWith(u"not a URL of the form velmora://importRechnungsPosten"_s)) << antwort.grund.toStdString();
    }
    EXPECT_TRUE(presenter.alerts.isEmpty());
    for (const QString &url : {u"VelMora://importRechnungsPosten"_s, u"velmora://ich@importRechnungsPosten:80/p?auftrag=x#f"_s}) {
        EXPECT_FALSE(sende(url).erledigt);
        EXPECT_TRUE(antwort.grund.startsWith(u"no document is open"_s)) << antwort.grund.toStdString();
        EXPECT_EQ(alertsVorDerAntwort, presenter.alerts.size() - 1) << "the sender learns it before the alert";
    }
    ASSERT_EQ(presenter.alerts.size(), 2);
    EXPECT_EQ(presenter.alerts[0].textSchluessel, u"ALERT_TEXT_RECHNUNG_OEFFNEN_FUER_IMPORT"_s);

    // An editor without a document: nothing at all.
    editorOffen = true;
    editor.dokument = nullptr;
    EXPECT_FALSE(sende(u"velmora://importRechnungsPosten?auftraggeber=Acme"_s).erledigt);
    EXPECT_EQ(presenter.alerts.size(), 2);
    EXPECT_EQ(moc.fetch<FKRPosten>().size() + moc.fetch<FKREmpfaenger>().size() + speicherungen, 2);
}

TEST_F(UrlImport, AnfrageWirdEinmalDekodiertDannZerlegt)
{
    // An encoded "&" and "=" separate after decoding; the last occurrence wins; keys are
    // case-sensitive; values keep their blanks and "+".
    FKRPosten *posten = importiere(u"aufgabe=a%26auftraggeber%3DX&&auftrag=1&Auftrag=2&auftrag=%20b+c%20&x=9&startDatum=1.3. 10:00"_s);
    ASSERT_NE(posten, nullptr);
    EXPECT_EQ(posten->postenBezeichnung(), u"X  b+c  a"_s);
    EXPECT_EQ(posten->postenBeschreibung(), u"1.3. 10:00 - "_s);
    EXPECT_EQ(editor.dokument->empfaenger()->firma(), u"X"_s);

    // A "%" that starts no escape stays; bytes that are not UTF-8 become replacement characters.
    posten = importiere(u"auftrag=100%zz%C3%A4&aufgabe=%FF"_s);
    ASSERT_NE(posten, nullptr);
    EXPECT_EQ(posten->postenBezeichnung(), u" 100%zzä \uFFFD"_s);
}

TEST_F(UrlImport, WerteWerdenUebernommenOderDieGanzeUrlAbgelehnt)
{
    using M = FKRImportAnfrage::Mangel;
    struct Fall {
        QString query;
        M mangel;
        const char *anzahl = nullptr;       // nullptr: the item has no quantity
        const char *einzelbetrag = nullptr; // nullptr: the new item's zero stays
        QString schluessel = {};            // the refused key, when not the one of the sum
    };
    const Fall faelle[] = {
        {u"summeStunden=5400.9&summeErtraege=120"_s, M::Keiner, "1.5", "80"}, // cut to whole seconds
        {u"summeStunden=1000&summeErtraege=25"_s, M::Keiner, "0.28", "89.29"},
        {u"summeStunden=18&summeErtraege=0.005"_s, M::Keiner, "0.01", "0.5"},
        {u"summeStunden=3600000000.9&summeErtraege=0"_s, M::Keiner, "1000000", "0"},
        {u"summeStunden=5400&summeErtraege=1000000000000"_s, M::Keiner, "1.5", "666666666666.67"},
        {u"summeStunden=5400"_s, M::Keiner, "1.5"}, {u"summeErtraege=120"_s, M::Keiner},
        {u"summeStunden=17&summeErtraege=1"_s, M::Stunden}, {u"summeStunden=3600000001"_s, M::Stunden},
        {u"summeStunden=NaN"_s, M::Stunden}, {u"summeStunden=5400&summeErtraege=-0.01"_s, M::Ertraege},
        {u"summeStunden=5400&summeErtraege=1000000000000.01"_s, M::Ertraege},
        {u"aufgabe=Layout%0AReview&summeStunden=5400"_s, M::Steuerzeichen, nullptr, nullptr, u"aufgabe"_s},
        {u"aufgabe=%C2%85&auftrag=%7F"_s, M::Steuerzeichen, nullptr, nullptr, u"aufgabe"_s},
        {u"auftraggeberNotiz=Weg%00"_s, M::Steuerzeichen, nullptr, nullptr, u"auftraggeberNotiz"_s},
    };
    const char *const alertTexte[] = {"", "ALERT_TEXT_IMPORT_STUNDEN_UNGUELTIG", "ALERT_TEXT_IMPORT_ERTRAEGE_UNGUELTIG",
                                      "ALERT_TEXT_IMPORT_STEUERZEICHEN"};
    for (const Fall &fall : faelle) {
        SCOPED_TRACE(fall.query.toStdString());
        const int gespeichert = speicherungen;
        const qsizetype posten = moc.fetch<FKRPosten>().size();
        const qsizetype alerts = presenter.alerts.size();
        FKRPosten *neu = importiere(fall.query);
        if (fall.mangel == M::Keiner) {
            ASSERT_NE(neu, nullptr);
            EXPECT_EQ(neu->anzahl(), fall.anzahl ? std::optional(dec(fall.anzahl)) : std::nullopt);
            EXPECT_EQ(neu->einzelbetrag(), dec(fall.einzelbetrag ? fall.einzelbetrag : "0"));
            EXPECT_EQ(presenter.alerts.size(), alerts);
            continue;
        }
        const QString schluessel = fall.mangel == M::Stunden ? u"summeStunden"_s
                                   : fall.mangel == M::Ertraege ? u"summeErtraege"_s : fall.schluessel;
        EXPECT_EQ(moc.fetch<FKRPosten>().size() + speicherungen, posten + gespeichert);
        EXPECT_FALSE(moc.hasChanges());
        EXPECT_TRUE(antwort.grund.startsWith(schluessel + u' ')) << antwort.grund.toStdString();
        ASSERT_EQ(presenter.alerts.size(), alerts + 1);
        EXPECT_EQ(alertsVorDerAntwort, alerts);
        EXPECT_EQ(presenter.alerts.last().titelSchluessel, u"ALERT_TITLE_IMPORT_ABGELEHNT"_s);
        EXPECT_EQ(presenter.alerts.last().textSchluessel, QLatin1String(alertTexte[int(fall.mangel)]));
        EXPECT_EQ(presenter.alerts.last().zusatzText, schluessel);
    }

    // A save that fails is no stored item.
    speichernGelingt = false;
    EXPECT_FALSE(sende(u"velmora://importRechnungsPosten?summeStunden=5400"_s).erledigt);
    EXPECT_EQ(antwort.grund, u"the item could not be saved"_s);
}

} // namespace
