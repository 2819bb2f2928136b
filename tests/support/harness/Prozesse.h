#pragma once

// The event loop waited on with a deadline, child programs that die with the test, logged warnings.

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QProcess>
#include <QStringList>
#include <QThread>

#include <csignal>
#include <functional>
#include <memory>
#include <sys/prctl.h>

namespace harness {

// Whether `bedingung` held within `ms`, the event loop running meanwhile.
inline bool warteBis(const std::function<bool()> &bedingung, int ms = 5000)
{
    const QDeadlineTimer frist(ms);
    while (!bedingung()) {
        if (frist.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QThread::msleep(1);
    }
    return true;
}

// Lets the event loop run for `ms`, for checks that something does NOT happen.
inline void laufe(int ms) { warteBis([] { return false; }, ms); }

// A child program killed with the test process, even when a test crashes.
inline std::unique_ptr<QProcess> starteKind(const QString &programm, const QStringList &argumente,
                                            const QProcessEnvironment &umgebung = QProcessEnvironment::systemEnvironment())
{
    auto prozess = std::make_unique<QProcess>();
    prozess->setProcessEnvironment(umgebung);
    prozess->setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    prozess->start(programm, argumente);
    prozess->waitForStarted(5000);
    return prozess;
}

inline void beende(QProcess &prozess)
{
    prozess.terminate();
    if (!prozess.waitForFinished(3000))
        prozess.kill();
    prozess.waitForFinished(3000);
}

// The environment of a program run by a test: its own XDG folders and HOME below `heim`.
inline QProcessEnvironment privateUmgebung(const QString &heim)
{
    QProcessEnvironment umgebung = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME"})
        umgebung.insert(QString::fromLatin1(name), heim + u'/' + QString::fromLatin1(name).mid(4).toLower());
    umgebung.insert(QStringLiteral("HOME"), heim);
    umgebung.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    return umgebung;
}

// Every warning (and worse) while it lives.
class Warnungen
{
public:
    Warnungen() : m_vorher(qInstallMessageHandler(&Warnungen::nimm)) { zeilen().clear(); }
    ~Warnungen() { qInstallMessageHandler(m_vorher); }
    static QStringList &zeilen() { static QStringList z; return z; }

private:
    static void nimm(QtMsgType typ, const QMessageLogContext &, const QString &text)
    {
        if (typ != QtDebugMsg && typ != QtInfoMsg)
            zeilen() << text;
    }
    QtMessageHandler m_vorher;
};

} // namespace harness
