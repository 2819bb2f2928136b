#pragma once

class FKRRechnung;

// The content a copy of a document takes over: the duplicate and the dunning letter start from
// it. States, payment and the frozen PDF are not copied (the copy is a new draft), nor the
// items' own VAT rates and template marks.
class FKRRechnungsKopie
{
public:
    FKRRechnungsKopie() = delete;

    // Copies the fields and relationships of `quelle` into the new document `kopie` and gives it
    // a new item for each item of `quelle`, in the same context. Leaves the number text as
    // copied and saves nothing.
    static void kopiereInhalt(const FKRRechnung &quelle, FKRRechnung &kopie);
};
