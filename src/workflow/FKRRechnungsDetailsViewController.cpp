#include "FKRRechnungsDetailsViewController.h"

#include "FKRAppDelegate.h"

FKRRechnungsDetailsViewController::FKRRechnungsDetailsViewController(FKRAppDelegate &delegate, QWidget *parent)
    : QWidget(parent)
    , m_delegate(delegate)
{
}

FKRRechnungsDetailsViewController::~FKRRechnungsDetailsViewController() = default;

FKRPosten *FKRRechnungsDetailsViewController::neuerPosten()
{
    return nullptr;
}

void FKRRechnungsDetailsViewController::waehlePostenAus(FKRPosten *) {}

QList<FKREmpfaenger *> FKRRechnungsDetailsViewController::angeordneteEmpfaenger() const
{
    return {};
}

FKREmpfaenger *FKRRechnungsDetailsViewController::neuerEmpfaenger()
{
    return nullptr;
}

// ---- Shell: filled in by the editor's own work ----
void FKRRechnungsDetailsViewController::setRechnung(FKRRechnung *rechnung) { m_rechnung = rechnung; }
QTabWidget *FKRRechnungsDetailsViewController::tabView() const { return nullptr; }
FKRArrayController &FKRRechnungsDetailsViewController::rechnungsPostenArrayController()
{
    static FKRArrayController *controller = nullptr;
    return *controller;
}
FKRArrayController &FKRRechnungsDetailsViewController::empfaengerArrayController() { return rechnungsPostenArrayController(); }
FKRArrayController &FKRRechnungsDetailsViewController::absenderArrayController() { return rechnungsPostenArrayController(); }
