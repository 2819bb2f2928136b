#include "FKRAppWindowController.h"

#include "FKRAppDelegate.h"

FKRAppWindowController::FKRAppWindowController(FKRAppDelegate &delegate, QWidget *parent)
    : QMainWindow(parent)
    , m_delegate(delegate)
{
}

FKRAppWindowController::~FKRAppWindowController() = default;
