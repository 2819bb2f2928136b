#pragma once

#include "Decimal.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <optional>
#include <variant>

// Every stored attribute may be absent. Absence is `std::monostate`; a large binary value that
// has not been read from the file yet is `BlobFault` and is fetched on first access.
struct BlobFault {
    bool operator==(const BlobFault &) const = default;
};

using AttributeValue = std::variant<std::monostate, bool, qint64, Decimal, QString, QDateTime, QByteArray, BlobFault>;

// The kinds of stored attributes, one per C++ property type of the entities.
enum class AttributeKind {
    Flag,        // std::optional<bool>, INTEGER 0/1
    Integer,     // std::optional<qint64>, INTEGER
    DecimalNum,  // std::optional<Decimal>, exact TEXT
    Text,        // std::optional<QString>, TEXT; formatted texts keep their plain characters
    Date,        // std::optional<QDateTime>, INTEGER milliseconds since 1970-01-01 UTC
    Binary,      // std::optional<QByteArray>, BLOB, read on first access
};
