#pragma once

// Operations of a cloud file system run to their completion, with results a test can compare.

#include "CDECloudFileSystem.h"
#include "harness/Prozesse.h"

#include <QFile>
#include <gtest/gtest.h>

namespace dateisystem {

using namespace Qt::Literals::StringLiterals;
using Fehler = std::optional<RecordError>;

// Runs an operation and waits for its completion.
inline Fehler fertig(const std::function<void(CDECloudFileSystem::Completion)> &operation)
{
    std::optional<Fehler> ergebnis;
    operation([&](Fehler fehler) { ergebnis = std::move(fehler); });
    EXPECT_TRUE(harness::warteBis([&] { return ergebnis.has_value(); }, 30000)) << "no completion";
    return ergebnis.value_or(RecordError(0, u"no completion"_s));
}

// "name:size" of every item, sorted; the error's code instead when there is one.
inline QStringList liste(CDECloudFileSystem &fs, const QString &pfad)
{
    std::optional<QStringList> ergebnis;
    fs.contentsOfDirectoryAtPath(pfad, [&](const QList<CDECloudItem> &items, Fehler fehler) {
        QStringList zeilen;
        for (const CDECloudItem &item : items)
            zeilen << item.name + u':' + (item.isDirectory ? u"dir"_s : QString::number(item.size));
        zeilen.sort();
        ergebnis = fehler ? QStringList{QString::number(fehler->code())} : zeilen;
    });
    EXPECT_TRUE(harness::warteBis([&] { return ergebnis.has_value(); }, 30000));
    return ergebnis.value_or(QStringList{});
}

inline QByteArray inhalt(const QString &pfad)
{
    QFile datei(pfad);
    return datei.open(QIODevice::ReadOnly) ? datei.readAll() : QByteArray();
}

inline QString gibtEs(CDECloudFileSystem &fs, const QString &pfad)
{
    QString ergebnis;
    fs.fileExistsAtPath(pfad, [&](bool ja, bool ordner, Fehler fehler) {
        ergebnis = fehler ? QString::number(fehler->code()) : !ja ? u"nein"_s : ordner ? u"ordner"_s : u"datei"_s;
    });
    EXPECT_TRUE(harness::warteBis([&] { return !ergebnis.isEmpty(); }, 30000));
    return ergebnis;
}

} // namespace dateisystem
