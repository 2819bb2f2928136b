// A whole document to a finished PDF file, as the document view asks for it: layout, text
// setting, drawing, the protection pass and the write to disk. Targets: a one-page invoice of
// 10 items under 10 ms, an invoice of 200 items (eleven pages) under 150 ms, and a text field of
// 1 MB, one unbroken word or ordinary words, well under a second: setting text takes time in
// proportion to its length, whatever the text.
#include "FKRAbsender.h"
#include "FKREmpfaenger.h"
#include "FKRPDFLayout.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "ManagedObjectContext.h"
#include "QBBenutzerEinstellungen.h"

#include <QBuffer>
#include <QDateTime>
#include <QGuiApplication>
#include <QImage>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>

namespace {

Decimal d(const std::string &text)
{
    return *Decimal::parse(text);
}

QByteArray logo()
{
    QImage bild(360, 120, QImage::Format_RGB32);
    bild.fill(QColor(0x1f, 0x5f, 0x8b));
    bild.setDotsPerMeterX(5669);
    bild.setDotsPerMeterY(5669);
    QByteArray daten;
    QBuffer puffer(&daten);
    puffer.open(QIODevice::WriteOnly);
    bild.save(&puffer, "PNG");
    return daten;
}

// An invoice as users write them: full sender with logo, recipient, texts, and items of which
// every fifth has a description.
FKRRechnung *rechnung(ManagedObjectContext &context, int anzahlPosten)
{
    auto *absender = context.insertNewObject<FKRAbsender>();
    absender->setFirma(QStringLiteral("Brandt & Söhne Webdesign"));
    absender->setName(QStringLiteral("Johanna Brandt"));
    absender->setStrasse(QStringLiteral("Lindenallee 12"));
    absender->setPlz(QStringLiteral("04109"));
    absender->setOrt(QStringLiteral("Leipzig"));
    absender->setEmailAdresse(QStringLiteral("post@brandt-webdesign.example"));
    absender->setUmsatzsteuerId(QStringLiteral("DE123456789"));
    absender->setBankVerbindungIban(QStringLiteral("DE02 8605 5592 1090 0012 34"));
    absender->setLogoImageBinary(logo());
    auto *empfaenger = context.insertNewObject<FKREmpfaenger>();
    empfaenger->setFirma(QStringLiteral("Gärtnerei Lehmann GmbH"));
    empfaenger->setStrasse(QStringLiteral("Am Mühlgraben 3"));
    empfaenger->setPlz(QStringLiteral("01067"));
    empfaenger->setOrt(QStringLiteral("Dresden"));

    auto *r = context.insertNewObject<FKRRechnung>();
    r->setAbsender(absender);
    r->setEmpfaenger(empfaenger);
    r->setRechnungsNummer(QStringLiteral("Rechnung RE-2024-017"));
    const QDateTime datum(QDate(2024, 3, 15), QTime(10, 0));
    r->setRechnungsDatum(datum);
    r->setLieferDatum(datum);
    r->setFaelligkeitsDatum(datum.addDays(14));
    r->setRechnungsTextAnrede(QStringLiteral("Sehr geehrter Herr Lehmann,"));
    r->setRechnungsText(QStringLiteral("vielen Dank für Ihren Auftrag. Wir berechnen Ihnen folgende Leistungen:"));
    r->setRechnungsText2(QStringLiteral("Mit freundlichen Grüßen\nJohanna Brandt"));
    for (int i = 1; i <= anzahlPosten; ++i) {
        auto *p = context.insertNewObject<FKRPosten>();
        p->setPostenNummer(i);
        p->setPostenBezeichnung(QStringLiteral("Leistung %1").arg(i));
        if (i % 5 == 0)
            p->setPostenBeschreibung(QStringLiteral("Umsetzung nach Absprache, mit Test"));
        p->setAnzahl(d(std::to_string(1 + i % 5) + (i % 2 ? ".5" : "")));
        p->setEinzelbetrag(d(std::to_string(40 + i % 60) + ".90"));
        r->addPostenObject(p);
    }
    return r;
}

// Renders the document to a file once per iteration; the number of pages of the last file.
int rendereWiederholt(benchmark::State &state, FKRRechnung &dokument)
{
    QTemporaryDir ordner;
    const QString pfad = ordner.filePath(QStringLiteral("rechnung.pdf"));
    FKRPDFLayout &layout = FKRPDFLayout::fuerRechnung(dokument);
    for (auto _ : state) {
        layout.erstellePDFDateiImPfad(pfad, dokument);
        if (!layout.letzteDateiGeschrieben()) {
            state.SkipWithError(layout.letzterSchreibFehler().toStdString().c_str());
            break;
        }
    }
    return layout.seitennummer();
}

void rendereRechnung(benchmark::State &state)
{
    QBBenutzerEinstellungen::sharedInstance()->setPdfDocumentSizeIsLetter(false);
    ManagedObjectContext context;
    FKRRechnung *dokument = rechnung(context, int(state.range(0)));
    state.counters["pages"] = rendereWiederholt(state, *dokument);
}
BENCHMARK(rendereRechnung)->Arg(10)->Arg(200)->Unit(benchmark::kMillisecond);

// The invoice of 10 items whose text field holds state.range(0) characters: one word without a
// break opportunity (a pasted hash, a URL, a run of one key held down), or ordinary prose.
void rendereLangenText(benchmark::State &state, bool einWort)
{
    QBBenutzerEinstellungen::sharedInstance()->setPdfDocumentSizeIsLetter(false);
    ManagedObjectContext context;
    FKRRechnung *dokument = rechnung(context, 10);
    const QString baustein = einWort ? QStringLiteral("Rechnungsbetrag") : QStringLiteral("wir berechnen Ihnen ");
    QString text;
    text.reserve(state.range(0));
    while (text.size() < state.range(0))
        text += baustein;
    text.truncate(state.range(0));
    dokument->setRechnungsText(text);
    rendereWiederholt(state, *dokument);
    state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK_CAPTURE(rendereLangenText, einWort, true)
    ->Arg(100'000)->Arg(300'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(rendereLangenText, woerter, false)
    ->Arg(100'000)->Arg(300'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

} // namespace

// Drawing text needs a GUI application, which runs without a display here.
int main(int argc, char **argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QGuiApplication anwendung(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
