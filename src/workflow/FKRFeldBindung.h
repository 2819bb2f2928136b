#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

class ManagedObject;
class QLineEdit;
class QPlainTextEdit;

// Ties a text field of the editor to one text attribute of an object: the field shows the
// stored text, every keystroke writes it back, and a change made elsewhere (the item import, a
// dependent key) shows up in the field. A field emptied by the user leaves the attribute absent,
// so display names and address blocks skip it as they skip a field never filled in.
class FKRFeldBindung : public QObject
{
    Q_OBJECT

public:
    FKRFeldBindung(QLineEdit *feld, const QString &schluessel);
    FKRFeldBindung(QPlainTextEdit *feld, const QString &schluessel);

    // The object whose attribute the field edits; nullptr empties and disables the field.
    void setObjekt(ManagedObject *objekt);
    ManagedObject *objekt() const;

Q_SIGNALS:
    // The user changed the text and it was written.
    void geaendert();

private:
    void zeige();
    void schreibe(const QString &text);
    QWidget *feld() const;

    QLineEdit *m_zeile = nullptr;
    QPlainTextEdit *m_text = nullptr;
    QString m_schluessel;
    QPointer<ManagedObject> m_objekt;
    QMetaObject::Connection m_beobachtung;
    bool m_schreibt = false;
    bool m_zeigt = false;
};
