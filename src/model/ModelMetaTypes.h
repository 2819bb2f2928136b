#pragma once

#include "DecimalMetaType.h"

#include <QByteArray>
#include <QDateTime>
#include <QMetaType>
#include <QString>

#include <optional>

// The attribute types of the entities travel through QVariant (properties read by name).

Q_DECLARE_METATYPE(std::optional<bool>)
Q_DECLARE_METATYPE(std::optional<qint64>)
Q_DECLARE_METATYPE(std::optional<Decimal>)
Q_DECLARE_METATYPE(std::optional<QString>)
Q_DECLARE_METATYPE(std::optional<QDateTime>)
Q_DECLARE_METATYPE(std::optional<QByteArray>)
