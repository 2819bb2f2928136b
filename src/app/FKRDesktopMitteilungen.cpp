#include "FKRDesktopMitteilungen.h"

#include "FKRLocalizationHelper.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QStringList>
#include <QVariantMap>

#include <utility>

namespace {

QString dienst() { return QString::fromLatin1(FKRDesktopMitteilungen::kDienst); }
QString pfad() { return QString::fromLatin1(FKRDesktopMitteilungen::kPfad); }
QString schnittstelle() { return QString::fromLatin1(FKRDesktopMitteilungen::kSchnittstelle); }

QDBusMessage aufruf(const QString &methode)
{
    return QDBusMessage::createMethodCall(dienst(), pfad(), schnittstelle(), methode);
}

// Services with body markup read the body as a small XML dialect: a company called
// "Müller & Söhne" would otherwise break the text or lose its "&".
QString alsMarkup(const QString &text)
{
    QString ergebnis;
    ergebnis.reserve(text.size());
    for (const QChar zeichen : text) {
        if (zeichen == u'&')
            ergebnis += QStringLiteral("&amp;");
        else if (zeichen == u'<')
            ergebnis += QStringLiteral("&lt;");
        else if (zeichen == u'>')
            ergebnis += QStringLiteral("&gt;");
        else
            ergebnis += zeichen;
    }
    return ergebnis;
}

} // namespace

FKRDesktopMitteilungen::FKRDesktopMitteilungen(QObject *parent)
    : QObject(parent)
    , m_bus(QDBusConnection::sessionBus())
{
    if (!m_bus.isConnected()) {
        qWarning("Velmora: no D-Bus session bus, due-document notifications are not shown");
        return;
    }
    // The service sends these to the program that created the notification; any sender is
    // accepted, because only ids this program got back are acted on.
    m_bus.connect(QString(), pfad(), schnittstelle(), QStringLiteral("ActionInvoked"), this,
                  SLOT(aktionAusgeloest(uint, QString)));
    m_bus.connect(QString(), pfad(), schnittstelle(), QStringLiteral("NotificationClosed"), this,
                  SLOT(mitteilungGeschlossen(uint, uint)));
}

FKRDesktopMitteilungen::~FKRDesktopMitteilungen() = default;

void FKRDesktopMitteilungen::zeige(const QString &titel, const QString &text)
{
    if (!m_bus.isConnected())
        return;
    if (m_faehigkeiten == Faehigkeiten::Bekannt) {
        sende(titel, text);
        return;
    }
    m_wartend.append({titel, text});
    if (m_faehigkeiten == Faehigkeiten::Unbekannt)
        frageFaehigkeiten();
}

void FKRDesktopMitteilungen::frageFaehigkeiten()
{
    m_faehigkeiten = Faehigkeiten::Angefragt;
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(aufruf(QStringLiteral("GetCapabilities"))), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher *w) {
        w->deleteLater();
        const QDBusPendingReply<QStringList> antwort = *w;
        // A service that cannot be asked is asked again before the next notification; the
        // waiting ones are sent anyway and their failure is reported there.
        if (antwort.isError()) {
            m_faehigkeiten = Faehigkeiten::Unbekannt;
        } else {
            m_faehigkeiten = Faehigkeiten::Bekannt;
            m_koerperMitMarkup = antwort.value().contains(QStringLiteral("body-markup"));
        }
        const auto wartend = std::exchange(m_wartend, {});
        for (const auto &[titel, text] : wartend)
            sende(titel, text);
    });
}

void FKRDesktopMitteilungen::sende(const QString &titel, const QString &text)
{
    QDBusMessage nachricht = aufruf(QStringLiteral("Notify"));
    // Clicking the notification is its "default" action; the label is what services that list
    // actions (in a menu, say) show for it.
    const QStringList aktionen{QStringLiteral("default"),
                               FKRLocalizationHelper::hauptTabellenText(QStringLiteral("BUTTON_TITLE_ANZEIGEN"))};
    QVariantMap hinweise;
    hinweise.insert(QStringLiteral("desktop-entry"), QStringLiteral("velmora"));
    hinweise.insert(QStringLiteral("sound-name"), QStringLiteral("message-new-instant"));
    hinweise.insert(QStringLiteral("urgency"), QVariant::fromValue(uchar(1)));
    nachricht << QStringLiteral("Velmora Rechnungen") << uint(0) << QStringLiteral("velmora") << titel
              << (m_koerperMitMarkup ? alsMarkup(text) : text) << aktionen << hinweise << qint32(-1);

    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(nachricht), this);
    const quint64 runde = m_runde;
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, runde](QDBusPendingCallWatcher *w) { notifyBeantwortet(w, runde); });
}

void FKRDesktopMitteilungen::notifyBeantwortet(QDBusPendingCallWatcher *watcher, quint64 runde)
{
    watcher->deleteLater();
    const QDBusPendingReply<uint> antwort = *watcher;
    if (antwort.isError()) {
        if (!m_dienstFehlerGemeldet) {
            qWarning("Velmora: the desktop notification service did not show a notification: %s",
                     qPrintable(antwort.error().message()));
            m_dienstFehlerGemeldet = true;
        }
        // Perhaps another service takes over later; it may render differently.
        m_faehigkeiten = Faehigkeiten::Unbekannt;
        return;
    }
    m_dienstFehlerGemeldet = false;
    const uint id = antwort.value();
    if (runde != m_runde) {
        // Everything was closed while this one was on its way.
        schliesse(id);
        return;
    }
    m_gezeigt.insert(id);
    Q_EMIT gezeigt(id);
}

void FKRDesktopMitteilungen::schliesseAlle()
{
    ++m_runde;
    m_wartend.clear();
    const QSet<uint> gezeigt = std::exchange(m_gezeigt, {});
    for (const uint id : gezeigt)
        schliesse(id);
}

void FKRDesktopMitteilungen::schliesse(uint id)
{
    if (!m_bus.isConnected())
        return;
    QDBusMessage nachricht = aufruf(QStringLiteral("CloseNotification"));
    nachricht << id;
    // Nothing to do with the answer: a notification the user closed already is simply gone.
    m_bus.send(nachricht);
}

void FKRDesktopMitteilungen::aktionAusgeloest(uint id, const QString &aktion)
{
    if (aktion == QLatin1String("default") && m_gezeigt.contains(id))
        Q_EMIT aktiviert();
}

void FKRDesktopMitteilungen::mitteilungGeschlossen(uint id, uint grund)
{
    Q_UNUSED(grund);
    m_gezeigt.remove(id);
}
