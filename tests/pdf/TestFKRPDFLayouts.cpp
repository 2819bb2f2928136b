// The three page layouts as a reader of their files sees them: where the sender's details stand
// (column, header bar, footer bar), what is left out for a sender with a letterhead, the logo in
// the space left free, the page numbers and where each layout breaks to a new page.
//
// A word box's top lies a fixed, font-dependent distance below the y its line was drawn at; each
// test measures that distance on a block the common layout fixes (the recipient at 6 cm in the
// body font, the sender line at 5 cm in the small print) and compares the rest with it.
#include "FKRAbsender.h"
#include "FKREmpfaenger.h"
#include "FKRLocalizationHelper.h"
#include "FKRPDFLayout.h"
#include "FKRPosten.h"
#include "WriterTestSupport.h"

#include <QFile>
#include <QTimeZone>
#include <QUrl>

using namespace Qt::Literals::StringLiterals;
using writertest::png;

namespace {

constexpr double kcm = 841.89 / 29.7;
constexpr double kSeitenBreite = 595.276;
constexpr double kSeitenHoehe = 841.89;
constexpr double kDpi = 144.0;
constexpr double kToleranzY = 0.1;
constexpr double kToleranzX = 0.5;
// The three blocks of the bars: width and left edges.
constexpr double kBlock = (kSeitenBreite - 5 * kcm) / 3 - 0.5 * kcm;
constexpr double kBlock1 = 2.5 * kcm, kBlock2 = kSeitenBreite / 2 - kBlock / 2, kBlock3 = kSeitenBreite - 2.5 * kcm - kBlock;
constexpr double kLuecke = (kBlock1 + kBlock + kBlock2) / 2;

QDateTime datum(int jahr, int monat, int tag)
{
    return QDateTime(QDate(jahr, monat, tag), QTime(10, 0), QTimeZone::systemTimeZone());
}

QString text(const char *schluessel, int sprache = 1)
{
    return FKRLocalizationHelper::lokalisierterText(QString::fromUtf8(schluessel), sprache);
}

QString tag(const QDateTime &wert, int sprache = 1)
{
    return FKRLocalizationHelper::lokalisiertesDatum(wert, DateStyle::Medium, DateStyle::None, sprache);
}

QString postenName(int i)
{
    return u"Posten%1"_s.arg(i, 2, 10, QLatin1Char('0'));
}

QList<double> striche(const PdfPruefung &pdf, double x, double y0, double y1)
{
    return PdfPruefung::striche(pdf.bild(1, kDpi), kDpi, x, y0, y1);
}

class PDFLayouts : public ::testing::Test
{
protected:
    void SetUp() override { QBBenutzerEinstellungen::sharedInstance()->setPdfDocumentSizeIsLetter(false); }
    void TearDown() override { QBBenutzerEinstellungen::sharedInstance()->setPdfDocumentSizeIsLetter(false); }

    // A German document to a customer, dated 14 March 2026, for February, due 28 March, from a
    // sender with every detail the bars and the column print (or none).
    FKRRechnung *dokument(int art, std::optional<int> layout, int anzahlPosten = 0, bool mitAbsender = true)
    {
        auto *r = m_context.insertNewObject<FKRRechnung>();
        r->setDokumentArt(Decimal(art));
        if (layout)
            r->setLayout(Decimal(*layout));
        r->setSprache(1);
        r->setRechnungsDatum(datum(2026, 3, 14));
        r->setLieferDatum(datum(2026, 2, 10));
        r->setFaelligkeitsDatum(datum(2026, 3, 28));
        r->setRechnungsNummer(u"Rechnung: 2026-017"_s);
        r->setMwStSatz(*Decimal::parse("0.19"));
        auto *kunde = m_context.insertNewObject<FKREmpfaenger>();
        kunde->setFirma(u"Kundenhaus"_s);
        kunde->setStrasse(u"Marktplatz 3"_s);
        kunde->setOrt(u"Kassel"_s);
        r->setEmpfaenger(kunde);
        for (int i = 1; i <= anzahlPosten; ++i) {
            auto *p = m_context.insertNewObject<FKRPosten>();
            p->setPostenNummer(i);
            p->setPostenBezeichnung(postenName(i));
            p->setPostenBeschreibung(u"Erläuterung"_s);
            p->setAnzahl(Decimal(1));
            p->setEinzelbetrag(Decimal(10));
            r->addPostenObject(p);
        }
        if (mitAbsender)
            writertest::vollerAbsender(m_context, *r);
        return r;
    }

