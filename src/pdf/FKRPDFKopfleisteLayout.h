#pragma once

#include "FKRPDFLayout.h"

// The header-bar page: the sender's details in small print across the top of the first page,
// in three blocks side by side (address; contact and tax data; bank details), closed by a rule.
// Below it the common letter with its full text width, the dates block on the right and no logo.
class FKRPDFKopfleisteLayout : public FKRPDFLayout
{
    Q_OBJECT

public:
    explicit FKRPDFKopfleisteLayout(QObject *parent = nullptr);

    double schreibeInhaltFuerRechnung(FKRRechnung &rechnung, double y) override;

    // The three sender blocks, each from its own y, and the rule below the lowest of them.
    // Nothing without a sender or when the sender has a letterhead image, which already carries
    // these details.
    virtual double schreibeAbsenderBloecke(FKRRechnung &rechnung, double y);

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
