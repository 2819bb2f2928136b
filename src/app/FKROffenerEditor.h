#pragma once

#include <QList>

class FKREmpfaenger;
class FKRPosten;
class FKRRechnung;

// The recipient list of the open editor, in the order it shows them.
class FKREmpfaengerListe
{
public:
    virtual ~FKREmpfaengerListe() = default;
    virtual QList<FKREmpfaenger *> angeordneteEmpfaenger() const = 0;
    // A new recipient inserted into the shared context through the list.
    virtual FKREmpfaenger *neuerEmpfaenger() = 0;
};

// The document editor as the item import sees it; the window layer implements it.
class FKROffenerEditor
{
public:
    virtual ~FKROffenerEditor() = default;

    // The document the editor shows, nullptr when it shows none.
    virtual FKRRechnung *rechnung() const = 0;
    // A new item inserted into the shared context through the editor's item list.
    virtual FKRPosten *neuerPosten() = 0;
    // The editor's recipient list, nullptr when it has none.
    virtual FKREmpfaengerListe *empfaengerListe() = 0;
    // Selects the item in the item list and refreshes the editor's sums.
    virtual void waehlePostenAus(FKRPosten *posten) = 0;
};
