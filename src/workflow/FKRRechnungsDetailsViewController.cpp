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
