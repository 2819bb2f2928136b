#include "FKRRechnungsListenKriterien.h"

#include "FKRLocalizationHelper.h"
#include "FKRRechnung.h"
#include "FKRUhr.h"
#include "QBAdditions.h"

#include <QCoreApplication>

using namespace Qt::Literals::StringLiterals;

namespace {

const FKRRechnung &alsRechnung(const ManagedObject &object)
{
    return static_cast<const FKRRechnung &>(object);
}

// An absent date is neither before nor after anything.
bool nach(const std::optional<QDateTime> &datum, const QDateTime &grenze)
{
    return datum && *datum > grenze;
}

bool vor(const std::optional<QDateTime> &datum, const QDateTime &grenze)
{
    return datum && *datum < grenze;
}

} // namespace

const FKRRechnungsListenKriterien::Praedikat &FKRRechnungsListenKriterien::nurEntwuerfePredicate()
{
    if (!m_entwuerfe)
        m_entwuerfe = [](const ManagedObject &o) { return alsRechnung(o).versandt() == false; };
    return *m_entwuerfe;
}

const FKRRechnungsListenKriterien::Praedikat &FKRRechnungsListenKriterien::nurVersandteDokumentePredicate()
{
    if (!m_versandte) {
        const QDateTime jetzt = FKRUhr::jetzt();
        m_versandte = [jetzt](const ManagedObject &o) {
            const FKRRechnung &r = alsRechnung(o);
            return r.versandt() == true && nach(r.faelligkeitsDatum(), jetzt) && r.bezahlt() == false;
        };
    }
    return *m_versandte;
}

const FKRRechnungsListenKriterien::Praedikat &FKRRechnungsListenKriterien::nurFaelligeDokumentePredicate()
{
    // Drafts count too: an unpaid document whose day has come is due whether it went out or not.
    if (!m_faellige) {
        const QDateTime tagesende = QBAdditions::endOfTheDay(FKRUhr::jetzt());
        m_faellige = [tagesende](const ManagedObject &o) {
            const FKRRechnung &r = alsRechnung(o);
            return vor(r.faelligkeitsDatum(), tagesende) && r.bezahlt() == false;
        };
    }
    return *m_faellige;
}

const FKRRechnungsListenKriterien::Praedikat &FKRRechnungsListenKriterien::nurBezahlteDokumentePredicate()
{
    if (!m_bezahlte)
        m_bezahlte = [](const ManagedObject &o) { return alsRechnung(o).bezahlt() == true; };
    return *m_bezahlte;
}

const FKRRechnungsListenKriterien::Praedikat *FKRRechnungsListenKriterien::dokumentArtPredicate(int art)
{
    if (art < 1 || art > 5)
        return nullptr;
    std::optional<Praedikat> &praedikat = m_arten[std::size_t(art - 1)];
    if (!praedikat) {
        const Decimal code(art);
        praedikat = [code](const ManagedObject &o) {
            const auto wert = alsRechnung(o).dokumentArt();
            return wert && *wert == code;
        };
    }
    return &*praedikat;
}

const QList<SortDescriptor> &FKRRechnungsListenKriterien::sortDescriptors(int sortierung)
{
    const int index = (sortierung >= 0 && sortierung < kAnzahlSortierungen) ? sortierung : 0;
    std::optional<QList<SortDescriptor>> &liste = m_sortierungen[std::size_t(index)];
    if (liste)
        return *liste;
    const SortDescriptor nummer{u"rechnungsNummer"_s, true};
    const SortDescriptor firma{u"empfaenger.firma"_s, true};
    const SortDescriptor name{u"empfaenger.name"_s, true};
    switch (index) {
    case 1: // recipient
        liste = QList<SortDescriptor>{firma, name, nummer};
        break;
    case 2: // document date, oldest first
        liste = QList<SortDescriptor>{{u"rechnungsDatum"_s, true}, nummer, firma, name};
        break;
    case 3: // number
        liste = QList<SortDescriptor>{nummer, firma, name};
        break;
    case 4: // payment date, latest first
        liste = QList<SortDescriptor>{{u"bezahltDatum"_s, false}, nummer, firma, name};
        break;
    default: // due date, latest first
        liste = QList<SortDescriptor>{{u"faelligkeitsDatum"_s, false}, nummer, firma, name};
        break;
    }
    return *liste;
}

QString FKRRechnungsListenKriterien::titelSchluessel(int sortierung)
{
    static const char *const schluessel[kAnzahlSortierungen] = {
        QT_TRANSLATE_NOOP("Velmora", "RECHNUNGSLISTE_SORTIERUNG_TOOLTIP_FAELLIGKEIT"),
        QT_TRANSLATE_NOOP("Velmora", "RECHNUNGSLISTE_SORTIERUNG_TOOLTIP_EMPFAENGER"),
        QT_TRANSLATE_NOOP("Velmora", "RECHNUNGSLISTE_SORTIERUNG_TOOLTIP_RECHNUNGSDATUM"),
        QT_TRANSLATE_NOOP("Velmora", "RECHNUNGSLISTE_SORTIERUNG_TOOLTIP_RECHNUNGSNUMMER"),
        QT_TRANSLATE_NOOP("Velmora", "RECHNUNGSLISTE_SORTIERUNG_TOOLTIP_ZAHLUNGSEINGANG"),
    };
    const int index = (sortierung >= 0 && sortierung < kAnzahlSortierungen) ? sortierung : 0;
    return QString::fromLatin1(schluessel[index]);
}

FKRRechnungsListenKriterien::Praedikat FKRRechnungsListenKriterien::verbinde(const Praedikat *bereich,
                                                                            const Praedikat *art)
{
    if (bereich && art) {
        return [bereich = *bereich, art = *art](const ManagedObject &o) { return bereich(o) && art(o); };
    }
    if (bereich)
        return *bereich;
    if (art)
        return *art;
    return {};
}
