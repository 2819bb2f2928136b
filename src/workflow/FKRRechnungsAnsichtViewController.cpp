#include "FKRRechnungsAnsichtViewController.h"

#include "FKRAppDelegate.h"

FKRRechnungsAnsichtViewController::FKRRechnungsAnsichtViewController(FKRAppDelegate &delegate, QWidget *parent)
    : QWidget(parent)
    , m_delegate(delegate)
{
}

FKRRechnungsAnsichtViewController::~FKRRechnungsAnsichtViewController() = default;
