#pragma once

#include "FetchRequest.h"

#include <QAbstractTableModel>
#include <QList>
#include <QString>

#include <functional>

class ManagedObject;
class ManagedObjectContext;

// The objects of one entity in the shared context that pass a filter, in a sort order: what a
// table of the main window or the editor shows. Rows are the arranged objects; columns are
// declared by the owner with a function per role, so the same controller serves the document
// list and the editor's item, recipient and sender tables.
//
// The arrangement follows the context without reordering what the user sees: an insert or
// delete marks it stale and it is refreshed on the next turn of the event loop (or at once when
// arrangedObjects() is read), and every save refreshes it at once, because a save follows every
// structural change and the editor's field edits arrive with it. A refresh drops deleted objects
// and adds those that newly pass the filter at the end; only rearrangeObjects() (and a new filter
// or sort order) filters and sorts everything again. Either resets the model; views keep their
// selection by object.
//
// Text keys sort case-insensitively in the user's collation, absent values first, other keys by
// plain comparison; the sort keys are read once per object and rebuild, so even long lists
// rearrange quickly.
class FKRArrayController : public QAbstractTableModel
{
    Q_OBJECT

public:
    using Praedikat = std::function<bool(const ManagedObject &)>;

    struct Spalte {
        QString titel;
        // The cell for a role (Qt::DisplayRole, Qt::ToolTipRole, ...); an invalid QVariant for none.
        std::function<QVariant(const ManagedObject &, int role)> daten;
        // Writes an edited cell; empty for a read-only column. Returns whether the value was taken.
        std::function<bool(ManagedObject &, const QVariant &)> setzen;
    };

    FKRArrayController(ManagedObjectContext &context, const QString &entityName, QObject *parent = nullptr);
    ~FKRArrayController() override;

    ManagedObjectContext &managedObjectContext() const { return m_context; }
    QString entityName() const { return m_entityName; }

    void setFilterPredicate(Praedikat praedikat);
    const Praedikat &filterPredicate() const { return m_filter; }
    void setSortDescriptors(const QList<SortDescriptor> &sortDescriptors);
    const QList<SortDescriptor> &sortDescriptors() const { return m_sort; }

    // The visible objects in order.
    const QList<ManagedObject *> &arrangedObjects() const;
    template<typename T>
    QList<T *> arranged() const
    {
        QList<T *> result;
        const auto &objects = arrangedObjects();
        result.reserve(objects.size());
        for (ManagedObject *object : objects)
            result.append(static_cast<T *>(object));
        return result;
    }
    ManagedObject *objectAt(int row) const;
    int rowOf(const ManagedObject *object) const; // -1 when not arranged

    // A new object of the entity inserted into the context; it joins the arrangement at once,
    // at the end, when it passes the filter.
    ManagedObject *newObject();
    template<typename T>
    T *newObjectOf()
    {
        return static_cast<T *>(newObject());
    }

    // Filters and sorts everything again, now.
    void rearrangeObjects();
    // The objects of the entity that pass `filter`, in the controller's sort order; the
    // arrangement itself is left alone.
    QList<ManagedObject *> arrangeObjects(const Praedikat &filter) const;

    void setSpalten(const QList<Spalte> &spalten);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    bool setHeaderData(int section, Qt::Orientation orientation, const QVariant &value,
                       int role = Qt::EditRole) override;

Q_SIGNALS:
    // After every rebuild, once the model has been reset.
    void arrangedObjectsChanged();

private:
    void markiereVeraltet();
    void aktualisiereInhalt();
    void setzeAnordnung(QList<ManagedObject *> objekte);
    void ordne(QList<ManagedObject *> &objekte) const;

    ManagedObjectContext &m_context;
    QString m_entityName;
    Praedikat m_filter;
    QList<SortDescriptor> m_sort;
    QList<Spalte> m_spalten;
    mutable QList<ManagedObject *> m_arranged;
    mutable bool m_veraltet = true;
    bool m_neuordnungGeplant = false;
    bool m_ordnetNeu = false;
};
