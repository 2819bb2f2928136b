#pragma once

#include "FKRUrlErgebnis.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

class QLocalServer;
class QLocalSocket;

// One running program per user and data folder. The first process listens on a local socket;
// a second one (started by the desktop with a URL of the scheme) hands its URLs over, waits
// until the running program has decided about each, and exits with the outcome.
//
// The exchange: the second program writes each URL as one UTF-8 line (an empty line asks the
// running program only to come forward). The running program answers every line, in order,
// with one line: "stored" when the URL's item was saved, "ok" when it came forward, or
// "refused " and the reason. A line longer than kLaengsteZeile, or one that is no UTF-8, is
// refused like any other bad URL; the connection goes on with the next line.
class FKRUrlEmpfang : public QObject
{
    Q_OBJECT

public:
    static constexpr qsizetype kLaengsteZeile = 64 * 1024;
    // How long a sender waits for its answers: long enough for the running program to finish
    // its start-up, which URLs wait for.
    static constexpr int kAntwortFristMs = 30000;

    // What the sender learnt.
    struct Uebergabe {
        enum class Status {
            NiemandLauscht, // no program listens: the sender may become the program
            Beantwortet,    // every message has its answer in `ergebnisse`
            OhneAntwort,    // a program listens but the answers did not all come in time
        };
        Status status = Status::NiemandLauscht;
        QList<FKRUrlErgebnis> ergebnisse;
        bool allesErledigt() const;
    };

    // The running program's handling of one URL; it calls `antwort` once when decided.
    using Bearbeiter = std::function<void(const QString &url, const FKRUrlAntwort &antwort)>;

    // The socket name for a data folder, so that separate data folders (tests, other users)
    // never meet.
    static QString socketName(const QString &datenOrdner);
    // True when a program listens on `name`.
    static bool laeuftInstanz(const QString &name);
    // Hands `nachrichten` (URLs; an empty list only asks the running program to come forward)
    // to the running program and waits up to `wartezeitMs` for all answers.
    static Uebergabe uebergebeAnLaufendeInstanz(const QString &name, const QStringList &nachrichten,
                                                int wartezeitMs = kAntwortFristMs);

    explicit FKRUrlEmpfang(QObject *parent = nullptr);
    ~FKRUrlEmpfang() override;

    // Listens on `name`, taking over a socket left behind by a program that died. False when
    // another program is already listening there.
    bool lausche(const QString &name);
    // Who handles the URLs; without one every URL is refused.
    void setBearbeiter(Bearbeiter bearbeiter) { m_bearbeiter = std::move(bearbeiter); }

Q_SIGNALS:
    void aktivierungAngefordert();

private:
    class Verbindung;
    void nimmAn(QLocalSocket *socket);
    void liesZeilen(Verbindung &verbindung);
    void bearbeite(Verbindung &verbindung, const QByteArray &zeile);

    QLocalServer *m_server = nullptr;
    Bearbeiter m_bearbeiter;
};
