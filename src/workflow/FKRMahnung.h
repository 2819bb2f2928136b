#pragma once

class FKRRechnung;
class QDateTime;

// A dunning letter: the first, polite reminder of an invoice or fee note that was sent and is
// due but still unpaid. It starts as a copy of that document (FKRRechnungsKopie), keeps its
// recipient, items and amounts, and speaks of it in its own texts; it keeps no link to it.
class FKRMahnung
{
public:
    FKRMahnung() = delete;

    // Whether a dunning letter can be written for `rechnung`: an invoice or a fee note that was
    // sent, is unpaid and due. Never for drafts, quotes, cover letters, paid documents or
    // dunning letters themselves.
    static bool istMoeglich(const FKRRechnung &rechnung);

    // Makes `mahnung`, a fresh copy of `quelle`, the dunning letter written at `jetzt`: type 5,
    // numbered after the source; document and delivery date `jetzt`, due `zahlungsfristTage`
    // calendar days later; no cash discount; salutation, text and closing a reminder in the
    // copy's language that names the source's number, date and due date.
    static void gestalte(FKRRechnung &mahnung, const FKRRechnung &quelle, const QDateTime &jetzt,
                         int zahlungsfristTage);
};
