#pragma once

#include "ManagedObjectModel.h"

#include <QString>

// Whether a file is a store this version of the program can work with. Asked of a store that
// comes from outside (a restored or imported backup) before it takes the place of the user's
// store, so that the program never ends up with data it cannot open.
//
// The file is opened exactly as the program opens its store: a write-ahead log next to it
// (`path` + "-wal") is folded in, and an older store is brought to the current schema in
// place, as the next start would do it. Nothing else is written; any bytes at all may be
// handed in and the answer is a verdict, never a crash or an exception.
class StoreCheck
{
public:
    enum class Verdict {
        Usable,
        Empty,          // no bytes at all
        NotADatabase,   // not an SQLite file
        Damaged,        // an SQLite file that fails its integrity check or cannot be read through
        Foreign,        // an SQLite file of another program: no store metadata, views or triggers
        NewerVersion,   // written by a newer version of the program
        CannotMigrate,  // the migration to the current schema fails
        CannotOpen,     // not a regular file, or it cannot be opened at all
    };

    struct Result {
        Verdict verdict = Verdict::Usable;
        QString reason; // one English line naming the problem; empty when usable
        bool usable() const { return verdict == Verdict::Usable; }
    };

    StoreCheck() = delete;

    static Result check(const QString &path, const ManagedObjectModel &model = ManagedObjectModel::defaultModel());

private:
    // The checks that only read: the file's kind, its metadata and its integrity.
    static Result inspect(const QString &path);
};
