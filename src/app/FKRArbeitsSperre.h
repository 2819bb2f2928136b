#pragma once

#include <QString>
#include <QStringList>

// The hidden work files of backups, restores and imports (drafts of archives, copies of the
// store, unpacked stores under check). The process working on one holds a lock on it for as
// long as it does; so a later run can tell what a killed run left behind, which it removes,
// from what another process is still writing, which it leaves alone.
class FKRArbeitsSperre
{
public:
    // Takes the lock on the file or folder at `pfad`; it is released when the object goes (or
    // the process ends, however it ends). Without a lock (a file system that has none) the
    // object holds nothing, and leftovers are told by their age alone.
    explicit FKRArbeitsSperre(const QString &pfad);
    ~FKRArbeitsSperre();
    FKRArbeitsSperre(const FKRArbeitsSperre &) = delete;
    FKRArbeitsSperre &operator=(const FKRArbeitsSperre &) = delete;

    bool gehalten() const { return m_fd >= 0; }

    // Removes the entries of `ordner` matching one of the wildcard `muster` that nobody holds and
    // that did not change for a while (a work file is made a moment before it is locked). A
    // folder goes with its content; a link goes, never what it points to.
    static void raeumeAuf(const QString &ordner, const QStringList &muster);

private:
    int m_fd = -1;
};
