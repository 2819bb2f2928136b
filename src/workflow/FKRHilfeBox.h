#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

// A help panel laid over a view: a card of text at the foot of the view that says what the view
// shows and what its actions do, and a button that closes the panel again. The panel takes the
// view's whole area but is only there where the card is: the rest of the view stays as it is,
// readable and clickable. What closing means is up to the view (it hears schliessenGewaehlt). The
// document view's panel also links to the product's web page; the list's panel is put away by a
// click anywhere on the card.
//
// Once the user has closed a help panel, the panels no longer open by themselves when the program
// starts (the user setting zeigeErklaerungstexte); the help command still opens them.
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

    // Whether the panels open by themselves at the start: until the user closes one.
    static bool erscheintBeimStart();
    // The user closed a panel: from now on they wait for the help command.
    static void merkeGeschlossen();

    QLabel *textLabel() const { return m_text; }
    QPushButton *schliessenKnopf() const { return m_schliessen; }
    // Null without WebseiteLink.
    QPushButton *webseiteKnopf() const { return m_webseite; }

Q_SIGNALS:
    void schliessenGewaehlt();
    void webseiteGewaehlt();

protected:
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    void uebersetze();
    void schliessen();

    const char *const m_textSchluessel;
    const Optionen m_optionen;
    QFrame *m_karte;
    QLabel *m_text;
    QPushButton *m_webseite = nullptr;
    QPushButton *m_schliessen = nullptr;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(FKRHilfeBox::Optionen)
