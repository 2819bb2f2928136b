// The three page layouts as a reader of their files sees them: where the sender's details stand
// (column, header bar, footer bar), what is left out for a sender with a letterhead, the logo in
// the space left free, the narrowed body of the sidebar, the page numbers and where each layout
// breaks to a new page.
//
// Text positions come from the extractor's word boxes. A box's top is the top of the font's
// glyph box, a fixed distance below the y at which a line was drawn that depends only on the
// font; each test therefore measures that distance on a block whose y the common layout fixes
// (the recipient at 6 cm, the sender line at 5 cm, the number at 9.5 cm, all in the same font
// and size as the block under test) and compares the rest with it to a tenth of a point.
#include "FKRAbsender.h"
#include "FKREmpfaenger.h"
#include "FKRLocalizationHelper.h"
#include "FKRPDFFussleisteLayout.h"
#include "FKRPDFKopfleisteLayout.h"
#include "FKRPDFLayout.h"
#include "FKRPDFSeitenleisteLayout.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "ManagedObjectContext.h"
#include "PdfPruefung.h"
#include "QBBenutzerEinstellungen.h"
#include "WriterTestSupport.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTimeZone>
#include <QUrl>
#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double kcm = 841.89 / 29.7;
constexpr double kSeitenBreite = 595.276;
constexpr double kSeitenHoehe = 841.89;
constexpr double kDpi = 144.0;
// Drawn y against read-back y, once the font's offset is taken out.
constexpr double kToleranzY = 0.1;
// Left or right edge of a word against the x it was drawn at.
constexpr double kToleranzX = 0.5;

Decimal d(const char *text)
{
    return *Decimal::parse(text);
}

QDateTime datum(int jahr, int monat, int tag)
{
    return QDateTime(QDate(jahr, monat, tag), QTime(10, 0), QTimeZone::systemTimeZone());
}

// Plain-colour PNGs at 72 dpi, so one pixel is one point on paper.
using writertest::png;

// Bounding box in points of the pixels close to `farbe`.
QRectF flaeche(const QImage &bild, QColor farbe)
{
    int links = bild.width(), oben = bild.height(), rechts = -1, unten = -1;
    for (int y = 0; y < bild.height(); ++y)
        for (int x = 0; x < bild.width(); ++x) {
            const QRgb p = bild.pixel(x, y);
            if (std::abs(qRed(p) - farbe.red()) < 40 && std::abs(qGreen(p) - farbe.green()) < 40
                && std::abs(qBlue(p) - farbe.blue()) < 40) {
                links = std::min(links, x), rechts = std::max(rechts, x);
                oben = std::min(oben, y), unten = std::max(unten, y);
            }
        }
    if (rechts < 0)
        return {};
    const double f = 72.0 / kDpi;
    return QRectF(QPointF(links * f, oben * f), QPointF((rechts + 1) * f, (unten + 1) * f));
}

// The y (points) of the centres of the horizontal strokes that cross the pixel column at x
// between y0 and y1; a stroke is a run of non-white pixels.
QList<double> striche(const QImage &bild, double x, double y0, double y1)
{
    const double f = kDpi / 72.0;
    QList<double> mitten;
    int beginn = -1;
    for (int py = int(y0 * f); py <= int(y1 * f); ++py) {
        const QRgb p = bild.pixel(int(x * f), py);
        const bool tinte = std::min({qRed(p), qGreen(p), qBlue(p)}) < 235;
        if (tinte && beginn < 0)
            beginn = py;
        if (!tinte && beginn >= 0) {
            mitten << (beginn + py) / 2.0 / f;
            beginn = -1;
        }
    }
    return mitten;
}

class PDFLayouts : public ::testing::Test
{
protected:
    void SetUp() override { QBBenutzerEinstellungen::sharedInstance()->setPdfDocumentSizeIsLetter(false); }
    void TearDown() override { QBBenutzerEinstellungen::sharedInstance()->setPdfDocumentSizeIsLetter(false); }

