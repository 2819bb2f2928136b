#pragma once

#include "Decimal.h"

#include <QMetaType>

// Lets Decimal travel in QVariant and serve as the type of Q_PROPERTYs, so settings and
// entities can be read and written by property name. Include this header instead of
// declaring the metatype again.
Q_DECLARE_METATYPE(Decimal)
