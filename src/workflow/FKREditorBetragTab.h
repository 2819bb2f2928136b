#pragma once

#include <QWidget>

class FKRDezimalFeld;
class FKRRechnungsDetailsViewController;
class QComboBox;
class QLineEdit;
class QRadioButton;

// The editor's amount tab: net or gross, VAT rate, discount, surcharge, cash discount with its
// period, the currency and the total, which follows every change at once. Rates are typed as
// percentages and stored as fractions.
class FKREditorBetragTab : public QWidget
{
    Q_OBJECT

public:
    explicit FKREditorBetragTab(FKRRechnungsDetailsViewController &editor);

    void aktualisiere();
    // The user chose net (`netto` true) or gross.
    void bruttoChanged(bool netto);
    void aktualisiereRechnungsSumme();

    // The currencies offered; any other currency text of a document is added when it is shown.
    static QStringList waehrungen();

    // Outlets.
    QRadioButton *betragTabNettoRadioButton = nullptr;
    QRadioButton *betragTabBruttoRadioButton = nullptr;
    FKRDezimalFeld *betragTabMwStSatzTextField = nullptr;
    FKRDezimalFeld *betragTabRabattTextField = nullptr;
    FKRDezimalFeld *betragTabZuschlagTextField = nullptr;
    FKRDezimalFeld *betragTabSkontoTextField = nullptr;
    FKRDezimalFeld *betragTabSkontoZeitraumTextField = nullptr;
    QComboBox *betragTabWaehrungsComboBox = nullptr;
    QLineEdit *betragTabRechnungsSummeTextField = nullptr;

private:
    void zeigeBrutto();
    void zeigeWaehrung();
    void waehrungGeaendert(const QString &waehrung);

    FKRRechnungsDetailsViewController &m_editor;
    bool m_zeigt = false;
};
