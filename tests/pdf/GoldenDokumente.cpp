#include "GoldenDokumente.h"

#include "FKRAbsender.h"
#include "FKREmpfaenger.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "ManagedObjectContext.h"

#include <QBuffer>
#include <QDateTime>
#include <QImage>
#include <QPainter>
#include <QTimeZone>

using namespace Qt::Literals::StringLiterals;

namespace {

Decimal d(const char *text)
{
    return *Decimal::parse(text);
}

QDateTime tag(int jahr, int monat, int tagImMonat)
{
    return QDateTime(QDate(jahr, monat, tagImMonat), QTime(10, 0), QTimeZone("Europe/Berlin"));
}

// A picture of flat shapes (no anti-aliasing, no text) so that it is the same bytes everywhere.
QByteArray bildPng(QSize pixel, double dpi, const std::function<void(QPainter &)> &male)
{
    QImage bild(pixel, QImage::Format_RGB32);
    bild.fill(Qt::white);
    QPainter maler(&bild);
    male(maler);
    maler.end();
    bild.setDotsPerMeterX(qRound(dpi / 0.0254));
    bild.setDotsPerMeterY(qRound(dpi / 0.0254));
    QByteArray daten;
    QBuffer puffer(&daten);
    puffer.open(QIODevice::WriteOnly);
    bild.save(&puffer, "PNG");
    return daten;
}

enum class Layout { Seitenleiste = 1, Kopfleiste = 2, Fussleiste = 3 };

// Company, name, street, postcode, town and, if given, country.
template<class Adresse>
Adresse *adresse(ManagedObjectContext &context, const QStringList &teile)
{
    auto *a = context.insertNewObject<Adresse>();
    a->setFirma(teile[0]);
    a->setName(teile[1]);
    a->setStrasse(teile[2]);
    a->setPlz(teile[3]);
    a->setOrt(teile[4]);
    if (teile.size() > 5)
        a->setLand(teile[5]);
    return a;
}

FKRAbsender *absender(ManagedObjectContext &context)
{
    auto *a = adresse<FKRAbsender>(context, {u"Brandt & Söhne Webdesign"_s, u"Johanna Brandt"_s, u"Lindenallee 12"_s,
                                             u"04109"_s, u"Leipzig"_s, u"Deutschland"_s});
    a->setEmailAdresse(u"post@brandt-webdesign.example"_s);
    a->setTelefonNummer(u"+49 341 555 0199"_s);
    a->setUmsatzsteuerId(u"DE123456789"_s);
    a->setSteuerNummer(u"231/456/78901"_s);
    a->setBankVerbindungInstitut(u"Sparkasse Leipzig"_s);
    a->setBankVerbindungIban(u"DE02 8605 5592 1090 0012 34"_s);
    a->setBankVerbindungBic(u"WELADE8LXXX"_s);
    a->setLogoImageBinary(GoldenDokumente::logo());
    a->setUnterschriftImageBinary(GoldenDokumente::unterschrift());
    return a;
}

FKREmpfaenger *empfaenger(ManagedObjectContext &context, bool englisch)
{
    if (englisch)
        return adresse<FKREmpfaenger>(context, {u"Northwind Traders Ltd"_s, u"Mr Oliver Hughes"_s, u"221 Harbour Road"_s,
                                                u"BS1 4DJ"_s, u"Bristol"_s, u"United Kingdom"_s});
    return adresse<FKREmpfaenger>(context, {u"Gärtnerei Lehmann GmbH"_s, u"Herrn Paul Lehmann"_s, u"Am Mühlgraben 3"_s,
                                            u"01067"_s, u"Dresden"_s});
}

void posten(ManagedObjectContext &context, FKRRechnung *r, qint64 nummer, const QString &bezeichnung,
            const std::optional<QString> &beschreibung, const char *anzahl, const char *einzelbetrag,
            const char *satz = nullptr)
{
    auto *p = context.insertNewObject<FKRPosten>();
    p->setPostenNummer(nummer);
    p->setPostenBezeichnung(bezeichnung);
    p->setPostenBeschreibung(beschreibung);
    p->setAnzahl(d(anzahl));
    p->setEinzelbetrag(d(einzelbetrag));
    if (satz)
        p->setMwStSatz(d(satz));
    r->addPostenObject(p);
}

// A document of `art` dated 15 March 2024 (service 1 March, due 29 March) in `layout`.
FKRRechnung *dokument(ManagedObjectContext &context, int art, Layout layout, bool englisch, const QString &nummer)
{
    auto *r = context.insertNewObject<FKRRechnung>();
    r->setDokumentArt(Decimal(art));
    r->setLayout(Decimal(int(layout)));
    r->setSprache(englisch ? 2 : 1);
    r->setRechnungsNummer(nummer);
    r->setRechnungsDatum(tag(2024, 3, 15));
    r->setLieferDatum(tag(2024, 3, 1));
    r->setFaelligkeitsDatum(tag(2024, 3, 29));
    r->setAbsender(absender(context));
    r->setEmpfaenger(empfaenger(context, englisch));
    r->setRechnungsTextAnrede(englisch ? u"Dear Mr Hughes,"_s : u"Sehr geehrter Herr Lehmann,"_s);
    r->setRechnungsText(englisch ? u"Thank you for your order. We charge the following services:"_s
                                 : u"vielen Dank für Ihren Auftrag. Wir berechnen Ihnen folgende Leistungen:"_s);
    r->setRechnungsText2(englisch ? u"Kind regards\nJohanna Brandt"_s : u"Mit freundlichen Grüßen\nJohanna Brandt"_s);
    return r;
}

void dreiPosten(ManagedObjectContext &context, FKRRechnung *r, bool englisch)
{
    // Created out of order: the table sorts them by number.
    posten(context, r, 3, englisch ? u"Hosting"_s : u"Hosting"_s,
           englisch ? u"12 months, including backups"_s : u"12 Monate, einschließlich Datensicherung"_s, "12", "9.90");
    posten(context, r, 1, englisch ? u"Concept"_s : u"Konzeption"_s,
           englisch ? u"Workshop and site map"_s : u"Workshop und Seitenstruktur"_s, "6", "85");
    posten(context, r, 2, englisch ? u"Design and build"_s : u"Gestaltung und Umsetzung"_s,
           englisch ? u"Home page, five content pages, contact form"_s
                    : u"Startseite, fünf Inhaltsseiten, Kontaktformular"_s,
           "18.5", "85");
}

} // namespace

