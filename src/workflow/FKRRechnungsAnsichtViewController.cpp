#include "FKRRechnungsAnsichtViewController.h"

#include "FKRAppDelegate.h"

FKRRechnungsAnsichtViewController::FKRRechnungsAnsichtViewController(FKRAppDelegate &delegate, QWidget *parent)
    : QWidget(parent)
    , m_delegate(delegate)
{
}

FKRRechnungsAnsichtViewController::~FKRRechnungsAnsichtViewController() = default;

// ---- Shell: filled in by the view's own work ----
void FKRRechnungsAnsichtViewController::setRechnung(FKRRechnung *rechnung) { m_rechnung = rechnung; }
void FKRRechnungsAnsichtViewController::aktualisiereAnsicht() {}
void FKRRechnungsAnsichtViewController::markiereRechnungVersendet() {}
void FKRRechnungsAnsichtViewController::markiereRechnungBezahlt() {}
void FKRRechnungsAnsichtViewController::rechnungBezahltDatePickerChanged() {}
void FKRRechnungsAnsichtViewController::dupliziereRechnung() {}
void FKRRechnungsAnsichtViewController::erstelleMahnung() {}
void FKRRechnungsAnsichtViewController::sichereRechnungAlsPDF() {}
void FKRRechnungsAnsichtViewController::druckeRechnung() {}
void FKRRechnungsAnsichtViewController::zeigeHilfeBox() {}
FKRRechnung *FKRRechnungsAnsichtViewController::kopiereRechnung(const FKRRechnung &) { return nullptr; }
QString FKRRechnungsAnsichtViewController::arbeitsDateiPfad() { return {}; }
QPdfView *FKRRechnungsAnsichtViewController::pdfView() const { return nullptr; }
QPdfDocument *FKRRechnungsAnsichtViewController::pdfDocument() const { return nullptr; }
void FKRRechnungsAnsichtViewController::setDruckDialog(std::function<bool(QPrinter &)>) {}
