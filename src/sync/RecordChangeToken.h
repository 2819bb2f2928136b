#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <optional>

// A position in a zone's change feed: the zone's generation (new each time the zone is created)
// and the zone's change counter, which every writing transaction raises by one before it writes.
// Writers of a zone wait for each other on that counter, so counter order is commit order and a
// reader that has seen every change up to N has seen every change that will ever carry N or less.
struct RecordChangeToken {
    qint64 generation = 0;
    qint64 counter = 0;

    bool operator==(const RecordChangeToken &) const = default;

    // "generation:counter", for a cache file; nullopt for anything else.
    QByteArray toBytes() const;
    static std::optional<RecordChangeToken> fromBytes(const QByteArray &bytes);
};
