#pragma once

#include <QList>

class FKROffenerEditor;
class FKRRechnung;

// What the application core needs of the windows. The window layer implements it and hands it
// to the application delegate; without windows (command line, tests of the core) there is none
// and the core falls back to the store itself where it can.
class FKRFensterSchicht
{
public:
    virtual ~FKRFensterSchicht() = default;

    // The open document editor, nullptr when no editor window is open.
    virtual FKROffenerEditor *offenerEditor() = 0;

    // The unpaid documents as the document list arranges them; the list's own filter and
    // selection are the same afterwards.
    virtual QList<FKRRechnung *> unbezahlteRechnungen() = 0;

    // The navigation menu's due area: highlight it and show the due documents.
    virtual void zeigeFaelligeRechnungen() = 0;

    // The main window's help toggle of the list and the document view.
    virtual void zeigeHilfe() = 0;

    // Hands pending edits of the focused control to the model; false when a control refuses.
    virtual bool commitEditing() = 0;
};
