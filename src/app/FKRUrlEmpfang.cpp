#include "FKRUrlEmpfang.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QLockFile>
#include <QMap>
#include <QPointer>
#include <QStringDecoder>
#include <QTimer>

#include <algorithm>

// A client that is owed no answer and stays silent for kStilleFrist (with half a line sent, or
// none) loses its connection; no client holds up any other.
namespace {
constexpr int kStilleFristMs = 10000;
constexpr int kVerbindungsPruefungMs = 1000;
constexpr int kSperrFristMs = 3000;
const QByteArray kGespeichert = QByteArrayLiteral("stored");
const QByteArray kGekommen = QByteArrayLiteral("ok");
const QByteArray kAbgelehnt = QByteArrayLiteral("refused ");

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

// An answer is one line whatever the reason says.
QByteArray ablehnung(const QString &grund)
{
    QByteArray zeile = kAbgelehnt + grund.toUtf8();
    for (char &zeichen : zeile) {
        if (static_cast<unsigned char>(zeichen) < 0x20 || zeichen == 0x7f)
            zeichen = ' ';
    }
    return zeile;
}

int restZeit(const QDeadlineTimer &frist)
{
    return int(qMax<qint64>(0, frist.remainingTime()));
}

} // namespace

// One client of the running program: its unfinished line and the answers it is owed. Answers
// are written in the order of the lines, however the handling of the URLs interleaves.
class FKRUrlEmpfang::Verbindung : public QObject
{
public:
    explicit Verbindung(QLocalSocket *socket) : QObject(socket), m_socket(socket)
    {
        m_stille.setSingleShot(true);
        m_stille.setInterval(kStilleFristMs);
        QObject::connect(&m_stille, &QTimer::timeout, m_socket, [socket = m_socket] {
            qWarning("Dropping a URL client: silent too long");
            socket->abort();
            socket->deleteLater();
        });
    }

    QLocalSocket *socket() const { return m_socket; }
    QByteArray puffer;
    bool verwirftBisZeilenende = false;

    qint64 neueZeile() { return m_vergeben++; }
    void antworte(qint64 nummer, const QByteArray &antwort)
    {
        if (nummer < m_geschrieben || m_fertig.contains(nummer))
            return; // answered already
        m_fertig.insert(nummer, antwort);
        while (m_fertig.contains(m_geschrieben))
            m_socket->write(m_fertig.take(m_geschrieben++) + '\n');
        // Out before any alert the program shows next.
        m_socket->flush();
        pruefeStille();
    }
    // While the program owes an answer the client rightly waits; otherwise it should speak.
    void pruefeStille()
    {
        if (m_geschrieben == m_vergeben)
            m_stille.start();
        else
            m_stille.stop();
    }

private:
    QLocalSocket *m_socket;
    QTimer m_stille;
    qint64 m_vergeben = 0;
    qint64 m_geschrieben = 0;
    QMap<qint64, QByteArray> m_fertig;
};

bool FKRUrlEmpfang::Uebergabe::allesErledigt() const
{
    return status == Status::Beantwortet
        && std::all_of(ergebnisse.cbegin(), ergebnisse.cend(), [](const FKRUrlErgebnis &e) { return e.erledigt; });
}

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

