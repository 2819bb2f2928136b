#pragma once

// Archives read back and built entry by entry with minizip itself, independent of the code checked.

#include "../model/StoreTestSupport.h"

#include <QDirIterator>
#include <QMap>
#include <QSet>
#include <minizip/unzip.h>
#include <minizip/zip.h>

#include <algorithm>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <random>
#include <sys/stat.h>

namespace ziptest {

struct Gelesen {
    QByteArray name;
    QByteArray inhalt;
};

// Every entry with its bytes; a failure when the archive or an entry cannot be read.
inline QList<Gelesen> liesArchiv(const QString &pfad)
{
    QList<Gelesen> eintraege;
    unzFile zip = unzOpen64(QFile::encodeName(pfad).constData());
    bool gut = zip != nullptr;
    for (int rc = gut ? unzGoToFirstFile(zip) : UNZ_EOF; rc == UNZ_OK && gut; rc = unzGoToNextFile(zip)) {
        Gelesen e{QByteArray(512, 0), {}};
        unz_file_info64 info{};
        gut = unzGetCurrentFileInfo64(zip, &info, e.name.data(), 512, nullptr, 0, nullptr, 0) == UNZ_OK
              && unzOpenCurrentFile(zip) == UNZ_OK;
        e.name.truncate(qsizetype(info.size_filename));
        char puffer[65536];
        for (int n = 0; gut && (n = unzReadCurrentFile(zip, puffer, sizeof puffer)) != 0;) {
            gut = n > 0;
            e.inhalt.append(puffer, n);
        }
        gut = unzCloseCurrentFile(zip) == UNZ_OK && gut;
        eintraege.append(e);
    }
    if (zip)
        unzClose(zip);
    EXPECT_TRUE(gut) << "cannot read " << pfad.toStdString();
    return eintraege;
}

inline QStringList namen(const QList<Gelesen> &eintraege)
{
    QStringList liste;
    for (const Gelesen &e : eintraege)
        liste.append(QString::fromUtf8(e.name));
    return liste;
}

// One entry exactly as a foreign (or hostile) program might write it.
struct Roh {
    QByteArray name;
    QByteArray inhalt;
    uLong externeAttribute = uLong(S_IFREG | 0644) << 16;
    uLong gemachtVon = (uLong(3) << 8) | 30; // Unix
    int methode = Z_DEFLATED;
};

inline void baueArchiv(const QString &pfad, const QList<Roh> &eintraege)
{
    zipFile zip = zipOpen64(QFile::encodeName(pfad).constData(), APPEND_STATUS_CREATE);
    ASSERT_NE(zip, nullptr) << pfad.toStdString();
    for (const Roh &e : eintraege) {
        zip_fileinfo info{};
        info.tmz_date.tm_year = 2024;
        info.tmz_date.tm_mday = 1;
        info.external_fa = e.externeAttribute;
        ASSERT_EQ(zipOpenNewFileInZip4_64(zip, e.name.constData(), &info, nullptr, 0, nullptr, 0, nullptr, e.methode,
                                          e.methode ? 6 : 0, 0, -MAX_WBITS, DEF_MEM_LEVEL, Z_DEFAULT_STRATEGY, nullptr,
                                          0, e.gemachtVon, uLong(1) << 11, 0),
                  ZIP_OK);
        ASSERT_EQ(zipWriteInFileInZip(zip, e.inhalt.constData(), unsigned(e.inhalt.size())), ZIP_OK);
        ASSERT_EQ(zipCloseFileInZip(zip), ZIP_OK);
    }
    ASSERT_EQ(zipClose(zip, nullptr), ZIP_OK);
}

// Bytes that do not compress, like the streams of a PDF, the same for the same seed.
inline QByteArray zufallsBytes(qsizetype groesse, quint64 saat)
{
    std::mt19937_64 zufall(saat);
    QByteArray bytes(groesse, Qt::Uninitialized);
    for (qsizetype i = 0; i < groesse; i += 8) {
        const quint64 wert = zufall();
        std::memcpy(bytes.data() + i, &wert, std::size_t(std::min<qsizetype>(8, groesse - i)));
    }
    return bytes;
}

// Everything below a folder, hidden files included: path -> bytes ("<dir>" for folders).
inline QMap<QString, QByteArray> baum(const QString &ordner)
{
    QMap<QString, QByteArray> inhalt;
    QDirIterator it(ordner, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString pfad = it.next();
        QFile datei(pfad);
        inhalt.insert(pfad.mid(ordner.size()), it.fileInfo().isDir() ? QByteArray("<dir>")
                                               : datei.open(QIODevice::ReadOnly) ? datei.readAll()
                                                                                  : QByteArray("<unreadable>"));
    }
    return inhalt;
}

// The paths that differ between two pictures of a folder, for a readable failure message.
inline std::string unterschiede(const QMap<QString, QByteArray> &vorher, const QMap<QString, QByteArray> &nachher)
{
    std::string text;
    for (const QString &pfad : QSet<QString>(vorher.keyBegin(), vorher.keyEnd()) + QSet<QString>(nachher.keyBegin(), nachher.keyEnd()))
        if (vorher.value(pfad, "-") != nachher.value(pfad, "-"))
            text += " " + pfad.toStdString();
    return text;
}

inline void schreibe(const QString &pfad, const QByteArray &bytes) { storetest::writeFile(pfad, bytes); }

// Dates a file, folder or link `sekunden` back: what a run killed that long ago left behind.
inline void altere(const QString &pfad, time_t sekunden = 7200)
{
    const time_t damals = std::time(nullptr) - sekunden;
    const timespec zeiten[2] = {{damals, 0}, {damals, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, QFile::encodeName(pfad).constData(), zeiten, AT_SYMLINK_NOFOLLOW), 0) << pfad.toStdString();
}
inline QByteArray lies(const QString &pfad) { return storetest::fileBytes(pfad); }

} // namespace ziptest
