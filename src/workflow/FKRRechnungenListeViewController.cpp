#include "FKRRechnungenListeViewController.h"

#include "FKRAppDelegate.h"

FKRRechnungenListeViewController::FKRRechnungenListeViewController(FKRAppDelegate &delegate, QWidget *parent)
    : QWidget(parent)
    , m_delegate(delegate)
{
}

FKRRechnungenListeViewController::~FKRRechnungenListeViewController() = default;
