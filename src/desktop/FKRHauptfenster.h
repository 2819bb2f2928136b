#pragma once

#include "FKRFensterSchicht.h"
#include "FKROffenerEditor.h"

#include <QMainWindow>

class FKRAppDelegate;
class FKRDatenbankImport;
class QLabel;
class QTreeWidget;

// The main window until the full document workflow moves in: the documents of the store with
// their state and total, and the items of the selected document. The selected document is the
// one imported items go to. Closing the window asks the application whether it may quit.
class FKRHauptfenster : public QMainWindow,
                        public FKRFensterSchicht,
                        public FKROffenerEditor,
                        public FKREmpfaengerListe
{
    Q_OBJECT

public:
    explicit FKRHauptfenster(FKRAppDelegate &delegate, QWidget *parent = nullptr);
    ~FKRHauptfenster() override;

    // FKRFensterSchicht
    FKROffenerEditor *offenerEditor() override;
    QList<FKRRechnung *> unbezahlteRechnungen() override;
    void zeigeFaelligeRechnungen() override;
    void zeigeHilfe() override;
    bool commitEditing() override;

    // FKROffenerEditor
    FKRRechnung *rechnung() const override;
    FKRPosten *neuerPosten() override;
    FKREmpfaengerListe *empfaengerListe() override { return this; }
    void waehlePostenAus(FKRPosten *posten) override;

    // FKREmpfaengerListe
    QList<FKREmpfaenger *> angeordneteEmpfaenger() const override;
    FKREmpfaenger *neuerEmpfaenger() override;

    // Opens the store's documents in the window; the start-up has backed up the store first.
    void zeigeDaten();
    // Refills the document list from the store, keeping the selection.
    void aktualisiere();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void baueMenue();
    void zeigePosten(FKRPosten *auswahl = nullptr);
    QList<FKRRechnung *> dokumenteInListenOrdnung() const;

    FKRAppDelegate &m_delegate;
    FKRDatenbankImport *m_import = nullptr;
    QTreeWidget *m_dokumente = nullptr;
    QTreeWidget *m_posten = nullptr;
    QLabel *m_postenTitel = nullptr;
};
