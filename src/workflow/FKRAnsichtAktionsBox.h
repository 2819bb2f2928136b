#pragma once

#include <QColor>
#include <QFrame>
#include <QIcon>

class QLabel;
class QToolButton;

// One action of the document view: a symbol button with its caption below. The caption of the
// two state actions (sent, paid) is coloured by the document view: red while the step is open,
// a faded black once it is done. Clicking the caption counts as clicking the button.
class FKRAnsichtAktionsBox : public QFrame
{
    Q_OBJECT

public:
    // `titelSchluessel` is a key of the user's main table, retranslated when the language changes.
    FKRAnsichtAktionsBox(const char *titelSchluessel, const char *tooltipSchluessel, const QIcon &symbol,
                         QWidget *parent = nullptr);

    QToolButton *knopf() const { return m_knopf; }
    QLabel *label() const { return m_label; }

    void setLabelFarbe(const QColor &farbe);
    QColor labelFarbe() const { return m_farbe; }

Q_SIGNALS:
    void gedrueckt();

protected:
    void changeEvent(QEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void uebersetze();

    const char *m_titelSchluessel;
    const char *m_tooltipSchluessel;
    QToolButton *m_knopf;
    QLabel *m_label;
    QColor m_farbe;
};
