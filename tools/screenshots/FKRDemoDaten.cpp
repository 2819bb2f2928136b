#include "FKRDemoDaten.h"

#include "FKRAbsender.h"
#include "FKREmpfaenger.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "ManagedObjectContext.h"

#include <QBuffer>
#include <QDateTime>
#include <QFont>
#include <QImage>
#include <QPainter>

using namespace Qt::Literals::StringLiterals;

namespace {

Decimal dec(const char *text)
{
    return *Decimal::parse(text);
}

QByteArray logo()
{
    QImage bild(900, 200, QImage::Format_ARGB32);
    bild.fill(Qt::transparent);
    QPainter p(&bild);
    p.setRenderHint(QPainter::Antialiasing);
    p.setBrush(QColor(0, 160, 230));
    p.setPen(Qt::NoPen);
    p.drawEllipse(QRectF(10, 20, 160, 160));
    p.setPen(Qt::white);
    QFont f(u"Noto Sans"_s, 72, QFont::Bold);
    p.setFont(f);
    p.drawText(QRectF(10, 20, 160, 160), Qt::AlignCenter, u"L"_s);
    p.setPen(QColor(60, 60, 60));
    f.setPointSize(40);
    p.setFont(f);
    p.drawText(QRectF(190, 40, 700, 120), Qt::AlignVCenter | Qt::AlignLeft, u"Lindqvist Design"_s);
    p.end();
    QByteArray bytes;
    QBuffer puffer(&bytes);
    puffer.open(QIODevice::WriteOnly);
    bild.save(&puffer, "PNG");
    return bytes;
}

struct Posten {
    const char *bezeichnung;
    const char *beschreibung;
    const char *anzahl;
    const char *preis;
};

struct Dokument {
    int art;
    const char *nummer;
    int empfaenger;
    int tageSeitRechnung; // document date this many days ago
    int zahlungsziel;     // due this many days after the document date
    bool versandt;
    bool bezahlt;
    QList<Posten> posten;
};

} // namespace

