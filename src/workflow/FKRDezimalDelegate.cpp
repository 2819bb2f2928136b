#include "FKRDezimalDelegate.h"

#include "DecimalMetaType.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QTimer>

FKRDezimalDelegate::FKRDezimalDelegate(FKRDezimalFeld::Art art, QObject *parent)
    : QStyledItemDelegate(parent)
    , m_art(art)
{
}

QWidget *FKRDezimalDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &, const QModelIndex &) const
{
    auto *feld = new FKRDezimalFeld(m_art, parent);
    feld->setFrame(false);
    return feld;
}

void FKRDezimalDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    auto *feld = static_cast<FKRDezimalFeld *>(editor);
    // The edit text of a cell is the plain number in the user's locale.
    const QString text = index.data(Qt::EditRole).toString();
    if (feld->text() != text)
        feld->setText(text);
}

void FKRDezimalDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    const auto *feld = static_cast<const FKRDezimalFeld *>(editor);
    const std::optional<Decimal> wert = feld->eingabe();
    if (!wert) {
        // A click elsewhere does not drop the text unseen: the cell opens again with it and its
        // warning, until the user corrects it or gives it up with Escape. A view that went away
        // with its window or tab takes the text with it, and so does a view in which another
        // cell is being edited by then: two refused cells never take turns.
        QWidget *viewport = editor->parentWidget();
        auto *view = viewport ? qobject_cast<QAbstractItemView *>(viewport->parentWidget()) : nullptr;
        if (!view)
            return;
        const QPersistentModelIndex zelle(index);
        const QString text = feld->text();
        QTimer::singleShot(0, view, [view, zelle, text] {
            if (!zelle.isValid() || !view->isVisible() || view->indexWidget(view->currentIndex()))
                return;
            view->setCurrentIndex(zelle);
            view->edit(zelle);
            if (auto *wieder = qobject_cast<FKRDezimalFeld *>(view->indexWidget(zelle)))
                wieder->zeigeEingabe(text);
        });
        return;
    }
    if (m_art == FKRDezimalFeld::Art::Ganzzahl)
        model->setData(index, QVariant::fromValue(qint64(wert->toInt64())));
    else
        model->setData(index, QVariant::fromValue(*wert));
}

bool FKRDezimalDelegate::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto *feld = qobject_cast<FKRDezimalFeld *>(object);
        const int taste = static_cast<QKeyEvent *>(event)->key();
        const bool verlaesst = taste == Qt::Key_Return || taste == Qt::Key_Enter || taste == Qt::Key_Tab
                               || taste == Qt::Key_Backtab;
        if (feld && verlaesst && !feld->eingabe())
            return true;
    }
    return QStyledItemDelegate::eventFilter(object, event);
}
