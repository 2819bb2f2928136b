#pragma once

#include "FKRPDFLayout.h"

// The default page: all of the sender's details in a narrow column on the right of the first
// page (address, contact data, tax numbers, bank details and the document's dates, with the page
// number below them) and the sender's logo to the left of the column's top. The body is narrowed
// to 12 cm so that it stays clear of the column.
class FKRPDFSeitenleisteLayout : public FKRPDFLayout
{
    Q_OBJECT

public:
    explicit FKRPDFSeitenleisteLayout(QObject *parent = nullptr);

    double schreibeInhaltFuerRechnung(FKRRechnung &rechnung, double y) override;
    // In the column under the dates on the first page, at 4.5 cm on every further page.
    void schreibeSeitennummer(uint seite, FKRRechnung &rechnung) override;
    using FKRPDFLayout::schreibeSeitennummer;
    // The dates for a sender with a letterhead image, which has no column: right-aligned in a
    // block that ends at the right edge of the narrowed body.
    double schreibeDatumsAngaben(FKRRechnung &rechnung, double y) override;

    // The column: address, contact, tax and bank details, then the dates. For a sender with a
    // letterhead image only the dates, in their own block; nothing without a sender.
    virtual double schreibeSeitenleiste(FKRRechnung &rechnung, double y);
    // The sender's logo, its right edge half a centimetre left of the column, its top at y.
    virtual double zeichneLogo(FKRRechnung &rechnung, double y);

    // ---- Column position (points), set for every document ----
    double absenderBlockXPosition = 0.0;
    double absenderBlockYPosition = 0.0;
    double absenderBlockWidth = 0.0;
};
