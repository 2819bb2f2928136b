#include "FKRRechnungsAnsichtViewController.h"

#include "FKRAnsichtAktionsBox.h"
#include "FKRAnsichtAktionsLeiste.h"
#include "FKRAnsichtDateiNamen.h"
#include "FKRAnsichtDruckauftrag.h"
#include "FKRHilfeBox.h"
#include "FKRAnsichtPDFAnzeige.h"
#include "FKRAlertPresenter.h"
#include "FKRAppDelegate.h"
#include "FKRArrayController.h"
#include "FKRDokumentZuGross.h"
#include "FKRLocalizationHelper.h"
#include "FKRMahnung.h"
#include "FKRMenuViewController.h"
#include "FKRPDFLayout.h"
#include "FKRRechnung.h"
#include "FKRRechnungenListeViewController.h"
#include "FKRRechnungsKopie.h"
#include "FKRSplitViewItem.h"
#include "FKRUhr.h"
#include "ManagedObjectContext.h"
#include "QBBenutzerEinstellungen.h"

#include <QDateTimeEdit>
#include <QDesktopServices>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QPdfDocument>
#include <QPdfPageRenderer>
#include <QPdfView>
#include <QSaveFile>
#include <QStandardPaths>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>

namespace {

QString nummerVon(const FKRRechnung &rechnung)
{
    return rechnung.rechnungsNummer().value_or(QString());
}

} // namespace

FKRRechnungsAnsichtViewController::FKRRechnungsAnsichtViewController(FKRAppDelegate &delegate, QWidget *parent)
    : QWidget(parent)
    , m_delegate(delegate)
{
    baueOberflaeche();
    m_druckDialog = FKRAnsichtDruckauftrag::systemDialog(this, *m_pdf->dokument());
    connect(QBBenutzerEinstellungen::sharedInstance(), &QBBenutzerEinstellungen::pdfDocumentSizeIsLetterChanged, this,
            &FKRRechnungsAnsichtViewController::planeNeueDarstellung);
    aktualisiereAnsicht();
}

FKRRechnungsAnsichtViewController::~FKRRechnungsAnsichtViewController() = default;

void FKRRechnungsAnsichtViewController::baueOberflaeche()
{
    m_pdf = new FKRAnsichtPDFAnzeige(this);
    m_pdfView = new QPdfView(this);
    m_pdfView->setDocument(m_pdf->dokument());
    m_pdfView->setPageMode(QPdfView::PageMode::MultiPage);
    m_pdfView->setZoomMode(QPdfView::ZoomMode::FitToWidth);
    // The viewer rasterises its pages on a thread of its own and files each finished image under
    // its page number, without asking which document it came from: a page of the previous PDF
    // still on its way when the next one is shown would stay on screen. Rasterised in turn on
    // the main thread, every page image comes from the PDF shown at that moment (and the buffer
    // the PDF is read from is never touched by two threads).
    if (auto *seiten = m_pdfView->findChild<QPdfPageRenderer *>())
        seiten->setRenderMode(QPdfPageRenderer::RenderMode::SingleThreaded);

    m_aktionsLeiste = new FKRAnsichtAktionsLeiste(this);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_aktionsLeiste);
    layout->addWidget(m_pdfView, 1);

    m_hilfeBox = new FKRHilfeBox(QT_TRANSLATE_NOOP("Velmora", "HILFE_TEXT_RECHNUNGSANSICHT"), FKRHilfeBox::WebseiteLink,
                                  this);
    m_hilfeBox->hide();

    using Ansicht = FKRRechnungsAnsichtViewController;
    connect(rechnungVersendetButtonBox(), &FKRAnsichtAktionsBox::gedrueckt, this, &Ansicht::markiereRechnungVersendet);
    connect(rechnungBezahltButtonBox(), &FKRAnsichtAktionsBox::gedrueckt, this, &Ansicht::markiereRechnungBezahlt);
    connect(rechnungUnbezahltButtonBox(), &FKRAnsichtAktionsBox::gedrueckt, this, &Ansicht::markiereRechnungUnbezahlt);
    connect(mahnungButtonBox(), &FKRAnsichtAktionsBox::gedrueckt, this, &Ansicht::erstelleMahnung);
    connect(duplizierenButtonBox(), &FKRAnsichtAktionsBox::gedrueckt, this, &Ansicht::dupliziereRechnung);
    connect(sichernButtonBox(), &FKRAnsichtAktionsBox::gedrueckt, this, &Ansicht::sichereRechnungAlsPDF);
    connect(druckenButtonBox(), &FKRAnsichtAktionsBox::gedrueckt, this, &Ansicht::druckeRechnung);
    connect(rechnungBezahltDatePicker(), &QDateTimeEdit::dateTimeChanged, this, &Ansicht::bezahltDatumBearbeitet);
    connect(m_hilfeBox, &FKRHilfeBox::schliessenGewaehlt, this, &Ansicht::verbergeHilfeView);
    connect(m_hilfeBox, &FKRHilfeBox::webseiteGewaehlt, this, &Ansicht::zeigeWebseite);
}

