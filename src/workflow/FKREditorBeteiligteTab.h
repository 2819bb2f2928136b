#pragma once

#include <QList>
#include <QString>
#include <QWidget>

class FKRArrayController;
class FKRFeldBindung;
class FKRRechnungsDetailsViewController;
class FKRTabellenAuswahl;
class ManagedObject;
class QFormLayout;
class QLineEdit;
class QPushButton;
class QTableView;

// What the recipient and sender tabs of the editor have in common: a list of all parties of one
// kind, the one chosen in it is the document's party of that kind (the relationship `beziehung`
// of the document), new parties are made and chosen with one button, the selected ones deleted
// with the other, and the chosen party's fields are edited in place.
class FKREditorBeteiligteTab : public QWidget
{
    Q_OBJECT

public:
    // Selects the document's party; a document without one gets the first of the list in its
    // order, or a new one when there is none, and the document is saved with it.
    void aktualisiere();
    FKRTabellenAuswahl &auswahl() const { return *m_auswahl; }

protected:
    // `neuerNameSchluessel` is the translation key of the name a new party gets.
    FKREditorBeteiligteTab(FKRRechnungsDetailsViewController &editor, FKRArrayController &controller,
                           const QString &beziehung, const char *neuerNameSchluessel);

    // The list of all parties (company, name, town), read-only, whole rows selected.
    QTableView *erstelleTabelle(const char *name);
    QPushButton *erstelleNeuKnopf(const char *name, const QString &titel);
    QPushButton *erstelleLoeschenKnopf(const char *name, const QString &titel);
    // A line edit bound to the attribute `schluessel` of the chosen party; the first one made
    // gets the focus after a new party is made.
    QLineEdit *textFeld(QFormLayout *formular, const char *name, const QString &titel, const char *schluessel);

    // The chosen party becomes the document's one.
    void beteiligterGewaehlt();
    void neuKnopfGedrueckt();
    void loeschenKnopfGedrueckt();

    ManagedObject *gewaehlterBeteiligter() const;
    // Shows the chosen party in the fields; tabs with more than text fields add theirs.
    virtual void bindeFelder();

    FKRRechnungsDetailsViewController &m_editor;

private:
    ManagedObject *erstelleBeteiligten();

    FKRArrayController &m_controller;
    const QString m_beziehung;
    const char *const m_neuerNameSchluessel;
    FKRTabellenAuswahl *m_auswahl = nullptr;
    QTableView *m_tabelle = nullptr;
    QPushButton *m_neuKnopf = nullptr;
    QPushButton *m_loeschenKnopf = nullptr;
    QLineEdit *m_erstesFeld = nullptr;
    QList<FKRFeldBindung *> m_bindungen;
};
