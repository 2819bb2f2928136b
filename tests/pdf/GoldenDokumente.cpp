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

Decimal d(const char *text) { return *Decimal::parse(text); }

QDateTime tag(int j, int m, int t) { return QDateTime(QDate(j, m, t), QTime(10, 0), QTimeZone("Europe/Berlin")); }

// Pictures of flat rectangles (no anti-aliasing, no text): the same bytes everywhere.
QByteArray bildPng(QSize pixel, double dpi, const QList<std::pair<QRect, QRgb>> &flaechen)
{
    QImage bild(pixel, QImage::Format_RGB32);
    bild.fill(Qt::white);
    QPainter maler(&bild);
    for (const auto &[rechteck, farbe] : flaechen)
        maler.fillRect(rechteck, QColor(farbe));
    maler.end();
    bild.setDotsPerMeterX(qRound(dpi / 0.0254));
    bild.setDotsPerMeterY(qRound(dpi / 0.0254));
    QByteArray daten;
    QBuffer puffer(&daten);
    bild.save(&puffer, "PNG");
    return daten;
}

// Company, name, street, postcode, town and, if given, country.
template<class Adresse>
Adresse *adresse(ManagedObjectContext &context, const QStringList &teile)
{
    auto *a = context.insertNewObject<Adresse>();
    const auto setzer = {&Adresse::setFirma, &Adresse::setName, &Adresse::setStrasse, &Adresse::setPlz,
                         &Adresse::setOrt, &Adresse::setLand};
    for (qsizetype i = 0; i < teile.size(); ++i)
        (a->*std::data(setzer)[i])(teile[i]);
    return a;
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
FKRRechnung *dokument(ManagedObjectContext &context, int art, int layout, bool englisch, const QString &nummer)
{
    auto *r = context.insertNewObject<FKRRechnung>();
    r->setDokumentArt(Decimal(art));
    r->setLayout(Decimal(layout));
    r->setSprache(englisch ? 2 : 1);
    r->setRechnungsNummer(nummer);
    r->setRechnungsDatum(tag(2024, 3, 15));
    r->setLieferDatum(tag(2024, 3, 1));
    r->setFaelligkeitsDatum(tag(2024, 3, 29));
    r->setAbsender(GoldenDokumente::absender(context));
    r->setEmpfaenger(adresse<FKREmpfaenger>(
        context, englisch ? QStringList{u"Northwind Traders Ltd"_s, u"Mr Oliver Hughes"_s, u"221 Harbour Road"_s,
                                        u"BS1 4DJ"_s, u"Bristol"_s, u"United Kingdom"_s}
                          : QStringList{u"Gärtnerei Lehmann GmbH"_s, u"Herrn Paul Lehmann"_s, u"Am Mühlgraben 3"_s,
                                        u"01067"_s, u"Dresden"_s}));
    r->setRechnungsTextAnrede(englisch ? u"Dear Mr Hughes,"_s : u"Sehr geehrter Herr Lehmann,"_s);
    r->setRechnungsText(englisch ? u"Thank you for your order. We charge the following services:"_s
                                 : u"vielen Dank für Ihren Auftrag. Wir berechnen Ihnen folgende Leistungen:"_s);
    r->setRechnungsText2(englisch ? u"Kind regards\nJohanna Brandt"_s : u"Mit freundlichen Grüßen\nJohanna Brandt"_s);
    return r;
}

// Created out of order: the table sorts them by number.
void dreiPosten(ManagedObjectContext &context, FKRRechnung *r, bool englisch)
{
    posten(context, r, 3, u"Hosting"_s,
           englisch ? u"12 months, including backups"_s : u"12 Monate, einschließlich Datensicherung"_s, "12", "9.90");
    posten(context, r, 1, englisch ? u"Concept"_s : u"Konzeption"_s,
           englisch ? u"Workshop and site map"_s : u"Workshop und Seitenstruktur"_s, "6", "85");
    posten(context, r, 2, englisch ? u"Design and build"_s : u"Gestaltung und Umsetzung"_s,
           englisch ? u"Home page, five content pages, contact form"_s
                    : u"Startseite, fünf Inhaltsseiten, Kontaktformular"_s,
           "18.5", "85");
}

} // namespace

FKRAbsender *GoldenDokumente::absender(ManagedObjectContext &context)
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
    a->setLogoImageBinary(bildPng(
        {240, 80}, 144, {{{0, 0, 80, 80}, 0x1f5f8b}, {{90, 20, 150, 16}, 0x1f5f8b}, {{90, 48, 110, 12}, 0xe08a1e}}));
    QList<std::pair<QRect, QRgb>> striche;
    for (int i = 0; i < 10; ++i)
        striche.append({{20 + i * 26, 60 - (i % 3) * 12, 22, 6}, 0x202060});
    a->setUnterschriftImageBinary(bildPng({300, 90}, 144, striche));
    return a;
}

