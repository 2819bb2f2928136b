#include "FKRHauptfenster.h"

#include "FKRAppDelegate.h"
#include "FKRBetragsFormat.h"
#include "FKRDatenbankImport.h"
#include "FKREmpfaenger.h"
#include "FKRFehlenderWert.h"
#include "FKRLocalizationHelper.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "ManagedObjectContext.h"
#include "QBDatumsTexte.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStatusBar>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {
QString text(const char *schluessel)
{
    return FKRLocalizationHelper::hauptTabellenText(QString::fromUtf8(schluessel));
}

QString status(const FKRRechnung &rechnung)
{
    if (rechnung.bezahlt() == true)
        return text("STATUS_BEZAHLT");
    if (rechnung.isFaellig())
        return text("STATUS_FAELLIG");
    if (rechnung.versandt() == true)
        return text("STATUS_VERSENDET");
    return text("STATUS_ENTWURF");
}

QString summe(const FKRRechnung &rechnung)
{
    try {
        return FKRBetragsFormat::betragText(FKRBetragsFormat::formatiert(rechnung.rechnungsSumme()), rechnung);
    } catch (const std::exception &) {
        // A document with an item that has a quantity but no price has no total yet.
        return QStringLiteral("–");
    }
}

QString dezimal(const std::optional<Decimal> &zahl)
{
    return zahl ? QString::fromStdString(zahl->toString()) : QString();
}
} // namespace

FKRHauptfenster::FKRHauptfenster(FKRAppDelegate &delegate, QWidget *parent)
    : QMainWindow(parent)
    , m_delegate(delegate)
{
    setWindowTitle(QStringLiteral("Velmora Rechnungen"));
    resize(1000, 640);

    m_dokumente = new QTreeWidget;
    m_dokumente->setRootIsDecorated(false);
    m_dokumente->setHeaderLabels({text("SPALTE_NUMMER"), text("SPALTE_EMPFAENGER"), text("SPALTE_STATUS"),
                                  text("SPALTE_FAELLIG"), text("SPALTE_SUMME")});
    m_dokumente->header()->setSectionResizeMode(QHeaderView::ResizeToContents);

    m_posten = new QTreeWidget;
    m_posten->setRootIsDecorated(false);
    m_posten->setHeaderLabels({QStringLiteral("#"), FKRLocalizationHelper::hauptTabellenText(QStringLiteral("Bezeichnung")),
                               FKRLocalizationHelper::hauptTabellenText(QStringLiteral("Anzahl")),
                               FKRLocalizationHelper::hauptTabellenText(QStringLiteral("Betrag"))});
    m_postenTitel = new QLabel(text("HAUPTFENSTER_OFFENES_DOKUMENT"));
    m_postenTitel->setWordWrap(true);
    auto *rechts = new QWidget;
    auto *layout = new QVBoxLayout(rechts);
    layout->addWidget(m_postenTitel);
    layout->addWidget(m_posten);

    auto *teiler = new QSplitter;
    teiler->addWidget(m_dokumente);
    teiler->addWidget(rechts);
    teiler->setStretchFactor(0, 3);
    teiler->setStretchFactor(1, 2);
    setCentralWidget(teiler);

    baueMenue();
    connect(m_dokumente, &QTreeWidget::currentItemChanged, this, [this] { zeigePosten(); });
    connect(&m_delegate, &FKRAppDelegate::datensicherungBeendet, this, [this](const QString &archiv) {
        if (!archiv.isEmpty())
            statusBar()->showMessage(text("STATUS_DATENSICHERUNG_FERTIG") + archiv, 10000);
        else
            statusBar()->clearMessage();
    });
    statusBar()->showMessage(text("STATUS_DATENSICHERUNG_LAEUFT"));
}

void FKRHauptfenster::zeigeDaten()
{
    connect(m_delegate.managedObjectContext(), &ManagedObjectContext::didSave, this, &FKRHauptfenster::aktualisiere,
            Qt::UniqueConnection);
    aktualisiere();
}

FKRHauptfenster::~FKRHauptfenster() = default;

void FKRHauptfenster::baueMenue()
{
    QMenu *datei = menuBar()->addMenu(text("MENU_DATEI"));
    datei->addAction(text("MENU_SICHERN"), QKeySequence::Save, &m_delegate, &FKRAppDelegate::saveAction);
    datei->addAction(text("MENU_DATENSICHERUNG_JETZT"), this, [this] {
        statusBar()->showMessage(text("STATUS_DATENSICHERUNG_LAEUFT"));
        m_delegate.erstelleDatensicherung();
    });
    m_import = new FKRDatenbankImport(m_delegate, this);
    connect(m_import, &FKRDatenbankImport::fortschrittSichtbar, this, [this](bool sichtbar) {
        if (sichtbar)
            statusBar()->showMessage(text("STATUS_IMPORT_LAEUFT"));
        else
            statusBar()->clearMessage();
    });
    datei->addAction(text("MENU_DATENBANK_IMPORTIEREN"), m_import, &FKRDatenbankImport::datenbankImportButtonSelected);
    datei->addSeparator();
    datei->addAction(text("MENU_BEENDEN"), QKeySequence::Quit, this, &QWidget::close);
}

