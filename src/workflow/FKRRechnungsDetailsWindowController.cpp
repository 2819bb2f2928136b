#include "FKRRechnungsDetailsWindowController.h"

#include "FKRAppDelegate.h"
#include "FKRRechnungsAnsichtViewController.h"

FKRRechnungsDetailsWindowController::FKRRechnungsDetailsWindowController(FKRAppDelegate &delegate, QWidget *parent)
    : QWidget(parent)
    , m_delegate(delegate)
{
}

FKRRechnungsDetailsWindowController::~FKRRechnungsDetailsWindowController() = default;

FKRRechnungsAnsichtViewController *FKRRechnungsDetailsWindowController::rechnungsAnsichtViewController() const
{
    return m_ansicht;
}

void FKRRechnungsDetailsWindowController::setRechnungsAnsichtViewController(FKRRechnungsAnsichtViewController *ansicht)
{
    m_ansicht = ansicht;
}

// ---- Shell: filled in by the editor's own work ----
FKRRechnungsDetailsWindowController *FKRRechnungsDetailsWindowController::oeffne(FKRAppDelegate &, FKRRechnung *,
                                                                                FKRRechnungsAnsichtViewController *,
                                                                                FKREmpfaenger *)
{
    return nullptr;
}
FKRRechnungsDetailsWindowController *FKRRechnungsDetailsWindowController::aktuellesFenster() { return nullptr; }
