#include "FKRRechnungsKopie.h"

#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "ManagedObjectContext.h"

#include <algorithm>

void FKRRechnungsKopie::kopiereInhalt(const FKRRechnung &quelle, FKRRechnung &kopie)
{
    kopie.setAbsender(quelle.absender());
    kopie.setEmpfaenger(quelle.empfaenger());
    kopie.setBrutto(quelle.brutto());
    kopie.setDokumentArt(quelle.dokumentArt());
    kopie.setFaelligkeitsDatum(quelle.faelligkeitsDatum());
    kopie.setLayout(quelle.layout());
    kopie.setLieferDatum(quelle.lieferDatum());
    kopie.setMwStSatz(quelle.mwStSatz());
    kopie.setRabatt(quelle.rabatt());
    kopie.setRechnungsDatum(quelle.rechnungsDatum());
    kopie.setRechnungsNummer(quelle.rechnungsNummer());
    kopie.setRechnungsText(quelle.rechnungsText());
    kopie.setRechnungsText2(quelle.rechnungsText2());
    kopie.setRechnungsTextAnrede(quelle.rechnungsTextAnrede());
    kopie.setSkonto(quelle.skonto());
    kopie.setSkontoZeitraum(quelle.skontoZeitraum());
    kopie.setSprache(quelle.sprache());
    kopie.setWaehrung(quelle.waehrung());
    kopie.setZuschlag(quelle.zuschlag());

    ManagedObjectContext *context = kopie.managedObjectContext();
    if (!context)
        return;
    // In item-number order, so the copy's items are created in the order the user sees them.
    QList<FKRPosten *> posten = quelle.posten();
    std::stable_sort(posten.begin(), posten.end(), [](const FKRPosten *a, const FKRPosten *b) {
        return a->postenNummer() < b->postenNummer();
    });
    for (const FKRPosten *original : posten) {
        auto *neu = context->insertNewObject<FKRPosten>();
        neu->setAnzahl(original->anzahl());
        neu->setEinzelbetrag(original->einzelbetrag());
        neu->setPostenBeschreibung(original->postenBeschreibung());
        neu->setPostenBezeichnung(original->postenBezeichnung());
        neu->setPostenNummer(original->postenNummer());
        neu->setRechnung(&kopie);
    }
}