QList<FKRRechnung *> FKRHauptfenster::dokumenteInListenOrdnung() const
{
    // Newest first: the document the user worked on last is at the top.
    return m_delegate.managedObjectContext()->fetch<FKRRechnung>({}, {{QStringLiteral("rechnungsDatum"), false}});
}

void FKRHauptfenster::aktualisiere()
{
    const FKRRechnung *gewaehlt = rechnung();
    const QSignalBlocker sperre(m_dokumente);
    m_dokumente->clear();
    QTreeWidgetItem *auswahl = nullptr;
    for (FKRRechnung *dokument : dokumenteInListenOrdnung()) {
        const std::optional<QDateTime> faellig = dokument->faelligkeitsDatum();
        auto *zeile = new QTreeWidgetItem(
            m_dokumente, {dokument->rechnungsNummer().value_or(QString()),
                          dokument->empfaenger() ? dokument->empfaenger()->firmaUndName() : QString(), status(*dokument),
                          faellig ? QBDatumsTexte::formattedShortDateString(*faellig) : QString(), summe(*dokument)});
        zeile->setData(0, Qt::UserRole, QVariant::fromValue(static_cast<void *>(dokument)));
        zeile->setTextAlignment(4, Qt::AlignRight | Qt::AlignVCenter);
        if (dokument == gewaehlt)
            auswahl = zeile;
    }
    // Something is always open for imports while there are documents.
    if (!auswahl)
        auswahl = m_dokumente->topLevelItem(0);
    m_dokumente->setCurrentItem(auswahl);
    zeigePosten();
}

void FKRHauptfenster::zeigePosten(FKRPosten *auswahl)
{
    m_posten->clear();
    const FKRRechnung *dokument = rechnung();
    if (!dokument)
        return;
    QList<FKRPosten *> posten = dokument->posten();
    std::sort(posten.begin(), posten.end(), [](const FKRPosten *a, const FKRPosten *b) {
        return a->postenNummer().value_or(0) < b->postenNummer().value_or(0);
    });
    for (FKRPosten *eintrag : std::as_const(posten)) {
        auto *zeile = new QTreeWidgetItem(m_posten, {QString::number(eintrag->postenNummer().value_or(0)),
                                                     eintrag->postenBezeichnung().value_or(QString()),
                                                     dezimal(eintrag->anzahl()), dezimal(eintrag->einzelbetrag())});
        if (eintrag == auswahl)
            m_posten->setCurrentItem(zeile);
    }
}

// FKRFensterSchicht ---------------------------------------------------------------------------

FKROffenerEditor *FKRHauptfenster::offenerEditor()
{
    return rechnung() ? this : nullptr;
}

QList<FKRRechnung *> FKRHauptfenster::unbezahlteRechnungen()
{
    QList<FKRRechnung *> unbezahlte = dokumenteInListenOrdnung();
    unbezahlte.removeIf([](const FKRRechnung *dokument) { return dokument->bezahlt() != false; });
    return unbezahlte;
}

void FKRHauptfenster::zeigeFaelligeRechnungen()
{
    for (int i = 0; i < m_dokumente->topLevelItemCount(); ++i) {
        QTreeWidgetItem *zeile = m_dokumente->topLevelItem(i);
        auto *dokument = static_cast<FKRRechnung *>(zeile->data(0, Qt::UserRole).value<void *>());
        zeile->setHidden(!dokument->isFaellig());
    }
    showNormal();
    raise();
    activateWindow();
}

void FKRHauptfenster::zeigeHilfe()
{
    statusBar()->showMessage(m_postenTitel->text(), 15000);
}

bool FKRHauptfenster::commitEditing()
{
    return true;
}

// FKROffenerEditor ----------------------------------------------------------------------------

FKRRechnung *FKRHauptfenster::rechnung() const
{
    const QTreeWidgetItem *zeile = m_dokumente->currentItem();
    return zeile ? static_cast<FKRRechnung *>(zeile->data(0, Qt::UserRole).value<void *>()) : nullptr;
}

FKRPosten *FKRHauptfenster::neuerPosten()
{
    return m_delegate.managedObjectContext()->insertNewObject<FKRPosten>();
}

void FKRHauptfenster::waehlePostenAus(FKRPosten *posten)
{
    aktualisiere();
    zeigePosten(posten);
}

// FKREmpfaengerListe --------------------------------------------------------------------------

QList<FKREmpfaenger *> FKRHauptfenster::angeordneteEmpfaenger() const
{
    return m_delegate.managedObjectContext()->fetch<FKREmpfaenger>({}, {{QStringLiteral("firma")}, {QStringLiteral("name")}});
}

FKREmpfaenger *FKRHauptfenster::neuerEmpfaenger()
{
    return m_delegate.managedObjectContext()->insertNewObject<FKREmpfaenger>();
}

void FKRHauptfenster::closeEvent(QCloseEvent *event)
{
    if (m_delegate.applicationShouldTerminate() == FKRAppDelegate::TerminateReply::TerminateCancel)
        event->ignore();
    else
        event->accept();
}
