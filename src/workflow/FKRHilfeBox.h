#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

// A help panel laid over a view: a translucent sheet with a card of text that says what the view
// shows and what its actions do, and a button that closes the panel again. What closing means is
// up to the view (it hears schliessenGewaehlt). The document view's panel also links to the
// product's web page; the list's panel is put away by a click anywhere on it.
class FKRHilfeBox : public QFrame
{
    Q_OBJECT

public:
    enum Option {
        OhneOptionen = 0x0,
        // A link to the product's web page next to the close button (reported by webseiteGewaehlt).
        WebseiteLink = 0x1,
        // A click anywhere on the panel closes it like the close button.
        KlickSchliesst = 0x2,
    };
    Q_DECLARE_FLAGS(Optionen, Option)

    // `textSchluessel` is the translation key of the help text.
    FKRHilfeBox(const char *textSchluessel, Optionen optionen, QWidget *parent = nullptr);

    QLabel *textLabel() const { return m_text; }
    QPushButton *schliessenKnopf() const { return m_schliessen; }
    // Null without WebseiteLink.
    QPushButton *webseiteKnopf() const { return m_webseite; }

Q_SIGNALS:
    void schliessenGewaehlt();
    void webseiteGewaehlt();

protected:
    void changeEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    void uebersetze();

    const char *const m_textSchluessel;
    const Optionen m_optionen;
    QLabel *m_text;
    QPushButton *m_webseite = nullptr;
    QPushButton *m_schliessen = nullptr;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(FKRHilfeBox::Optionen)
