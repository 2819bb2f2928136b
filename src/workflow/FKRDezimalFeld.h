#pragma once

#include "Decimal.h"

#include <QLineEdit>
#include <QPointer>

#include <optional>

class ManagedObject;
class QAction;

// An input field for one number of the editor: rates, discounts and surcharges as percentages,
// quantities and prices as plain numbers, periods and item numbers as whole numbers. Text is
// read and shown in the user's locale ("7,5" in German, "7.5" in English) and never goes through
// a binary floating-point number.
//
// Bound to a numeric attribute of an object, the field writes every valid edit to it at once,
// the way the other fields of the editor write their text, and follows changes made elsewhere.
// A text that is not a number of the field's kind is kept in the field for the user to correct,
// marked with a red frame and a warning that says why, and never reaches the object: the object
// holds the value it had before the user began typing (not "1" on the way to a refused "1,5")
// until the text is a number again. An empty field means zero.
class FKRDezimalFeld : public QLineEdit
{
    Q_OBJECT

public:
    enum class Art {
        Prozent,  // shown as percent ("19"), stored as the fraction (0.19)
        Zahl,     // any decimal number, shown and stored as it is
        Ganzzahl, // whole numbers from zero up, stored as an integer attribute
    };

    explicit FKRDezimalFeld(Art art, QWidget *parent = nullptr);

    Art art() const { return m_art; }

    // Binds the field to `schluessel` of `objekt` and shows its value (0 when absent); nullptr
    // empties and disables the field.
    void binde(ManagedObject *objekt, const QString &schluessel);
    ManagedObject *objekt() const;
    // Shows the bound value again; a refused text and its warning are dropped.
    void zeigeWert();
    // Puts `text` in as if the user had typed it, warning and all.
    void zeigeEingabe(const QString &text);

    // The value the text stands for, as it would be stored (a fraction for percentages);
    // nullopt when the text is refused.
    std::optional<Decimal> eingabe() const;
    // Whether the field shows the warning of a refused text.
    bool zeigtHinweis() const { return m_hinweis; }

    // A number typed in the user's locale: an optional sign, digits with group separators only
    // between groups of three, at most one decimal separator. The other common decimal separator
    // is taken too where it cannot group thousands: "7.5" is seven and a half on a German
    // desktop and "7,5" on an English one, while "1.234" stays 1234 in German and "1,234" 1234
    // in English; "1.5.0" or "1,5.0" are refused, never guessed at.
    static std::optional<Decimal> leseZahl(const QString &text);
    // Why a text is refused, in the user's language.
    static QString hinweis(Art art);
    // The number in the user's locale without grouping and without trailing zeros: what the
    // field shows and what leseZahl reads back to the same value.
    static QString zahlText(const Decimal &wert);

Q_SIGNALS:
    // The user's typing changed the number: a new one was taken, or a refused text put the
    // value from before the edit back.
    void wertGeaendert();

private:
    void textBearbeitet(const QString &text);
    void setzeHinweis(bool an);
    void schreibe(const QVariant &wert);

    Art m_art;
    QPointer<ManagedObject> m_objekt;
    QString m_schluessel;
    QMetaObject::Connection m_beobachtung;
    // The stored value when the user began the current edit.
    std::optional<QVariant> m_vorDerEingabe;
    QAction *m_warnung = nullptr;
    bool m_hinweis = false;
    bool m_schreibt = false;
};
