#include "FKREditorBeteiligteTab.h"

#include "FKRArrayController.h"
#include "FKRFeldBindung.h"
#include "FKRLocalizationHelper.h"
#include "FKRRechnung.h"
#include "FKRRechnungsDetailsViewController.h"
#include "FKRTabellenAuswahl.h"
#include "ManagedObjectContext.h"

#include <QFormLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

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

FKREditorBeteiligteTab::FKREditorBeteiligteTab(FKRRechnungsDetailsViewController &editor,
                                               FKRArrayController &controller, const QString &beziehung,
                                               const char *neuerNameSchluessel)
    : m_editor(editor)
    , m_controller(controller)
    , m_beziehung(beziehung)
    , m_neuerNameSchluessel(neuerNameSchluessel)
{
}

QTableView *FKREditorBeteiligteTab::erstelleTabelle(const char *name)
{
    m_tabelle = new QTableView(this);
    m_tabelle->setObjectName(QString::fromLatin1(name));
    m_tabelle->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_auswahl = new FKRTabellenAuswahl(*m_tabelle, m_controller);
    m_auswahl->setSpalten({textSpalte(hauptTabellenText("EDITOR_SPALTE_FIRMA"), QStringLiteral("firma")),
                           textSpalte(hauptTabellenText("EDITOR_SPALTE_NAME"), QStringLiteral("name")),
                           textSpalte(hauptTabellenText("EDITOR_SPALTE_ORT"), QStringLiteral("ort"))});
    m_tabelle->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    connect(m_auswahl, &FKRTabellenAuswahl::auswahlGeaendert, this, &FKREditorBeteiligteTab::beteiligterGewaehlt);
    return m_tabelle;
}

QPushButton *FKREditorBeteiligteTab::erstelleNeuKnopf(const char *name, const QString &titel)
{
    m_neuKnopf = new QPushButton(titel, this);
    m_neuKnopf->setObjectName(QString::fromLatin1(name));
    connect(m_neuKnopf, &QPushButton::clicked, this, &FKREditorBeteiligteTab::neuKnopfGedrueckt);
    return m_neuKnopf;
}

QPushButton *FKREditorBeteiligteTab::erstelleLoeschenKnopf(const char *name, const QString &titel)
{
    m_loeschenKnopf = new QPushButton(titel, this);
    m_loeschenKnopf->setObjectName(QString::fromLatin1(name));
    connect(m_loeschenKnopf, &QPushButton::clicked, this, &FKREditorBeteiligteTab::loeschenKnopfGedrueckt);
    return m_loeschenKnopf;
}

QLineEdit *FKREditorBeteiligteTab::textFeld(QFormLayout *formular, const char *name, const QString &titel,
                                            const char *schluessel)
{
    auto *feld = new QLineEdit(this);
    feld->setObjectName(QString::fromLatin1(name));
    formular->addRow(titel, feld);
    auto *bindung = new FKRFeldBindung(feld, QString::fromLatin1(schluessel));
    m_bindungen.append(bindung);
    // Company, name and town are columns of the list too.
    if (m_tabelle)
        connect(bindung, &FKRFeldBindung::geaendert, m_tabelle->viewport(), qOverload<>(&QWidget::update));
    if (!m_erstesFeld)
        m_erstesFeld = feld;
    return feld;
}

ManagedObject *FKREditorBeteiligteTab::erstelleBeteiligten()
{
    ManagedObject *neu = m_controller.newObject();
    neu->setValue(QStringLiteral("name"), hauptTabellenText(m_neuerNameSchluessel));
    return neu;
}

ManagedObject *FKREditorBeteiligteTab::gewaehlterBeteiligter() const
{
    return m_auswahl->erstesObjekt();
}

void FKREditorBeteiligteTab::aktualisiere()
{
    FKRRechnung *rechnung = m_editor.rechnung();
    if (rechnung) {
        ManagedObject *beteiligter = rechnung->toOne(m_beziehung);
        if (!beteiligter) {
            const QList<ManagedObject *> alle = m_controller.arrangedObjects();
            beteiligter = alle.isEmpty() ? erstelleBeteiligten() : alle.first();
            rechnung->setToOne(m_beziehung, beteiligter);
            m_editor.sichern();
        }
        m_auswahl->waehleAus({beteiligter});
    }
    m_neuKnopf->setEnabled(rechnung != nullptr);
    bindeFelder();
}

void FKREditorBeteiligteTab::bindeFelder()
{
    ManagedObject *beteiligter = gewaehlterBeteiligter();
    for (FKRFeldBindung *bindung : std::as_const(m_bindungen))
        bindung->setObjekt(beteiligter);
    m_loeschenKnopf->setEnabled(beteiligter != nullptr);
}

void FKREditorBeteiligteTab::beteiligterGewaehlt()
{
    FKRRechnung *rechnung = m_editor.rechnung();
    ManagedObject *beteiligter = gewaehlterBeteiligter();
    if (rechnung && beteiligter && rechnung->toOne(m_beziehung) != beteiligter) {
        rechnung->setToOne(m_beziehung, beteiligter);
        // Saved once the table has finished handling the click: a save rebuilds its rows.
        QMetaObject::invokeMethod(this, [this] { m_editor.sichern(); }, Qt::QueuedConnection);
    }
    bindeFelder();
}

void FKREditorBeteiligteTab::neuKnopfGedrueckt()
{
    FKRRechnung *rechnung = m_editor.rechnung();
    if (!rechnung)
        return;
    ManagedObject *neu = erstelleBeteiligten();
    rechnung->setToOne(m_beziehung, neu);
    m_editor.sichern();
    m_auswahl->waehleAus({neu});
    aktualisiere();
    if (m_erstesFeld)
        m_erstesFeld->setFocus();
}

void FKREditorBeteiligteTab::loeschenKnopfGedrueckt()
{
    const QList<ManagedObject *> ausgewaehlt = m_auswahl->ausgewaehlteObjekte();
    if (ausgewaehlt.isEmpty() || !m_editor.bestaetigeLoeschen())
        return;
    for (ManagedObject *beteiligter : ausgewaehlt)
        m_controller.managedObjectContext().deleteObject(beteiligter);
    m_editor.sichern();
    aktualisiere();
}
