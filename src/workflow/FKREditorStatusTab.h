#pragma once

#include <QWidget>

class FKRRechnungsDetailsViewController;
class QButtonGroup;
class QComboBox;
class QDateEdit;
class QLabel;
class QPushButton;

// The editor's status tab: the document's type, its language, its three dates (labelled and
// shown as the type needs them) and its page layout.
class FKREditorStatusTab : public QWidget
{
    Q_OBJECT

public:
    // The language segments and layout items carry the stored codes as their tags.
    enum Sprache { kDeutsch = 1, kEnglisch = 2 };
    enum Layout { kSeitenleiste = 1, kKopfleiste = 2, kFussleiste = 3 };

    explicit FKREditorStatusTab(FKRRechnungsDetailsViewController &editor);

    // Selects the type item and the language segment of the document (none for a code without
    // one).
    void zeigeArtUndSprache();
    // Dates with their labels, then the layout; an old footer-bar code 4 is stored as 3.
    void aktualisiere();
    void rechnungsLayoutDidChange();
    void dokumentenSpracheDidChange(int sprache);

    // Outlets.
    QComboBox *dokumentenArtPopUpButton = nullptr;
    QWidget *dokumentenSpracheSegmentedControl = nullptr;
    QButtonGroup *dokumentenSpracheSegmente = nullptr;
    QLabel *datumTabRechnungsDatumLabel = nullptr;
    QDateEdit *datumTabRechnungsDatumDatePicker = nullptr;
    QLabel *datumTabLieferDatumLabel = nullptr;
    QDateEdit *datumTabLieferDatumDatePicker = nullptr;
    QLabel *datumTabFaelligkeitsDatumLabel = nullptr;
    QDateEdit *datumTabFaelligkeitsDatumDatePicker = nullptr;
    QComboBox *rechnungsLayoutPopUpButton = nullptr;

private:
    QDateEdit *datumsFeld(const char *name, const char *schluessel);
    void zeigeDatumsBeschriftungen();
    void zeigeDaten();

    FKRRechnungsDetailsViewController &m_editor;
    bool m_zeigt = false;
};
