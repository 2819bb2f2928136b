#pragma once

#include <QDateTime>
#include <QObject>
#include <QString>
#include <QStringList>

#include <atomic>
#include <thread>

// The backup of the store files into an "fks" archive in the backups folder. It is written on a
// worker thread, so the window stays responsive while hundreds of megabytes are zipped, and it
// holds a consistent state of the store even when the program saves while it is being written.
class FKRDatensicherung : public QObject
{
    Q_OBJECT

public:
    // The three store files, in archive order.
    static QStringList storeDateiNamen();
    // The archive's file name for a moment: "2026-11-25 10.15.42-DataBackup.fks", so the backups
    // folder sorts by date in every locale.
    static QString archivName(const QDateTime &moment);
    // The path in `ordner` for the archive of that moment that no file takes yet: the archive
    // name, or the name numbered "… (2)-DataBackup.fks", "… (3)-…" after backups in the same second.
    static QString freierArchivPfad(const QString &ordner, const QDateTime &moment);

    FKRDatensicherung(const QString &datenOrdner, const QString &sicherungsOrdner, QObject *parent = nullptr);
    ~FKRDatensicherung() override; // waits for a running backup

    // Starts the backup of the store files present now; `fertig` follows on this object's thread.
    // An archive of the same name (an earlier backup within the same second) is kept: the new one
    // is numbered, "… (2)-DataBackup.fks".
    void starte(const QDateTime &moment);
    // The same, blocking, into `archivPfad` (the command line), which it replaces. False with
    // `fehler` on failure.
    bool erstelleJetzt(const QString &archivPfad, QString *fehler = nullptr);

    // True from starte until the work is done; `fertig` follows on the event loop after that.
    bool laeuft() const;
    void warteBisFertig();

Q_SIGNALS:
    // `archivPfad` is the written archive; on failure it is empty and `fehler` says why.
    void fertig(const QString &archivPfad, const QString &fehler);

private:
    struct Auftrag {
        QString datenOrdner;
        QStringList dateien; // the store files present when the backup was asked for
        QString ziel;
        bool ersetzen;       // replace an archive of that name, or count on to a free name
    };
    Auftrag auftrag(const QString &ziel, bool ersetzen) const;
    static bool sichere(const Auftrag &auftrag, QString *archivPfad, QString *fehler);
    static bool veroeffentliche(const QString &entwurf, const Auftrag &auftrag, QString *archivPfad, QString *fehler);
    static QString mitZaehler(const QString &archivPfad, int zaehler);
    static bool istBelegt(const QString &pfad);
    static void raeumeLiegengebliebenesAuf(const QString &ordner);

    QString m_datenOrdner;
    QString m_sicherungsOrdner;
    std::thread m_arbeit;
    std::atomic_bool m_laeuft{false};
};