    // An invoice in German to a customer, dated 14 March 2026, for February, due 28 March.
    FKRRechnung *dokument(int art, std::optional<int> layout)
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
        r->setRabatt(Decimal(0));
        r->setZuschlag(Decimal(0));
        r->setSkonto(Decimal(0));
        r->setMwStSatz(d("0.19"));
        auto *kunde = m_context.insertNewObject<FKREmpfaenger>();
        kunde->setFirma(u"Kundenhaus"_s);
        kunde->setStrasse(u"Marktplatz 3"_s);
        kunde->setOrt(u"Kassel"_s);
        r->setEmpfaenger(kunde);
        return r;
    }

    FKRAbsender *absender(FKRRechnung *r)
    {
        auto *a = m_context.insertNewObject<FKRAbsender>();
        r->setAbsender(a);
        return a;
    }

    // A sender with every detail the bars and the column print.
    FKRAbsender *vollerAbsender(FKRRechnung *r)
    {
        FKRAbsender *a = absender(r);
        a->setFirma(u"Atelierwerk"_s);
        a->setName(u"Mira Sommer"_s);
        a->setStrasse(u"Hafenweg 12"_s);
        a->setPlz(u"20457"_s);
        a->setOrt(u"Hamburg"_s);
        a->setLand(u"Deutschland"_s);
        a->setEmailAdresse(u"post@atelierwerk.example"_s);
        a->setTelefonNummer(u"040-1234567"_s);
        a->setFaxNummer(u"040-1234568"_s);
        a->setUmsatzsteuerId(u"DE123456789"_s);
        a->setSteuerNummer(u"22/333/44444"_s);
        a->setBankVerbindungInstitut(u"Hafenbank"_s);
        a->setBankVerbindungIban(u"DE02120300000000202051"_s);
        a->setBankVerbindungBic(u"BYLADEM1001"_s);
        return a;
    }

    void posten(FKRRechnung *r, int anzahl)
    {
        for (int i = 1; i <= anzahl; ++i) {
            auto *p = m_context.insertNewObject<FKRPosten>();
            p->setPostenNummer(i);
            p->setPostenBezeichnung(u"Posten%1"_s.arg(i, 2, 10, QLatin1Char('0')));
            p->setPostenBeschreibung(u"Erläuterung"_s);
            p->setAnzahl(Decimal(1));
            p->setEinzelbetrag(d("10"));
            r->addPostenObject(p);
        }
    }

    PdfPruefung rendere(FKRRechnung *r, const QString &name)
    {
        const QString pfad = m_ordner.filePath(name);
        FKRPDFLayout &layout = FKRPDFLayout::fuerRechnung(*r);
        layout.erstellePDFDateiImPfad(pfad, *r);
        EXPECT_TRUE(layout.letzteDateiGeschrieben()) << layout.letzterSchreibFehler().toStdString();
        PdfPruefung pdf(pfad);
        EXPECT_TRUE(pdf.gelesen()) << pdf.fehler().toStdString();
        return pdf;
    }

    // Box of `phrase` on the page; fails the test when it is missing.
    static QRectF box(const PdfPruefung &pdf, int seite, const QString &phrase)
    {
        const auto gefunden = pdf.finde(seite, phrase);
        EXPECT_TRUE(gefunden.has_value()) << "missing: " << phrase.toStdString() << "\n"
                                          << pdf.text(seite).toStdString();
        return gefunden.value_or(QRectF());
    }

    // The occurrence of `phrase` whose top is nearest to `top` (the sender's details also stand
    // in the sender line above the recipient); fails the test when there is none.
    static QRectF nahe(const PdfPruefung &pdf, int seite, const QString &phrase, double top)
    {
        const QList<QRectF> alle = pdf.findeAlle(seite, phrase);
        EXPECT_FALSE(alle.isEmpty()) << "missing: " << phrase.toStdString() << "\n" << pdf.text(seite).toStdString();
        QRectF naechste;
        for (const QRectF &b : alle)
            if (naechste.isNull() || std::abs(b.top() - top) < std::abs(naechste.top() - top))
                naechste = b;
        return naechste;
    }

    // A layout object for measuring, as the documents are measured.
    static FKRPDFLayout &messer()
    {
        static FKRPDFLayout layout;
        return layout;
    }

    // Height of one line of `font`, as the layouts advance.
    static double zeile(const QFont &font)
    {
        return messer().berechneTextBoxFuerString(u" "_s, font, {1000, 1000}).height();
    }

    static QString text(const char *schluessel, int sprache = 1)
    {
        return FKRLocalizationHelper::lokalisierterText(QString::fromUtf8(schluessel), sprache);
    }
    static QString tag(const QDateTime &wert, int sprache = 1)
    {
        return FKRLocalizationHelper::lokalisiertesDatum(wert, DateStyle::Medium, DateStyle::None, sprache);
    }

    QTemporaryDir m_ordner;
    ManagedObjectContext m_context;
};