ManagedObjectContext *FKRRechnungsAnsichtViewController::managedObjectContext()
{
    if (!m_context) {
        m_context = m_delegate.managedObjectContext();
        // Every change worth showing is saved: the editor when it closes, the actions here, an
        // import, a merge from another machine.
        connect(m_context, &ManagedObjectContext::didSave, this, &FKRRechnungsAnsichtViewController::planeNeueDarstellung);
    }
    return m_context;
}

FKRRechnung *FKRRechnungsAnsichtViewController::gezeigteRechnung() const
{
    return m_rechnung && !m_rechnung->isDeleted() ? m_rechnung.data() : nullptr;
}

void FKRRechnungsAnsichtViewController::setRechnung(FKRRechnung *rechnung)
{
    if (rechnung)
        managedObjectContext();
    m_rechnung = rechnung;
}

void FKRRechnungsAnsichtViewController::planeNeueDarstellung()
{
    m_pdfVeraltet = true;
    if (m_darstellungGeplant)
        return;
    m_darstellungGeplant = true;
    QTimer::singleShot(0, this, [this] {
        m_darstellungGeplant = false;
        aktualisiereAnsicht();
    });
}

void FKRRechnungsAnsichtViewController::aktualisiereAnsicht()
{
    FKRRechnung *r = gezeigteRechnung();
    FKRAnsichtAktionsLeiste::Zustand zustand;
    if (!r) {
        zeigePlatzhalter();
        m_aktionsLeiste->zeige(zustand);
        return;
    }
    if (m_pdfVeraltet || m_pdfRechnung != r) {
        zeigePDF(*r);
        m_pdfRechnung = r;
        m_pdfPlatzhalter.clear();
        m_pdfVeraltet = false;
    }
    // The dunning letter only for sent, unpaid and due invoices and fee notes, paid only for sent
    // documents.
    zustand.dokument = true;
    zustand.mahnung = FKRMahnung::istMoeglich(*r);
    zustand.versendetErledigt = zustand.bezahlt = r->versandt() == true;
    zustand.bezahltErledigt = r->bezahlt() == true;
    if (const auto bezahltAm = r->bezahltDatum(); zustand.bezahltErledigt && bezahltAm && bezahltAm->isValid()) {
        zustand.bezahltDatum = true;
        QDateTimeEdit *picker = rechnungBezahltDatePicker();
        if (picker->dateTime() != *bezahltAm) {
            const QSignalBlocker still(picker);
            picker->setDateTime(*bezahltAm);
        }
    }
    m_aktionsLeiste->zeige(zustand);
}

void FKRRechnungsAnsichtViewController::zeigePDF(FKRRechnung &rechnung)
{
    const QString pfad = arbeitsDateiPfad();
    if (rechnung.versandt() != true) {
        if (!rendere(rechnung, pfad) || !m_pdf->zeigeDatei(pfad))
            m_pdf->zeigeDaten({});
        return;
    }
    // A sent document shows the PDF of the moment it was sent, whatever changed since.
    if (const auto eingefroren = rechnung.binaryPDF()) {
        m_pdf->zeigeDaten(*eingefroren);
        return;
    }
    // Sent before its PDF was kept: freeze what it looks like now.
    if (!rendere(rechnung, pfad) || !m_pdf->zeigeDatei(pfad)) {
        m_pdf->zeigeDaten({});
        return;
    }
    rechnung.setBinaryPDF(m_pdf->daten());
    m_delegate.saveAction();
}

