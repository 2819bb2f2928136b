#include "FKRUrlImport.h"

#include "FKRAlertPresenter.h"
#include "FKREmpfaenger.h"
#include "FKRImportAnfrage.h"
#include "FKROffenerEditor.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"

#include <QLoggingCategory>
#include <QRegularExpression>

// Quiet unless asked for (QT_LOGGING_RULES="velmora.urlimport.debug=true").
Q_LOGGING_CATEGORY(lcUrlImport, "velmora.urlimport", QtInfoMsg)

namespace {

// The host exactly as written in the text. QUrl keeps hosts in lower case, but the import host
// is told apart by its spelling; user, password and port around it do not matter.
QString hostWieGeschrieben(const QString &urlText)
{
    const qsizetype beginn = urlText.indexOf(QLatin1String("://"));
    if (beginn < 0)
        return {};
    QString autoritaet = urlText.mid(beginn + 3);
    const qsizetype ende = autoritaet.indexOf(QRegularExpression(QStringLiteral("[/?#]")));
    if (ende >= 0)
        autoritaet.truncate(ende);
    const qsizetype at = autoritaet.lastIndexOf(QLatin1Char('@'));
    if (at >= 0)
        autoritaet.remove(0, at + 1);
    const qsizetype doppelpunkt = autoritaet.indexOf(QLatin1Char(':'));
    if (doppelpunkt >= 0)
        autoritaet.truncate(doppelpunkt);
    return autoritaet;
}

FKRAlert alert(const char *titel, const char *text, const QString &zusatz = {})
{
    return {QString::fromLatin1(titel), QString::fromLatin1(text),
            {QString::fromLatin1(QT_TRANSLATE_NOOP("Velmora", "BUTTON_TITLE_OK"))}, FKRAlert::Stil::Information, zusatz};
}

// The text telling the user what was wrong with a refused request.
const char *ablehnungsText(FKRImportAnfrage::Mangel mangel)
{
    switch (mangel) {
    case FKRImportAnfrage::Mangel::Stunden:
        return QT_TRANSLATE_NOOP("Velmora", "ALERT_TEXT_IMPORT_STUNDEN_UNGUELTIG");
    case FKRImportAnfrage::Mangel::Ertraege:
        return QT_TRANSLATE_NOOP("Velmora", "ALERT_TEXT_IMPORT_ERTRAEGE_UNGUELTIG");
    case FKRImportAnfrage::Mangel::Steuerzeichen:
    case FKRImportAnfrage::Mangel::Keiner:
        break;
    }
    return QT_TRANSLATE_NOOP("Velmora", "ALERT_TEXT_IMPORT_STEUERZEICHEN");
}

FKRUrlErgebnis beantworte(const FKRUrlAntwort &antwort, FKRUrlErgebnis ergebnis)
{
    if (antwort)
        antwort(ergebnis);
    return ergebnis;
}

} // namespace

FKRUrlImport::FKRUrlImport(FKRAlertPresenter &presenter, std::function<FKROffenerEditor *()> offenerEditor,
                           std::function<bool()> saveAction)
    : m_presenter(presenter), m_offenerEditor(std::move(offenerEditor)), m_saveAction(std::move(saveAction))
{
}

FKRUrlErgebnis FKRUrlImport::handleGetUrlEvent(const QString &urlText, const FKRUrlAntwort &antwort)
{
    const FKRUrlErgebnis ignoriert{false, QStringLiteral("not a URL of the form %1://%2?...").arg(QLatin1String(kSchema), QLatin1String(kImportHost))};
    if (urlText.isEmpty())
        return beantworte(antwort, ignoriert);
    // A "%" that starts no escape is taken literally here; left to QUrl, one such "%" would make
    // it treat every other escape of the text as literal too.
    QString text = urlText;
    text.replace(QRegularExpression(QStringLiteral("%(?![0-9A-Fa-f]{2})")), QStringLiteral("%25"));
    const QUrl url(text);
    if (!url.isValid() || url.scheme().compare(QLatin1String(kSchema), Qt::CaseInsensitive) != 0)
        return beantworte(antwort, ignoriert);
    if (hostWieGeschrieben(text) != QLatin1String(kImportHost)) {
        qCDebug(lcUrlImport) << "ignoring a URL of an unknown host";
        return beantworte(antwort, ignoriert);
    }
    qCDebug(lcUrlImport) << "importing an item handed over by URL";
    return importiereRechnungsPosten(url, antwort);
}