TEST_F(PDFLayouts, SidebarColumnHoldsTheSendersDetailsAndDatesBesideANarrowBody)
{
    FKRRechnung *r = dokument(3, std::nullopt);
    vollerAbsender(r);
    posten(r, 2);
    const PdfPruefung pdf = rendere(r, u"seitenleiste.pdf"_s);
    ASSERT_EQ(pdf.seitenAnzahl(), 1);

    const double L = zeile(messer().textFont);
    const double versatz = box(pdf, 1, u"Kundenhaus"_s).top() - 6 * kcm;
    // Each line of the column at 15 cm, from 1.5 cm down, with a gap of 0.4 cm between the
    // groups and 0.8 cm before the dates.
    const QList<std::pair<QString, double>> spalte = {
        {u"Atelierwerk"_s, 0},
        {u"Mira Sommer"_s, L},
        {u"Hafenweg 12"_s, 2 * L},
        {u"20457 Hamburg"_s, 3 * L},
        {u"Deutschland"_s, 4 * L},
        {u"post@atelierwerk.example"_s, 5 * L + 0.4 * kcm},
        {u"040-1234568"_s, 7 * L + 0.4 * kcm},
        {text("Ums.St.-ID") + u": DE123456789"_s, 8 * L + 0.8 * kcm},
        {text("Steuernr") + u": 22/333/44444"_s, 9 * L + 0.8 * kcm},
        {text("Bankverbindung"), 10 * L + 1.2 * kcm},
        {text("Institut") + u": Hafenbank"_s, 11 * L + 1.2 * kcm},
        {text("IBAN") + u": DE02120300000000202051"_s, 12 * L + 1.2 * kcm},
        {text("BIC") + u": BYLADEM1001"_s, 13 * L + 1.2 * kcm},
        {text("Rechnungs-Datum"), 14 * L + 2.0 * kcm},
        {tag(datum(2026, 3, 14)), 15 * L + 2.0 * kcm},
        {text("Leistungs-Datum"), 16 * L + 2.4 * kcm},
        {FKRLocalizationHelper::lokalisierterMonat(datum(2026, 2, 10), 1), 17 * L + 2.4 * kcm},
        {text("Fällig am"), 18 * L + 2.8 * kcm},
        {tag(datum(2026, 3, 28)), 19 * L + 2.8 * kcm},
    };
    for (const auto &[phrase, abstand] : spalte) {
        SCOPED_TRACE(phrase.toStdString());
        const QRectF b = nahe(pdf, 1, phrase, versatz + 1.5 * kcm + abstand);
        EXPECT_NEAR(b.left(), 15 * kcm, kToleranzX);
        EXPECT_NEAR(b.top() - versatz, 1.5 * kcm + abstand, kToleranzY);
        EXPECT_LE(b.right(), 20.5 * kcm);
    }
    // The dates stand only in the column, not in the common dates block on the right.
    EXPECT_EQ(pdf.findeAlle(1, text("Rechnungs-Datum")).size(), 1);
    EXPECT_EQ(pdf.findeAlle(1, text("Fällig am")).size(), 1);
    // A one-page document carries no page number.
    EXPECT_FALSE(pdf.text(1).contains(text("PDF_EXPORT_SEITENNUMMER").trimmed()));

    // The body is 12 cm wide: the table's columns are 5.5, 2, 2 and 2.5 cm, their labels
    // right-aligned 1 mm inside each column's right edge.
    const double links = 2.5 * kcm;
    EXPECT_NEAR(box(pdf, 1, text("Beschreibung")).left(), links + 0.1 * kcm, kToleranzX);
    EXPECT_NEAR(box(pdf, 1, text("Anzahl")).right(), links + 7.5 * kcm - 0.1 * kcm, kToleranzX);
    EXPECT_NEAR(box(pdf, 1, text("Betrag")).right(), links + 9.5 * kcm - 0.1 * kcm, kToleranzX);
    EXPECT_NEAR(box(pdf, 1, text("Summe")).right(), links + 12 * kcm - 0.1 * kcm, kToleranzX);
    EXPECT_NEAR(box(pdf, 1, u"Rechnung: 2026-017"_s).left(), links, kToleranzX);
}