QByteArray GoldenDokumente::logo()
{
    return bildPng({240, 80}, 144, [](QPainter &m) {
        m.fillRect(0, 0, 80, 80, QColor(0x1f, 0x5f, 0x8b));
        m.fillRect(90, 20, 150, 16, QColor(0x1f, 0x5f, 0x8b));
        m.fillRect(90, 48, 110, 12, QColor(0xe0, 0x8a, 0x1e));
    });
}

QByteArray GoldenDokumente::breitesLogo()
{
    // 400 x 120 points: wider and taller than the space above the sender line.
    return bildPng({800, 240}, 144, [](QPainter &m) {
        m.fillRect(0, 0, 240, 240, QColor(0x8b, 0x2f, 0x1f));
        m.fillRect(270, 40, 530, 60, QColor(0x8b, 0x2f, 0x1f));
        m.fillRect(270, 140, 400, 40, QColor(0x1e, 0x8a, 0xe0));
    });
}

QByteArray GoldenDokumente::unterschrift()
{
    return bildPng({300, 90}, 144, [](QPainter &m) {
        for (int i = 0; i < 10; ++i)
            m.fillRect(20 + i * 26, 60 - (i % 3) * 12, 22, 6, QColor(0x20, 0x20, 0x60));
    });
}

QByteArray GoldenDokumente::geschaeftspapier()
{
    // A4 at 36 dpi: a coloured band at the top, a rule and a line of small blocks at the bottom.
    return bildPng({298, 421}, 36, [](QPainter &m) {
        m.fillRect(0, 0, 298, 34, QColor(0x2e, 0x6b, 0x4f));
        m.fillRect(200, 44, 80, 26, QColor(0xd9, 0xe8, 0xde));
        m.fillRect(20, 392, 258, 1, QColor(0x2e, 0x6b, 0x4f));
        for (int i = 0; i < 3; ++i)
            m.fillRect(20 + i * 90, 398, 70, 10, QColor(0xb0, 0xc8, 0xb8));
    });
}

