#include "FKRObjektAuswahl.h"

#include "FKRArrayController.h"
#include "ManagedObject.h"

#include <QAbstractItemView>
#include <QItemSelectionModel>

#include <algorithm>
#include <utility>

FKRObjektAuswahl::FKRObjektAuswahl(QAbstractItemView *tabelle, FKRArrayController *controller, int objektRolle)
    : QObject(tabelle)
    , m_tabelle(tabelle)
    , m_controller(controller)
    , m_objektRolle(objektRolle)
{
    connect(m_tabelle->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (!m_stellt)
            Q_EMIT auswahlGeaendert();
    });
    connect(m_controller, &FKRArrayController::modelAboutToBeReset, this, &FKRObjektAuswahl::merke);
    connect(m_controller, &FKRArrayController::modelReset, this, &FKRObjektAuswahl::stelleWiederHer);
}

ManagedObject *FKRObjektAuswahl::objektAm(int zeile) const
{
    const QModelIndex index = m_controller->index(zeile, 0);
    return qobject_cast<ManagedObject *>(index.data(m_objektRolle).value<QObject *>());
}

QList<ManagedObject *> FKRObjektAuswahl::objekte() const
{
    QModelIndexList zeilen = m_tabelle->selectionModel()->selectedRows();
    std::sort(zeilen.begin(), zeilen.end(), [](const QModelIndex &a, const QModelIndex &b) { return a.row() < b.row(); });
    QList<ManagedObject *> result;
    for (const QModelIndex &index : std::as_const(zeilen)) {
        if (ManagedObject *objekt = objektAm(index.row()))
            result.append(objekt);
    }
    return result;
}

void FKRObjektAuswahl::waehleAus(const QList<ManagedObject *> &objekte)
{
    QItemSelection auswahl;
    QModelIndex erste;
    for (ManagedObject *objekt : objekte) {
        const int zeile = m_controller->rowOf(objekt);
        if (zeile < 0)
            continue;
        const QModelIndex index = m_controller->index(zeile, 0);
        auswahl.select(index, index);
        if (!erste.isValid())
            erste = index;
    }
    QItemSelectionModel *modell = m_tabelle->selectionModel();
    if (erste.isValid())
        modell->setCurrentIndex(erste, QItemSelectionModel::NoUpdate);
    modell->select(auswahl, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (erste.isValid())
        m_tabelle->scrollTo(erste);
}

void FKRObjektAuswahl::merke()
{
    m_gemerkt = objekte();
    const QModelIndex aktuelle = m_tabelle->selectionModel()->currentIndex();
    m_gemerkteAktuelle = aktuelle.isValid() ? objektAm(aktuelle.row()) : nullptr;
}

void FKRObjektAuswahl::stelleWiederHer()
{
    m_stellt = true;
    QItemSelection auswahl;
    for (ManagedObject *objekt : std::as_const(m_gemerkt)) {
        const int zeile = m_controller->rowOf(objekt);
        if (zeile >= 0)
            auswahl.select(m_controller->index(zeile, 0), m_controller->index(zeile, 0));
    }
    QItemSelectionModel *modell = m_tabelle->selectionModel();
    modell->select(auswahl, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    const int aktuelle = m_gemerkteAktuelle ? m_controller->rowOf(m_gemerkteAktuelle) : -1;
    if (aktuelle >= 0)
        modell->setCurrentIndex(m_controller->index(aktuelle, 0), QItemSelectionModel::NoUpdate);
    m_stellt = false;
    if (objekte() != m_gemerkt)
        Q_EMIT auswahlGeaendert();
}