QList<GoldenDokumente::Dokument> GoldenDokumente::alle()
{
    using C = ManagedObjectContext;
    // Layout, paper and language from the name; `weiter` adds the items and the rest.
    const auto eintrag = [](const QString &name, int art, const QString &nummer,
                            std::function<void(C &, FKRRechnung *)> weiter) {
        const int layout = name.startsWith(u"seitenleiste"_s) ? 1 : name.startsWith(u"kopfleiste"_s) ? 2 : 3;
        return Dokument{name, name.contains(u"-letter-"_s), [=](C &c) {
                            FKRRechnung *r = dokument(c, art, layout, name.endsWith(u"-en"_s), nummer);
                            weiter(c, r);
                            return r;
                        }};
    };
    return {
        eintrag(u"seitenleiste-rechnung-a4-de"_s, 3, u"Rechnung RE-2024-017"_s, [](C &c, FKRRechnung *r) {
            dreiPosten(c, r, false);
            r->setRabatt(d("0.1"));
            r->setSkonto(d("0.02"));
            r->setSkontoZeitraum(10);
        }),
        eintrag(u"kopfleiste-rechnung-a4-en"_s, 3, u"Invoice INV-2024-042"_s, [](C &c, FKRRechnung *r) {
            dreiPosten(c, r, true);
            posten(c, r, 4, u"Printed brochures"_s, std::nullopt, "250", "1.20", "0.07");
            r->setZuschlag(d("0.05"));
        }),
        eintrag(u"fussleiste-honorarnote-letter-de"_s, 4, u"Honorarnote HN-2024-003"_s, [](C &c, FKRRechnung *r) {
            posten(c, r, 1, u"Fachgutachten"_s, u"Gutachten zur Barrierefreiheit der Website"_s, "1", "1450");
            r->setMwStSatz(d("0"));
        }),
        eintrag(u"seitenleiste-angebot-letter-en"_s, 2, u"Quote Q-2024-008"_s,
                [](C &c, FKRRechnung *r) { dreiPosten(c, r, true); }),
        eintrag(u"seitenleiste-lange-postenliste-a4-de"_s, 3, u"Rechnung RE-2024-018"_s, [](C &c, FKRRechnung *r) {
            for (int i = 1; i <= 45; ++i)
                posten(c, r, i, u"Wartung Kalenderwoche %1"_s.arg(i),
                       i % 4 == 0 ? std::optional(u"Aktualisierungen, Sicherung und Prüfung der Formulare"_s)
                                  : std::nullopt,
                       i % 3 == 0 ? "1.5" : "2", "62.50");
        }),
        eintrag(u"fussleiste-lange-postenliste-a4-en"_s, 3, u"Invoice INV-2024-043"_s, [](C &c, FKRRechnung *r) {
            for (int i = 1; i <= 30; ++i)
                posten(c, r, i, u"Support ticket #%1"_s.arg(1000 + i), std::nullopt, "0.75", "96");
        }),
        eintrag(u"seitenleiste-geschaeftspapier-a4-de"_s, 3, u"Rechnung RE-2024-019"_s, [](C &c, FKRRechnung *r) {
            r->absender()->setGeschaeftspapierImageBinary(bildPng(
                {298, 421}, 36,
                {{{0, 0, 298, 34}, 0x2e6b4f}, {{200, 44, 80, 26}, 0xd9e8de}, {{20, 392, 258, 1}, 0x2e6b4f},
                 {{20, 398, 70, 10}, 0xb0c8b8}, {{110, 398, 70, 10}, 0xb0c8b8}, {{200, 398, 70, 10}, 0xb0c8b8}}));
            r->absender()->setGeschaeftspapierDrucken(true);
            // On every page, which the items run to.
            for (int i = 1; i <= 40; ++i)
                posten(c, r, i, u"Pflege der Seite %1"_s.arg(i), std::nullopt, "1", "45");
        }),
        // The header bar breaks at its own height, on Letter.
        eintrag(u"kopfleiste-lange-postenliste-letter-de"_s, 3, u"Rechnung RE-2024-021"_s, [](C &c, FKRRechnung *r) {
            for (int i = 1; i <= 40; ++i)
                posten(c, r, i, u"Übersetzung Kapitel %1"_s.arg(i), std::nullopt, "3", "38");
        }),
        eintrag(u"kopfleiste-chf-a4-de"_s, 3, u"Rechnung CH-2024-005"_s, [](C &c, FKRRechnung *r) {
            r->setWaehrung(u"CHF"_s);
            r->setMwStSatz(d("0.081"));
            r->absender()->setLand(u"Schweiz"_s);
            posten(c, r, 1, u"Beratung"_s, u"Vor Ort in Basel"_s, "3.25", "142.35");
            posten(c, r, 2, u"Spesen"_s, std::nullopt, "1", "37.42");
            r->setSkonto(d("0.03"));
            r->setSkontoZeitraum(14);
        }),
        eintrag(u"fussleiste-mahnung-a4-de"_s, 3, u"Rechnung RE-2024-011"_s, [](C &c, FKRRechnung *r) {
            dreiPosten(c, r, false);
            r->setzeNummerAlsMahnungZu(*r);
            r->setFaelligkeitsDatum(tag(2024, 4, 12));
            r->setRechnungsText(u"leider konnten wir zu unserer Rechnung noch keinen Zahlungseingang feststellen."_s);
        }),
        eintrag(u"fussleiste-breites-logo-a4-de"_s, 3, u"Rechnung RE-2024-020"_s, [](C &c, FKRRechnung *r) {
            r->absender()->setLogoImageBinary(bildPng(
                {800, 240}, 144,
                {{{0, 0, 240, 240}, 0x8b2f1f}, {{270, 40, 530, 60}, 0x8b2f1f}, {{270, 140, 400, 40}, 0x1e8ae0}}));
            dreiPosten(c, r, false);
        }),
        eintrag(u"seitenleiste-netto-rechnung-a4-en"_s, 3, u"Invoice INV-2024-044"_s, [](C &c, FKRRechnung *r) {
            r->setBrutto(false);
            dreiPosten(c, r, true);
            r->setSkonto(d("0.02"));
            r->setSkontoZeitraum(14);
        }),
        eintrag(u"kopfleiste-anschreiben-letter-en"_s, 1, u"Your enquiry of 8 March"_s, [](C &, FKRRechnung *r) {
            r->setRechnungsText(u"Please find enclosed our brochure and the price list for the coming season. "
                                "We would be glad to discuss your project in person."_s);
        }),
    };
}
