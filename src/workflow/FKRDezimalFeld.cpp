#include "FKRDezimalFeld.h"

#include "DecimalMetaType.h"
#include "FKRLocalizationHelper.h"
#include "ManagedObject.h"

#include <QAction>
#include <QLocale>
#include <QStyle>

namespace {

const Decimal kHundert(100);

bool nurZiffern(const QString &text)
{
    for (const QChar c : text)
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
    return true;
}

// Digits in groups of three behind a first group of one to three that does not begin with 0:
// "1.234.567", not "1.23" or "0.500".
bool gruppiert(const QString &text, const QString &gruppe)
{
    const QStringList gruppen = text.split(gruppe);
    const QString &erste = gruppen.first();
    if (erste.isEmpty() || erste.size() > 3 || erste.startsWith(QLatin1Char('0')) || !nurZiffern(erste))
        return false;
    for (qsizetype i = 1; i < gruppen.size(); ++i)
        if (gruppen[i].size() != 3 || !nurZiffern(gruppen[i]))
            return false;
    return true;
}

bool entferneVorne(QString &text, const QString &zeichen)
{
    if (zeichen.isEmpty() || !text.startsWith(zeichen))
        return false;
    text = text.mid(zeichen.size()).trimmed();
    return true;
}

} // namespace

FKRDezimalFeld::FKRDezimalFeld(Art art, QWidget *parent)
    : QLineEdit(parent)
    , m_art(art)
{
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_warnung = addAction(style()->standardIcon(QStyle::SP_MessageBoxWarning), QLineEdit::LeadingPosition);
    m_warnung->setVisible(false);
    connect(this, &QLineEdit::textEdited, this, &FKRDezimalFeld::textBearbeitet);
    connect(this, &QLineEdit::editingFinished, this, [this] { m_vorDerEingabe.reset(); });
}

void FKRDezimalFeld::binde(ManagedObject *objekt, const QString &schluessel)
{
    disconnect(m_beobachtung);
    m_objekt = objekt;
    m_schluessel = schluessel;
    if (objekt) {
        m_beobachtung = connect(objekt, &ManagedObject::valueChanged, this, [this](const QString &key) {
            if (key == m_schluessel && !m_schreibt)
                zeigeWert();
        });
    }
    setEnabled(objekt != nullptr);
    zeigeWert();
}

ManagedObject *FKRDezimalFeld::objekt() const
{
    return m_objekt;
}

void FKRDezimalFeld::zeigeWert()
{
    m_vorDerEingabe.reset();
    setzeHinweis(false);
    if (!m_objekt) {
        clear();
        return;
    }
    const QVariant gespeichert = m_objekt->value(m_schluessel);
    Decimal wert(0);
    if (gespeichert.metaType() == QMetaType::fromType<Decimal>())
        wert = gespeichert.value<Decimal>();
    else if (gespeichert.isValid())
        wert = Decimal(std::int64_t(gespeichert.toLongLong()));
    if (m_art == Art::Prozent && !wert.isNaN()) {
        try {
            wert = wert * kHundert;
        } catch (const DecimalError &) {
            wert = Decimal::notANumber();
        }
    }
    const QString text = wert.isNaN() ? QString() : zahlText(wert);
    if (text != this->text())
        setText(text);
}

void FKRDezimalFeld::zeigeEingabe(const QString &text)
{
    setText(text);
    textBearbeitet(text);
}

std::optional<Decimal> FKRDezimalFeld::eingabe() const
{
    QString text = this->text().trimmed();
    if (m_art == Art::Prozent && text.endsWith(QLatin1Char('%')))
        text.chop(1);
    if (text.trimmed().isEmpty())
        return Decimal(0);
    std::optional<Decimal> wert = leseZahl(text);
    if (!wert)
        return std::nullopt;
    switch (m_art) {
    case Art::Prozent:
        // Exact: a decimal divided by a power of ten only moves its exponent. Only a number at
        // the very end of the decimal range can fail, and is refused like any other bad text.
        try {
            return *wert / kHundert;
        } catch (const DecimalError &) {
            return std::nullopt;
        }
    case Art::Ganzzahl:
        // Days and item numbers: whole, not negative, and small enough for the attribute.
        if (wert->isNegative() || Decimal(std::int64_t(wert->toInt64())) != *wert)
            return std::nullopt;
        break;
    case Art::Zahl:
        break;
    }
    return wert;
}

