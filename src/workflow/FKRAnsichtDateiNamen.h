#pragma once

#include <QDateTime>
#include <QString>

// The names of the files the document view writes for a document: the archive copy made when it
// is sent, and the name proposed when it is saved as PDF. Both begin with the moment
// ("2026-11-25 10.15.42", so a folder of them sorts by date in every locale) and the document's
// number, and both are names every desktop's file system accepts as they stand: path separators
// become dashes, a colon before a blank (as in "Rechnung: 17") is dropped and any other colon
// becomes a dot; reserved and control characters are left out. Blanks stay blanks.
class FKRAnsichtDateiNamen
{
public:
    FKRAnsichtDateiNamen() = delete;

    // "<date and time>-<number>-archived.pdf".
    static QString archivDateiName(const QDateTime &moment, const QString &nummer);

    // "<date and time>-<number>.pdf".
    static QString exportVorschlag(const QDateTime &moment, const QString &nummer);

private:
    static QString dateiName(const QString &text);
};
