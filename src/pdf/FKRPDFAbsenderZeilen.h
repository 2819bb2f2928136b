#pragma once

#include <QFont>
#include <QStringList>

#include <optional>

class FKRAbsender;
class FKRPDFWriter;

// The lines in which the page layouts print the sender's details: the address, the contact
// data, the tax numbers and the bank details. Each group holds only the lines whose field is
// set (an empty text counts as set and prints as a blank line); labels are in the document's
// language. The layouts decide where the groups go and in which size they are printed.
class FKRPDFAbsenderZeilen
{
public:
    FKRPDFAbsenderZeilen() = delete;

    // Company, name, street, postcode and town on one line, country.
    static QStringList adresse(const FKRAbsender &absender);
    // E-mail address, telephone and fax number, without labels.
    static QStringList kontakt(const FKRAbsender &absender);
    // "VAT ID: …" and "Tax number: …".
    static QStringList steuer(const FKRAbsender &absender, std::optional<int> sprache);
    // The heading "Bank details" when any bank field is set, then institute, IBAN and BIC.
    static QStringList bank(const FKRAbsender &absender, std::optional<int> sprache);

    // Draws `zeilen` one below the other, left-aligned in (x, weite) from y; returns the y below
    // the last line, or y when there are none.
    static double schreibe(FKRPDFWriter &writer, const QStringList &zeilen, const QFont &font, double x, double weite,
                           double y);
};
