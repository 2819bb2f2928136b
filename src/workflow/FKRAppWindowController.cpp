#include "FKRAppWindowController.h"

#include "FKRAppDelegate.h"

FKRAppWindowController::FKRAppWindowController(FKRAppDelegate &delegate, QWidget *parent)
    : QMainWindow(parent)
    , m_delegate(delegate)
{
}

FKRAppWindowController::~FKRAppWindowController() = default;

FKROffenerEditor *FKRAppWindowController::offenerEditor()
{
    return nullptr;
}

QList<FKRRechnung *> FKRAppWindowController::unbezahlteRechnungen()
{
    return {};
}

void FKRAppWindowController::zeigeFaelligeRechnungen() {}

void FKRAppWindowController::zeigeHilfe() {}

bool FKRAppWindowController::commitEditing()
{
    return true;
}

FKRMenuViewController *FKRAppWindowController::menuViewController() const { return nullptr; }
FKRRechnungenListeViewController *FKRAppWindowController::listeViewController() const { return nullptr; }
FKRRechnungsAnsichtViewController *FKRAppWindowController::ansichtViewController() const { return nullptr; }