TEST_F(PDFLayouts, SidebarPrintsOnlyWhatTheSenderHas)
{
    // A dunning letter in English from a sender with a name and an IBAN only.
    FKRRechnung *mahnung = dokument(5, 1);
    mahnung->setSprache(2);
    FKRAbsender *a = absender(mahnung);
    a->setName(u"Mira Sommer"_s);
    a->setBankVerbindungIban(u"DE02120300000000202051"_s);
    const PdfPruefung pdf = rendere(mahnung, u"nur-iban.pdf"_s);
    const double L = zeile(messer().textFont);
    const double oben = box(pdf, 1, u"Kundenhaus"_s).top() - 6 * kcm + 1.5 * kcm;
    EXPECT_NEAR(nahe(pdf, 1, u"Mira Sommer"_s, oben).top(), oben, kToleranzY);
    // No contact or tax lines: the gaps of the empty groups remain.
    EXPECT_NEAR(box(pdf, 1, text("Bankverbindung", 2)).top() - oben, L + 1.2 * kcm, kToleranzY);
    EXPECT_NEAR(box(pdf, 1, text("IBAN", 2) + u": DE02120300000000202051"_s).top() - oben, 2 * L + 1.2 * kcm,
                kToleranzY);
    const QString seite = pdf.text(1);
    for (const char *fehlt : {"Institut", "BIC", "Ums.St.-ID", "Steuernr"})
        EXPECT_FALSE(seite.contains(text(fehlt, 2) + u":"_s)) << fehlt;
    // The dunning letter's dates: no document date, the dunning date and the due date.
    EXPECT_NEAR(box(pdf, 1, text("Mahnungs-Datum", 2)).top() - oben, 3 * L + 2.4 * kcm, kToleranzY);
    EXPECT_NEAR(nahe(pdf, 1, tag(datum(2026, 3, 14), 2), oben + 4 * L + 2.4 * kcm).top() - oben, 4 * L + 2.4 * kcm,
                kToleranzY);
    EXPECT_NEAR(box(pdf, 1, text("Fällig am", 2)).top() - oben, 5 * L + 2.8 * kcm, kToleranzY);
    EXPECT_NEAR(nahe(pdf, 1, tag(datum(2026, 3, 28), 2), oben + 6 * L + 2.8 * kcm).left(), 15 * kcm, kToleranzX);
    EXPECT_FALSE(seite.contains(text("Rechnungs-Datum", 2)));

    // A document without a sender has no column at all, and still its recipient and body.
    FKRRechnung *ohne = dokument(3, std::nullopt);
    const PdfPruefung leer = rendere(ohne, u"ohne-absender.pdf"_s);
    EXPECT_FALSE(leer.text(1).contains(text("Rechnungs-Datum")));
    EXPECT_TRUE(leer.finde(1, u"Kundenhaus"_s).has_value());
    EXPECT_TRUE(leer.finde(1, u"Rechnung: 2026-017"_s).has_value());
}

TEST_F(PDFLayouts, SidebarWithLetterheadPrintsOnlyTheDatesBesideTheBody)
{
    FKRRechnung *r = dokument(2, std::nullopt);
    FKRAbsender *a = vollerAbsender(r);
    a->setGeschaeftspapierImageBinary(png({10, 10}, Qt::white));
    a->setGeschaeftspapierDrucken(false);
    a->setLogoImageBinary(png({120, 60}, Qt::red));
    const PdfPruefung pdf = rendere(r, u"briefpapier.pdf"_s);

    const QString seite = pdf.text(1);
    for (const QString &fehlt : {u"Atelierwerk"_s, u"Hafenweg"_s, u"DE123456789"_s, u"DE02120300000000202051"_s,
                                 text("Bankverbindung")})
        EXPECT_FALSE(seite.contains(fehlt)) << fehlt.toStdString();
    EXPECT_FALSE(flaeche(pdf.bild(1, kDpi), Qt::red).isValid()) << "no logo on letterhead paper";

    // The quote's dates right-aligned in a block ending where the 12 cm body ends, from 5 cm.
    const double L = zeile(messer().textFont);
    const double versatz = box(pdf, 1, u"Kundenhaus"_s).top() - 6 * kcm;
    const QList<std::pair<QString, double>> daten = {
        {text("Angebots-Datum"), 0},
        {tag(datum(2026, 3, 14)), L},
        {text("Gültig bis"), 2 * L + 0.8 * kcm},
        {tag(datum(2026, 3, 28)), 3 * L + 0.8 * kcm},
    };
    for (const auto &[phrase, abstand] : daten) {
        SCOPED_TRACE(phrase.toStdString());
        const QRectF b = nahe(pdf, 1, phrase, versatz + 5 * kcm + abstand);
        EXPECT_NEAR(b.right(), 14.5 * kcm, kToleranzX);
        EXPECT_NEAR(b.top() - versatz, 5 * kcm + abstand, kToleranzY);
    }
}