QList<GoldenDokumente::Dokument> GoldenDokumente::alle()
{
    return {
        {u"seitenleiste-rechnung-a4-de"_s, false, [](ManagedObjectContext &c) {
             FKRRechnung *r = dokument(c, 3, Layout::Seitenleiste, false, u"Rechnung RE-2024-017"_s);
             dreiPosten(c, r, false);
             r->setRabatt(d("0.1"));
             r->setSkonto(d("0.02"));
             r->setSkontoZeitraum(10);
             return r;
         }},
        {u"kopfleiste-rechnung-a4-en"_s, false, [](ManagedObjectContext &c) {
             FKRRechnung *r = dokument(c, 3, Layout::Kopfleiste, true, u"Invoice INV-2024-042"_s);
             dreiPosten(c, r, true);
             posten(c, r, 4, u"Printed brochures"_s, std::nullopt, "250", "1.20", "0.07");
             r->setZuschlag(d("0.05"));
             return r;
         }},
        {u"fussleiste-honorarnote-letter-de"_s, true, [](ManagedObjectContext &c) {
             FKRRechnung *r = dokument(c, 4, Layout::Fussleiste, false, u"Honorarnote HN-2024-003"_s);
             posten(c, r, 1, u"Fachgutachten"_s, u"Gutachten zur Barrierefreiheit der Website"_s, "1", "1450");
             r->setMwStSatz(d("0"));
             return r;
         }},
        {u"seitenleiste-angebot-letter-en"_s, true, [](ManagedObjectContext &c) {
             FKRRechnung *r = dokument(c, 2, Layout::Seitenleiste, true, u"Quote Q-2024-008"_s);
             dreiPosten(c, r, true);
             return r;
         }},
        {u"seitenleiste-lange-postenliste-a4-de"_s, false, [](ManagedObjectContext &c) {
             FKRRechnung *r = dokument(c, 3, Layout::Seitenleiste, false, u"Rechnung RE-2024-018"_s);
             for (int i = 1; i <= 45; ++i)
                 posten(c, r, i, u"Wartung Kalenderwoche %1"_s.arg(i),
                        i % 4 == 0 ? std::optional(u"Aktualisierungen, Sicherung und Prüfung der Formulare"_s)
                                   : std::nullopt,
                        i % 3 == 0 ? "1.5" : "2", "62.50");
             return r;
         }},
        {u"fussleiste-lange-postenliste-a4-en"_s, false, [](ManagedObjectContext &c) {
             FKRRechnung *r = dokument(c, 3, Layout::Fussleiste, true, u"Invoice INV-2024-043"_s);
             for (int i = 1; i <= 30; ++i)
                 posten(c, r, i, u"Support ticket #%1"_s.arg(1000 + i), std::nullopt, "0.75", "96");
             return r;
         }},
        {u"seitenleiste-geschaeftspapier-a4-de"_s, false, [](ManagedObjectContext &c) {
             FKRRechnung *r = dokument(c, 3, Layout::Seitenleiste, false, u"Rechnung RE-2024-019"_s);
             r->absender()->setGeschaeftspapierImageBinary(geschaeftspapier());
             r->absender()->setGeschaeftspapierDrucken(true);
             dreiPosten(c, r, false);
             return r;
         }},
        {u"kopfleiste-chf-a4-de"_s, false, [](ManagedObjectContext &c) {
             FKRRechnung *r = dokument(c, 3, Layout::Kopfleiste, false, u"Rechnung CH-2024-005"_s);
             r->setWaehrung(u"CHF"_s);
             r->setMwStSatz(d("0.081"));
             r->absender()->setLand(u"Schweiz"_s);
             posten(c, r, 1, u"Beratung"_s, u"Vor Ort in Basel"_s, "3.25", "142.35");
             posten(c, r, 2, u"Spesen"_s, std::nullopt, "1", "37.42");
             r->setSkonto(d("0.03"));
             r->setSkontoZeitraum(14);
             return r;
         }},
        {u"fussleiste-mahnung-a4-de"_s, false, [](ManagedObjectContext &c) {
             FKRRechnung *r = dokument(c, 3, Layout::Fussleiste, false, u"Rechnung RE-2024-011"_s);
             dreiPosten(c, r, false);
             r->setzeNummerAlsMahnungZu(*r);
             r->setFaelligkeitsDatum(tag(2024, 4, 12));
             r->setRechnungsText(u"leider konnten wir zu unserer Rechnung noch keinen Zahlungseingang feststellen."_s);
             return r;
         }},
        {u"fussleiste-breites-logo-a4-de"_s, false, [](ManagedObjectContext &c) {
             FKRRechnung *r = dokument(c, 3, Layout::Fussleiste, false, u"Rechnung RE-2024-020"_s);
             r->absender()->setLogoImageBinary(breitesLogo());
             dreiPosten(c, r, false);
             return r;
         }},
        {u"seitenleiste-netto-rechnung-a4-en"_s, false, [](ManagedObjectContext &c) {
             FKRRechnung *r = dokument(c, 3, Layout::Seitenleiste, true, u"Invoice INV-2024-044"_s);
             r->setBrutto(false);
             dreiPosten(c, r, true);
             r->setSkonto(d("0.02"));
             r->setSkontoZeitraum(14);
             return r;
         }},
        {u"kopfleiste-anschreiben-letter-en"_s, true, [](ManagedObjectContext &c) {
             FKRRechnung *r = dokument(c, 1, Layout::Kopfleiste, true, u"Your enquiry of 8 March"_s);
             r->setRechnungsText(u"Please find enclosed our brochure and the price list for the coming season. "
                                 "We would be glad to discuss your project in person."_s);
             return r;
         }},
    };
}
