#pragma once

#include <QByteArray>
#include <QDir>
#include <QString>

#include <cstdlib>

// Points the XDG folders and HOME of this process below `wurzel`, so that nothing a test or a
// fuzz input does ever reads or writes the developer's real settings or data folders.
inline void richtePrivatesHeimEin(const QByteArray &wurzel)
{
    for (const char *name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME"}) {
        const QByteArray ordner = wurzel + '/' + QByteArray(name).mid(4).toLower();
        QDir().mkpath(QString::fromUtf8(ordner));
        setenv(name, ordner.constData(), 1);
    }
    setenv("HOME", wurzel.constData(), 1);
}
