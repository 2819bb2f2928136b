#include "FKRArrayController.h"

#include "ManagedObject.h"
#include "ManagedObjectContext.h"

#include <QCollator>
#include <QSet>
#include <QTimer>

#include <algorithm>
#include <optional>
#include <vector>

namespace {

// One object's value under one sort key, read once per rebuild.
struct SortWert {
    bool vorhanden = false;
    std::optional<QCollatorSortKey> text;
    QVariant wert;
};

QVariant wertAmPfad(const ManagedObject &object, const QStringList &schritte)
{
    const ManagedObject *ziel = &object;
    for (qsizetype i = 0; i + 1 < schritte.size(); ++i) {
        ziel = ziel->toOne(schritte[i]);
        if (!ziel)
            return QVariant();
    }
    return ziel->value(schritte.last());
}

int vergleiche(const SortWert &a, const SortWert &b)
{
    if (!a.vorhanden || !b.vorhanden)
        return int(a.vorhanden) - int(b.vorhanden);
    if (a.text && b.text)
        return a.text->compare(*b.text);
    const QPartialOrdering order = QVariant::compare(a.wert, b.wert);
    return order == QPartialOrdering::Less ? -1 : (order == QPartialOrdering::Greater ? 1 : 0);
}

} // namespace

FKRArrayController::FKRArrayController(ManagedObjectContext &context, const QString &entityName, QObject *parent)
    : QAbstractTableModel(parent)
    , m_context(context)
    , m_entityName(entityName)
{
    connect(&m_context, &ManagedObjectContext::objectsDidChange, this, &FKRArrayController::markiereVeraltet);
    connect(&m_context, &ManagedObjectContext::didSave, this, &FKRArrayController::aktualisiereInhalt);
    markiereVeraltet();
}

FKRArrayController::~FKRArrayController() = default;

void FKRArrayController::setFilterPredicate(Praedikat praedikat)
{
    m_filter = std::move(praedikat);
    rearrangeObjects();
}

void FKRArrayController::setSortDescriptors(const QList<SortDescriptor> &sortDescriptors)
{
    m_sort = sortDescriptors;
    rearrangeObjects();
}

const QList<ManagedObject *> &FKRArrayController::arrangedObjects() const
{
    // A stale arrangement is rebuilt before anyone reads it, so a caller that has just inserted
    // or deleted sees the result; the rebuild itself is not observable state of the controller.
    // Views that read during the reset itself get the arrangement being replaced, not a second
    // rebuild inside the first.
    if (m_veraltet && !m_ordnetNeu)
        const_cast<FKRArrayController *>(this)->aktualisiereInhalt();
    return m_arranged;
}

ManagedObject *FKRArrayController::objectAt(int row) const
{
    const auto &objects = arrangedObjects();
    return row >= 0 && row < objects.size() ? objects[row] : nullptr;
}

int FKRArrayController::rowOf(const ManagedObject *object) const
{
    const auto &objects = arrangedObjects();
    const auto it = std::find(objects.cbegin(), objects.cend(), object);
    return it == objects.cend() ? -1 : int(it - objects.cbegin());
}

ManagedObject *FKRArrayController::newObject()
{
    ManagedObject *object = m_context.insertNewObjectForEntityForName(m_entityName);
    aktualisiereInhalt();
    return object;
}

void FKRArrayController::markiereVeraltet()
{
    m_veraltet = true;
    if (m_neuordnungGeplant)
        return;
    m_neuordnungGeplant = true;
    QTimer::singleShot(0, this, [this] {
        m_neuordnungGeplant = false;
        if (m_veraltet)
            aktualisiereInhalt();
    });
}

void FKRArrayController::aktualisiereInhalt()
{
    // Rows stay where the user saw them: only deleted objects leave, and objects that newly
    // pass the filter join at the end in the sort order. A document marked sent in the drafts
    // area therefore stays in view until the area or the order changes.
    QList<ManagedObject *> objekte;
    objekte.reserve(m_arranged.size());
    QSet<const ManagedObject *> vorhanden;
    vorhanden.reserve(m_arranged.size());
    for (ManagedObject *object : std::as_const(m_arranged)) {
        if (!object->isDeleted()) {
            objekte.append(object);
            vorhanden.insert(object);
        }
    }
    QList<ManagedObject *> neu;
    for (ManagedObject *object : m_context.executeFetchRequest({m_entityName, m_filter, {}})) {
        if (!vorhanden.contains(object))
            neu.append(object);
    }
    ordne(neu);
    objekte.append(neu);
    setzeAnordnung(std::move(objekte));
}

