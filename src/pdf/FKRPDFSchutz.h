#pragma once

#include <QByteArray>
#include <QList>
#include <QSizeF>
#include <QString>

// The last pass over every PDF the program writes, done with libqpdf on the file as the drawing
// engine produced it:
//  - each page gets its exact media box (the drawing engine rounds it to whole points, but an
//    A4 page is 595.276 × 841.89 points);
//  - the document information gets the given title and author, and the publisher as creator
//    (FKRPDFHerausgeber);
//  - the file is encrypted with AES-128 and an owner password made of the first 28 characters of a
//    fresh UUID, with no user password: it opens without a password, printing and copying
//    are allowed, and its other permissions are protected.
class FKRPDFSchutz
{
public:
    // The finished file from the drawing engine's output `pdf`, one page size (points) per page,
    // and the title and author a reader shows. Throws std::runtime_error when `pdf` is not a
    // readable PDF.
    static QByteArray schuetze(const QByteArray &pdf, const QList<QSizeF> &seitenGroessen, const QString &titel,
                               const QString &autor);

    // The owner password of a new file.
    static QString neuesEigentuemerPasswort();
};
