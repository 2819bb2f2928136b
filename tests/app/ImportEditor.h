#pragma once

// The open editor as the item import sees it, over a context of the test's: a document, its
// recipients in the order the list shows them, and the items the import selected.

#include "FKREmpfaenger.h"
#include "FKROffenerEditor.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "ManagedObjectContext.h"

class ImportEditor : public FKROffenerEditor, public FKREmpfaengerListe
{
public:
    explicit ImportEditor(ManagedObjectContext &moc) : m_moc(moc)
    {
        dokument = moc.insertNewObject<FKRRechnung>();
        for (int nummer : {1, 2}) {
            auto *posten = moc.insertNewObject<FKRPosten>();
            posten->setPostenNummer(nummer);
            dokument->addPostenObject(posten);
        }
    }
    FKRRechnung *dokument = nullptr;
    QList<FKREmpfaenger *> angeordnet;
    int neueEmpfaenger = 0;
    bool mitListe = true;
    QList<FKRPosten *> ausgewaehlt;

    FKRRechnung *rechnung() const override { return dokument; }
    FKRPosten *neuerPosten() override { return m_moc.insertNewObject<FKRPosten>(); }
    FKREmpfaengerListe *empfaengerListe() override { return mitListe ? this : nullptr; }
    void waehlePostenAus(FKRPosten *posten) override { ausgewaehlt.append(posten); }
    QList<FKREmpfaenger *> angeordneteEmpfaenger() const override { return angeordnet; }
    FKREmpfaenger *neuerEmpfaenger() override
    {
        ++neueEmpfaenger;
        return angeordnet.emplace_back(m_moc.insertNewObject<FKREmpfaenger>());
    }

private:
    ManagedObjectContext &m_moc;
};
