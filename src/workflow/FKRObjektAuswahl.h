#pragma once

#include <QList>
#include <QObject>

class FKRArrayController;
class ManagedObject;
class QAbstractItemView;

// The selection of a table over an array controller, kept by object: every rebuild of the
// arrangement resets the table, and the same objects are selected again wherever they now stand.
// Objects that left the arrangement (deleted, filtered out) leave the selection.
class FKRObjektAuswahl : public QObject
{
    Q_OBJECT

public:
    // `objektRolle` is the model role whose data is the row's object (a QObject *); reading the
    // object through the model's data is safe even while a rebuild is under way.
    FKRObjektAuswahl(QAbstractItemView *tabelle, FKRArrayController *controller, int objektRolle);

    // The selected objects in the order of their rows.
    QList<ManagedObject *> objekte() const;
    // Selects exactly these objects (those that are arranged), makes the first current and
    // scrolls to it.
    void waehleAus(const QList<ManagedObject *> &objekte);
    ManagedObject *objektAm(int zeile) const;

Q_SIGNALS:
    // The user or the program changed the selection, or a rebuild dropped objects from it.
    void auswahlGeaendert();

private:
    void merke();
    void stelleWiederHer();

    QAbstractItemView *m_tabelle;
    FKRArrayController *m_controller;
    int m_objektRolle;
    QList<ManagedObject *> m_gemerkt;
    ManagedObject *m_gemerkteAktuelle = nullptr;
    bool m_stellt = false;
};
