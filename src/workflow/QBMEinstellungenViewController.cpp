#include "QBMEinstellungenViewController.h"

#include "FKRAppDelegate.h"

QBMEinstellungenViewController::QBMEinstellungenViewController(FKRAppDelegate &delegate, QWidget *parent)
    : QWidget(parent)
    , m_delegate(delegate)
{
}

QBMEinstellungenViewController::~QBMEinstellungenViewController() = default;
