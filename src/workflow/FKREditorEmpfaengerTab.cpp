#include "FKREditorEmpfaengerTab.h"

#include "FKREmpfaenger.h"
#include "FKRLocalizationHelper.h"
#include "FKRRechnungsDetailsViewController.h"
#include "FKRTabellenAuswahl.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

namespace {

// The user's text of a literal key (the key check of the translation tables finds it here).
QString hauptTabellenText(const char *schluessel)
{
    return FKRLocalizationHelper::hauptTabellenText(QString::fromUtf8(schluessel));
}

} // namespace

FKREditorEmpfaengerTab::FKREditorEmpfaengerTab(FKRRechnungsDetailsViewController &editor)
    : FKREditorBeteiligteTab(editor, editor.empfaengerArrayController(), QStringLiteral("empfaenger"),
                             QT_TRANSLATE_NOOP("Velmora", "Neuer Empfänger"))
{
    empfaengerTableView = erstelleTabelle("empfaengerTableView");

    auto *formular = new QFormLayout;
    empfaengerTabFirmaTextField = textFeld(formular, "empfaengerTabFirmaTextField",
                                           hauptTabellenText("EDITOR_LABEL_FIRMA"), "firma");
    empfaengerTabNameTextField = textFeld(formular, "empfaengerTabNameTextField",
                                          hauptTabellenText("EDITOR_LABEL_NAME"), "name");
    empfaengerTabStrasseTextField = textFeld(formular, "empfaengerTabStrasseTextField",
                                             hauptTabellenText("EDITOR_LABEL_STRASSE"), "strasse");
    empfaengerTabPlzTextField = textFeld(formular, "empfaengerTabPlzTextField",
                                         hauptTabellenText("EDITOR_LABEL_PLZ"), "plz");
    empfaengerTabOrtTextField = textFeld(formular, "empfaengerTabOrtTextField",
                                         hauptTabellenText("EDITOR_LABEL_ORT"), "ort");
    empfaengerTabLandTextField = textFeld(formular, "empfaengerTabLandTextField",
                                          hauptTabellenText("EDITOR_LABEL_LAND"), "land");

    neuerEmpfaengerButton = erstelleNeuKnopf("neuerEmpfaengerButton", hauptTabellenText("BUTTON_TITLE_NEUER_EMPFAENGER"));
    empfaengerLoeschenButton =
        erstelleLoeschenKnopf("empfaengerLoeschenButton", hauptTabellenText("BUTTON_TITLE_EMPFAENGER_LOESCHEN"));
    auto *knoepfe = new QHBoxLayout;
    knoepfe->addWidget(neuerEmpfaengerButton);
    knoepfe->addWidget(empfaengerLoeschenButton);
    knoepfe->addStretch();

    auto *liste = new QVBoxLayout;
    liste->addWidget(empfaengerTableView, 1);
    liste->addLayout(knoepfe);
    auto *layout = new QHBoxLayout(this);
    layout->addLayout(liste, 3);
    auto *rechts = new QVBoxLayout;
    rechts->addLayout(formular);
    rechts->addStretch();
    layout->addLayout(rechts, 2);
    bindeFelder();
}

void FKREditorEmpfaengerTab::waehleAus(FKREmpfaenger *empfaenger)
{
    auswahl().waehleAus({empfaenger});
    bindeFelder();
}
