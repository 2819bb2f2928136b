#include "FKRUrlImport.h"

#include "FKRAlertPresenter.h"
#include "FKREmpfaenger.h"
#include "FKRImportAnfrage.h"
#include "FKRLocalizationHelper.h"
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

} // namespace

FKRUrlImport::FKRUrlImport(FKRAlertPresenter &presenter, std::function<FKROffenerEditor *()> offenerEditor,
                           std::function<void()> saveAction)
    : m_presenter(presenter), m_offenerEditor(std::move(offenerEditor)), m_saveAction(std::move(saveAction))
{
}

void FKRUrlImport::handleGetUrlEvent(const QString &urlText)
{
    if (urlText.isEmpty())
        return;
    // A "%" that starts no escape is taken literally here; left to QUrl, one such "%" would make
    // it treat every other escape of the text as literal too.
    QString text = urlText;
    text.replace(QRegularExpression(QStringLiteral("%(?![0-9A-Fa-f]{2})")), QStringLiteral("%25"));
    const QUrl url(text);
    if (!url.isValid() || url.scheme().compare(QLatin1String(kSchema), Qt::CaseInsensitive) != 0)
        return;
    if (hostWieGeschrieben(text) != QLatin1String(kImportHost)) {
        qCDebug(lcUrlImport) << "ignoring a URL of an unknown host";
        return;
    }
    qCDebug(lcUrlImport) << "importing an item handed over by URL";
    importiereRechnungsPosten(url);
}

void FKRUrlImport::importiereRechnungsPosten(const QUrl &url)
{
    FKROffenerEditor *editor = m_offenerEditor ? m_offenerEditor() : nullptr;
    if (!editor) {
        // The request is dropped, not kept for later: the tracker sends it again once a
        // document is open.
        m_presenter.zeigeAlert({QString::fromLatin1(QT_TRANSLATE_NOOP("Velmora", "ALERT_TITLE_RECHNUNG_OEFFNEN_FUER_IMPORT")),
                                QString::fromLatin1(QT_TRANSLATE_NOOP("Velmora", "ALERT_TEXT_RECHNUNG_OEFFNEN_FUER_IMPORT")),
                                {QString::fromLatin1(QT_TRANSLATE_NOOP("Velmora", "BUTTON_TITLE_OK"))},
                                FKRAlert::Stil::Information});
        return;
    }
    FKRRechnung *rechnung = editor->rechnung();
    if (!rechnung)
        return;

    // Counted before the editor makes the new item, which may already belong to the document.
    const qint64 vorhandenePosten = rechnung->posten().size();
    FKRPosten *posten = editor->neuerPosten();
    if (!posten)
        return;
    posten->setPostenBezeichnung(FKRLocalizationHelper::lokalisierterText(QStringLiteral("Bezeichnung"), rechnung->sprache()));
    posten->setPostenBeschreibung(FKRLocalizationHelper::lokalisierterText(QStringLiteral("Beschreibung"), rechnung->sprache()));
    posten->setPostenNummer(vorhandenePosten + 1);
    posten->setRechnung(rechnung);

    // The query as QUrl keeps it is always well-formed (a stray "%" is held as "%25"), so one
    // decoding of the whole of it gives back exactly the text that was sent.
    const FKRImportAnfrage anfrage = FKRImportAnfrage::lies(QUrl::fromPercentEncoding(url.query(QUrl::FullyEncoded).toLatin1()));
    anfrage.uebertrageAuf(*posten);
    FKREmpfaengerListe *liste = editor->empfaengerListe();
    if (!anfrage.auftraggeber.isEmpty() && liste) {
        FKREmpfaenger *empfaenger = FKRImportAnfrage::passenderEmpfaenger(liste->angeordneteEmpfaenger(), anfrage.auftraggeber);
        if (!empfaenger) {
            empfaenger = liste->neuerEmpfaenger();
            if (empfaenger) {
                empfaenger->setName(anfrage.auftraggeber);
                empfaenger->setNotiz(anfrage.auftraggeberNotiz);
                if (m_saveAction)
                    m_saveAction();
            }
        }
        if (empfaenger)
            rechnung->setEmpfaenger(empfaenger);
    }

    if (m_saveAction)
        m_saveAction();
    editor->waehlePostenAus(posten);
}
