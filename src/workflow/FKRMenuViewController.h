#pragma once

#include <QColor>
#include <QWidget>

class QLabel;

// The left column of the main window: five area buttons, settings and help, on the accent
// colour that the user chose in the settings.
class FKRMenuViewController : public QWidget
{
    Q_OBJECT

public:
    explicit FKRMenuViewController(QWidget *parent = nullptr);
    ~FKRMenuViewController() override;

    void entwuerfeButtonPressed();
    void versandteRechnungenButtonPressed();
    void faelligeRechnungenButtonPressed();
    void bezahlteRechnungenButtonPressed();
    void alleRechnungenButtonPressed();
    void hilfeButtonPressed();
    // Highlights the area 0..4 (drafts, sent, due, paid, all); any other number dims all five.
    void markiereAktivenBereich(int nummer);

    // The fill colour of the background box.
    QColor hintergrundFarbe() const;

Q_SIGNALS:
    // The settings button: the main window opens the settings screen.
    void einstellungenGewaehlt();
    // The help button, delivered on a later turn of the event loop: the main window's help toggle.
    void hilfeGewaehlt();
};
