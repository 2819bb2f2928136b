#include "FKRUrlEmpfang.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QLockFile>
#include <QTimer>

// The exchange on the socket: the second program writes each URL as one UTF-8 line (an empty
// line asks the running program only to come forward) and the running program answers every
// line it took with "ok". A line longer than kLaengsteZeile, or a client that stays silent for
// kStilleFrist, costs the client its connection; neither holds up any other client.
namespace {
constexpr qsizetype kLaengsteZeile = 64 * 1024;
constexpr int kStilleFristMs = 10000;
constexpr int kVerbindungsPruefungMs = 1000;
constexpr int kSperrFristMs = 3000;
const QByteArray kBestaetigung = QByteArrayLiteral("ok");

// Where QLocalServer puts the socket of a name, with ".lock" appended: a file beside it that
// serialises two programs starting at the same moment.
QString sperrPfad(const QString &name)
{
    const QString socketPfad = name.startsWith(QLatin1Char('/')) ? name : QDir::tempPath() + QLatin1Char('/') + name;
    return socketPfad + QStringLiteral(".lock");
}

// A URL carries no line breaks; one inside would split the message, so it is sent escaped.
QByteArray alsZeile(const QString &nachricht)
{
    QByteArray zeile = nachricht.toUtf8();
    zeile.replace('\r', "%0D").replace('\n', "%0A");
    return zeile + '\n';
}

int restZeit(const QDeadlineTimer &frist)
{
    return int(qMax<qint64>(0, frist.remainingTime()));
}
} // namespace

QString FKRUrlEmpfang::socketName(const QString &datenOrdner)
{
    const QFileInfo info(datenOrdner);
    QString pfad = info.canonicalFilePath();
    if (pfad.isEmpty()) // not made yet
        pfad = QDir::cleanPath(info.absoluteFilePath());
    const QByteArray hash = QCryptographicHash::hash(pfad.toUtf8(), QCryptographicHash::Sha256).toHex().left(16);
    return QStringLiteral("velmora-") + QString::fromLatin1(hash);
}

bool FKRUrlEmpfang::laeuftInstanz(const QString &name)
{
    QLocalSocket socket;
    socket.connectToServer(name);
    const bool verbunden = socket.waitForConnected(kVerbindungsPruefungMs);
    socket.abort();
    return verbunden;
}

bool FKRUrlEmpfang::uebergebeAnLaufendeInstanz(const QString &name, const QStringList &nachrichten, int wartezeitMs)
{
    const QDeadlineTimer frist(wartezeitMs);
    QLocalSocket socket;
    socket.connectToServer(name);
    if (!socket.waitForConnected(restZeit(frist)))
        return false;

    QByteArray daten;
    for (const QString &nachricht : nachrichten)
        daten += alsZeile(nachricht);
    if (nachrichten.isEmpty())
        daten = QByteArrayLiteral("\n");
    const qsizetype zeilen = daten.count('\n');
    socket.write(daten);
    while (socket.bytesToWrite() > 0) {
        if (!socket.waitForBytesWritten(restZeit(frist)))
            return false;
    }

    qsizetype bestaetigt = 0;
    while (bestaetigt < zeilen) {
        if (!socket.canReadLine() && !socket.waitForReadyRead(restZeit(frist)))
            return false;
        while (socket.canReadLine()) {
            if (socket.readLine().trimmed() != kBestaetigung)
                return false;
            ++bestaetigt;
        }
    }
    return true;
}

FKRUrlEmpfang::FKRUrlEmpfang(QObject *parent) : QObject(parent) {}

FKRUrlEmpfang::~FKRUrlEmpfang()
{
    if (m_server)
        m_server->close(); // removes the socket file
}

bool FKRUrlEmpfang::lausche(const QString &name)
{
    if (m_server && m_server->isListening())
        return m_server->serverName() == name;

    // Two programs started together must not both decide that nobody listens yet.
    QLockFile sperre(sperrPfad(name));
    if (!sperre.tryLock(kSperrFristMs))
        return false;
    if (laeuftInstanz(name))
        return false;
    // Nobody answers: whatever is left at the name belongs to a program that died.
    QLocalServer::removeServer(name);

    auto *server = new QLocalServer(this);
    server->setSocketOptions(QLocalServer::UserAccessOption);
    if (!server->listen(name)) {
        qWarning("Could not listen for URLs on %s: %s", qPrintable(name), qPrintable(server->errorString()));
        delete server;
        return false;
    }
    delete m_server;
    m_server = server;
    connect(m_server, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket *socket = m_server->nextPendingConnection())
            nimmAn(socket);
    });
    return true;
}

void FKRUrlEmpfang::nimmAn(QLocalSocket *socket)
{
    connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    // Room for one line of the longest length with its line break; a fuller buffer without a
    // line break is a line too long.
    socket->setReadBufferSize(kLaengsteZeile + 1);
    auto *stille = new QTimer(socket);
    stille->setSingleShot(true);
    stille->setInterval(kStilleFristMs);
    connect(stille, &QTimer::timeout, socket, [socket] { trenne(socket, "silent too long"); });
    connect(socket, &QLocalSocket::readyRead, this, [this, socket, stille] {
        stille->start();
        liesZeilen(socket);
    });
    stille->start();
    if (socket->bytesAvailable() > 0)
        liesZeilen(socket);
    if (socket->state() == QLocalSocket::UnconnectedState)
        socket->deleteLater(); // gone already, for instance one that only looked whether anyone listens
}

void FKRUrlEmpfang::liesZeilen(QLocalSocket *socket)
{
    while (socket->canReadLine()) {
        QByteArray zeile = socket->readLine(kLaengsteZeile + 1);
        if (!zeile.endsWith('\n')) {
            trenne(socket, "line too long");
            return;
        }
        zeile.chop(1);
        if (zeile.endsWith('\r'))
            zeile.chop(1);
        socket->write(kBestaetigung + '\n');
        // Confirmed first and handled later from the event loop: what the program does with the
        // URL (an alert, a save) must not keep the sender waiting or run inside this read.
        const QString text = QString::fromUtf8(zeile);
        QMetaObject::invokeMethod(
            this,
            [this, text] {
                if (text.isEmpty())
                    Q_EMIT aktivierungAngefordert();
                else
                    Q_EMIT urlEmpfangen(text);
            },
            Qt::QueuedConnection);
    }
    if (socket->bytesAvailable() > kLaengsteZeile)
        trenne(socket, "line too long");
}

void FKRUrlEmpfang::trenne(QLocalSocket *socket, const char *grund)
{
    qWarning("Dropping a URL client: %s", grund);
    socket->abort();
    socket->deleteLater();
}