void FKRRechnungsAnsichtViewController::zeigePlatzhalter()
{
    const QString pfad = platzhalterPfad();
    if (m_pdfPlatzhalter == pfad && !m_pdfRechnung)
        return;
    if (!m_pdf->zeigeDatei(pfad)) {
        qWarning("Could not read the placeholder PDF %s", qPrintable(pfad));
        m_pdf->zeigeDaten({});
    }
    m_pdfPlatzhalter = pfad;
    m_pdfRechnung = nullptr;
}

bool FKRRechnungsAnsichtViewController::rendere(FKRRechnung &rechnung, const QString &pfad)
{
    FKRPDFLayout &layout = FKRPDFLayout::fuerRechnung(rechnung);
    try {
        layout.erstellePDFDateiImPfad(pfad, rechnung);
    } catch (const FKRDokumentZuGross &grenze) {
        // Beyond the bounds every document is held to: the user learns why the view stays empty.
        qWarning("Could not render the document %s: %s", qPrintable(nummerVon(rechnung)), grenze.what());
        const bool bild = grenze.art() == FKRDokumentZuGross::Art::Bild;
        m_delegate.presenter().zeigeAlert(
            {QString::fromLatin1(QT_TRANSLATE_NOOP("Velmora", "ALERT_TITLE_HINWEIS")),
             bild ? QString::fromLatin1(QT_TRANSLATE_NOOP("Velmora", "ALERT_TEXT_ABSENDERBILD_ZU_GROSS"))
                  : QString::fromLatin1(QT_TRANSLATE_NOOP("Velmora", "ALERT_TEXT_DOKUMENT_ZU_GROSS")),
             {QString::fromLatin1(QT_TRANSLATE_NOOP("Velmora", "BUTTON_TITLE_OK"))},
             FKRAlert::Stil::Warnung});
        return false;
    } catch (const std::exception &fehler) {
        qWarning("Could not render the document %s: %s", qPrintable(nummerVon(rechnung)), fehler.what());
        return false;
    }
    if (!layout.letzteDateiGeschrieben()) {
        qWarning("Could not write %s: %s", qPrintable(pfad), qPrintable(layout.letzterSchreibFehler()));
        return false;
    }
    Q_EMIT dokumentGerendert(pfad);
    return true;
}

QString FKRRechnungsAnsichtViewController::arbeitsDateiPfad()
{
    const QStringList orte = QStandardPaths::standardLocations(QStandardPaths::CacheLocation);
    const QString ordner = orte.isEmpty() ? QDir::tempPath() : orte.constFirst();
    QDir().mkpath(ordner);
    return ordner + QStringLiteral("/local.storage");
}

QString FKRRechnungsAnsichtViewController::platzhalterPfad()
{
    // The resources of the program; each language names its own placeholder file.
    return QStringLiteral(":") + FKRLocalizationHelper::hauptTabellenText(QStringLiteral("/pdf/waehleRechnung.pdf"));
}

QPdfView *FKRRechnungsAnsichtViewController::pdfView() const { return m_pdfView; }
QPdfDocument *FKRRechnungsAnsichtViewController::pdfDocument() const { return m_pdf->dokument(); }
const QByteArray &FKRRechnungsAnsichtViewController::angezeigtePDFDaten() const { return m_pdf->daten(); }

// ---- Actions ----

void FKRRechnungsAnsichtViewController::markiereRechnungVersendet()
{
    FKRRechnung *r = gezeigteRechnung();
    if (!r)
        return;
    // One way: a sent document stays sent and keeps the PDF it was sent with.
    if (r->versandt() != true) {
        const int antwort = m_delegate.presenter().zeigeAlert(
            {QString::fromLatin1(QT_TRANSLATE_NOOP("Velmora", "ALERT_TITLE_VERSENDEN")),
             QString::fromLatin1(QT_TRANSLATE_NOOP("Velmora", "ALERT_TEXT_VERSENDEN")),
             {QString::fromLatin1(QT_TRANSLATE_NOOP("Velmora", "BUTTON_TITLE_VERSENDEN")),
              QString::fromLatin1(QT_TRANSLATE_NOOP("Velmora", "BUTTON_TITLE_ABBRECHEN"))},
             FKRAlert::Stil::Warnung});
        if (antwort != kErsterKnopf)
            return;
        r->setVersandt(true);
        archiviereRechnung(*r);
    }
    m_delegate.saveAction();
    aktualisiereAnsicht();
}

