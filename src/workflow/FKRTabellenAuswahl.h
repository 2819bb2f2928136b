#pragma once

#include "FKRArrayController.h"

#include <QList>
#include <QObject>
#include <QPointer>

class ManagedObject;
class QTableView;

// The selection of one of the editor's tables, kept by object: the array controller rebuilds
// its rows after every save, and the rows the user had chosen are chosen again afterwards.
// Reports only the user's own changes of the selection, not those made by code or by a rebuild.
class FKRTabellenAuswahl : public QObject
{
    Q_OBJECT

public:
    // Shows `controller` in `tabelle` (whole rows, several at once) and follows its selection.
    FKRTabellenAuswahl(QTableView &tabelle, FKRArrayController &controller);

    // Declares the table's columns. The selection reads its objects through them, from the rows
    // the table shows, so it never makes the controller rebuild while it is being rebuilt.
    void setSpalten(const QList<FKRArrayController::Spalte> &spalten);

    // The selected objects in the order of their rows.
    QList<ManagedObject *> ausgewaehlteObjekte() const;
    ManagedObject *erstesObjekt() const;
    template<typename T>
    QList<T *> ausgewaehlte() const
    {
        QList<T *> result;
        for (ManagedObject *object : ausgewaehlteObjekte())
            result.append(static_cast<T *>(object));
        return result;
    }

    // Selects exactly these objects (those not arranged are skipped) and scrolls to the first.
    void waehleAus(const QList<ManagedObject *> &objekte);

Q_SIGNALS:
    void auswahlGeaendert();

private:
    void merke();
    void stelleWiederHer();

    QTableView &m_tabelle;
    FKRArrayController &m_controller;
    QList<QPointer<ManagedObject>> m_gemerkt;
    bool m_stellt = false;
};
