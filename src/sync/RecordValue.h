#pragma once

#include <QByteArray>
#include <QString>

#include <variant>

// A reference to another record of the same zone, by record name. Deleting the target does
// nothing to the referring record.
struct RecordReference {
    QString recordName;

    bool operator==(const RecordReference &) const = default;
};

// A file's bytes, carried with its record.
struct RecordAsset {
    QByteArray bytes;

    bool operator==(const RecordAsset &) const = default;
};

// A field of a record: a number (64-bit, exact), a text, a reference or an asset.
using RecordValue = std::variant<qint64, QString, RecordReference, RecordAsset>;
