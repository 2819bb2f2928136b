#pragma once

#include <QWidget>

class QAbstractItemView;
class QPushButton;

// The two row actions of the document list (duplicate, delete) as buttons that appear on the
// right end of the row under the mouse. The same actions are offered by the context menu, which
// is also the way to them from the keyboard.
class FKRZeilenAktionen : public QWidget
{
    Q_OBJECT

public:
    // Lives in the viewport of `tabelle` and follows the mouse over its rows.
    explicit FKRZeilenAktionen(QAbstractItemView *tabelle);

    // The row the buttons stand on, -1 while hidden.
    int zeile() const { return m_zeile; }
    // Puts the buttons on `zeile` (hides them for -1 or a row that is not there).
    void zeigeAufZeile(int zeile);
    void verstecke() { zeigeAufZeile(-1); }

    QPushButton *duplizierenKnopf() const { return m_duplizieren; }
    QPushButton *loeschenKnopf() const { return m_loeschen; }

Q_SIGNALS:
    void duplizierenGewaehlt(int zeile);
    void loeschenGewaehlt(int zeile);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QAbstractItemView *m_tabelle;
    QPushButton *m_duplizieren;
    QPushButton *m_loeschen;
    int m_zeile = -1;
};
