#include "FKRRechnungenListeViewController.h"

#include "FKRAppDelegate.h"

FKRRechnungenListeViewController::FKRRechnungenListeViewController(FKRAppDelegate &delegate, QWidget *parent)
    : QWidget(parent)
    , m_delegate(delegate)
{
}

FKRRechnungenListeViewController::~FKRRechnungenListeViewController() = default;

// ---- Shell: filled in by the list's own work ----
FKRArrayController &FKRRechnungenListeViewController::rechnungenListeArrayController()
{
    static FKRArrayController *controller = nullptr;
    return *controller;
}
ManagedObjectContext *FKRRechnungenListeViewController::managedObjectContext() { return m_delegate.managedObjectContext(); }
QTableView *FKRRechnungenListeViewController::tableView() const { return nullptr; }
QComboBox *FKRRechnungenListeViewController::dokumentArtPopUpButton() const { return nullptr; }
QWidget *FKRRechnungenListeViewController::loeschenButtonBox() const { return nullptr; }
QWidget *FKRRechnungenListeViewController::hilfeBox() const { return nullptr; }
QString FKRRechnungenListeViewController::spaltenTitel() const { return {}; }
void FKRRechnungenListeViewController::zeigeEntwuerfe() {}
void FKRRechnungenListeViewController::zeigeVersandteRechnungen() {}
void FKRRechnungenListeViewController::zeigeFaelligeRechnungen() {}
void FKRRechnungenListeViewController::zeigeBezahlteRechnungen() {}
void FKRRechnungenListeViewController::zeigeAlleRechnungen() {}
void FKRRechnungenListeViewController::dokumentArtDidChange(int) {}
void FKRRechnungenListeViewController::sortierungAendern() {}
QList<FKRRechnung *> FKRRechnungenListeViewController::selectedObjects() const { return {}; }
void FKRRechnungenListeViewController::setSelectedObjects(const QList<FKRRechnung *> &) {}
void FKRRechnungenListeViewController::tabelleDoppelGeklickt() {}
void FKRRechnungenListeViewController::dupliziereRechnung() {}
void FKRRechnungenListeViewController::loescheRechung() {}
FKRRechnungsDetailsWindowController *FKRRechnungenListeViewController::prepareForSegue(const QString &) { return nullptr; }
FKRRechnung *FKRRechnungenListeViewController::erstelleNeueRechnung() { return nullptr; }
void FKRRechnungenListeViewController::zeigeHilfeBox() {}
