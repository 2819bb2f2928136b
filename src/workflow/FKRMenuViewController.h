#pragma once

#include <QColor>
#include <QWidget>

#include <array>

class FKRMenuKnopf;
class QLabel;

// The left column of the main window: five area buttons, settings and help, on the accent
// colour that the user chose in the settings.
class FKRMenuViewController : public QWidget
{
    Q_OBJECT

public:
    // The areas, numbered as markiereAktivenBereich takes them.
    enum Bereich { kEntwuerfe = 0, kVersandte = 1, kFaellige = 2, kBezahlte = 3, kAlle = 4 };

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
    QColor hintergrundFarbe() const { return m_hintergrundFarbe; }

    // The button of area 0..4 (nullptr for any other number), of the settings and of help.
    FKRMenuKnopf *bereichsKnopf(int nummer) const;
    FKRMenuKnopf *einstellungenButtonBox() const { return m_einstellungen; }
    FKRMenuKnopf *hilfeButtonBox() const { return m_hilfe; }

    // The family of the icon font, empty when it could not be loaded.
    static QString iconSchriftFamilie();

Q_SIGNALS:
    // The settings button: the main window opens the settings screen.
    void einstellungenGewaehlt();
    // The help button, delivered on a later turn of the event loop: the main window's help toggle.
    void hilfeGewaehlt();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void bereichGewaehlt(int nummer);
    void backgroundColorRechnungenChanged();

    std::array<FKRMenuKnopf *, 5> m_bereiche{};
    FKRMenuKnopf *m_einstellungen = nullptr;
    FKRMenuKnopf *m_hilfe = nullptr;
    QColor m_hintergrundFarbe;
};
