#include "FKRMenuViewController.h"

FKRMenuViewController::FKRMenuViewController(QWidget *parent)
    : QWidget(parent)
{
}

FKRMenuViewController::~FKRMenuViewController() = default;

// ---- Shell: filled in by the menu's own work ----
void FKRMenuViewController::entwuerfeButtonPressed() {}
void FKRMenuViewController::versandteRechnungenButtonPressed() {}
void FKRMenuViewController::faelligeRechnungenButtonPressed() {}
void FKRMenuViewController::bezahlteRechnungenButtonPressed() {}
void FKRMenuViewController::alleRechnungenButtonPressed() {}
void FKRMenuViewController::hilfeButtonPressed() {}
void FKRMenuViewController::markiereAktivenBereich(int) {}
QColor FKRMenuViewController::hintergrundFarbe() const { return {}; }
