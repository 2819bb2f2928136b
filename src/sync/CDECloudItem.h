#pragma once

#include <QString>

// A directory or file as the cloud file system hands it to its callers: its name (the last path
// component), its path below the root directory, and for a file its size.
struct CDECloudItem {
    QString name;
    QString path;
    bool isDirectory = false;
    qint64 size = 0;

    bool operator==(const CDECloudItem &) const = default;
};