FKRUrlEmpfang::Uebergabe FKRUrlEmpfang::uebergebeAnLaufendeInstanz(const QString &name, const QStringList &nachrichten,
                                                                  int wartezeitMs)
{
    Uebergabe uebergabe;
    const QDeadlineTimer frist(wartezeitMs);
    QLocalSocket socket;
    socket.connectToServer(name);
    if (!socket.waitForConnected(qMin(kVerbindungsPruefungMs, restZeit(frist))))
        return uebergabe;
    // From here on a program is there: whatever goes wrong is its answer missing, never a
    // reason to start a second one.
    uebergabe.status = Uebergabe::Status::OhneAntwort;

    const QStringList zeilen = nachrichten.isEmpty() ? QStringList{QString()} : nachrichten;
    QByteArray daten;
    for (const QString &zeile : zeilen)
        daten += alsZeile(zeile);
    socket.write(daten);
    // A program that refuses a long line early may end the connection before all is written;
    // its answer is read all the same.
    while (socket.bytesToWrite() > 0 && socket.state() == QLocalSocket::ConnectedState)
        socket.waitForBytesWritten(restZeit(frist));

    while (uebergabe.ergebnisse.size() < zeilen.size()) {
        if (!socket.canReadLine() && !socket.waitForReadyRead(restZeit(frist)) && !socket.canReadLine())
            return uebergabe;
        while (socket.canReadLine() && uebergabe.ergebnisse.size() < zeilen.size()) {
            QByteArray antwort = socket.readLine();
            antwort.chop(1);
            const bool nurKommen = zeilen.at(uebergabe.ergebnisse.size()).isEmpty();
            if (antwort == (nurKommen ? kGekommen : kGespeichert))
                uebergabe.ergebnisse.append(FKRUrlErgebnis{true});
            else if (antwort.startsWith(kAbgelehnt))
                uebergabe.ergebnisse.append(FKRUrlErgebnis{false, QString::fromUtf8(antwort.mid(kAbgelehnt.size()))});
            else
                uebergabe.ergebnisse.append(FKRUrlErgebnis{false, QStringLiteral("unexpected answer: ") + QString::fromUtf8(antwort.left(80))});
        }
    }
    uebergabe.status = Uebergabe::Status::Beantwortet;
    return uebergabe;
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
    // Read in pieces no longer than the longest line: a line that is longer is refused and its
    // rest dropped as it comes, so no client makes the program hold more than that.
    socket->setReadBufferSize(kLaengsteZeile);
    auto *verbindung = new Verbindung(socket); // goes with the socket
    connect(socket, &QLocalSocket::readyRead, verbindung, [this, verbindung] { liesZeilen(*verbindung); });
    verbindung->pruefeStille();
    if (socket->bytesAvailable() > 0)
        liesZeilen(*verbindung);
    if (socket->state() == QLocalSocket::UnconnectedState)
        socket->deleteLater(); // gone already, for instance one that only looked whether anyone listens
}

void FKRUrlEmpfang::liesZeilen(Verbindung &verbindung)
{
    QByteArray &puffer = verbindung.puffer;
    puffer += verbindung.socket()->readAll();
    for (;;) {
        const qsizetype ende = puffer.indexOf('\n');
        if (verbindung.verwirftBisZeilenende) {
            puffer.remove(0, ende < 0 ? puffer.size() : ende + 1);
            if (ende < 0)
                break;
            verbindung.verwirftBisZeilenende = false;
            continue;
        }
        if (ende < 0) {
            // Room for the longest line and its "\r".
            if (puffer.size() > kLaengsteZeile + 1) {
                verbindung.antworte(verbindung.neueZeile(), ablehnung(QStringLiteral("the URL is longer than %1 bytes").arg(kLaengsteZeile)));
                verbindung.verwirftBisZeilenende = true;
                puffer.clear();
            }
            break;
        }
        QByteArray zeile = puffer.left(ende);
        puffer.remove(0, ende + 1);
        if (zeile.endsWith('\r'))
            zeile.chop(1);
        bearbeite(verbindung, zeile);
    }
    verbindung.pruefeStille();
}

void FKRUrlEmpfang::bearbeite(Verbindung &verbindung, const QByteArray &zeile)
{
    const qint64 nummer = verbindung.neueZeile();
    if (zeile.size() > kLaengsteZeile) {
        verbindung.antworte(nummer, ablehnung(QStringLiteral("the URL is longer than %1 bytes").arg(kLaengsteZeile)));
        return;
    }
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(zeile);
    if (utf8.hasError()) {
        verbindung.antworte(nummer, ablehnung(QStringLiteral("the message is not UTF-8 text")));
        return;
    }
    if (text.isEmpty()) {
        verbindung.antworte(nummer, kGekommen);
        QMetaObject::invokeMethod(this, &FKRUrlEmpfang::aktivierungAngefordert, Qt::QueuedConnection);
        return;
    }
    if (!m_bearbeiter) {
        verbindung.antworte(nummer, ablehnung(QStringLiteral("this program takes no URLs")));
        return;
    }
    // Handled from the event loop, not inside this read: the import may save, and answers when
    // it has decided, before it shows anything to the user.
    const FKRUrlAntwort antwort = [ziel = QPointer<Verbindung>(&verbindung), nummer](const FKRUrlErgebnis &ergebnis) {
        if (ziel) // a sender that has gone learns nothing
            ziel->antworte(nummer, ergebnis.erledigt ? kGespeichert : ablehnung(ergebnis.grund));
    };
    QMetaObject::invokeMethod(
        this,
        [this, text, antwort] {
            if (m_bearbeiter)
                m_bearbeiter(text, antwort);
            else
                antwort({false, QStringLiteral("this program takes no URLs")});
        },
        Qt::QueuedConnection);
}
