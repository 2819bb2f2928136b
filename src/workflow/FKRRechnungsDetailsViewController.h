#pragma once

#include "FKROffenerEditor.h"

#include <QWidget>

class FKRAppDelegate;
class FKRArrayController;
class FKRRechnung;
class QTabWidget;

// The document editor: one document's items, amounts, recipient, sender, texts, type, language,
// dates and layout on six tabs. The item import of the time tracker reaches it as the open
// editor.
class FKRRechnungsDetailsViewController : public QWidget, public FKROffenerEditor, public FKREmpfaengerListe
{
    Q_OBJECT

public:
    explicit FKRRechnungsDetailsViewController(FKRAppDelegate &delegate, QWidget *parent = nullptr);
    ~FKRRechnungsDetailsViewController() override;

    void setRechnung(FKRRechnung *rechnung);
    QTabWidget *tabView() const;
    FKRArrayController &rechnungsPostenArrayController();
    FKRArrayController &empfaengerArrayController();
    FKRArrayController &absenderArrayController();

    // FKROffenerEditor
    FKRRechnung *rechnung() const override { return m_rechnung; }
    FKRPosten *neuerPosten() override;
    FKREmpfaengerListe *empfaengerListe() override { return this; }
    void waehlePostenAus(FKRPosten *posten) override;

    // FKREmpfaengerListe
    QList<FKREmpfaenger *> angeordneteEmpfaenger() const override;
    FKREmpfaenger *neuerEmpfaenger() override;

Q_SIGNALS:
    // The next button on the last tab: the window closes.
    void schliessenAngefordert();

private:
    FKRAppDelegate &m_delegate;
    FKRRechnung *m_rechnung = nullptr;
};
