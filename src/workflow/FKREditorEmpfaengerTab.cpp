#include "FKREditorEmpfaengerTab.h"

#include "FKRAppDelegate.h"
#include "FKRArrayController.h"
#include "FKREmpfaenger.h"
#include "FKRFeldBindung.h"
#include "FKRLocalizationHelper.h"
#include "FKRRechnung.h"
#include "FKRRechnungsDetailsViewController.h"
#include "FKRTabellenAuswahl.h"
#include "ManagedObjectContext.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
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

FKRArrayController::Spalte textSpalte(const QString &titel, const QString &schluessel)
{
    return {titel,
            [schluessel](const ManagedObject &o, int role) -> QVariant {
                return role == Qt::DisplayRole ? o.value(schluessel) : QVariant();
            },
            {}};
}

} // namespace

FKREditorEmpfaengerTab::FKREditorEmpfaengerTab(FKRRechnungsDetailsViewController &editor)
    : m_editor(editor)
{
    empfaengerTableView = new QTableView(this);
    empfaengerTableView->setObjectName(QStringLiteral("empfaengerTableView"));
    empfaengerTableView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_auswahl = new FKRTabellenAuswahl(*empfaengerTableView, editor.empfaengerArrayController());
    m_auswahl->setSpalten({textSpalte(hauptTabellenText("EDITOR_SPALTE_FIRMA"), QStringLiteral("firma")),
                           textSpalte(hauptTabellenText("EDITOR_SPALTE_NAME"), QStringLiteral("name")),
                           textSpalte(hauptTabellenText("EDITOR_SPALTE_ORT"), QStringLiteral("ort"))});
    empfaengerTableView->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);

    auto *formular = new QFormLayout;
    const auto textFeld = [this, formular](QLineEdit *&feld, const char *name, const QString &titel,
                                           const char *schluessel) {
        feld = new QLineEdit(this);
        feld->setObjectName(QString::fromLatin1(name));
        formular->addRow(titel, feld);
        m_bindungen.append(new FKRFeldBindung(feld, QString::fromLatin1(schluessel)));
    };
    textFeld(empfaengerTabFirmaTextField, "empfaengerTabFirmaTextField", hauptTabellenText("EDITOR_LABEL_FIRMA"), "firma");
    textFeld(empfaengerTabNameTextField, "empfaengerTabNameTextField", hauptTabellenText("EDITOR_LABEL_NAME"), "name");
    textFeld(empfaengerTabStrasseTextField, "empfaengerTabStrasseTextField", hauptTabellenText("EDITOR_LABEL_STRASSE"),
             "strasse");
    textFeld(empfaengerTabPlzTextField, "empfaengerTabPlzTextField", hauptTabellenText("EDITOR_LABEL_PLZ"), "plz");
    textFeld(empfaengerTabOrtTextField, "empfaengerTabOrtTextField", hauptTabellenText("EDITOR_LABEL_ORT"), "ort");
    textFeld(empfaengerTabLandTextField, "empfaengerTabLandTextField", hauptTabellenText("EDITOR_LABEL_LAND"), "land");
    // Company, name and town are columns of the list too.
    for (FKRFeldBindung *bindung : std::as_const(m_bindungen))
        connect(bindung, &FKRFeldBindung::geaendert, empfaengerTableView->viewport(), qOverload<>(&QWidget::update));

    neuerEmpfaengerButton = new QPushButton(hauptTabellenText("BUTTON_TITLE_NEUER_EMPFAENGER"), this);
    neuerEmpfaengerButton->setObjectName(QStringLiteral("neuerEmpfaengerButton"));
    empfaengerLoeschenButton = new QPushButton(hauptTabellenText("BUTTON_TITLE_EMPFAENGER_LOESCHEN"), this);
    empfaengerLoeschenButton->setObjectName(QStringLiteral("empfaengerLoeschenButton"));
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

    connect(m_auswahl, &FKRTabellenAuswahl::auswahlGeaendert, this, &FKREditorEmpfaengerTab::empfaengerSelected);
    connect(neuerEmpfaengerButton, &QPushButton::clicked, this, &FKREditorEmpfaengerTab::neuerEmpfaengerButtonPressed);
    connect(empfaengerLoeschenButton, &QPushButton::clicked, this,
            &FKREditorEmpfaengerTab::empfaengerLoeschenButtonPressed);
    bindeFelder();
}

FKREmpfaenger *FKREditorEmpfaengerTab::erstelleEmpfaenger()
{
    auto *neu = m_editor.empfaengerArrayController().newObjectOf<FKREmpfaenger>();
    neu->setName(hauptTabellenText("Neuer Empfänger"));
    return neu;
}

void FKREditorEmpfaengerTab::aktualisiere()
{
    FKRRechnung *rechnung = m_editor.rechnung();
    if (rechnung) {
        FKREmpfaenger *empfaenger = rechnung->empfaenger();
        if (!empfaenger) {
            const QList<FKREmpfaenger *> alle = m_editor.empfaengerArrayController().arranged<FKREmpfaenger>();
            empfaenger = alle.isEmpty() ? erstelleEmpfaenger() : alle.first();
            rechnung->setEmpfaenger(empfaenger);
            m_editor.sichern();
        }
        m_auswahl->waehleAus({empfaenger});
    }
    neuerEmpfaengerButton->setEnabled(rechnung != nullptr);
    bindeFelder();
}

void FKREditorEmpfaengerTab::bindeFelder()
{
    ManagedObject *empfaenger = m_auswahl->erstesObjekt();
    for (FKRFeldBindung *bindung : std::as_const(m_bindungen))
        bindung->setObjekt(empfaenger);
    empfaengerLoeschenButton->setEnabled(empfaenger != nullptr);
}

void FKREditorEmpfaengerTab::empfaengerSelected()
{
    FKRRechnung *rechnung = m_editor.rechnung();
    auto *empfaenger = static_cast<FKREmpfaenger *>(m_auswahl->erstesObjekt());
    if (rechnung && empfaenger && rechnung->empfaenger() != empfaenger) {
        rechnung->setEmpfaenger(empfaenger);
        // Saved once the table has finished handling the click: a save rebuilds its rows.
        QMetaObject::invokeMethod(this, [this] { m_editor.sichern(); }, Qt::QueuedConnection);
    }
    bindeFelder();
}

void FKREditorEmpfaengerTab::neuerEmpfaengerButtonPressed()
{
    FKRRechnung *rechnung = m_editor.rechnung();
    if (!rechnung)
        return;
    FKREmpfaenger *neu = erstelleEmpfaenger();
    rechnung->setEmpfaenger(neu);
    m_editor.sichern();
    m_auswahl->waehleAus({neu});
    aktualisiere();
    empfaengerTabFirmaTextField->setFocus();
}

void FKREditorEmpfaengerTab::empfaengerLoeschenButtonPressed()
{
    const QList<ManagedObject *> ausgewaehlt = m_auswahl->ausgewaehlteObjekte();
    if (ausgewaehlt.isEmpty() || !m_editor.bestaetigeLoeschen())
        return;
    for (ManagedObject *empfaenger : ausgewaehlt)
        m_editor.empfaengerArrayController().managedObjectContext().deleteObject(empfaenger);
    m_editor.sichern();
    aktualisiere();
}

void FKREditorEmpfaengerTab::waehleAus(FKREmpfaenger *empfaenger)
{
    m_auswahl->waehleAus({empfaenger});
    bindeFelder();
}
