#pragma once

#include <QDateTime>
#include <QString>

// The names of the files the document view writes for a document: the archive copy made when it
// is sent, and the name proposed when it is saved as PDF. Both begin with the moment (short date
// and time) and the document's number.
class FKRAnsichtDateiNamen
{
public:
    FKRAnsichtDateiNamen() = delete;

    // "<date and time>-<number>-archived.pdf", percent-encoded with the characters a URL host may
    // hold, so no separator or blank of the date or number reaches the file system.
    static QString archivDateiName(const QDateTime &moment, const QString &nummer);

    // "<date and time>-<number>.pdf" as a name every desktop's file system accepts: path
    // separators become dashes, a colon before a blank (as in "Rechnung: 17") is dropped and any
    // other colon (as in "10:30") becomes a dot; reserved and control characters are left out.
    static QString exportVorschlag(const QDateTime &moment, const QString &nummer);
};
