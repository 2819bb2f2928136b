#pragma once

#include <QWidget>

#include <functional>

class FKRAppDelegate;
class FKRRechnung;
class QPdfDocument;
class QPdfView;
class QPrinter;

// The right column of the main window: the PDF of the document selected in the list and the
// actions on it (mark sent, mark paid with the payment date, duplicate, dunning letter, save as
// PDF, print). A sent document is shown from the PDF bytes frozen when it was sent.
class FKRRechnungsAnsichtViewController : public QWidget
{
    Q_OBJECT

public:
    explicit FKRRechnungsAnsichtViewController(FKRAppDelegate &delegate, QWidget *parent = nullptr);
    ~FKRRechnungsAnsichtViewController() override;

    FKRRechnung *rechnung() const { return m_rechnung; }
    void setRechnung(FKRRechnung *rechnung);
    void aktualisiereAnsicht();

    void markiereRechnungVersendet();
    void markiereRechnungBezahlt();
    void rechnungBezahltDatePickerChanged();
    void dupliziereRechnung();
    void erstelleMahnung();
    void sichereRechnungAlsPDF();
    void druckeRechnung();
    void zeigeHilfeBox();

    // A deep copy of `quelle` inserted through the list's array controller; not saved.
    FKRRechnung *kopiereRechnung(const FKRRechnung &quelle);

    // The working file every rendering goes to: the user's cache folder + "/local.storage".
    static QString arbeitsDateiPfad();

    QPdfView *pdfView() const;
    QPdfDocument *pdfDocument() const;

    // How a print job is confirmed: the system print dialog by default; tests set the printer
    // up themselves. Returns whether to print.
    void setDruckDialog(std::function<bool(QPrinter &)> dialog);

private:
    FKRAppDelegate &m_delegate;
    FKRRechnung *m_rechnung = nullptr;
};