TEST_F(PDFLayouts, SidebarNumbersItsPagesInTheColumn)
{
    FKRRechnung *r = dokument(3, std::nullopt);
    vollerAbsender(r);
    posten(r, 30);
    const PdfPruefung pdf = rendere(r, u"zwei-seiten.pdf"_s);
    ASSERT_EQ(pdf.seitenAnzahl(), 2);
    const double L = zeile(messer().textFont);
    const double versatz = box(pdf, 1, u"Kundenhaus"_s).top() - 6 * kcm;
    const QString seite = text("PDF_EXPORT_SEITENNUMMER");

    // Page 1: 0.4 cm under the last date of the column. Page 2: at 4.5 cm, also in the column.
    const QRectF eins = box(pdf, 1, seite + u"1"_s);
    EXPECT_NEAR(eins.left(), 15 * kcm, kToleranzX);
    EXPECT_NEAR(eins.top() - versatz, 1.5 * kcm + 20 * L + 3.2 * kcm, kToleranzY);
    const QRectF zwei = box(pdf, 2, seite + u"2"_s);
    EXPECT_NEAR(zwei.left(), 15 * kcm, kToleranzX);
    EXPECT_NEAR(zwei.top() - versatz, 4.5 * kcm, kToleranzY);
    // Nothing else of the column is repeated on page 2.
    EXPECT_FALSE(pdf.text(2).contains(u"Atelierwerk"_s));
}

TEST_F(PDFLayouts, HeaderBarSetsTheSenderInThreeBlocksAboveARule)
{
    FKRRechnung *r = dokument(3, 2);
    vollerAbsender(r);
    const PdfPruefung pdf = rendere(r, u"kopfleiste.pdf"_s);

    const double L = zeile(messer().faelligkeitsFont);
    // The sender line above the recipient is drawn in the same small print at 5 cm.
    const double versatz = box(pdf, 1, u"Atelierwerk - Mira Sommer"_s).top() - 5 * kcm;
    const double w = (kSeitenBreite - 5 * kcm) / 3 - 0.5 * kcm;
    EXPECT_NEAR(w, 4.83 * kcm, 0.01 * kcm);
    const double x1 = 2.5 * kcm, x2 = kSeitenBreite / 2 - w / 2, x3 = kSeitenBreite - 2.5 * kcm - w;
    const QList<std::tuple<QString, double, double>> bloecke = {
        {u"Atelierwerk"_s, x1, 0},
        {u"Deutschland"_s, x1, 4 * L},
        {u"post@atelierwerk.example"_s, x2, 0},
        {u"040-1234568"_s, x2, 2 * L},
        {text("Ums.St.-ID") + u": DE123456789"_s, x2, 3 * L + 0.2 * kcm},
        {text("Steuernr") + u": 22/333/44444"_s, x2, 4 * L + 0.2 * kcm},
        {text("Bankverbindung"), x3, 0},
        {text("BIC") + u": BYLADEM1001"_s, x3, 3 * L},
    };
    for (const auto &[phrase, x, abstand] : bloecke) {
        SCOPED_TRACE(phrase.toStdString());
        const QRectF b = nahe(pdf, 1, phrase, versatz + 1 * kcm + abstand);
        EXPECT_NEAR(b.left(), x, kToleranzX);
        EXPECT_NEAR(b.top() - versatz, 1 * kcm + abstand, kToleranzY);
        EXPECT_LE(b.right(), x + w + kToleranzX);
    }
    // The common dates block on the right, full-width body, no logo.
    EXPECT_NEAR(box(pdf, 1, text("Rechnungs-Datum")).right(), 18.5 * kcm, kToleranzX);
    EXPECT_NEAR(box(pdf, 1, text("Fällig am")).right(), 18.5 * kcm, kToleranzX);

    // The rule 0.2 cm below the lowest block (block 2: five lines and the gap), in the gap
    // between blocks 1 and 2.
    const QImage bild = pdf.bild(1, kDpi);
    const double luecke = (x1 + w + x2) / 2;
    const QList<double> linien = striche(bild, luecke, 0.2 * kcm, 4.9 * kcm);
    ASSERT_EQ(linien.size(), 1);
    EXPECT_NEAR(linien.first(), 1 * kcm + 5 * L + 0.4 * kcm, 0.6);
}