void FKRRechnungsAnsichtViewController::archiviereRechnung(FKRRechnung &rechnung)
{
    const QString pfad = m_delegate.applicationArchiveDirectory() + QLatin1Char('/')
                         + FKRAnsichtDateiNamen::archivDateiName(FKRUhr::jetzt(), nummerVon(rechnung));
    std::optional<QByteArray> daten;
    if (rendere(rechnung, pfad)) {
        QFile datei(pfad);
        if (datei.open(QIODevice::ReadOnly))
            daten = datei.readAll();
    }
    // Without readable bytes the document is frozen the next time it is shown.
    rechnung.setBinaryPDF(daten);
    m_delegate.saveAction();
}

void FKRRechnungsAnsichtViewController::markiereRechnungBezahlt()
{
    FKRRechnung *r = gezeigteRechnung();
    if (!r || r->bezahlt() == true)
        return;
    // Also a document whose paid mark holds no value at all: pressing "paid" means paid.
    r->setBezahlt(true);
    r->setBezahltDatum(FKRUhr::jetzt());
    aktualisiereAnsicht();
    m_delegate.saveAction();
}

void FKRRechnungsAnsichtViewController::markiereRechnungUnbezahlt()
{
    FKRRechnung *r = gezeigteRechnung();
    if (!r || r->bezahlt() != true)
        return;
    // The payment was not made after all: no payment date remains, and a new mark records its own.
    r->setBezahlt(false);
    r->setBezahltDatum(std::nullopt);
    aktualisiereAnsicht();
    m_delegate.saveAction();
}

void FKRRechnungsAnsichtViewController::bezahltDatumBearbeitet()
{
    FKRRechnung *r = gezeigteRechnung();
    if (!r)
        return;
    r->setBezahltDatum(rechnungBezahltDatePicker()->dateTime());
    rechnungBezahltDatePickerChanged();
}

void FKRRechnungsAnsichtViewController::rechnungBezahltDatePickerChanged()
{
    if (gezeigteRechnung())
        m_delegate.saveAction();
}

FKRRechnung *FKRRechnungsAnsichtViewController::kopiereRechnung(const FKRRechnung &quelle)
{
    auto *liste = FKRSplitView::splitViewItem<FKRRechnungenListeViewController>(this, FKRSplitView::kListe);
    if (!liste)
        return nullptr;
    auto *kopie = liste->rechnungenListeArrayController().newObjectOf<FKRRechnung>();
    if (!kopie)
        return nullptr;
    FKRRechnungsKopie::kopiereInhalt(quelle, *kopie);
    return kopie;
}

void FKRRechnungsAnsichtViewController::dupliziereRechnung()
{
    FKRRechnung *r = gezeigteRechnung();
    FKRRechnung *kopie = r ? kopiereRechnung(*r) : nullptr;
    if (!kopie)
        return;
    kopie->setzeNummerAlsKopieVon(*r);
    m_delegate.saveAction();
    oeffneKopie(kopie);
}

void FKRRechnungsAnsichtViewController::erstelleMahnung()
{
    FKRRechnung *r = gezeigteRechnung();
    FKRRechnung *mahnung = r && FKRMahnung::istMoeglich(*r) ? kopiereRechnung(*r) : nullptr;
    if (!mahnung)
        return;
    FKRMahnung::gestalte(*mahnung, *r, FKRUhr::jetzt(),
                         QBBenutzerEinstellungen::sharedInstance()->mahnungZahlungsfristTage());
    m_delegate.saveAction();
    oeffneKopie(mahnung);
}

