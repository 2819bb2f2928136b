#pragma once

#include <QDBusConnection>
#include <QList>
#include <QObject>
#include <QPair>
#include <QSet>
#include <QString>

class QDBusPendingCallWatcher;

// The desktop's notification service (org.freedesktop.Notifications on the session bus), as far
// as the due-document reminders need it: show a notification now, close the ones this program
// showed, and hear when the user clicks one of them.
//
// Every call is asynchronous, so a slow or hanging service never stalls the main thread. Without
// a session bus one line is logged when the object is made; a service that does not answer is
// logged once per outage. In both cases the program carries on and notifications are dropped.
class FKRDesktopMitteilungen : public QObject
{
    Q_OBJECT

public:
    static constexpr const char *kDienst = "org.freedesktop.Notifications";
    static constexpr const char *kPfad = "/org/freedesktop/Notifications";
    static constexpr const char *kSchnittstelle = "org.freedesktop.Notifications";

    explicit FKRDesktopMitteilungen(QObject *parent = nullptr);
    ~FKRDesktopMitteilungen() override;

    // Shows one notification with the default sound and a click action. It appears once the
    // service has answered; `gezeigt` then reports its id.
    void zeige(const QString &titel, const QString &text);
    // Closes every notification of this program that is on screen, and any still on its way.
    void schliesseAlle();

    bool hatSitzungsBus() const { return m_bus.isConnected(); }
    // Ids of this program's notifications that the service showed and has not closed yet.
    QSet<uint> gezeigteIds() const { return m_gezeigt; }

Q_SIGNALS:
    // The user clicked one of this program's notifications.
    void aktiviert();
    // The service showed a notification of this program under `id`.
    void gezeigt(uint id);

private Q_SLOTS:
    void aktionAusgeloest(uint id, const QString &aktion);
    void mitteilungGeschlossen(uint id, uint grund);

private:
    enum class Faehigkeiten { Unbekannt, Angefragt, Bekannt };

    void frageFaehigkeiten();
    void sende(const QString &titel, const QString &text);
    void notifyBeantwortet(QDBusPendingCallWatcher *watcher, quint64 runde);
    void schliesse(uint id);

    QDBusConnection m_bus;
    // Whether the service renders markup in the body decides whether "&" and "<" in a
    // recipient's name must be escaped: it is asked once before the first notification.
    Faehigkeiten m_faehigkeiten = Faehigkeiten::Unbekannt;
    bool m_koerperMitMarkup = false;
    QList<QPair<QString, QString>> m_wartend;
    QSet<uint> m_gezeigt;
    // Counts the calls of schliesseAlle: a notification whose id arrives after the close that
    // was meant for it is closed at once instead of being kept.
    quint64 m_runde = 0;
    bool m_dienstFehlerGemeldet = false;
};
