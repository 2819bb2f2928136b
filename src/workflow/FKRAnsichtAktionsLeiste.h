#pragma once

#include <QWidget>

class FKRAnsichtAktionsBox;
class QDateTimeEdit;

// The row of actions above the document's PDF: the state steps sent and paid (with the payment
// date and, once paid, the action that takes the payment back) on the left, the dunning letter, duplicate, save as PDF and print on the right. Which of
// them are offered, and how the state captions are coloured, the document view decides.
class FKRAnsichtAktionsLeiste : public QWidget
{
    Q_OBJECT

public:
    // An open step is captioned in red, a completed one in faded black.
    static const QColor kOffenerSchritt;
    static const QColor kErledigterSchritt;

    struct Zustand {
        bool dokument = false; // sent, duplicate, save and print
        bool mahnung = false;
        bool bezahlt = false;
        bool bezahltDatum = false;
        bool versendetErledigt = false;
        bool bezahltErledigt = false; // also offers to take the payment back
    };

    explicit FKRAnsichtAktionsLeiste(QWidget *parent = nullptr);

    // Shows the offered actions and colours the captions. Touches only what changes, so that a
    // redisplay without news does not disturb the layout.
    void zeige(const Zustand &zustand);

    FKRAnsichtAktionsBox *rechnungVersendetButtonBox() const { return m_versendet; }
    FKRAnsichtAktionsBox *rechnungBezahltButtonBox() const { return m_bezahlt; }
    QDateTimeEdit *rechnungBezahltDatePicker() const { return m_bezahltDatePicker; }
    FKRAnsichtAktionsBox *rechnungUnbezahltButtonBox() const { return m_unbezahlt; }
    FKRAnsichtAktionsBox *mahnungButtonBox() const { return m_mahnung; }
    FKRAnsichtAktionsBox *duplizierenButtonBox() const { return m_duplizieren; }
    FKRAnsichtAktionsBox *sichernButtonBox() const { return m_sichern; }
    FKRAnsichtAktionsBox *druckenButtonBox() const { return m_drucken; }

protected:
    void changeEvent(QEvent *event) override;

private:
    FKRAnsichtAktionsBox *m_versendet;
    FKRAnsichtAktionsBox *m_bezahlt;
    QDateTimeEdit *m_bezahltDatePicker;
    FKRAnsichtAktionsBox *m_unbezahlt;
    FKRAnsichtAktionsBox *m_mahnung;
    FKRAnsichtAktionsBox *m_duplizieren;
    FKRAnsichtAktionsBox *m_sichern;
    FKRAnsichtAktionsBox *m_drucken;
};
