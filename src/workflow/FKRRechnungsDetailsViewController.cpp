#include "FKRRechnungsDetailsViewController.h"

#include "FKRAppDelegate.h"

FKRRechnungsDetailsViewController::FKRRechnungsDetailsViewController(FKRAppDelegate &delegate, QWidget *parent)
    : QWidget(parent)
    , m_delegate(delegate)
{
}

FKRRechnungsDetailsViewController::~FKRRechnungsDetailsViewController() = default;