void FKRDezimalFeld::textBearbeitet(const QString &)
{
    if (m_objekt && !m_vorDerEingabe)
        m_vorDerEingabe = m_objekt->value(m_schluessel);
    const std::optional<Decimal> wert = eingabe();
    setzeHinweis(!wert);
    if (!wert) {
        // What the text was on its way to a refused one is not kept either.
        if (m_objekt && m_objekt->value(m_schluessel) != *m_vorDerEingabe) {
            schreibe(*m_vorDerEingabe);
            Q_EMIT wertGeaendert();
        }
        return;
    }
    if (m_art == Art::Ganzzahl)
        schreibe(QVariant::fromValue(qint64(wert->toInt64())));
    else
        schreibe(QVariant::fromValue(*wert));
    Q_EMIT wertGeaendert();
}

void FKRDezimalFeld::schreibe(const QVariant &wert)
{
    if (!m_objekt)
        return;
    m_schreibt = true;
    m_objekt->setValue(m_schluessel, wert);
    m_schreibt = false;
}

void FKRDezimalFeld::setzeHinweis(bool an)
{
    if (m_hinweis == an)
        return;
    m_hinweis = an;
    m_warnung->setVisible(an);
    if (an) {
        const QString grund = hinweis(m_art);
        m_warnung->setToolTip(grund);
        setToolTip(grund);
        setStyleSheet(QStringLiteral("QLineEdit { border: 2px solid #d0312d; border-radius: 3px; }"));
    } else {
        m_warnung->setToolTip(QString());
        setToolTip(QString());
        setStyleSheet(QString());
    }
}

QString FKRDezimalFeld::hinweis(Art art)
{
    return art == Art::Ganzzahl
               ? FKRLocalizationHelper::hauptTabellenText(QStringLiteral("EDITOR_HINWEIS_KEINE_GANZZAHL"))
               : FKRLocalizationHelper::hauptTabellenText(QStringLiteral("EDITOR_HINWEIS_KEINE_ZAHL"));
}

std::optional<Decimal> FKRDezimalFeld::leseZahl(const QString &eingabe)
{
    const QLocale locale;
    QString text = eingabe.trimmed();
    bool negativ = false;
    if (entferneVorne(text, locale.negativeSign()) || entferneVorne(text, QStringLiteral("-")))
        negativ = true;
    else if (!entferneVorne(text, locale.positiveSign()))
        entferneVorne(text, QStringLiteral("+"));

    QString komma = locale.decimalPoint();
    const QString gruppe = locale.groupSeparator();
    // The other common decimal separator ("." in German, "," in English) is one as well where it
    // cannot be meant otherwise: without the locale's own one in the text, once, and not where
    // it groups thousands in the locale ("1.234" is 1234 in German, "7.5" is 7,5).
    const QString anderesKomma = komma == QStringLiteral(",")   ? QStringLiteral(".")
                                 : komma == QStringLiteral(".") ? QStringLiteral(",")
                                                                : QString();
    if (!anderesKomma.isEmpty() && !text.contains(komma) && text.count(anderesKomma) == 1
        && !(anderesKomma == gruppe && gruppiert(text, gruppe)))
        komma = anderesKomma;

    const qsizetype kommaStelle = text.indexOf(komma);
    QString ganz = kommaStelle < 0 ? text : text.left(kommaStelle);
    const QString bruch = kommaStelle < 0 ? QString() : text.mid(kommaStelle + komma.size());

    if (!gruppe.isEmpty() && ganz.contains(gruppe)) {
        if (!gruppiert(ganz, gruppe))
            return std::nullopt;
        ganz.remove(gruppe);
    }
    if ((ganz.isEmpty() && bruch.isEmpty()) || !nurZiffern(ganz) || !nurZiffern(bruch))
        return std::nullopt;

    std::string zahl = negativ ? "-" : "";
    zahl += ganz.isEmpty() ? std::string("0") : ganz.toStdString();
    if (!bruch.isEmpty())
        zahl += "." + bruch.toStdString();
    return Decimal::parse(zahl);
}

QString FKRDezimalFeld::zahlText(const Decimal &wert)
{
    const QLocale locale;
    QString text = QString::fromStdString(wert.toString());
    if (text.startsWith(QLatin1Char('-')))
        text = locale.negativeSign() + text.mid(1);
    text.replace(QLatin1Char('.'), locale.decimalPoint());
    return text;
}
