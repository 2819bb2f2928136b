// Items handed over by a time tracker: the URL decides whether anything happens, the query
// fills a new item of the open document, and the client becomes the document's recipient. The
// editor is a stand-in over an in-memory context; the model-side road runs on a store file.

#include "../model/StoreTestSupport.h"
#include "SkriptPresenter.h"

#include "FKROffenerEditor.h"
#include "FKRUrlImport.h"

using namespace storetest;
using namespace Qt::Literals::StringLiterals;

namespace {

Decimal dec(const char *text)
{
    return *Decimal::parse(text);
}

class Editor : public FKROffenerEditor, public FKREmpfaengerListe
{
public:
    explicit Editor(ManagedObjectContext &moc) : m_moc(moc) {}
    FKRRechnung *dokument = nullptr;
    QList<FKREmpfaenger *> angeordnet;
    int neueEmpfaenger = 0;
    bool mitListe = true;
    QList<FKRPosten *> ausgewaehlt;

    FKRRechnung *rechnung() const override { return dokument; }
    FKRPosten *neuerPosten() override { return m_moc.insertNewObject<FKRPosten>(); }
    FKREmpfaengerListe *empfaengerListe() override { return mitListe ? this : nullptr; }
    // The real editor recomputes its sums here; they must work for whatever was imported.
    void waehlePostenAus(FKRPosten *posten) override
    {
        ausgewaehlt.append(posten);
        EXPECT_NO_THROW(dokument->rechnungsSumme());
    }
    QList<FKREmpfaenger *> angeordneteEmpfaenger() const override { return angeordnet; }
    FKREmpfaenger *neuerEmpfaenger() override
    {
        ++neueEmpfaenger;
        return angeordnet.emplace_back(m_moc.insertNewObject<FKREmpfaenger>());
    }

private:
    ManagedObjectContext &m_moc;
};

class UrlImport : public ::testing::Test
{
protected:
    ManagedObjectContext moc;
    SkriptPresenter presenter;
    Editor editor{moc};
    bool editorOffen = true;
    int speicherungen = 0;
    FKRUrlImport import{presenter, [this] { return editorOffen ? &editor : nullptr; }, [this] {
                            ++speicherungen;
                            EXPECT_TRUE(moc.save());
                        }};

    void SetUp() override
    {
        editor.dokument = moc.insertNewObject<FKRRechnung>();
        for (int nummer : {1, 2}) {
            auto *posten = moc.insertNewObject<FKRPosten>();
            posten->setPostenNummer(nummer);
            editor.dokument->addPostenObject(posten);
        }
    }

    FKREmpfaenger *empfaenger(const QString &name, const QString &firma)
    {
        auto *e = editor.angeordnet.emplace_back(moc.insertNewObject<FKREmpfaenger>());
        e->setName(name);
        e->setFirma(firma);
        return e;
    }

