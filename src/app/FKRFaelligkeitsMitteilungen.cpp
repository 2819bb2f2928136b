#include "FKRFaelligkeitsMitteilungen.h"

#include "FKRDesktopMitteilungen.h"
#include "FKREmpfaenger.h"
#include "FKRLocalizationHelper.h"
#include "FKRRechnung.h"
#include "FKRUhr.h"
#include "QBBenutzerEinstellungen.h"

#include <algorithm>

namespace {

// The longest the timer waits before it looks at the clock again.
constexpr qint64 kLaengstesWarten = 60 * 1000;

// "Das Dokument: ", the number, for a recipient "für: " and its name, then "ist fällig!"; the
// texts carry their own blanks. They are the user's texts, not the document's: the reminder is
// for the user, whatever language the document is written in. A document without a number
// still gets its reminder, with an empty number.
QString mitteilungsText(const FKRRechnung &rechnung)
{
    QString text = FKRLocalizationHelper::hauptTabellenText(QStringLiteral("Das Dokument: "))
                   + rechnung.rechnungsNummer().value_or(QString());
    if (const FKREmpfaenger *empfaenger = rechnung.empfaenger())
        text += FKRLocalizationHelper::hauptTabellenText(QStringLiteral("für: ")) + empfaenger->firmaUndName();
    return text + FKRLocalizationHelper::hauptTabellenText(QStringLiteral("ist fällig!"));
}

} // namespace

FKRFaelligkeitsMitteilungen::FKRFaelligkeitsMitteilungen(QObject *parent)
    : QObject(parent)
    , m_desktop(new FKRDesktopMitteilungen(this))
{
    m_wecker.setSingleShot(true);
    connect(&m_wecker, &QTimer::timeout, this, &FKRFaelligkeitsMitteilungen::sendeErreichte);
    connect(m_desktop, &FKRDesktopMitteilungen::aktiviert, this, &FKRFaelligkeitsMitteilungen::mitteilungAktiviert);
}

FKRFaelligkeitsMitteilungen::~FKRFaelligkeitsMitteilungen() = default;

void FKRFaelligkeitsMitteilungen::pruefeFaelligeRechnungen(const QList<FKRRechnung *> &unbezahlte)
{
    m_geplant.clear();
    m_wecker.stop();
    m_desktop->schliesseAlle();
    if (QBBenutzerEinstellungen::sharedInstance()->deaktiviereFaelligeRechnungsMitteilungen())
        return;

    const QString titel = FKRLocalizationHelper::hauptTabellenText(QStringLiteral("Fälliges Dokument"));
    for (const FKRRechnung *rechnung : unbezahlte) {
        if (!rechnung)
            continue;
        const std::optional<QDateTime> zeit = rechnung->erinnerungsDatum();
        if (!zeit)
            continue;
        zeigeFaelligkeitsMitteilung(titel, mitteilungsText(*rechnung), *zeit);
    }
}

void FKRFaelligkeitsMitteilungen::zeigeFaelligkeitsMitteilung(const QString &titel, const QString &text,
                                                              const QDateTime &zeit)
{
    m_geplant.append({titel, text, zeit});
    stelleWecker();
}

QList<FKRFaelligkeitsMitteilungen::Geplant> FKRFaelligkeitsMitteilungen::geplanteMitteilungen() const
{
    return m_geplant;
}

void FKRFaelligkeitsMitteilungen::sendeErreichte()
{
    const QDateTime jetzt = FKRUhr::jetzt();
    // Sent in the order they were scheduled; what is still ahead waits for the next round.
    QList<Geplant> spaeter;
    QList<Geplant> erreicht;
    for (Geplant &mitteilung : m_geplant)
        (!mitteilung.zeit.isValid() || mitteilung.zeit <= jetzt ? erreicht : spaeter).append(std::move(mitteilung));
    m_geplant = std::move(spaeter);
    for (const Geplant &mitteilung : std::as_const(erreicht))
        m_desktop->zeige(mitteilung.titel, mitteilung.text);
    stelleWecker();
}

void FKRFaelligkeitsMitteilungen::stelleWecker()
{
    if (m_geplant.isEmpty()) {
        m_wecker.stop();
        return;
    }
    const QDateTime jetzt = FKRUhr::jetzt();
    qint64 warten = kLaengstesWarten;
    for (const Geplant &mitteilung : std::as_const(m_geplant)) {
        const qint64 bis = mitteilung.zeit.isValid() ? jetzt.msecsTo(mitteilung.zeit) : 0;
        warten = std::clamp(bis, qint64(0), warten);
    }
    m_wecker.start(std::chrono::milliseconds(warten));
}
