#pragma once

#include <QList>
#include <QString>

#include <functional>

class ManagedObject;

struct SortDescriptor {
    QString keyPath;
    bool ascending = true;
};

// Which objects of one entity to fetch and in which order. Objects are matched in memory; the
// context holds every object of the store, so a predicate is an ordinary function.
struct FetchRequest {
    QString entityName;
    std::function<bool(const ManagedObject &)> predicate; // empty: every object
    QList<SortDescriptor> sortDescriptors;
};
