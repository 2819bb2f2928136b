#pragma once

#include "FKRDezimalFeld.h"

#include <QStyledItemDelegate>

// Edits a numeric cell of the item table in an FKRDezimalFeld: the number is typed in the
// user's locale, a text that is not a number stays in the cell with the field's warning (Return
// and Tab do not leave it, a click elsewhere opens the cell again with it), and only a valid
// number reaches the model. Escape drops a refused text and shows the stored value again.
class FKRDezimalDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    FKRDezimalDelegate(FKRDezimalFeld::Art art, QObject *parent);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    FKRDezimalFeld::Art m_art;
};
