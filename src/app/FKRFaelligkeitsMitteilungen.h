#pragma once

#include <QDateTime>
#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>

class FKRDesktopMitteilungen;
class FKRRechnung;

// The desktop notifications of due documents. The program keeps the schedule itself and sends
// each notification at its time to the desktop's notification service over D-Bus
// (org.freedesktop.Notifications). Without a session bus it logs one line; the schedule is still
// kept, and each notification is dropped when its time comes.
class FKRFaelligkeitsMitteilungen : public QObject
{
    Q_OBJECT

public:
    struct Geplant {
        QString titel;
        QString text;
        QDateTime zeit;
    };

    explicit FKRFaelligkeitsMitteilungen(QObject *parent = nullptr);
    ~FKRFaelligkeitsMitteilungen() override;

    // Replaces the whole schedule: removes every scheduled notification, closes the shown ones,
    // then, unless the user switched due notifications off, schedules one per document of
    // `unbezahlte` that has a reminder time, in the given order.
    void pruefeFaelligeRechnungen(const QList<FKRRechnung *> &unbezahlte);
    // Schedules one notification. A time already reached (or no time at all) sends it as soon
    // as the event loop runs again, never from inside this call.
    void zeigeFaelligkeitsMitteilung(const QString &titel, const QString &text, const QDateTime &zeit);

    // The notifications still waiting for their time, in the order they were scheduled; a sent
    // notification is no longer listed.
    QList<Geplant> geplanteMitteilungen() const;

Q_SIGNALS:
    // The user clicked a notification of this program.
    void mitteilungAktiviert();

private:
    void sendeErreichte();
    void stelleWecker();

    FKRDesktopMitteilungen *m_desktop;
    QList<Geplant> m_geplant;
    // One timer for the earliest waiting notification. It never waits longer than a minute and
    // reads the clock again when it fires, so hours of waiting, a suspended machine or a clock
    // set by hand all end with the notification at its time (give or take that minute).
    QTimer m_wecker;
};
