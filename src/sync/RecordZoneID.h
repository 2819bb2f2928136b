#pragma once

#include <QString>

// A record zone of the user's private database. Zones belong to whoever the server knows the
// connecting user as, so the owner is only ever the current user here.
struct RecordZoneID {
    QString zoneName;

    bool operator==(const RecordZoneID &) const = default;
};
