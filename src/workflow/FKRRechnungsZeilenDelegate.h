#pragma once

#include <QStyledItemDelegate>

class FKRRechnung;

// One row of the document list in two lines: the number and the total above, the recipient,
// the state and the due date below; enough to recognise a document without opening it.
class FKRRechnungsZeilenDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    // What the list's model hands the cell, one role per part.
    enum Rolle {
        NummerRolle = Qt::UserRole + 1,
        EmpfaengerRolle,
        StatusRolle,     // the translated state
        StatusArtRolle,  // the state as a Status value
        FaelligRolle,    // the due date as a short date text
        SummeRolle,      // the total with its currency, empty when it cannot be computed
        ObjektRolle,     // the document itself (QObject *), for keeping selections by object
    };
    enum class Status { Entwurf, Versendet, Faellig, Bezahlt };

    explicit FKRRechnungsZeilenDelegate(QObject *parent = nullptr);

    // The data of one document for a role: the parts above, for the display role number and
    // recipient (type-ahead), for the accessible text all parts on one line.
    static QVariant zeilenDaten(const FKRRechnung &rechnung, int role);
    static Status status(const FKRRechnung &rechnung);

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

    // The height of every row (all rows are alike, so long lists lay out at once).
    static int zeilenHoehe(const QFont &font);
};