TEST_F(PDFLayouts, HeaderBarLeavesOutWhatTheSenderLacks)
{
    // Only an address: blocks 2 and 3 empty, the rule 0.2 cm below the address.
    FKRRechnung *r = dokument(1, 2);
    FKRAbsender *a = absender(r);
    a->setFirma(u"Atelierwerk"_s);
    a->setOrt(u"Hamburg"_s);
    const PdfPruefung pdf = rendere(r, u"nur-adresse.pdf"_s);
    const double L = zeile(messer().faelligkeitsFont);
    const double versatz = box(pdf, 1, u"Atelierwerk - Hamburg"_s).top() - 5 * kcm;
    EXPECT_NEAR(nahe(pdf, 1, u"Hamburg"_s, versatz + 1 * kcm + L).top() - versatz, 1 * kcm + L, kToleranzY);
    const QString seite = pdf.text(1);
    for (const char *fehlt : {"Ums.St.-ID", "Steuernr", "Bankverbindung"})
        EXPECT_FALSE(seite.contains(text(fehlt))) << fehlt;
    const QList<double> linien = striche(pdf.bild(1, kDpi), 7.7 * kcm, 0.2 * kcm, 4.9 * kcm);
    ASSERT_EQ(linien.size(), 1);
    EXPECT_NEAR(linien.first(), 1 * kcm + 2 * L + 0.2 * kcm, 0.6);

    // With letterhead paper neither the bar nor its rule.
    a->setGeschaeftspapierImagePath(u"file:///nicht/vorhanden.png"_s);
    const PdfPruefung briefpapier = rendere(r, u"kopf-briefpapier.pdf"_s);
    EXPECT_FALSE(briefpapier.text(1).contains(u"Atelierwerk"_s));
    EXPECT_TRUE(striche(briefpapier.bild(1, kDpi), 7.7 * kcm, 0.2 * kcm, 4.9 * kcm).isEmpty());
}

TEST_F(PDFLayouts, FooterBarSetsTheSenderUnderARule)
{
    FKRRechnung *r = dokument(3, 3);
    FKRAbsender *a = vollerAbsender(r);
    a->setLogoImageBinary(png({1000, 100}, Qt::red)); // left out on letterhead paper, below
    const PdfPruefung pdf = rendere(r, u"fussleiste.pdf"_s);

    const double L = zeile(messer().faelligkeitsFont);
    const double versatz = box(pdf, 1, u"Atelierwerk - Mira Sommer"_s).top() - 5 * kcm;
    const double w = (kSeitenBreite - 5 * kcm) / 3 - 0.5 * kcm;
    const double x1 = 2.5 * kcm, x2 = kSeitenBreite / 2 - w / 2, x3 = kSeitenBreite - 2.5 * kcm - w;
    const double leiste = kSeitenHoehe - 3 * kcm;
    const QList<std::tuple<QString, double, double>> bloecke = {
        {u"Atelierwerk"_s, x1, 0},
        {u"20457 Hamburg"_s, x1, 3 * L},
        {u"post@atelierwerk.example"_s, x2, 0},
        {text("Ums.St.-ID") + u": DE123456789"_s, x2, 3 * L + 0.2 * kcm},
        {text("Bankverbindung"), x3, 0},
        {text("IBAN") + u": DE02120300000000202051"_s, x3, 2 * L},
    };
    for (const auto &[phrase, x, abstand] : bloecke) {
        SCOPED_TRACE(phrase.toStdString());
        const QRectF b = nahe(pdf, 1, phrase, versatz + leiste + 0.2 * kcm + abstand);
        EXPECT_NEAR(b.left(), x, kToleranzX);
        EXPECT_NEAR(b.top() - versatz, leiste + 0.2 * kcm + abstand, kToleranzY);
    }
    const QImage bild = pdf.bild(1, kDpi);
    const QList<double> linien = striche(bild, (x1 + w + x2) / 2, 25 * kcm, 29.5 * kcm);
    ASSERT_EQ(linien.size(), 1);
    EXPECT_NEAR(linien.first(), leiste, 0.6);

    // A stored layout of 4 is the footer bar, word for word.
    r->setLayout(Decimal(4));
    const PdfPruefung vier = rendere(r, u"fussleiste-4.pdf"_s);
    ASSERT_EQ(vier.woerter(1).size(), pdf.woerter(1).size());
    for (qsizetype i = 0; i < pdf.woerter(1).size(); ++i) {
        EXPECT_EQ(vier.woerter(1)[i].text, pdf.woerter(1)[i].text);
        EXPECT_EQ(vier.woerter(1)[i].box, pdf.woerter(1)[i].box);
    }

    // Letterhead paper: no rule, no blocks, no logo.
    a->setGeschaeftspapierImageBinary(png({10, 10}, Qt::white));
    a->setGeschaeftspapierDrucken(true);
    const PdfPruefung briefpapier = rendere(r, u"fuss-briefpapier.pdf"_s);
    const QImage leer = briefpapier.bild(1, kDpi);
    EXPECT_FALSE(briefpapier.text(1).contains(u"DE02120300000000202051"_s));
    EXPECT_TRUE(striche(leer, (x1 + w + x2) / 2, 25 * kcm, 29.5 * kcm).isEmpty());
    EXPECT_FALSE(flaeche(leer, Qt::red).isValid());

    // A letterhead that is printed stands on every page of a long document, one that is not on none.
    a->setGeschaeftspapierImageBinary(png({40, 40}, Qt::blue));
    posten(r, 40);
    for (const bool drucken : {true, false}) {
        a->setGeschaeftspapierDrucken(drucken);
        const PdfPruefung lang = rendere(r, u"fuss-briefpapier-%1.pdf"_s.arg(drucken));
        ASSERT_GE(lang.seitenAnzahl(), 2);
        for (int seite = 1; seite <= lang.seitenAnzahl(); ++seite)
            EXPECT_EQ(flaeche(lang.bild(seite, kDpi), Qt::blue).isValid(), drucken) << "page " << seite;
    }
}

