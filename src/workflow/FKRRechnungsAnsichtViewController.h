#pragma once

#include "FKRAnsichtAktionsLeiste.h"
#include "FKRRechnung.h"

#include <QPointer>
#include <QWidget>

#include <functional>

class FKRAnsichtAktionsBox;
class FKRHilfeBox;
class FKRAnsichtPDFAnzeige;
class FKRAppDelegate;
class ManagedObjectContext;
class QDateTimeEdit;
class QPdfDocument;
class QPdfView;
class QPrinter;

// The right column of the main window: the PDF of the document selected in the list and the
// actions on it (mark sent, mark paid with the payment date or take the payment back, duplicate,
// dunning letter, save as PDF, print). A sent document is shown from the PDF bytes frozen when it
// was sent.
//
// Rendering costs real time, so the view renders only when there is something new to show:
// another document, a save of the store (the editor saves when it closes, never per keystroke),
// a change of the paper size, or one of the actions here. Redisplaying without such a change
// only recomputes which actions are offered.
class FKRRechnungsAnsichtViewController : public QWidget
{
    Q_OBJECT

public:
    explicit FKRRechnungsAnsichtViewController(FKRAppDelegate &delegate, QWidget *parent = nullptr);
    ~FKRRechnungsAnsichtViewController() override;

    FKRRechnung *rechnung() const { return m_rechnung; }
    void setRechnung(FKRRechnung *rechnung);
    void aktualisiereAnsicht();

    // The actions on the shown document; without a document they do nothing, and neither do
    // they where the view does not offer them (a dunning letter only for what FKRMahnung allows).
    // Sending freezes and archives the PDF for good, so the user confirms it first.
    void markiereRechnungVersendet();
    // Marks paid at the current moment; the payment date can be corrected in its picker.
    void markiereRechnungBezahlt();
    // Takes a paid mark back: unpaid again, without a payment date.
    void markiereRechnungUnbezahlt();
    void rechnungBezahltDatePickerChanged();
    void dupliziereRechnung();
    void erstelleMahnung();
    void sichereRechnungAlsPDF();
    void druckeRechnung();
    // Shows the help panel over the view or removes it.
    void zeigeHilfeBox();
    // The help panel's close button: asks the main window, on a later turn of the event loop,
    // to toggle the help of all columns (hilfeGewaehlt).
    void verbergeHilfeView();
    // Opens the product's web page in the browser, on a later turn of the event loop.
    void zeigeWebseite();

    // A deep copy of `quelle` inserted through the list's array controller; not saved. nullptr
    // when the view is not in the main window's split view (there is no list to insert into).
    FKRRechnung *kopiereRechnung(const FKRRechnung &quelle);

    // The working file every rendering goes to: the user's cache folder + "/local.storage".
    static QString arbeitsDateiPfad();
    // The placeholder shown without a document, in the user's language.
    static QString platzhalterPfad();

    QPdfView *pdfView() const;
    QPdfDocument *pdfDocument() const;
    // The bytes of the PDF shown now (placeholder, rendering or frozen PDF).
    const QByteArray &angezeigtePDFDaten() const;

    FKRAnsichtAktionsLeiste *aktionsLeiste() const { return m_aktionsLeiste; }
    FKRAnsichtAktionsBox *duplizierenButtonBox() const { return m_aktionsLeiste->duplizierenButtonBox(); }
    FKRAnsichtAktionsBox *mahnungButtonBox() const { return m_aktionsLeiste->mahnungButtonBox(); }
    FKRAnsichtAktionsBox *sichernButtonBox() const { return m_aktionsLeiste->sichernButtonBox(); }
    FKRAnsichtAktionsBox *druckenButtonBox() const { return m_aktionsLeiste->druckenButtonBox(); }
    FKRAnsichtAktionsBox *rechnungVersendetButtonBox() const { return m_aktionsLeiste->rechnungVersendetButtonBox(); }
    FKRAnsichtAktionsBox *rechnungBezahltButtonBox() const { return m_aktionsLeiste->rechnungBezahltButtonBox(); }
    QDateTimeEdit *rechnungBezahltDatePicker() const { return m_aktionsLeiste->rechnungBezahltDatePicker(); }
    FKRAnsichtAktionsBox *rechnungUnbezahltButtonBox() const { return m_aktionsLeiste->rechnungUnbezahltButtonBox(); }
    FKRHilfeBox *hilfeBox() const { return m_hilfeBox; }

    // How a print job is confirmed: the system print dialog by default; tests set the printer
    // up themselves. Returns whether to print.
    void setDruckDialog(std::function<bool(QPrinter &)> dialog);

Q_SIGNALS:
    // The main window's help toggle (see verbergeHilfeView).
    void hilfeGewaehlt();
    // A document was rendered into the file at `pfad` (the working file or an archive file).
    void dokumentGerendert(const QString &pfad);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void baueOberflaeche();
    ManagedObjectContext *managedObjectContext();
    // The shown document, nullptr when none or when it was deleted.
    FKRRechnung *gezeigteRechnung() const;
    // Marks the shown PDF stale and redisplays on the next turn of the event loop.
    void planeNeueDarstellung();

    void zeigePDF(FKRRechnung &rechnung);
    void zeigePlatzhalter();
    bool rendere(FKRRechnung &rechnung, const QString &pfad);
    void archiviereRechnung(FKRRechnung &rechnung);
    // Drafts area, the copy selected in the list and opened in the editor, then redisplay.
    void oeffneKopie(FKRRechnung *kopie);
    void bezahltDatumBearbeitet();

    FKRAppDelegate &m_delegate;
    QPointer<FKRRechnung> m_rechnung;
    ManagedObjectContext *m_context = nullptr;

    QPdfView *m_pdfView = nullptr;
    FKRAnsichtPDFAnzeige *m_pdf = nullptr;
    // What the PDF shows: the document it was made for (nullptr for the placeholder), and
    // whether it must be made again before it is shown once more.
    QPointer<FKRRechnung> m_pdfRechnung;
    QString m_pdfPlatzhalter;
    bool m_pdfVeraltet = true;
    bool m_darstellungGeplant = false;

    FKRAnsichtAktionsLeiste *m_aktionsLeiste = nullptr;
    FKRHilfeBox *m_hilfeBox = nullptr;

    std::function<bool(QPrinter &)> m_druckDialog;
};
