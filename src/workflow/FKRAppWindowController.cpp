#include "FKRAppWindowController.h"

#include "FKRAppDelegate.h"
#include "FKRArrayController.h"
#include "FKRHilfeBox.h"
#include "FKRLocalizationHelper.h"
#include "FKRMenuViewController.h"
#include "FKRRechnung.h"
#include "FKRRechnungenListeViewController.h"
#include "FKRRechnungsAnsichtViewController.h"
#include "FKRRechnungsDetailsViewController.h"
#include "FKRRechnungsDetailsWindowController.h"
#include "FKRSplitViewItem.h"
#include "QBMEinstellungenViewController.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QMenuBar>
#include <QSplitter>
#include <QStatusBar>
#include <QTimer>
#include <QUrl>

namespace {
QString text(const char *schluessel)
{
    return FKRLocalizationHelper::hauptTabellenText(QString::fromUtf8(schluessel));
}
} // namespace

FKRAppWindowController::FKRAppWindowController(FKRAppDelegate &delegate, QWidget *parent)
    : QMainWindow(parent)
    , m_delegate(delegate)
{
    // The documents speak for themselves: no title of its own, the desktop shows the program's
    // name. A title bar cannot be made transparent on every Linux desktop, so it stays the
    // desktop's own.
    setWindowTitle(QString());
    resize(1280, 800);

    m_splitView = new QSplitter(Qt::Horizontal, this);
    m_splitView->setChildrenCollapsible(false);
    auto *menu = new FKRMenuViewController(m_splitView);
    auto *liste = new FKRRechnungenListeViewController(m_delegate, m_splitView);
    auto *ansicht = new FKRRechnungsAnsichtViewController(m_delegate, m_splitView);
    m_splitView->insertWidget(FKRSplitView::kMenu, menu);
    m_splitView->insertWidget(FKRSplitView::kListe, liste);
    m_splitView->insertWidget(FKRSplitView::kAnsicht, ansicht);
    m_splitView->setStretchFactor(FKRSplitView::kMenu, 0);
    m_splitView->setStretchFactor(FKRSplitView::kListe, 2);
    m_splitView->setStretchFactor(FKRSplitView::kAnsicht, 3);
    m_splitView->setSizes({menu->minimumWidth(), 430, 680});
    setCentralWidget(m_splitView);

    connect(menu, &FKRMenuViewController::einstellungenGewaehlt, this, [this] { zeigeEinstellungen(); });
    connect(menu, &FKRMenuViewController::hilfeGewaehlt, this, &FKRAppWindowController::zeigeHilfeView);
    connect(ansicht, &FKRRechnungsAnsichtViewController::hilfeGewaehlt, this, &FKRAppWindowController::zeigeHilfeView);
    baueMenue();

    connect(&m_delegate, &FKRAppDelegate::datensicherungBeendet, this, [this](const QString &archiv) {
        if (archiv.isEmpty())
            statusBar()->clearMessage();
        else
            statusBar()->showMessage(text("STATUS_DATENSICHERUNG_FERTIG") + archiv, 10000);
    });
}

FKRAppWindowController::~FKRAppWindowController() = default;

void FKRAppWindowController::zeigeDatensicherungLaeuft()
{
    statusBar()->showMessage(text("STATUS_DATENSICHERUNG_LAEUFT"));
}

FKRMenuViewController *FKRAppWindowController::menuViewController() const
{
    return qobject_cast<FKRMenuViewController *>(m_splitView->widget(FKRSplitView::kMenu));
}

FKRRechnungenListeViewController *FKRAppWindowController::listeViewController() const
{
    return qobject_cast<FKRRechnungenListeViewController *>(m_splitView->widget(FKRSplitView::kListe));
}

FKRRechnungsAnsichtViewController *FKRAppWindowController::ansichtViewController() const
{
    return qobject_cast<FKRRechnungsAnsichtViewController *>(m_splitView->widget(FKRSplitView::kAnsicht));
}

void FKRAppWindowController::baueMenue()
{
    QMenu *ablage = menuBar()->addMenu(text("MENU_DATEI"));
    ablage->addAction(text("MENU_NEUES_DOKUMENT"), QKeySequence::New, this, &FKRAppWindowController::neueRechnung);
    ablage->addAction(text("MENU_NEUES_DOKUMENT_BEARBEITEN"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_N), this,
                      [this] { neueRechnungImEditor(); });
    ablage->addSeparator();
    ablage->addAction(text("MENU_SICHERN"), QKeySequence::Save, &m_delegate, &FKRAppDelegate::saveAction);
    ablage->addAction(text("MENU_ALS_PDF_SICHERN"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S), this,
                      &FKRAppWindowController::sichereRechnungAlsPDF);
    ablage->addAction(text("MENU_DRUCKEN"), QKeySequence::Print, this, &FKRAppWindowController::druckeRechnung);
    ablage->addSeparator();
    ablage->addAction(text("MENU_DATENSICHERUNG_JETZT"), this, [this] {
        zeigeDatensicherungLaeuft();
        m_delegate.erstelleDatensicherung();
    });
    ablage->addAction(text("MENU_EINSTELLUNGEN"), QKeySequence::Preferences, this, [this] { zeigeEinstellungen(); });
    ablage->addSeparator();
    QAction *beenden = ablage->addAction(text("MENU_BEENDEN"), QKeySequence::Quit, this, &QWidget::close);
    beenden->setMenuRole(QAction::QuitRole);

    QMenu *hilfe = menuBar()->addMenu(text("MENU_HILFE"));
    hilfe->addAction(text("MENU_HILFE_ANZEIGEN"), QKeySequence::HelpContents, this,
                     &FKRAppWindowController::zeigeHilfeView);
    hilfe->addAction(text("MENU_TUTORIAL"), this, &FKRAppWindowController::zeigeTutorial);
}