TEST_F(PDFLayouts, EachLayoutBreaksToANewPageAtItsOwnLowerLimit)
{
    // A long invoice in the header bar (the common limit, 4 cm above the bottom edge) and in the
    // footer bar (0.5 cm above its bar, which lies 3 cm above the bottom edge). The last row on
    // page 1 must fit under the limit and the next one must not have fitted; the next row goes on
    // at 5 cm. Returns where the last row on page 1 ends.
    const double breite = 16 * kcm; // rows are measured at the full text width in every layout
    const double zeilenHoehe =
        messer().berechneTextBoxFuerString(u"Posten01\nErläuterung"_s, messer().textFont, {breite, 1000}).height();
    const double schritt = 0.1 * kcm + zeilenHoehe;
    const auto pruefe = [&](int layout, double grenze, int textZeilen) -> double {
        SCOPED_TRACE(testing::Message() << "layout " << layout << ", text lines " << textZeilen);
        FKRRechnung *r = dokument(3, layout);
        vollerAbsender(r);
        if (textZeilen > 0)
            r->setRechnungsText(QStringList(textZeilen, u"Einleitung"_s).join(QLatin1Char('\n')));
        posten(r, 40);
        const PdfPruefung pdf = rendere(r, u"umbruch-%1-%2.pdf"_s.arg(layout).arg(textZeilen));
        if (pdf.seitenAnzahl() < 2) {
            ADD_FAILURE() << "one page only";
            return 0;
        }
        const double versatzFett = box(pdf, 1, u"Rechnung: 2026-017"_s).top() - 9.5 * kcm;
        int letzte = 0;
        for (int i = 1; i <= 40; ++i)
            if (pdf.finde(1, u"Posten%1"_s.arg(i, 2, 10, QLatin1Char('0'))))
                letzte = i;
        if (letzte == 0) {
            ADD_FAILURE() << "no item on page 1";
            return 0;
        }
        // A row starts 1 mm above its designation.
        const double zeileOben =
            box(pdf, 1, u"Posten%1"_s.arg(letzte, 2, 10, QLatin1Char('0'))).top() - versatzFett - 0.1 * kcm;
        EXPECT_LE(zeileOben + zeilenHoehe, grenze + kToleranzY);
        EXPECT_GT(zeileOben + schritt + zeilenHoehe, grenze - kToleranzY);
        const QRectF weiter = box(pdf, 2, u"Posten%1"_s.arg(letzte + 1, 2, 10, QLatin1Char('0')));
        EXPECT_NEAR(weiter.top() - versatzFett - 0.1 * kcm, 5 * kcm, kToleranzY);
        return zeileOben + zeilenHoehe;
    };
    const double allgemein = kSeitenHoehe - 4 * kcm;
    pruefe(2, allgemein, 0);
    // An introductory text of one to three lines moves the rows by a line each, less than the
    // half centimetre between the two limits, so at least one of these pages must use the room
    // below the common limit that only the footer bar has.
    bool tiefer = false;
    for (int textZeilen = 1; textZeilen <= 3; ++textZeilen)
        tiefer = pruefe(3, kSeitenHoehe - 3.5 * kcm, textZeilen) > allgemein + kToleranzY || tiefer;
    EXPECT_TRUE(tiefer);
}