    PdfPruefung rendere(FKRRechnung *r)
    {
        return writertest::rendere(*r, m_ordner.filePath(u"dokument-%1.pdf"_s.arg(++m_nummer)));
    }

    // The occurrence of `phrase` nearest to `top`; fails the test when there is none.
    static QRectF box(const PdfPruefung &pdf, int seite, const QString &phrase, double top = 0)
    {
        const auto gefunden = pdf.findeNahe(seite, phrase, top);
        EXPECT_TRUE(gefunden) << "missing: " << phrase.toStdString() << "\n" << pdf.text(seite).toStdString();
        return gefunden.value_or(QRectF());
    }

    // Height of one line of `font`, as the layouts advance.
    static double zeile(QFont FKRPDFLayout::*font)
    {
        static FKRPDFLayout messer;
        return messer.berechneTextBoxFuerString(u" "_s, messer.*font, {1000, 1000}).height();
    }

    QTemporaryDir m_ordner;
    ManagedObjectContext m_context;
    int m_nummer = 0;
};

TEST_F(PDFLayouts, EachLayoutSetsTheSendersDetailsInItsPlace)
{
    // Left edge and top of each line, from the column's or the bar's top: the sidebar column at
    // 15 cm from 1.5 cm with gaps of 0.4 cm between its groups and before the dates; the header
    // bar from 1 cm and the footer bar 0.2 cm under its rule at 3 cm above the bottom edge, each
    // in three blocks.
    const double L = zeile(&FKRPDFLayout::textFont), K = zeile(&FKRPDFLayout::faelligkeitsFont);
    const struct
    {
        int layout;
        QString phrase;
        double x, abstand;
    } faelle[] = {
        {1, u"Atelierwerk"_s, 15 * kcm, 0},
        {1, u"Mira Sommer"_s, 15 * kcm, L},
        {1, u"20457 Hamburg"_s, 15 * kcm, 3 * L},
        {1, u"Deutschland"_s, 15 * kcm, 4 * L},
        {1, u"post@atelierwerk.example"_s, 15 * kcm, 5 * L + 0.4 * kcm},
        {1, u"040-1234568"_s, 15 * kcm, 7 * L + 0.4 * kcm},
        {1, text("Ums.St.-ID") + u": DE123456789"_s, 15 * kcm, 8 * L + 0.8 * kcm},
        {1, text("Steuernr") + u": 22/333/44444"_s, 15 * kcm, 9 * L + 0.8 * kcm},
        {1, text("Bankverbindung"), 15 * kcm, 10 * L + 1.2 * kcm},
        {1, text("Institut") + u": Hafenbank"_s, 15 * kcm, 11 * L + 1.2 * kcm},
        {1, text("BIC") + u": BYLADEM1001"_s, 15 * kcm, 13 * L + 1.2 * kcm},
        {1, text("Rechnungs-Datum"), 15 * kcm, 14 * L + 2.0 * kcm},
        {1, tag(datum(2026, 3, 14)), 15 * kcm, 15 * L + 2.0 * kcm},
        {1, text("Leistungs-Datum"), 15 * kcm, 16 * L + 2.4 * kcm},
        {1, FKRLocalizationHelper::lokalisierterMonat(datum(2026, 2, 10), 1), 15 * kcm, 17 * L + 2.4 * kcm},
        {1, text("Fällig am"), 15 * kcm, 18 * L + 2.8 * kcm},
        {1, tag(datum(2026, 3, 28)), 15 * kcm, 19 * L + 2.8 * kcm},
        {2, u"Atelierwerk"_s, kBlock1, 0},
        {2, u"Deutschland"_s, kBlock1, 4 * K},
        {2, u"post@atelierwerk.example"_s, kBlock2, 0},
        {2, u"040-1234568"_s, kBlock2, 2 * K},
        {2, text("Ums.St.-ID") + u": DE123456789"_s, kBlock2, 3 * K + 0.2 * kcm},
        {2, text("Steuernr") + u": 22/333/44444"_s, kBlock2, 4 * K + 0.2 * kcm},
        {2, text("Bankverbindung"), kBlock3, 0},
        {2, text("BIC") + u": BYLADEM1001"_s, kBlock3, 3 * K},
        {3, u"Atelierwerk"_s, kBlock1, 0},
        {3, u"20457 Hamburg"_s, kBlock1, 3 * K},
        {3, u"post@atelierwerk.example"_s, kBlock2, 0},
        {3, text("Ums.St.-ID") + u": DE123456789"_s, kBlock2, 3 * K + 0.2 * kcm},
        {3, text("Bankverbindung"), kBlock3, 0},
        {3, text("IBAN") + u": DE02120300000000202051"_s, kBlock3, 2 * K},
    };
    std::map<int, PdfPruefung> pdfs;
    for (const int layout : {1, 2, 3})
        pdfs.emplace(layout, rendere(dokument(3, layout, 2)));
    const auto versatz = [&](int layout) {
        const PdfPruefung &pdf = pdfs.at(layout);
        return layout == 1 ? box(pdf, 1, u"Kundenhaus"_s).top() - 6 * kcm + 1.5 * kcm
                           : box(pdf, 1, u"Atelierwerk - Mira Sommer"_s).top() - 5 * kcm
                                 + (layout == 2 ? 1 * kcm : kSeitenHoehe - 3 * kcm + 0.2 * kcm);
    };
    for (const auto &fall : faelle) {
        SCOPED_TRACE(testing::Message() << "layout " << fall.layout << ": " << fall.phrase.toStdString());
        const double oben = versatz(fall.layout) + fall.abstand;
        const QRectF b = box(pdfs.at(fall.layout), 1, fall.phrase, oben);
        EXPECT_NEAR(b.left(), fall.x, kToleranzX);
        EXPECT_NEAR(b.top(), oben, kToleranzY);
        EXPECT_LE(b.right(), fall.layout == 1 ? 20.5 * kcm : fall.x + kBlock + kToleranzX);
    }

    const PdfPruefung &seitenleiste = pdfs.at(1);
    // The dates stand only in the column; a one-page document carries no page number.
    EXPECT_EQ(seitenleiste.findeAlle(1, text("Rechnungs-Datum")).size(), 1);
    EXPECT_FALSE(seitenleiste.text(1).contains(text("PDF_EXPORT_SEITENNUMMER").trimmed()));
    // Beside it a body of 12 cm: columns of 5.5, 2, 2 and 2.5 cm, labels 1 mm inside their edges.
    const double links = 2.5 * kcm;
    EXPECT_NEAR(box(seitenleiste, 1, text("Beschreibung")).left(), links + 0.1 * kcm, kToleranzX);
    EXPECT_NEAR(box(seitenleiste, 1, text("Anzahl")).right(), links + 7.4 * kcm, kToleranzX);
    EXPECT_NEAR(box(seitenleiste, 1, text("Betrag")).right(), links + 9.4 * kcm, kToleranzX);
    EXPECT_NEAR(box(seitenleiste, 1, text("Summe")).right(), links + 11.9 * kcm, kToleranzX);
    EXPECT_NEAR(box(seitenleiste, 1, u"Rechnung: 2026-017"_s).left(), links, kToleranzX);

    // The bars leave the common dates block on the right and draw a rule in the gap between the
    // first two blocks: the header bar's 0.2 cm below its lowest block, the footer bar's on top.
    const PdfPruefung &kopf = pdfs.at(2), &fuss = pdfs.at(3);
    EXPECT_NEAR(box(kopf, 1, text("Fällig am")).right(), 18.5 * kcm, kToleranzX);
    for (const auto &[pdf, y0, y1, linie] : {std::tuple(&kopf, 0.2 * kcm, 4.9 * kcm, 1 * kcm + 5 * K + 0.4 * kcm),
                                              std::tuple(&fuss, 25 * kcm, 29.5 * kcm, kSeitenHoehe - 3 * kcm)}) {
        const QList<double> linien = striche(*pdf, kLuecke, y0, y1);
        ASSERT_EQ(linien.size(), 1);
        EXPECT_NEAR(linien.first(), linie, 0.6);
    }
    // A stored layout of 4 is the footer bar, word for word.
    const PdfPruefung vier = rendere(dokument(3, 4, 2));
    ASSERT_EQ(vier.woerter(1).size(), fuss.woerter(1).size());
    for (qsizetype i = 0; i < fuss.woerter(1).size(); ++i) {
        EXPECT_EQ(vier.woerter(1)[i].text, fuss.woerter(1)[i].text);
        EXPECT_EQ(vier.woerter(1)[i].box, fuss.woerter(1)[i].box);
    }
}

TEST_F(PDFLayouts, OnlyWhatTheSenderHasIsPrinted)
{
    // An English dunning letter in the sidebar from a sender with a name and an IBAN only: the
    // gaps of the empty groups remain; the dunning date and the due date, no document date.
    FKRRechnung *mahnung = dokument(5, 1, 0, false);
    mahnung->setSprache(2);
    auto *a = m_context.insertNewObject<FKRAbsender>();
    a->setName(u"Mira Sommer"_s);
    a->setBankVerbindungIban(u"DE02120300000000202051"_s);
    mahnung->setAbsender(a);
    const PdfPruefung pdf = rendere(mahnung);
    const double L = zeile(&FKRPDFLayout::textFont);
    const double oben = box(pdf, 1, u"Kundenhaus"_s).top() - 4.5 * kcm;
    const std::pair<QString, double> spalte[] = {
        {u"Mira Sommer"_s, 0},
        {text("Bankverbindung", 2), L + 1.2 * kcm},
        {text("IBAN", 2) + u": DE02120300000000202051"_s, 2 * L + 1.2 * kcm},
        {text("Mahnungs-Datum", 2), 3 * L + 2.4 * kcm},
        {tag(datum(2026, 3, 14), 2), 4 * L + 2.4 * kcm},
        {text("Fällig am", 2), 5 * L + 2.8 * kcm},
    };
    for (const auto &[phrase, abstand] : spalte) {
        SCOPED_TRACE(phrase.toStdString());
        EXPECT_NEAR(box(pdf, 1, phrase, oben + abstand).top() - oben, abstand, kToleranzY);
    }
    const QString seite = pdf.text(1);
    for (const char *fehlt : {"Institut", "BIC", "Ums.St.-ID", "Steuernr"})
        EXPECT_FALSE(seite.contains(text(fehlt, 2) + u":"_s)) << fehlt;
    EXPECT_FALSE(seite.contains(text("Rechnungs-Datum", 2)));

    // Without a sender no column at all, and still the recipient and the body.
    const PdfPruefung ohne = rendere(dokument(3, std::nullopt, 0, false));
    EXPECT_FALSE(ohne.text(1).contains(text("Rechnungs-Datum")));
    EXPECT_TRUE(ohne.finde(1, u"Rechnung: 2026-017"_s));

    // The header bar of a sender with an address only: the rule 0.2 cm below it.
    FKRRechnung *r = dokument(1, 2, 0, false);
    a = m_context.insertNewObject<FKRAbsender>();
    a->setFirma(u"Atelierwerk"_s);
    a->setOrt(u"Hamburg"_s);
    r->setAbsender(a);
    const PdfPruefung kopf = rendere(r);
    const double K = zeile(&FKRPDFLayout::faelligkeitsFont);
    const double versatz = box(kopf, 1, u"Atelierwerk - Hamburg"_s).top() - 5 * kcm;
    EXPECT_NEAR(box(kopf, 1, u"Hamburg"_s, versatz + 1 * kcm + K).top() - versatz, 1 * kcm + K, kToleranzY);
    for (const char *fehlt : {"Ums.St.-ID", "Steuernr", "Bankverbindung"})
        EXPECT_FALSE(kopf.text(1).contains(text(fehlt))) << fehlt;
    const QList<double> linien = striche(kopf, 7.7 * kcm, 0.2 * kcm, 4.9 * kcm);
    ASSERT_EQ(linien.size(), 1);
    EXPECT_NEAR(linien.first(), 1 * kcm + 2 * K + 0.2 * kcm, 0.6);
}

TEST_F(PDFLayouts, ALetterheadReplacesTheSendersDetailsLogoAndRules)
{
    for (const int layout : {1, 2, 3}) {
        SCOPED_TRACE(testing::Message() << "layout " << layout);
        FKRRechnung *r = dokument(2, layout);
        // Paper that is not printed, or cannot even be read, counts all the same.
        if (layout == 2)
            r->absender()->setGeschaeftspapierImagePath(u"file:///nicht/vorhanden.png"_s);
        else
            r->absender()->setGeschaeftspapierImageBinary(png({10, 10}, Qt::white));
        r->absender()->setGeschaeftspapierDrucken(layout == 3);
        r->absender()->setLogoImageBinary(png({120, 60}, Qt::red));
        const PdfPruefung pdf = rendere(r);
        const QString seite = pdf.text(1);
        for (const QString &fehlt : {u"Atelierwerk"_s, u"Hafenweg"_s, u"DE123456789"_s, u"DE02120300000000202051"_s})
            EXPECT_FALSE(seite.contains(fehlt)) << fehlt.toStdString();
        const QImage bild = pdf.bild(1, kDpi);
        EXPECT_FALSE(PdfPruefung::flaeche(bild, kDpi, Qt::red, 40).isValid()) << "no logo on letterhead paper";
        EXPECT_TRUE(PdfPruefung::striche(bild, kDpi, kLuecke, 0.2 * kcm, 4.9 * kcm).isEmpty());
        EXPECT_TRUE(PdfPruefung::striche(bild, kDpi, kLuecke, 25 * kcm, 29.5 * kcm).isEmpty());
        if (layout != 1)
            continue;
        // The sidebar's quote dates right-aligned where the 12 cm body ends, from 5 cm.
        const double L = zeile(&FKRPDFLayout::textFont);
        const double versatz = box(pdf, 1, u"Kundenhaus"_s).top() - 6 * kcm;
        const std::pair<QString, double> daten[] = {
            {text("Angebots-Datum"), 0},
            {tag(datum(2026, 3, 14)), L},
            {text("Gültig bis"), 2 * L + 0.8 * kcm},
            {tag(datum(2026, 3, 28)), 3 * L + 0.8 * kcm},
        };
        for (const auto &[phrase, abstand] : daten) {
            SCOPED_TRACE(phrase.toStdString());
            const QRectF b = box(pdf, 1, phrase, versatz + 5 * kcm + abstand);
            EXPECT_NEAR(b.right(), 14.5 * kcm, kToleranzX);
            EXPECT_NEAR(b.top() - versatz, 5 * kcm + abstand, kToleranzY);
        }
    }
}

TEST_F(PDFLayouts, LongDocumentsAreNumberedPrintTheLetterheadAndBreakAtTheLayoutsLimit)
{
    // The sidebar numbers page 1 0.4 cm under the column's last date, page 2 at 4.5 cm, and
    // repeats nothing else of the column.
    const PdfPruefung pdf = rendere(dokument(3, std::nullopt, 30));
    ASSERT_EQ(pdf.seitenAnzahl(), 2);
    const double L = zeile(&FKRPDFLayout::textFont);
    const double versatz = box(pdf, 1, u"Kundenhaus"_s).top() - 6 * kcm;
    const QString seite = text("PDF_EXPORT_SEITENNUMMER");
    for (const auto &[nummer, oben] : {std::pair(1, 1.5 * kcm + 20 * L + 3.2 * kcm), std::pair(2, 4.5 * kcm)}) {
        const QRectF b = box(pdf, nummer, seite + QString::number(nummer));
        EXPECT_NEAR(b.left(), 15 * kcm, kToleranzX);
        EXPECT_NEAR(b.top() - versatz, oben, kToleranzY);
    }
    EXPECT_FALSE(pdf.text(2).contains(u"Atelierwerk"_s));

    // A letterhead that is printed stands on every page, one that is not on none.
    for (const bool drucken : {true, false}) {
        FKRRechnung *r = dokument(3, 3, 40);
        r->absender()->setGeschaeftspapierImageBinary(png({40, 40}, Qt::blue));
        r->absender()->setGeschaeftspapierDrucken(drucken);
        const PdfPruefung lang = rendere(r);
        ASSERT_GE(lang.seitenAnzahl(), 2);
        for (int nummer = 1; nummer <= lang.seitenAnzahl(); ++nummer)
            EXPECT_EQ(PdfPruefung::flaeche(lang.bild(nummer, kDpi), kDpi, Qt::blue, 40).isValid(), drucken) << nummer;
    }

    // The header bar breaks at the common limit, 4 cm above the bottom edge, the footer bar 0.5 cm
    // above its bar. The last row on page 1 fits under the limit, the next would not have; it
    // goes on at 5 cm. An introductory text of one to three lines moves the rows by less than the
    // half centimetre between the limits, so one of them must use the footer bar's extra room.
    static FKRPDFLayout messer;
    const double zeilenHoehe =
        messer.berechneTextBoxFuerString(u"Posten01\nErläuterung"_s, messer.textFont, {16 * kcm, 1000}).height();
    const auto pruefe = [&](int layout, double grenze, int textZeilen) -> double {
        SCOPED_TRACE(testing::Message() << "layout " << layout << ", text lines " << textZeilen);
        FKRRechnung *r = dokument(3, layout, 40);
        if (textZeilen > 0)
            r->setRechnungsText(QStringList(textZeilen, u"Einleitung"_s).join(QLatin1Char('\n')));
        const PdfPruefung lang = rendere(r);
        int letzte = 0;
        while (letzte < 40 && lang.finde(1, postenName(letzte + 1)))
            ++letzte;
        if (lang.seitenAnzahl() < 2 || letzte == 0) {
            ADD_FAILURE() << "no break";
            return 0;
        }
        // A row starts 1 mm above its designation.
        const double fett = box(lang, 1, u"Rechnung: 2026-017"_s).top() - 9.5 * kcm + 0.1 * kcm;
        const double zeileOben = box(lang, 1, postenName(letzte)).top() - fett;
        EXPECT_LE(zeileOben + zeilenHoehe, grenze + kToleranzY);
        EXPECT_GT(zeileOben + 0.1 * kcm + 2 * zeilenHoehe, grenze - kToleranzY);
        EXPECT_NEAR(box(lang, 2, postenName(letzte + 1)).top() - fett, 5 * kcm, kToleranzY);
        return zeileOben + zeilenHoehe;
    };
    const double allgemein = kSeitenHoehe - 4 * kcm;
    pruefe(2, allgemein, 0);
    bool tiefer = false;
    for (int textZeilen = 1; textZeilen <= 3; ++textZeilen)
        tiefer = pruefe(3, kSeitenHoehe - 3.5 * kcm, textZeilen) > allgemein + kToleranzY || tiefer;
    EXPECT_TRUE(tiefer);
}


TEST_F(PDFLayouts, ALogoIsFittedIntoTheFreeSpaceAndCoversNoText)
{
    // The free space: from the left margin to half a centimetre before the column (sidebar) or
    // to the right margin (footer bar), from 1.5 cm to half a centimetre above the sender line
    // and the dates at 5 cm. The header bar prints no logo.
    const struct
    {
        const char *form;
        QByteArray bild;
        QSizeF groesse;
        bool alsDatei = false;
    } logos[] = {
        {"wide", png({400, 120}, Qt::red), {400, 120}},
        {"square", png({300, 300}, Qt::red), {300, 300}},
        {"tall", png({100, 400}, Qt::red), {100, 400}},
        {"banner", png({1000, 50}, Qt::red), {1000, 50}},
        {"transparent", writertest::rahmenPng({260, 160}, Qt::red), {260, 160}},
        {"small", png({60, 30}, Qt::red), {60, 30}},
        {"wide, from a file", png({400, 120}, Qt::red), {400, 120}, true},
    };
    for (const bool letter : {false, true}) {
        QBBenutzerEinstellungen::sharedInstance()->setPdfDocumentSizeIsLetter(letter);
        const double cm = letter ? 792.0 / 27.9 : kcm, breite = letter ? 612.0 : kSeitenBreite;
        const std::pair<int, std::optional<QRectF>> layouts[] = {
            {1, QRectF(QPointF(2.5 * cm, 1.5 * cm), QPointF(14.5 * cm, 4.5 * cm))},
            {2, std::nullopt},
            {3, QRectF(QPointF(2.5 * cm, 1.5 * cm), QPointF(breite - 2.5 * cm, 4.5 * cm))},
        };
        for (const auto &[layout, raum] : layouts) {
            FKRRechnung *r = dokument(3, layout, 2);
            FKRAbsender *a = r->absender();
            a->setStrasse(u"Hafenweg 12, Hinterhaus, Aufgang C, dritter Stock links"_s);
            const PdfPruefung ohne = rendere(r);
            for (const auto &logo : logos) {
                SCOPED_TRACE(testing::Message() << "layout " << layout << (letter ? ", Letter, " : ", A4, ") << logo.form);
                if (logo.alsDatei) {
                    QFile datei(m_ordner.filePath(u"logo.png"_s));
                    ASSERT_TRUE(datei.open(QIODevice::WriteOnly) && datei.write(logo.bild) == logo.bild.size());
                    datei.close();
                    a->setLogoImageBinary(std::nullopt);
                    a->setLogoImagePath(QUrl::fromLocalFile(datei.fileName()).toString());
                } else {
                    a->setLogoImageBinary(logo.bild);
                }
                const PdfPruefung pdf = rendere(r);
                // Every word stands where it stands without a logo.
                const QList<PdfPruefung::Wort> &woerter = pdf.woerter(1);
                ASSERT_EQ(woerter.size(), ohne.woerter(1).size());
                for (qsizetype i = 0; i < woerter.size(); ++i) {
                    EXPECT_EQ(woerter[i].text, ohne.woerter(1)[i].text);
                    EXPECT_EQ(woerter[i].box, ohne.woerter(1)[i].box) << woerter[i].text.toStdString();
                }
                const QList<QRectF> bilder = pdf.bilder(1);
                ASSERT_EQ(bilder.size(), raum ? 1 : 0);
                if (!raum)
                    continue;
                const QRectF box = bilder.first();
                for (const PdfPruefung::Wort &wort : woerter)
                    EXPECT_FALSE(wort.box.intersects(box)) << wort.text.toStdString();
                // Right-aligned at the space's top, in its own proportions, never enlarged, and
                // scaled down only as far as the space demands.
                EXPECT_GE(box.left(), raum->left() - 1);
                EXPECT_NEAR(box.right(), raum->right(), 1);
                EXPECT_NEAR(box.top(), raum->top(), 1);
                EXPECT_LE(box.bottom(), raum->bottom() + 1);
                const double massstab = box.width() / logo.groesse.width();
                EXPECT_NEAR(box.height(), logo.groesse.height() * massstab, 1.5);
                EXPECT_LE(massstab, 1.0 + 1 / logo.groesse.width());
                if (massstab < 0.99) {
                    EXPECT_TRUE(std::abs(box.left() - raum->left()) < 1 || std::abs(box.bottom() - raum->bottom()) < 1);
                }
                // The converter's box is where the page shows the picture.
                if (QImage::fromData(logo.bild).hasAlphaChannel()) {
                    const QRectF gerendert = PdfPruefung::flaeche(pdf.bild(1, kDpi), kDpi, Qt::red, 40);
                    EXPECT_LE((gerendert.topLeft() - box.topLeft()).manhattanLength(), 2);
                    EXPECT_LE((gerendert.bottomRight() - box.bottomRight()).manhattanLength(), 2);
                }
            }
        }
    }
}

} // namespace