FKRUrlErgebnis FKRUrlImport::importiereRechnungsPosten(const QUrl &url, const FKRUrlAntwort &antwort)
{
    // The query as QUrl keeps it is always well-formed (a stray "%" is held as "%25"), so one
    // decoding of the whole of it gives back exactly the text that was sent.
    const FKRImportAnfrage anfrage = FKRImportAnfrage::lies(QUrl::fromPercentEncoding(url.query(QUrl::FullyEncoded).toLatin1()));
    if (!anfrage.istAngenommen()) {
        // Refused before anything is made: the tracker learns the reason, the user too.
        const FKRUrlErgebnis ergebnis = beantworte(antwort, {false, anfrage.grund()});
        qCDebug(lcUrlImport).noquote() << "refused:" << ergebnis.grund;
        m_presenter.zeigeAlert(alert(QT_TRANSLATE_NOOP("Velmora", "ALERT_TITLE_IMPORT_ABGELEHNT"),
                                     ablehnungsText(anfrage.mangel), anfrage.mangelhafterSchluessel));
        return ergebnis;
    }

    FKROffenerEditor *editor = m_offenerEditor ? m_offenerEditor() : nullptr;
    if (!editor) {
        // The request is dropped, not kept for later: the tracker sends it again once a
        // document is open.
        const FKRUrlErgebnis ergebnis = beantworte(
            antwort, {false, QStringLiteral("no document is open in the editor; open one and send the item again")});
        m_presenter.zeigeAlert(alert(QT_TRANSLATE_NOOP("Velmora", "ALERT_TITLE_RECHNUNG_OEFFNEN_FUER_IMPORT"),
                                     QT_TRANSLATE_NOOP("Velmora", "ALERT_TEXT_RECHNUNG_OEFFNEN_FUER_IMPORT")));
        return ergebnis;
    }
    FKRRechnung *rechnung = editor->rechnung();
    if (!rechnung)
        return beantworte(antwort, {false, QStringLiteral("the editor shows no document")});

    // Counted before the editor makes the new item, which may already belong to the document.
    const qint64 vorhandenePosten = rechnung->posten().size();
    FKRPosten *posten = editor->neuerPosten();
    if (!posten)
        return beantworte(antwort, {false, QStringLiteral("the editor could not add an item")});
    posten->setPostenNummer(vorhandenePosten + 1);
    posten->setRechnung(rechnung);

    anfrage.uebertrageAuf(*posten);
    FKREmpfaengerListe *liste = editor->empfaengerListe();
    if (!anfrage.auftraggeber.isEmpty() && liste) {
        FKREmpfaenger *empfaenger = FKRImportAnfrage::passenderEmpfaenger(liste->angeordneteEmpfaenger(), anfrage.auftraggeber);
        if (!empfaenger) {
            empfaenger = liste->neuerEmpfaenger();
            if (empfaenger) {
                empfaenger->setFirma(anfrage.auftraggeber); // a client is a business, as a rule
                empfaenger->setNotiz(anfrage.auftraggeberNotiz);
                if (m_saveAction)
                    m_saveAction();
            }
        }
        if (empfaenger)
            rechnung->setEmpfaenger(empfaenger);
    }

    const bool gespeichert = m_saveAction && m_saveAction();
    const FKRUrlErgebnis ergebnis =
        beantworte(antwort, gespeichert ? FKRUrlErgebnis{true} : FKRUrlErgebnis{false, QStringLiteral("the item could not be saved")});
    editor->waehlePostenAus(posten);
    return ergebnis;
}
