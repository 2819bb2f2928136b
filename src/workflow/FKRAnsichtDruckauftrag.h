#pragma once

#include <QString>

#include <functional>

class QPdfDocument;
class QPrinter;
class QWidget;

// Prints the PDF the document view shows, page by page, exactly as it is: the printer is set
// to the document's first page size and orientation, full page without margins, and each page
// is rasterised from the PDF, laid on white paper and fitted to the sheet keeping its
// proportions (never rotated, never cut).
class FKRAnsichtDruckauftrag
{
public:
    // Confirms a print job and lets the user choose printer and pages; false cancels.
    using Dialog = std::function<bool(QPrinter &)>;

    FKRAnsichtDruckauftrag() = delete;

    // The whole job: a printer set up for `dokument` under the name `name`, confirmed by
    // `dialog`, then printed. Nothing happens for a document without pages.
    static void druckeMitDialog(QPdfDocument &dokument, const QString &name, const Dialog &dialog);

    // The system print dialog on `fenster`, offering the document's pages.
    static Dialog systemDialog(QWidget *fenster, const QPdfDocument &dokument);

    // Page size, orientation and margins of `printer` for `dokument`, before the print dialog
    // offers them to the user.
    static void richteEin(QPrinter &printer, const QPdfDocument &dokument);

    // Prints the pages the printer's range asks for (all when none was chosen). Returns the
    // number of pages printed; 0 when the document is empty or the printer cannot be opened.
    static int drucke(QPdfDocument &dokument, QPrinter &printer);
};
