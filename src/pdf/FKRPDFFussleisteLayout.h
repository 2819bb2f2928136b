#pragma once

#include "FKRPDFLayout.h"

// The footer-bar page: the sender's details in small print along the bottom of the first page,
// a rule and below it three blocks side by side (address; contact and tax data; bank details),
// and the sender's logo at the top right. The body keeps the full text width and stops half a
// centimetre above the bar, on every page.
class FKRPDFFussleisteLayout : public FKRPDFLayout
{
    Q_OBJECT

public:
    explicit FKRPDFFussleisteLayout(QObject *parent = nullptr);

    double schreibeInhaltFuerRechnung(FKRRechnung &rechnung, double y) override;
    // Breaks to a new page when the text would reach into the half centimetre above the bar.
    double pruefeSeitenumbruch(const QString &text, const QFont &font, FKRRechnung &rechnung, double y) override;

    // The rule at y and the three sender blocks below it. Nothing, not even the rule, without a
    // sender or when the sender has a letterhead image.
    virtual double schreibeAbsenderBloecke(FKRRechnung &rechnung, double y);
    // The sender's logo with its right edge on the right margin, its top at y.
    virtual double zeichneLogo(FKRRechnung &rechnung, double y);

    // ---- Positions (points), set for every document ----
    double absenderBlock1XPosition = 0.0;
    double absenderBlock1YPosition = 0.0;
    double absenderBlock1Width = 0.0;
    double absenderBlock2XPosition = 0.0;
    double absenderBlock2YPosition = 0.0;
    double absenderBlock2Width = 0.0;
    double absenderBlock3XPosition = 0.0;
    double absenderBlock3YPosition = 0.0;
    double absenderBlock3Width = 0.0;
};