    // The item of one import with the given query; nullptr when none was made.
    FKRPosten *importiere(const QString &query)
    {
        const qsizetype vorher = editor.ausgewaehlt.size();
        import.handleGetUrlEvent(u"velmora://importRechnungsPosten?"_s + query);
        return editor.ausgewaehlt.size() > vorher ? editor.ausgewaehlt.last() : nullptr;
    }
};

TEST_F(UrlImport, AcmeWirdDritterPostenUndEmpfaengerWirdAngelegtDannGefunden)
{
    FKRPosten *posten = importiere(u"auftraggeber=Acme&auftrag=Web&aufgabe=Layout&summeStunden=5400&summeErtraege=120"_s);
    ASSERT_NE(posten, nullptr);
    EXPECT_EQ(posten->rechnung(), editor.dokument);
    EXPECT_EQ(posten->postenNummer(), 3);
    EXPECT_EQ(posten->postenBezeichnung(), u"Acme Web Layout"_s);
    EXPECT_EQ(posten->postenBeschreibung(), u" - "_s);
    EXPECT_EQ(posten->anzahl(), dec("1.5"));
    EXPECT_EQ(posten->einzelbetrag(), dec("80"));
    ASSERT_NE(editor.dokument->empfaenger(), nullptr);
    EXPECT_EQ(editor.dokument->empfaenger()->name(), u"Acme"_s);
    EXPECT_EQ(editor.dokument->empfaenger()->notiz(), u""_s);
    EXPECT_EQ(speicherungen, 2); // the new recipient, then the item
    EXPECT_FALSE(moc.hasChanges());

    // The next request finds that recipient; its note is not touched.
    posten = importiere(u"auftraggeber=Acme&auftraggeberNotiz=Weg 1"_s);
    ASSERT_NE(posten, nullptr);
    EXPECT_EQ(posten->postenNummer(), 4);
    EXPECT_EQ(posten->postenBezeichnung(), u"Acme  "_s);
    EXPECT_EQ(editor.neueEmpfaenger, 1);
    EXPECT_EQ(editor.dokument->empfaenger()->notiz(), u""_s);
    EXPECT_TRUE(presenter.alerts.isEmpty());
}

TEST_F(UrlImport, EmpfaengerNachNameOderFirmaInAngezeigterReihenfolgeGenauVerglichen)
{
    empfaenger(u"Bob"_s, u"Acme GmbH"_s);
    FKREmpfaenger *nachFirma = empfaenger({}, u"Acme"_s);
    empfaenger(u"Acme"_s, {});
    importiere(u"auftraggeber=Acme"_s);
    EXPECT_EQ(editor.dokument->empfaenger(), nachFirma);

    importiere(u"auftraggeber=acme&auftraggeberNotiz=Ringstr. 2%0A12345 Ort"_s);
    EXPECT_EQ(editor.neueEmpfaenger, 1);
    EXPECT_EQ(editor.dokument->empfaenger()->notiz(), u"Ringstr. 2\n12345 Ort"_s);

    // Without a client, with an empty one, or without a recipient list the recipient stays.
    FKREmpfaenger *vorher = editor.dokument->empfaenger();
    importiere(u"auftrag=Web"_s);
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
    for (const QString &url : {u""_s, u"kein url"_s, u"velmora://importrechnungsposten?auftrag=x"_s,
                               u"https://importRechnungsPosten?auftrag=x"_s, u"velmora:importRechnungsPosten?x"_s,
                               u"velmora://import Rechnungsposten?x"_s, u"velmora://importRechnungsPostenX"_s})
        import.handleGetUrlEvent(url);
    EXPECT_TRUE(presenter.alerts.isEmpty());
    for (const QString &url : {u"VelMora://importRechnungsPosten"_s, u"velmora://ich@importRechnungsPosten:80/p?auftrag=x#f"_s})
        import.handleGetUrlEvent(url);
    ASSERT_EQ(presenter.alerts.size(), 2);
    EXPECT_EQ(presenter.alerts[0].titelSchluessel, u"ALERT_TITLE_RECHNUNG_OEFFNEN_FUER_IMPORT"_s);
    EXPECT_EQ(presenter.alerts[0].textSchluessel, u"ALERT_TEXT_RECHNUNG_OEFFNEN_FUER_IMPORT"_s);
    EXPECT_EQ(presenter.alerts[0].knopfSchluessel, QStringList{u"BUTTON_TITLE_OK"_s});

    // An editor without a document: nothing at all.
    editorOffen = true;
    editor.dokument = nullptr;
    import.handleGetUrlEvent(u"velmora://importRechnungsPosten?auftraggeber=Acme"_s);
    EXPECT_EQ(presenter.alerts.size(), 2);
    EXPECT_EQ(moc.fetch<FKRPosten>().size(), 2);
    EXPECT_TRUE(moc.fetch<FKREmpfaenger>().isEmpty());
    EXPECT_EQ(speicherungen, 0);
}

TEST_F(UrlImport, AnfrageWirdEinmalDekodiertDannZerlegt)
{
    // An encoded "&" and "=" separate after decoding; the last occurrence wins; keys are
    // case-sensitive; values keep their blanks and "+".
    FKRPosten *posten = importiere(u"aufgabe=a%26auftraggeber%3DX&&auftrag=1&Auftrag=2&auftrag=%20b+c%20&x=9&startDatum=1.3. 10:00"_s);
    ASSERT_NE(posten, nullptr);
    EXPECT_EQ(posten->postenBezeichnung(), u"X  b+c  a"_s);
    EXPECT_EQ(posten->postenBeschreibung(), u"1.3. 10:00 - "_s);
    EXPECT_EQ(editor.dokument->empfaenger()->name(), u"X"_s);

    // A "%" that starts no escape stays as it is and leaves the other escapes working; bytes
    // that are not UTF-8 become replacement characters.
    posten = importiere(u"auftrag=100%zz%C3%A4&aufgabe=%FF&stopDatum=5%"_s);
    ASSERT_NE(posten, nullptr);
    EXPECT_EQ(posten->postenBezeichnung(), u" 100%zzä \uFFFD"_s);
    EXPECT_EQ(posten->postenBeschreibung(), u" - 5%"_s);
}

TEST_F(UrlImport, StundenUndBetraegeNieAbsturzNieNaNImPosten)
{
    struct Fall {
        const char *stunden, *ertraege;
        std::optional<Decimal> anzahl, einzelbetrag; // einzelbetrag nullopt: the new item's zero stays
    };
    const Decimal riesig = dec("1e41") / Decimal(3600);
    const Fall faelle[] = {
        {"5400.9", "120", dec("1.5"), dec("80")}, // cut to whole seconds
        {"-5400", "120", dec("-1.5"), dec("-80")},
        {"1,5", "120", {}, {}}, // "." only, whatever the locale
        {"abc", "120", {}, {}},
        {"5400", "viel", dec("1.5"), {}},
        {"0.5", "120", Decimal(), {}}, // under a second: 0 hours, no division
        {"1e40", "120", dec("1e40") / Decimal(3600), dec("120") / (dec("1e40") / Decimal(3600))},
        {"99999999999999999999999999999999999999999", "1", riesig, Decimal(1) / riesig},
        {"1e200", "120", {}, {}},                       // beyond any Decimal
        {"1", "9e164", Decimal(1) / Decimal(3600), {}}, // the quotient beyond any Decimal
    };
    for (const Fall &fall : faelle) {
        FKRPosten *posten = importiere(u"summeStunden=%1&summeErtraege=%2"_s.arg(QLatin1String(fall.stunden), QLatin1String(fall.ertraege)));
        ASSERT_NE(posten, nullptr) << fall.stunden;
        EXPECT_EQ(posten->anzahl(), fall.anzahl) << fall.stunden;
        EXPECT_EQ(posten->einzelbetrag(), fall.einzelbetrag.value_or(Decimal())) << fall.stunden << " " << fall.ertraege;
    }
}

class ImportImModell : public StoreFixture
{
};

TEST_F(ImportImModell, WendetDieRegelnAnUndFindetEmpfaengerUeberAlle)
{
    QString dokumentId;
    {
        OpenStore store(path);
        auto &moc = store.moc();
        auto *kunde = moc.insertNewObject<FKREmpfaenger>();
        kunde->setFirma(u"Acme"_s);
        auto *rechnung = moc.insertNewObject<FKRRechnung>();
        dokumentId = *rechnung->uniqueIdentifier();
        auto *posten = moc.insertNewObject<FKRPosten>();
        rechnung->addPostenObject(posten);
        posten->setzeImportPostenDetailsFuerWithQuery(
            u"auftraggeber=Acme&auftrag=Web&aufgabe=Layout&summeStunden=5400&summeErtraege=120&startDatum=a&stopDatum=b"_s,
            rechnung, moc.managedObjectModel(), moc);
        EXPECT_EQ(rechnung->empfaenger(), kunde);
        EXPECT_EQ(posten->postenBezeichnung(), u"Acme Web Layout"_s);
        EXPECT_EQ(posten->postenBeschreibung(), u"a - b"_s);

        // An unknown client is created with its note; a request without client leaves it.
        auto *zweiter = moc.insertNewObject<FKRPosten>();
        zweiter->setzeImportPostenDetailsFuerWithQuery(u"auftraggeber=Neu GmbH&auftraggeberNotiz=Weg 3"_s, rechnung,
                                                       moc.managedObjectModel(), moc);
        zweiter->setzeImportPostenDetailsFuerWithQuery(u"auftrag=Web"_s, rechnung, moc.managedObjectModel(), moc);
        save(moc);
    }
    OpenStore store(path);
    auto *rechnung = static_cast<FKRRechnung *>(store.byIdentifier(u"FKRRechnung"_s, dokumentId));
    ASSERT_TRUE(rechnung && rechnung->empfaenger());
    EXPECT_EQ(rechnung->empfaenger()->name(), u"Neu GmbH"_s);
    EXPECT_EQ(rechnung->empfaenger()->notiz(), u"Weg 3"_s);
    EXPECT_EQ(store.moc().fetch<FKREmpfaenger>().size(), 2);
    ASSERT_EQ(rechnung->posten().size(), 1);
    EXPECT_EQ(rechnung->posten().first()->einzelbetrag(), dec("80"));
}

} // namespace
