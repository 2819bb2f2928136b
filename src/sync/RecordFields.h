#pragma once

#include "Record.h"

#include <QStringList>

// How a record's fields lie on the server: numbers, texts and references as one JSON object
// ({"n": "42"}, {"t": "text"}, {"r": "record name"}; numbers as text so that no 64-bit value passes
// through a double), assets in rows of their own.
namespace RecordFields {

QByteArray toJson(const Record &record);
// Adds the fields of `json` that `desiredKeys` asks for (all when it is empty); false for a value
// of no known kind.
bool addFromJson(Record &record, const QByteArray &json, const QStringList &desiredKeys);
bool wanted(const QString &key, const QStringList &desiredKeys);

} // namespace RecordFields
