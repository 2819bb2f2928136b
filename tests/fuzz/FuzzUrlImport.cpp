// A URL of the scheme as a time tracker (or anyone) may send it: read as a request, then handed
// to the item import with a document open in a stand-in editor over an in-memory context.
// Whatever the bytes: the sender learns the outcome exactly once, a refused URL changes nothing,
// and a stored item holds values a user could have typed, whose sums can be computed.
#include "FKRFehlenderWert.h"
#include "FKRImportAnfrage.h"
#include "FKRUrlImport.h"
#include "FuzzUmgebung.h"
#include "ImportEditor.h"
#include "SkriptPresenter.h"

#include <cstdlib>

namespace {

// The sums the editor shows; an item without quantity (the URL had no hours) is shown without
// them, any other failure is a fault.
void summen(const FKRRechnung &rechnung)
{
    try {
        rechnung.rechnungsSumme();
    } catch (const FKRFehlenderWert &) {
    }
}

bool einzeilig(const QString &text)
{
    for (const QChar c : text) {
        if (c.category() == QChar::Other_Control)
            return false;
    }
    return true;
}

// The request on its own, read from the bytes as an already decoded query.
void pruefeAnfrage(const QString &query)
{
    const FKRImportAnfrage anfrage = FKRImportAnfrage::lies(query);
    if (!anfrage.istAngenommen()) {
        erwarte(!anfrage.grund().isEmpty() && einzeilig(anfrage.grund()));
        return;
    }
    erwarte(einzeilig(anfrage.postenBezeichnung()) && einzeilig(anfrage.postenBeschreibung()));
    if (!anfrage.anzahl.isNaN())
        erwarte(anfrage.anzahl.sign() > 0 && anfrage.anzahl <= Decimal(1000000));
    if (!anfrage.einzelbetrag.isNaN())
        erwarte(anfrage.einzelbetrag.sign() >= 0 && anfrage.einzelbetrag.rounded(2, Decimal::Rounding::HalfAwayFromZero) == anfrage.einzelbetrag);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *daten, std::size_t groesse)
{
    const QString text = QString::fromUtf8(FuzzUmgebung::bytes(daten, groesse));
    pruefeAnfrage(text);

    ManagedObjectContext moc;
    ImportEditor editor(moc);
    erwarte(moc.save());
    SkriptPresenter presenter;
    FKRUrlImport import(presenter, [&editor] { return &editor; }, [&moc] { return moc.save(); });

    int antworten = 0;
    FKRUrlErgebnis beantwortet;
    const FKRUrlErgebnis ergebnis = import.handleGetUrlEvent(text, [&](const FKRUrlErgebnis &e) {
        ++antworten;
        beantwortet = e;
    });
    erwarte(antworten == 1 && beantwortet.erledigt == ergebnis.erledigt && beantwortet.grund == ergebnis.grund);
    const qsizetype posten = editor.dokument->posten().size();
    if (ergebnis.erledigt) {
        erwarte(posten == 3);
        summen(*editor.dokument);
    } else {
        erwarte(posten == 2 && !moc.hasChanges() && !ergebnis.grund.isEmpty() && einzeilig(ergebnis.grund));
    }

    // The model's own road for the same request: a refused one changes nothing.
    auto *modellPosten = moc.insertNewObject<FKRPosten>();
    erwarte(moc.save());
    const bool angenommen = modellPosten->setzeImportPostenDetailsFuerWithQuery(text, editor.dokument,
                                                                                moc.managedObjectModel(), moc);
    erwarte(angenommen || !moc.hasChanges());
    erwarte(moc.save());
    summen(*editor.dokument);
    return 0;
}
