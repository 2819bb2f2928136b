#pragma once

// A private desktop for the notification tests: session bus, X server and a notification daemon
// that logs what it shows. A gtest environment: the program connects to the bus once per process.

#include "Prozesse.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace harness {

using namespace Qt::Literals::StringLiterals;

struct Gezeigt {
    QString titel, text;
};

class DesktopUmgebung : public ::testing::Environment
{
public:
    static DesktopUmgebung &registriere()
    {
        auto *umgebung = new DesktopUmgebung;
        ::testing::AddGlobalTestEnvironment(umgebung);
        return *umgebung;
    }

    void SetUp() override
    {
        for (const char *programm : {"dbus-daemon", "Xvfb", "dunst", "dunstctl"})
            if (QStandardPaths::findExecutable(QString::fromLatin1(programm)).isEmpty())
                m_fehlt += QString::fromLatin1(programm) + u" is not installed; "_s;
        if (!m_fehlt.isEmpty())
            return;
        const QString daten = QStringLiteral(VELMORA_TEST_DATA "/dunst/");
        m_bus = starteKind(u"dbus-daemon"_s, {u"--config-file="_s + daten + u"sitzungsbus.conf"_s, u"--nofork"_s,
                                              u"--print-address=1"_s});
        // Without its own bus no test may run: it would reach the desktop of whoever runs it.
        const QByteArray adresse = ersteZeile(*m_bus);
        ASSERT_FALSE(adresse.isEmpty()) << "dbus-daemon did not start";
        qputenv("DBUS_SESSION_BUS_ADDRESS", adresse);
        m_x = starteKind(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-nolisten"_s, u"tcp"_s});
        const QByteArray anzeige = ersteZeile(*m_x);
        ASSERT_FALSE(anzeige.isEmpty()) << "Xvfb did not start";
        qputenv("DISPLAY", ':' + anzeige);
        qunsetenv("WAYLAND_DISPLAY");

        const QString skript = m_ordner.filePath(u"protokolliere.sh"_s);
        QFile::copy(daten + u"protokolliere.sh"_s, skript);
        QFile::setPermissions(skript, QFile::ReadOwner | QFile::ExeOwner);
        QFile vorlage(daten + u"dunstrc"_s), konfiguration(m_ordner.filePath(u"dunstrc"_s));
        ASSERT_TRUE(vorlage.open(QIODevice::ReadOnly) && konfiguration.open(QIODevice::WriteOnly));
        ASSERT_GT(konfiguration.write(vorlage.readAll().replace("@PROTOKOLL_SKRIPT@", skript.toUtf8())), 0);
        konfiguration.close();
        qputenv("VELMORA_DUNST_PROTOKOLL", protokollPfad().toUtf8());
        ASSERT_TRUE(starteDunst()) << "dunst did not take the notification service";
    }
    void TearDown() override
    {
        for (auto *prozess : {&m_dunst, &m_x, &m_bus})
            if (*prozess)
                beende(**prozess);
    }

    QString fehlt() const { return m_fehlt; }

    bool starteDunst()
    {
        m_dunst = starteKind(u"dunst"_s, {u"-conf"_s, m_ordner.filePath(u"dunstrc"_s)});
        return warteBis([] { return dienstDa(); }, 3000);
    }
    bool stoppeDunst()
    {
        beende(*m_dunst);
        return warteBis([] { return !dienstDa(); }, 3000);
    }
    static bool dienstDa()
    {
        return QDBusConnection::sessionBus().interface()->isServiceRegistered(u"org.freedesktop.Notifications"_s);
    }

    QList<Gezeigt> protokoll() const
    {
        QList<Gezeigt> ergebnis;
        QFile datei(protokollPfad());
        for (const QByteArray &zeile : datei.open(QIODevice::ReadOnly) ? datei.readAll().split('\n') : QByteArrayList()) {
            if (const QStringList t = QString::fromUtf8(zeile).split(u'\t'); t.size() == 6)
                ergebnis.append({t[2], t[3]});
        }
        return ergebnis;
    }

    static QString dunstctl(const QStringList &argumente)
    {
        const auto prozess = starteKind(u"dunstctl"_s, argumente);
        if (!prozess->waitForFinished(3000))
            beende(*prozess);
        return QString::fromUtf8(prozess->readAllStandardOutput()).trimmed();
    }
    static int angezeigt() { return dunstctl({u"count"_s, u"displayed"_s}).toInt(); }
    bool raeumeAuf() const
    {
        dunstctl({u"close-all"_s});
        QFile::remove(protokollPfad());
        return warteBis([] { return angezeigt() == 0; }, 3000);
    }

private:
    QString protokollPfad() const { return m_ordner.filePath(u"gezeigt.txt"_s); }
    // dbus-daemon prints its address, Xvfb its display number, once ready.
    static QByteArray ersteZeile(QProcess &prozess)
    {
        const QDeadlineTimer frist(5000);
        while (!prozess.canReadLine() && !frist.hasExpired() && prozess.state() == QProcess::Running)
            prozess.waitForReadyRead(100);
        return prozess.readLine().trimmed();
    }

    QTemporaryDir m_ordner;
    QString m_fehlt;
    std::unique_ptr<QProcess> m_bus, m_x, m_dunst;
};

} // namespace harness

// First thing in a fixture's SetUp: skips when the machine lacks one of the desktop programs.
#define VELMORA_DESKTOP_ODER_UEBERSPRINGEN(u) \
    do { if (!(u).fehlt().isEmpty()) GTEST_SKIP() << (u).fehlt().toStdString(); } while (false)
