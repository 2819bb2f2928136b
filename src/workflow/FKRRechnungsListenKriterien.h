#pragma once

#include "FKRArrayController.h"
#include "FetchRequest.h"

#include <QList>
#include <QString>

#include <array>
#include <optional>

// The filters and orders the document list chooses from. Each is built on first use and kept
// for the life of the list, so the areas that compare with "now" keep the moment of their first
// use: a document stays in the area where the user saw it until the application starts again.
class FKRRechnungsListenKriterien
{
public:
    using Praedikat = FKRArrayController::Praedikat;

    static constexpr int kAnzahlSortierungen = 5;

    // Areas of the navigation menu.
    const Praedikat &nurEntwuerfePredicate();          // versandt == false
    const Praedikat &nurVersandteDokumentePredicate(); // sent, due later than now, unpaid
    const Praedikat &nurFaelligeDokumentePredicate();  // due before the end of today, unpaid
    const Praedikat &nurBezahlteDokumentePredicate();  // bezahlt == true

    // dokumentArt == art for the five types 1..5; nullptr for any other code.
    const Praedikat *dokumentArtPredicate(int art);

    // The sort keys of order 0..4 (due date, recipient, document date, number, payment date);
    // every order ends with the number and the recipient as tie-breaks.
    const QList<SortDescriptor> &sortDescriptors(int sortierung);
    // The text key that names order 0..4 in the column header.
    static QString titelSchluessel(int sortierung);

    // AND of the area and the type, in that order; either alone; empty for all documents.
    static Praedikat verbinde(const Praedikat *bereich, const Praedikat *art);

private:
    std::optional<Praedikat> m_entwuerfe;
    std::optional<Praedikat> m_versandte;
    std::optional<Praedikat> m_faellige;
    std::optional<Praedikat> m_bezahlte;
    std::array<std::optional<Praedikat>, 5> m_arten;
    std::array<std::optional<QList<SortDescriptor>>, kAnzahlSortierungen> m_sortierungen;
};