void FKRArrayController::rearrangeObjects()
{
    QList<ManagedObject *> objekte = m_context.executeFetchRequest({m_entityName, m_filter, {}});
    ordne(objekte);
    setzeAnordnung(std::move(objekte));
}

QList<ManagedObject *> FKRArrayController::arrangeObjects(const Praedikat &filter) const
{
    QList<ManagedObject *> objekte = m_context.executeFetchRequest({m_entityName, filter, {}});
    ordne(objekte);
    return objekte;
}

void FKRArrayController::setzeAnordnung(QList<ManagedObject *> objekte)
{
    m_ordnetNeu = true;
    beginResetModel();
    m_arranged = std::move(objekte);
    m_veraltet = false;
    endResetModel();
    m_ordnetNeu = false;
    Q_EMIT arrangedObjectsChanged();
}

void FKRArrayController::ordne(QList<ManagedObject *> &objekte) const
{
    if (m_sort.isEmpty() || objekte.size() < 2)
        return;
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(false);

    const qsizetype anzahlSchluessel = m_sort.size();
    QList<QStringList> pfade;
    for (const SortDescriptor &sort : m_sort)
        pfade.append(sort.keyPath.split(QLatin1Char('.')));

    std::vector<SortWert> werte(std::size_t(objekte.size() * anzahlSchluessel));
    for (qsizetype i = 0; i < objekte.size(); ++i) {
        for (qsizetype k = 0; k < anzahlSchluessel; ++k) {
            SortWert &w = werte[std::size_t(i * anzahlSchluessel + k)];
            w.wert = wertAmPfad(*objekte[i], pfade[k]);
            w.vorhanden = w.wert.isValid() && !w.wert.isNull();
            if (w.vorhanden && w.wert.metaType() == QMetaType::fromType<QString>())
                w.text = collator.sortKey(w.wert.toString());
        }
    }

    std::vector<qsizetype> reihenfolge(std::size_t(objekte.size()));
    for (qsizetype i = 0; i < objekte.size(); ++i)
        reihenfolge[std::size_t(i)] = i;
    std::stable_sort(reihenfolge.begin(), reihenfolge.end(), [&](qsizetype a, qsizetype b) {
        for (qsizetype k = 0; k < anzahlSchluessel; ++k) {
            const int c = vergleiche(werte[std::size_t(a * anzahlSchluessel + k)],
                                     werte[std::size_t(b * anzahlSchluessel + k)]);
            if (c != 0)
                return m_sort[k].ascending ? c < 0 : c > 0;
        }
        return false;
    });
    QList<ManagedObject *> geordnet;
    geordnet.reserve(objekte.size());
    for (qsizetype i : reihenfolge)
        geordnet.append(objekte[i]);
    objekte = std::move(geordnet);
}

void FKRArrayController::setSpalten(const QList<Spalte> &spalten)
{
    beginResetModel();
    m_spalten = spalten;
    endResetModel();
}

int FKRArrayController::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_arranged.size());
}

int FKRArrayController::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_spalten.size());
}

QVariant FKRArrayController::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_arranged.size() || index.column() >= m_spalten.size())
        return QVariant();
    const Spalte &spalte = m_spalten[index.column()];
    return spalte.daten ? spalte.daten(*m_arranged[index.row()], role) : QVariant();
}

bool FKRArrayController::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || !index.isValid() || index.row() >= m_arranged.size()
        || index.column() >= m_spalten.size())
        return false;
    const Spalte &spalte = m_spalten[index.column()];
    if (!spalte.setzen || !spalte.setzen(*m_arranged[index.row()], value))
        return false;
    Q_EMIT dataChanged(index, index);
    return true;
}

Qt::ItemFlags FKRArrayController::flags(const QModelIndex &index) const
{
    Qt::ItemFlags f = QAbstractTableModel::flags(index);
    if (index.isValid() && index.column() < m_spalten.size() && m_spalten[index.column()].setzen)
        f |= Qt::ItemIsEditable;
    return f;
}

QVariant FKRArrayController::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0 && section < m_spalten.size())
        return m_spalten[section].titel;
    return QAbstractTableModel::headerData(section, orientation, role);
}

bool FKRArrayController::setHeaderData(int section, Qt::Orientation orientation, const QVariant &value, int role)
{
    if (orientation != Qt::Horizontal || role != Qt::EditRole || section < 0 || section >= m_spalten.size())
        return false;
    m_spalten[section].titel = value.toString();
    Q_EMIT headerDataChanged(orientation, section, section);
    return true;
}
