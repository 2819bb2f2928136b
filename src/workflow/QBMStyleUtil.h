#pragma once

#include "Decimal.h"

#include <QColor>

#include <optional>

// The accent colours of the application. The settings screen stores one of a few colour codes in
// backgroundColorRechnungen; every window that wears the accent reads it through appColor().
class QBMStyleUtil
{
public:
    QBMStyleUtil() = delete;

    // The colour of the code stored in the user's settings; the mid grey when the stored value is
    // not one of the known codes.
    static QColor appColor();

    // The colour of one code (2, 3, 4, 13, 23, 33, 43, 53, 63); nullopt for any other value,
    // a fraction or NaN included.
    static std::optional<QColor> farbeFuerCode(const Decimal &code);

    // The mid grey of code 3: the fallback accent and the background of the list's duplicate
    // action.
    static QColor mittelGrau();
};
