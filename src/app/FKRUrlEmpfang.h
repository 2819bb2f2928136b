#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

class QLocalServer;
class QLocalSocket;

// One running program per user and data folder. The first process listens on a local socket;
// a second one (started by the desktop with a URL of the scheme) hands its URLs over and exits.
class FKRUrlEmpfang : public QObject
{
    Q_OBJECT

public:
    // The socket name for a data folder, so that separate data folders (tests, other users)
    // never meet.
    static QString socketName(const QString &datenOrdner);
    // True when a program listens on `name`.
    static bool laeuftInstanz(const QString &name);
    // Hands `nachrichten` (URLs; an empty list only asks the running program to come forward)
    // to the running program; true when it confirmed them.
    static bool uebergebeAnLaufendeInstanz(const QString &name, const QStringList &nachrichten, int wartezeitMs = 3000);

    explicit FKRUrlEmpfang(QObject *parent = nullptr);
    ~FKRUrlEmpfang() override;

    // Listens on `name`, taking over a socket left behind by a program that died. False when
    // another program is already listening there.
    bool lausche(const QString &name);

Q_SIGNALS:
    void urlEmpfangen(const QString &url);
    void aktivierungAngefordert();

private:
    void nimmAn(QLocalSocket *socket);
    void liesZeilen(QLocalSocket *socket);
    static void trenne(QLocalSocket *socket, const char *grund);

    QLocalServer *m_server = nullptr;
};