TEST_F(PDFLayouts, ALogoIsFittedIntoTheFreeSpaceAndCoversNoText)
{
    // Logos of every shape, at 72 dpi. The free space: from the left margin to half a centimetre
    // before the column (sidebar) or to the right margin (footer bar), from 1.5 cm down to half a
    // centimetre above the sender line and the dates at 5 cm. The header bar prints no logo.
    const struct
    {
        const char *form;
        QByteArray bild;
        QSizeF groesse;
        bool alsDatei = false; // stored as a file location instead of bytes
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
        const double cm = letter ? 792.0 / 27.9 : kcm;
        const double breite = letter ? 612.0 : kSeitenBreite;
        const struct
        {
            int layout;
            std::optional<QRectF> raum;
        } layouts[] = {
            {1, QRectF(QPointF(2.5 * cm, 1.5 * cm), QPointF(14.5 * cm, 4.5 * cm))},
            {2, std::nullopt},
            {3, QRectF(QPointF(2.5 * cm, 1.5 * cm), QPointF(breite - 2.5 * cm, 4.5 * cm))},
        };
        for (const auto &[layout, raum] : layouts) {
            FKRRechnung *r = dokument(3, layout);
            FKRAbsender *a = vollerAbsender(r);
            a->setStrasse(u"Hafenweg 12, Hinterhaus, Aufgang C, dritter Stock links"_s);
            posten(r, 2);
            const QString name = u"%1-%2"_s.arg(layout).arg(letter ? u"letter"_s : u"a4"_s);
            const PdfPruefung ohne = rendere(r, name + u"-ohne.pdf"_s);
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
                const PdfPruefung pdf = rendere(r, name + u"-"_s + QString::fromLatin1(logo.form) + u".pdf"_s);

                // Every word stands where it stands without a logo.
                const QList<PdfPruefung::Wort> &woerter = pdf.woerter(1);
                ASSERT_EQ(woerter.size(), ohne.woerter(1).size());
                for (qsizetype i = 0; i < woerter.size(); ++i) {
                    EXPECT_EQ(woerter[i].text, ohne.woerter(1)[i].text);
                    EXPECT_EQ(woerter[i].box, ohne.woerter(1)[i].box) << woerter[i].text.toStdString();
                }
                const QList<QRectF> bilder = pdf.bilder(1);
                if (!raum) {
                    EXPECT_TRUE(bilder.isEmpty());
                    continue;
                }
                ASSERT_EQ(bilder.size(), 1);
                const QRectF box = bilder.first();
                for (const PdfPruefung::Wort &wort : woerter)
                    EXPECT_FALSE(wort.box.intersects(box)) << wort.text.toStdString();

                // Within the free space, right-aligned, at its top, in its own proportions and
                // never enlarged; scaled down only as far as the space demands.
                EXPECT_GE(box.left(), raum->left() - 1);
                EXPECT_NEAR(box.right(), raum->right(), 1);
                EXPECT_NEAR(box.top(), raum->top(), 1);
                EXPECT_LE(box.bottom(), raum->bottom() + 1);
                const double massstab = box.width() / logo.groesse.width();
                EXPECT_NEAR(box.height(), logo.groesse.height() * massstab, 1.5);
                EXPECT_LE(massstab, 1.0 + 1 / logo.groesse.width());
                if (massstab < 0.99) {
                    EXPECT_TRUE(std::abs(box.left() - raum->left()) < 1 || std::abs(box.bottom() - raum->bottom()) < 1)
                        << "scaled further than the space demands";
                }
                // The converter's box is where the page shows the picture.
                if (QImage::fromData(logo.bild).hasAlphaChannel()) {
                    const QRectF gerendert = flaeche(pdf.bild(1, kDpi), Qt::red);
                    EXPECT_NEAR(gerendert.left(), box.left(), 1);
                    EXPECT_NEAR(gerendert.top(), box.top(), 1);
                    EXPECT_NEAR(gerendert.right(), box.right(), 1);
                    EXPECT_NEAR(gerendert.bottom(), box.bottom(), 1);
                }
            }
        }
    }
}

} // namespace