void FKRRechnungsAnsichtViewController::oeffneKopie(FKRRechnung *kopie)
{
    if (auto *menu = FKRSplitView::splitViewItem<FKRMenuViewController>(this, FKRSplitView::kMenu))
        menu->entwuerfeButtonPressed();
    if (auto *liste = FKRSplitView::splitViewItem<FKRRechnungenListeViewController>(this, FKRSplitView::kListe)) {
        liste->setSelectedObjects({kopie});
        liste->tabelleDoppelGeklickt();
    }
    aktualisiereAnsicht();
}

void FKRRechnungsAnsichtViewController::sichereRechnungAlsPDF()
{
    FKRRechnung *r = gezeigteRechnung();
    if (!r)
        return;
    // Always a fresh rendering, also of a sent document: the export shows the data as it is now.
    const QString arbeitsDatei = arbeitsDateiPfad();
    if (!rendere(*r, arbeitsDatei))
        return;
    const QString vorschlag = FKRAnsichtDateiNamen::exportVorschlag(FKRUhr::jetzt(), nummerVon(*r));
    const QString ziel = m_delegate.presenter().waehleSpeicherOrt(
        QStandardPaths::writableLocation(QStandardPaths::DownloadLocation), vorschlag,
        QStringLiteral(QT_TRANSLATE_NOOP("Velmora", "Wo soll Dein PDF Export gesichert werden?")), QStringLiteral("pdf"));
    if (ziel.isEmpty())
        return;
    // Written whole or not at all; a failure leaves the user's folder as it was, without a message.
    QFile quelle(arbeitsDatei);
    QSaveFile datei(ziel);
    if (!quelle.open(QIODevice::ReadOnly))
        qWarning("Could not read %s: %s", qPrintable(arbeitsDatei), qPrintable(quelle.errorString()));
    else if (!datei.open(QIODevice::WriteOnly) || datei.write(quelle.readAll()) < 0 || !datei.commit())
        qWarning("Could not export the PDF to %s: %s", qPrintable(ziel), qPrintable(datei.errorString()));
    // The working file now holds the export; a draft on screen shows the same, a sent document
    // its frozen PDF, so nothing needs to be shown anew.
}

void FKRRechnungsAnsichtViewController::druckeRechnung()
{
    FKRRechnung *r = gezeigteRechnung();
    if (!r)
        return;
    // What is on screen, brought up to date first.
    aktualisiereAnsicht();
    FKRAnsichtDruckauftrag::druckeMitDialog(*m_pdf->dokument(), nummerVon(*r), m_druckDialog);
}

void FKRRechnungsAnsichtViewController::setDruckDialog(std::function<bool(QPrinter &)> dialog)
{
    m_druckDialog = std::move(dialog);
}

// ---- Help ----

void FKRRechnungsAnsichtViewController::zeigeHilfeBox()
{
    if (!m_hilfeBox->isHidden()) {
        m_hilfeBox->hide();
        return;
    }
    m_hilfeBox->setGeometry(rect());
    m_hilfeBox->raise();
    m_hilfeBox->show();
}

void FKRRechnungsAnsichtViewController::verbergeHilfeView()
{
    QTimer::singleShot(0, this, &FKRRechnungsAnsichtViewController::hilfeGewaehlt);
}

void FKRRechnungsAnsichtViewController::zeigeWebseite()
{
    QTimer::singleShot(0, this, [] {
        const QUrl adresse(FKRLocalizationHelper::hauptTabellenText(QStringLiteral("PRODUKT_WEBSEITE_LINK")),
                           QUrl::StrictMode);
        if (adresse.isValid() && !adresse.scheme().isEmpty())
            QDesktopServices::openUrl(adresse);
    });
}

void FKRRechnungsAnsichtViewController::resizeEvent(QResizeEvent *event)
{
    // Only the overlay follows the size; a layout pass never renders.
    m_hilfeBox->setGeometry(rect());
    QWidget::resizeEvent(event);
}

void FKRRechnungsAnsichtViewController::changeEvent(QEvent *event)
{
    // Another user language has its own placeholder.
    if (event->type() == QEvent::LanguageChange) {
        if (!gezeigteRechnung())
            QTimer::singleShot(0, this, &FKRRechnungsAnsichtViewController::aktualisiereAnsicht);
    }
    QWidget::changeEvent(event);
}
