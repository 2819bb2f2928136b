#include "FKRFeldBindung.h"

#include "ManagedObject.h"

#include <QLineEdit>
#include <QPlainTextEdit>

FKRFeldBindung::FKRFeldBindung(QLineEdit *feld, const QString &schluessel)
    : QObject(feld)
    , m_zeile(feld)
    , m_schluessel(schluessel)
{
    connect(feld, &QLineEdit::textEdited, this, &FKRFeldBindung::schreibe);
    setObjekt(nullptr);
}

FKRFeldBindung::FKRFeldBindung(QPlainTextEdit *feld, const QString &schluessel)
    : QObject(feld)
    , m_text(feld)
    , m_schluessel(schluessel)
{
    // The plain text field reports its own setPlainText as a change too; zeige() marks those.
    connect(feld, &QPlainTextEdit::textChanged, this, [this] {
        if (!m_zeigt)
            schreibe(m_text->toPlainText());
    });
    setObjekt(nullptr);
}

void FKRFeldBindung::setObjekt(ManagedObject *objekt)
{
    if (objekt == m_objekt && objekt)
        return;
    disconnect(m_beobachtung);
    m_objekt = objekt;
    if (objekt) {
        m_beobachtung = connect(objekt, &ManagedObject::valueChanged, this, [this](const QString &key) {
            if (key == m_schluessel && !m_schreibt)
                zeige();
        });
    }
    feld()->setEnabled(objekt != nullptr);
    zeige();
}

ManagedObject *FKRFeldBindung::objekt() const
{
    return m_objekt;
}

QWidget *FKRFeldBindung::feld() const
{
    return m_zeile ? static_cast<QWidget *>(m_zeile) : static_cast<QWidget *>(m_text);
}

void FKRFeldBindung::zeige()
{
    const QString text = m_objekt ? m_objekt->value(m_schluessel).toString() : QString();
    m_zeigt = true;
    // Only a different text is put in, so the cursor stays where the user is typing.
    if (m_zeile && m_zeile->text() != text)
        m_zeile->setText(text);
    else if (m_text && m_text->toPlainText() != text)
        m_text->setPlainText(text);
    m_zeigt = false;
}

void FKRFeldBindung::schreibe(const QString &text)
{
    if (!m_objekt)
        return;
    m_schreibt = true;
    m_objekt->setValue(m_schluessel, text.isEmpty() ? QVariant() : QVariant(text));
    m_schreibt = false;
    Q_EMIT geaendert();
}