void FKRAppWindowController::neueRechnung()
{
    if (auto *liste = listeViewController())
        liste->erstelleNeueRechnung();
}

FKRRechnungsDetailsWindowController *FKRAppWindowController::neueRechnungImEditor()
{
    auto *liste = listeViewController();
    return liste ? liste->prepareForSegue(QStringLiteral("zeigeNeueFKRRechnungDetails")) : nullptr;
}

void FKRAppWindowController::sichereRechnungAlsPDF()
{
    if (auto *ansicht = ansichtViewController())
        ansicht->sichereRechnungAlsPDF();
}

void FKRAppWindowController::druckeRechnung()
{
    if (auto *ansicht = ansichtViewController())
        ansicht->druckeRechnung();
}

void FKRAppWindowController::zeigeHilfeView()
{
    // On a later turn, so a help button that asked for it has finished its own click first.
    QTimer::singleShot(0, this, [this] {
        if (auto *liste = listeViewController())
            liste->zeigeHilfeBox();
        if (auto *ansicht = ansichtViewController())
            ansicht->zeigeHilfeBox();
    });
}

void FKRAppWindowController::zeigeTutorial()
{
    const QUrl adresse(text("TUTORIAL_LINK"), QUrl::StrictMode);
    if (!adresse.isValid() || adresse.scheme().isEmpty())
        return;
    QTimer::singleShot(0, this, [adresse] { QDesktopServices::openUrl(adresse); });
}

QBMEinstellungenViewController *FKRAppWindowController::zeigeEinstellungen()
{
    if (!m_einstellungen) {
        m_einstellungen = new QBMEinstellungenViewController(m_delegate, this);
        m_einstellungen->setWindowFlag(Qt::Window);
        m_einstellungen->setAttribute(Qt::WA_DeleteOnClose);
    }
    m_einstellungen->show();
    m_einstellungen->raise();
    m_einstellungen->activateWindow();
    return m_einstellungen;
}

FKROffenerEditor *FKRAppWindowController::offenerEditor()
{
    auto *fenster = FKRRechnungsDetailsWindowController::aktuellesFenster();
    return fenster ? fenster->editor() : nullptr;
}

QList<FKRRechnung *> FKRAppWindowController::unbezahlteRechnungen()
{
    auto *liste = listeViewController();
    if (!liste)
        return {};
    // In the list's own order, so the reminders come as the user sees the documents; the list's
    // filter, rows and selection stay as they are.
    QList<FKRRechnung *> unbezahlt;
    const auto objekte = liste->rechnungenListeArrayController().arrangeObjects(
        [](const ManagedObject &o) { return static_cast<const FKRRechnung &>(o).bezahlt() == false; });
    unbezahlt.reserve(objekte.size());
    for (ManagedObject *o : objekte)
        unbezahlt.append(static_cast<FKRRechnung *>(o));
    return unbezahlt;
}

void FKRAppWindowController::zeigeFaelligeRechnungen()
{
    if (auto *menu = menuViewController())
        menu->faelligeRechnungenButtonPressed();
    showNormal();
    raise();
    activateWindow();
}

void FKRAppWindowController::zeigeHilfe()
{
    // The start's offer of help: not once the user has closed it.
    if (FKRHilfeBox::erscheintBeimStart())
        zeigeHilfeView();
}

bool FKRAppWindowController::commitEditing()
{
    // Fields write the model as the user types; only a table cell of an open editor can still
    // hold an edit, and a field that holds text it refused keeps it to itself.
    if (auto *fenster = FKRRechnungsDetailsWindowController::aktuellesFenster())
        fenster->editor()->commitEditing();
    return true;
}

void FKRAppWindowController::closeEvent(QCloseEvent *event)
{
    if (m_delegate.applicationShouldTerminate() == FKRAppDelegate::TerminateReply::TerminateCancel) {
        event->ignore();
        return;
    }
    event->accept();
    // The main window is the program: editors and the settings screen close with it (an
    // editor saves as it closes), so the last window is gone and the program ends.
    const auto fenster = QApplication::topLevelWidgets();
    for (QWidget *w : fenster) {
        if (w != this && w->isVisible())
            w->close();
    }
}