void FKRDemoDaten::fuelle(ManagedObjectContext &moc)
{
    auto *absender = moc.insertNewObject<FKRAbsender>();
    absender->setFirma(u"Lindqvist Design"_s);
    absender->setName(u"Mara Lindqvist"_s);
    absender->setStrasse(u"Hafenstraße 12"_s);
    absender->setPlz(u"20457"_s);
    absender->setOrt(u"Hamburg"_s);
    absender->setLand(u"Deutschland"_s);
    absender->setEmailAdresse(u"studio@lindqvist-design.example"_s);
    absender->setTelefonNummer(u"+49 40 555 0123"_s);
    absender->setBankVerbindungIban(u"DE02 1203 0000 0000 2020 51"_s);
    absender->setBankVerbindungBic(u"BYLADEM1001"_s);
    absender->setBankVerbindungInstitut(u"Musterbank Hamburg"_s);
    absender->setSteuerNummer(u"22/815/08154"_s);
    absender->setUmsatzsteuerId(u"DE123456789"_s);
    absender->setLogoImageBinary(logo());

    const QList<QStringList> kunden{{u"Nordlicht Verlag GmbH"_s, u"Jonas Berger"_s, u"Am Kai 3"_s, u"24103"_s, u"Kiel"_s},
                                    {u"Café Amsel"_s, u"Lena Vogt"_s, u"Lindenallee 7"_s, u"20259"_s, u"Hamburg"_s},
                                    {u"Brightwater Studios Ltd"_s, u"Oliver Hayes"_s, u"14 Dock Street"_s,
                                     u"BS1 4RT"_s, u"Bristol"_s}};
    QList<FKREmpfaenger *> empfaenger;
    for (const QStringList &k : kunden) {
        auto *e = moc.insertNewObject<FKREmpfaenger>();
        e->setFirma(k[0]);
        e->setName(k[1]);
        e->setStrasse(k[2]);
        e->setPlz(k[3]);
        e->setOrt(k[4]);
        empfaenger.append(e);
    }

    const QList<Dokument> dokumente{
        {3, "Rechnung: 2026-031", 0, 2, 14, false, false,
         {{"Buchumschlag", "Gestaltung des Umschlags „Küstenwege“, drei Entwürfe", "1", "1450"},
          {"Satz", "Innenteil, 240 Seiten", "240", "4.5"}}},
        {2, "Angebot: 2026-032", 1, 1, 30, false, false,
         {{"Logo", "Wort-Bild-Marke mit zwei Korrekturschleifen", "1", "980"},
          {"Speisekarte", "Layout für Tisch- und Wandkarte", "2", "320"}}},
        {1, "Anschreiben: Portfolio", 2, 0, 0, false, false, {}},
        {3, "Rechnung: 2026-028", 0, 10, 30, true, false,
         {{"Illustration", "Kapitelvignetten", "12", "85"}, {"Reinzeichnung", "Druckdaten", "6", "70"}}},
        {4, "Honorarnote: 2026-029", 2, 6, 30, true, false,
         {{"Art Direction", "Workshop und Konzept, Stunden", "14", "95"}}},
        {3, "Rechnung: 2026-030", 1, 4, 21, true, false,
         {{"Aufkleber", "Entwurf und Druckvorstufe", "1", "240"}, {"Visitenkarten", "Gestaltung", "1", "180"}}},
        {3, "Rechnung: 2026-021", 0, 45, 14, true, false,
         {{"Katalog", "Frühjahrsprogramm, 48 Seiten", "48", "38"}}},
        {5, "Mahnung für: Rechnung: 2026-019", 1, 20, 7, true, false,
         {{"Fotografie", "Produktbilder, halber Tag", "1", "450"}}},
        {4, "Honorarnote: 2026-022", 2, 40, 14, true, false,
         {{"Motion Design", "Animierter Vorspann, Stunden", "22", "110"}}},
        {3, "Rechnung: 2026-012", 0, 80, 14, true, true,
         {{"Plakat", "A1, zwei Motive", "2", "560"}, {"Anpassungen", "Formate für Social Media", "5", "60"}}},
        {3, "Rechnung: 2026-015", 1, 65, 14, true, true, {{"Website", "Startseite und drei Unterseiten", "1", "2400"}}},
        {4, "Honorarnote: 2026-017", 2, 55, 30, true, true, {{"Storyboard", "Werbespot, 30 Sekunden", "1", "1200"}}},
    };

    const QDateTime jetzt = QDateTime::currentDateTime();
    for (const Dokument &d : dokumente) {
        auto *r = moc.insertNewObject<FKRRechnung>();
        r->setDokumentArt(d.art);
        r->setRechnungsNummer(QString::fromUtf8(d.nummer));
        r->setEmpfaenger(empfaenger[d.empfaenger]);
        r->setAbsender(absender);
        r->setSprache(d.empfaenger == 2 ? 2 : 1);
        r->setLayout(d.empfaenger + 1);
        const QDateTime datum = jetzt.addDays(-d.tageSeitRechnung);
        r->setRechnungsDatum(datum);
        r->setLieferDatum(datum);
        r->setFaelligkeitsDatum(datum.addDays(d.zahlungsziel));
        r->setBrutto(true);
        r->setMwStSatz(dec("0.19"));
        r->setRabatt(Decimal(0));
        r->setZuschlag(Decimal(0));
        r->setSkonto(dec("0.02"));
        r->setSkontoZeitraum(10);
        r->setRechnungsTextAnrede(d.empfaenger == 2 ? u"Dear Mr Hayes,"_s : u"Sehr geehrte Damen und Herren,"_s);
        r->setRechnungsText(d.empfaenger == 2 ? u"thank you for your order. I am pleased to invoice the following work:"_s
                                              : u"vielen Dank für Ihren Auftrag. Ich erlaube mir, folgende Leistungen zu berechnen:"_s);
        r->setVersandt(d.versandt);
        r->setBezahlt(d.bezahlt);
        if (d.bezahlt)
            r->setBezahltDatum(datum.addDays(d.zahlungsziel - 3));
        qint64 nummer = 1;
        for (const Posten &p : d.posten) {
            auto *posten = moc.insertNewObject<FKRPosten>();
            posten->setPostenNummer(nummer++);
            posten->setPostenBezeichnung(QString::fromUtf8(p.bezeichnung));
            posten->setPostenBeschreibung(QString::fromUtf8(p.beschreibung));
            posten->setAnzahl(dec(p.anzahl));
            posten->setEinzelbetrag(dec(p.preis));
            posten->setRechnung(r);
        }
    }
}
