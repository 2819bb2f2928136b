#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

// The help panel laid over the document view: what the view shows and what its actions do, a
// link to the product's web page and a button that closes the panel again.
class FKRAnsichtHilfeBox : public QFrame
{
    Q_OBJECT

public:
    explicit FKRAnsichtHilfeBox(QWidget *parent = nullptr);

    QLabel *textLabel() const { return m_text; }
    QPushButton *schliessenKnopf() const { return m_schliessen; }
    QPushButton *webseiteKnopf() const { return m_webseite; }

Q_SIGNALS:
    void schliessenGewaehlt();
    void webseiteGewaehlt();

protected:
    void changeEvent(QEvent *event) override;

private:
    void uebersetze();

    QLabel *m_text;
    QPushButton *m_webseite;
    QPushButton *m_schliessen;
};
