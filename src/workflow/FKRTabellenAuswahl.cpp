#include "FKRTabellenAuswahl.h"

#include "FKRArrayController.h"
#include "ManagedObject.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QTableView>

#include <algorithm>

namespace {
// The role under which the first column hands out the row's object.
constexpr int kObjektRolle = Qt::UserRole + 40;
} // namespace

FKRTabellenAuswahl::FKRTabellenAuswahl(QTableView &tabelle, FKRArrayController &controller)
    : QObject(&tabelle)
    , m_tabelle(tabelle)
    , m_controller(controller)
{
    tabelle.setModel(&controller);
    tabelle.setSelectionBehavior(QAbstractItemView::SelectRows);
    tabelle.setSelectionMode(QAbstractItemView::ExtendedSelection);
    tabelle.verticalHeader()->hide();
    connect(&controller, &QAbstractItemModel::modelAboutToBeReset, this, &FKRTabellenAuswahl::merke);
    connect(&controller, &QAbstractItemModel::modelReset, this, &FKRTabellenAuswahl::stelleWiederHer);
    connect(tabelle.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (!m_stellt)
            Q_EMIT auswahlGeaendert();
    });
}

void FKRTabellenAuswahl::setSpalten(const QList<FKRArrayController::Spalte> &spalten)
{
    QList<FKRArrayController::Spalte> mitObjekt = spalten;
    if (!mitObjekt.isEmpty()) {
        auto daten = mitObjekt.first().daten;
        mitObjekt.first().daten = [daten](const ManagedObject &objekt, int role) -> QVariant {
            if (role == kObjektRolle)
                return QVariant::fromValue(const_cast<ManagedObject *>(&objekt));
            return daten ? daten(objekt, role) : QVariant();
        };
    }
    m_controller.setSpalten(mitObjekt);
}

QList<ManagedObject *> FKRTabellenAuswahl::ausgewaehlteObjekte() const
{
    QModelIndexList zeilen = m_tabelle.selectionModel()->selectedRows();
    std::sort(zeilen.begin(), zeilen.end(),
              [](const QModelIndex &a, const QModelIndex &b) { return a.row() < b.row(); });
    QList<ManagedObject *> objekte;
    for (const QModelIndex &zeile : zeilen)
        if (auto *objekt = m_controller.index(zeile.row(), 0).data(kObjektRolle).value<ManagedObject *>())
            objekte.append(objekt);
    return objekte;
}

ManagedObject *FKRTabellenAuswahl::erstesObjekt() const
{
    const QList<ManagedObject *> objekte = ausgewaehlteObjekte();
    return objekte.isEmpty() ? nullptr : objekte.first();
}

void FKRTabellenAuswahl::waehleAus(const QList<ManagedObject *> &objekte)
{
    // Reading the arrangement may rebuild it first; that rebuild must not restore the old
    // selection over the new one.
    (void)m_controller.arrangedObjects();
    m_stellt = true;
    QItemSelection auswahl;
    int ersteZeile = -1;
    for (ManagedObject *objekt : objekte) {
        const int zeile = m_controller.rowOf(objekt);
        if (zeile < 0)
            continue;
        auswahl.select(m_controller.index(zeile, 0), m_controller.index(zeile, m_controller.columnCount() - 1));
        if (ersteZeile < 0 || zeile < ersteZeile)
            ersteZeile = zeile;
    }
    m_tabelle.selectionModel()->select(auswahl, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (ersteZeile >= 0) {
        m_tabelle.selectionModel()->setCurrentIndex(m_controller.index(ersteZeile, 0), QItemSelectionModel::NoUpdate);
        m_tabelle.scrollTo(m_controller.index(ersteZeile, 0));
    }
    m_stellt = false;
}

void FKRTabellenAuswahl::merke()
{
    m_gemerkt.clear();
    for (ManagedObject *objekt : ausgewaehlteObjekte())
        m_gemerkt.append(objekt);
}

void FKRTabellenAuswahl::stelleWiederHer()
{
    QList<ManagedObject *> objekte;
    for (const QPointer<ManagedObject> &objekt : std::as_const(m_gemerkt))
        if (objekt && !objekt->isDeleted())
            objekte.append(objekt);
    m_gemerkt.clear();
    if (!objekte.isEmpty())
        waehleAus(objekte);
}
