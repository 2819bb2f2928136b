#include "FKRRechnungenListeViewController.h"

#include "FKRAbsender.h"
#include "FKRAlert.h"
#include "FKRAlertPresenter.h"
#include "FKRAppDelegate.h"
#include "FKRArrayController.h"
#include "FKRHilfeBox.h"
#include "FKRLocalizationHelper.h"
#include "FKRObjektAuswahl.h"
#include "FKRRechnung.h"
#include "FKRRechnungsAnsichtViewController.h"
#include "FKRRechnungsDetailsWindowController.h"
#include "FKRRechnungsListenKriterien.h"
#include "FKRRechnungsZeilenDelegate.h"
#include "FKRSplitViewItem.h"
#include "FKRUhr.h"
#include "FKRZeilenAktionen.h"
#include "ManagedObjectContext.h"

#include <QAction>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>


using namespace Qt::Literals::StringLiterals;

namespace {

const QString kSegueDetails = u"zeigeFKRRechnungDetails"_s;

struct ArtEintrag {
    int tag;
    const char *schluessel;
};

// The type pop-up: all types first, then the five types by their codes.
const ArtEintrag kArtEintraege[] = {
    {0, QT_TRANSLATE_NOOP("Velmora", "RECHNUNGSLISTE_DOKUMENTART_ALLE")},
    {1, QT_TRANSLATE_NOOP("Velmora", "RECHNUNGSLISTE_DOKUMENTART_ANSCHREIBEN")},
    {2, QT_TRANSLATE_NOOP("Velmora", "RECHNUNGSLISTE_DOKUMENTART_ANGEBOT")},
    {3, QT_TRANSLATE_NOOP("Velmora", "RECHNUNGSLISTE_DOKUMENTART_RECHNUNG")},
    {4, QT_TRANSLATE_NOOP("Velmora", "RECHNUNGSLISTE_DOKUMENTART_HONORARNOTE")},
    {5, QT_TRANSLATE_NOOP("Velmora", "RECHNUNGSLISTE_DOKUMENTART_MAHNUNG")},
};

QString text(const char *schluessel)
{
    return FKRLocalizationHelper::hauptTabellenText(QString::fromLatin1(schluessel));
}

} // namespace

FKRRechnungenListeViewController::FKRRechnungenListeViewController(FKRAppDelegate &delegate, QWidget *parent)
    : QWidget(parent)
    , m_delegate(delegate)
    , m_kriterien(std::make_unique<FKRRechnungsListenKriterien>())
{
    m_context = m_delegate.managedObjectContext();
    m_arrayController = new FKRArrayController(*m_context, u"FKRRechnung"_s, this);
    m_arrayController->setSpalten({{QString(),
                                    [](const ManagedObject &o, int role) {
                                        return FKRRechnungsZeilenDelegate::zeilenDaten(
                                            static_cast<const FKRRechnung &>(o), role);
                                    },
                                    {}}});
    baueOberflaeche();
    m_arrayController->setSortDescriptors(m_kriterien->sortDescriptors(m_sortierung));
    setzeSpaltenTitel();
    m_loeschenButtonBox->hide();
}

FKRRechnungenListeViewController::~FKRRechnungenListeViewController() = default;

void FKRRechnungenListeViewController::baueOberflaeche()
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);

    auto *kopf = new QWidget(this);
    auto *kopfLayout = new QHBoxLayout(kopf);
    kopfLayout->setContentsMargins(8, 6, 8, 6);
    m_dokumentArtPopUpButton = new QComboBox(kopf);
    for (const ArtEintrag &eintrag : kArtEintraege)
        m_dokumentArtPopUpButton->addItem(text(eintrag.schluessel), eintrag.tag);
    kopfLayout->addWidget(m_dokumentArtPopUpButton, 1);
    layout->addWidget(kopf);

    m_tableView = new QTableView(this);
    m_tableView->setModel(m_arrayController);
    m_tableView->setItemDelegate(new FKRRechnungsZeilenDelegate(m_tableView));
    m_tableView->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_tableView->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_tableView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_tableView->setShowGrid(false);
    m_tableView->setWordWrap(false);
    m_tableView->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_tableView->setContextMenuPolicy(Qt::CustomContextMenu);
    // Every row has the same height, so even very long lists need no measuring.
    m_tableView->verticalHeader()->hide();
    m_tableView->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_tableView->verticalHeader()->setDefaultSectionSize(FKRRechnungsZeilenDelegate::zeilenHoehe(font()));
    QHeaderView *kopfzeile = m_tableView->horizontalHeader();
    kopfzeile->setStretchLastSection(true);
    kopfzeile->setSectionsClickable(true);
    kopfzeile->setHighlightSections(false);
    kopfzeile->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_tableView->installEventFilter(this);
    m_tableView->viewport()->installEventFilter(this);
    layout->addWidget(m_tableView, 1);

    m_loeschenButtonBox = new QWidget(this);
    auto *loeschenLayout = new QHBoxLayout(m_loeschenButtonBox);
    loeschenLayout->setContentsMargins(8, 6, 8, 6);
    auto *loeschenKnopf = new QPushButton(text("BUTTON_TITLE_DELETE"), m_loeschenButtonBox);
    loeschenLayout->addStretch(1);
    loeschenLayout->addWidget(loeschenKnopf);
    layout->addWidget(m_loeschenButtonBox);

    auto *hilfeBox = new FKRHilfeBox(QT_TRANSLATE_NOOP("Velmora", "HILFE_TEXT_RECHNUNGSLISTE"), FKRHilfeBox::KlickSchliesst,
                                     this);
    hilfeBox->hide();
    connect(hilfeBox, &FKRHilfeBox::schliessenGewaehlt, hilfeBox, &QWidget::hide);
    m_hilfeBox = hilfeBox;

    m_zeilenAktionen = new FKRZeilenAktionen(m_tableView);
    m_auswahl = new FKRObjektAuswahl(m_tableView, m_arrayController, FKRRechnungsZeilenDelegate::ObjektRolle);

    connect(m_dokumentArtPopUpButton, &QComboBox::activated, this,
            [this](int index) { dokumentArtDidChange(m_dokumentArtPopUpButton->itemData(index).toInt()); });
    connect(kopfzeile, &QHeaderView::sectionClicked, this, [this] { sortierungAendern(); });
    connect(m_auswahl, &FKRObjektAuswahl::auswahlGeaendert, this,
            &FKRRechnungenListeViewController::tableViewSelectionDidChange);
    connect(m_tableView, &QTableView::customContextMenuRequested, this,
            &FKRRechnungenListeViewController::zeigeKontextMenue);
    // Rows move under the buttons on a rebuild; they stay with the row under the mouse.
    connect(m_arrayController, &FKRArrayController::modelReset, m_zeilenAktionen,
            [this] { m_zeilenAktionen->zeigeAufZeile(m_zeilenAktionen->zeile()); });
    connect(m_zeilenAktionen, &FKRZeilenAktionen::duplizierenGewaehlt, this,
            &FKRRechnungenListeViewController::dupliziereZeile);
    connect(m_zeilenAktionen, &FKRZeilenAktionen::loeschenGewaehlt, this,
            &FKRRechnungenListeViewController::loescheZeile);
    connect(loeschenKnopf, &QPushButton::clicked, this, [this] { loescheRechung(); });
}

FKRArrayController &FKRRechnungenListeViewController::rechnungenListeArrayController() { return *m_arrayController; }
ManagedObjectContext *FKRRechnungenListeViewController::managedObjectContext() { return m_context; }
QTableView *FKRRechnungenListeViewController::tableView() const { return m_tableView; }
QComboBox *FKRRechnungenListeViewController::dokumentArtPopUpButton() const { return m_dokumentArtPopUpButton; }
QWidget *FKRRechnungenListeViewController::loeschenButtonBox() const { return m_loeschenButtonBox; }
QWidget *FKRRechnungenListeViewController::hilfeBox() const { return m_hilfeBox; }
QMenu *FKRRechnungenListeViewController::kontextMenue() const { return m_kontextMenue; }

QString FKRRechnungenListeViewController::spaltenTitel() const
{
    return m_arrayController->headerData(0, Qt::Horizontal).toString();
}

FKRRechnungsAnsichtViewController *FKRRechnungenListeViewController::ansicht() const
{
    return FKRSplitView::splitViewItem<FKRRechnungsAnsichtViewController>(this, FKRSplitView::kAnsicht);
}

// ---- Filter and order ----

void FKRRechnungenListeViewController::zeigeEntwuerfe() { setzeBereich(&m_kriterien->nurEntwuerfePredicate()); }
void FKRRechnungenListeViewController::zeigeVersandteRechnungen()
{
    setzeBereich(&m_kriterien->nurVersandteDokumentePredicate());
}
void FKRRechnungenListeViewController::zeigeFaelligeRechnungen()
{
    setzeBereich(&m_kriterien->nurFaelligeDokumentePredicate());
}
void FKRRechnungenListeViewController::zeigeBezahlteRechnungen()
{
    setzeBereich(&m_kriterien->nurBezahlteDokumentePredicate());
}
void FKRRechnungenListeViewController::zeigeAlleRechnungen() { setzeBereich(nullptr); }

void FKRRechnungenListeViewController::setzeBereich(const std::function<bool(const ManagedObject &)> *bereich)
{
    m_loeschenButtonBox->hide();
    m_appAreaPredicate = bereich;
    aktualisiereFilter();
    m_tableView->clearSelection();
}

void FKRRechnungenListeViewController::dokumentArtDidChange(int tag)
{
    m_dokumentArtPredicate = m_kriterien->dokumentArtPredicate(tag);
    // Keep the pop-up showing the filter when the choice came from elsewhere.
    const int index = m_dokumentArtPopUpButton->findData(m_dokumentArtPredicate ? tag : 0);
    if (index >= 0 && index != m_dokumentArtPopUpButton->currentIndex())
        m_dokumentArtPopUpButton->setCurrentIndex(index);
    aktualisiereFilter();
    m_tableView->clearSelection();
    m_delegate.saveAction();
}

void FKRRechnungenListeViewController::aktualisiereFilter()
{
    m_arrayController->setFilterPredicate(
        FKRRechnungsListenKriterien::verbinde(m_appAreaPredicate, m_dokumentArtPredicate));
}

void FKRRechnungenListeViewController::sortierungAendern()
{
    m_sortierung = (m_sortierung + 1) % FKRRechnungsListenKriterien::kAnzahlSortierungen;
    setzeSpaltenTitel();
    m_arrayController->setSortDescriptors(m_kriterien->sortDescriptors(m_sortierung));
}

void FKRRechnungenListeViewController::setzeSpaltenTitel()
{
    m_arrayController->setHeaderData(
        0, Qt::Horizontal,
        FKRLocalizationHelper::hauptTabellenText(FKRRechnungsListenKriterien::titelSchluessel(m_sortierung)));
}

// ---- Selection ----

QList<FKRRechnung *> FKRRechnungenListeViewController::selectedObjects() const
{
    QList<FKRRechnung *> result;
    for (ManagedObject *objekt : m_auswahl->objekte())
        result.append(static_cast<FKRRechnung *>(objekt));
    return result;
}

void FKRRechnungenListeViewController::setSelectedObjects(const QList<FKRRechnung *> &rechnungen)
{
    m_auswahl->waehleAus(QList<ManagedObject *>(rechnungen.cbegin(), rechnungen.cend()));
}

void FKRRechnungenListeViewController::tableViewSelectionDidChange()
{
    m_loeschenButtonBox->hide();
    const QList<FKRRechnung *> auswahl = selectedObjects();
    FKRRechnung *erste = auswahl.isEmpty() ? nullptr : auswahl.first();
    if (FKRRechnungsAnsichtViewController *view = ansicht()) {
        view->setRechnung(erste);
        view->aktualisiereAnsicht();
    }
    // A sent document is frozen: the list offers no delete button for it (the row action does).
    if (erste && erste->versandt() != true)
        m_loeschenButtonBox->show();
}

// ---- Actions ----

void FKRRechnungenListeViewController::tabelleDoppelGeklickt()
{
    const QList<FKRRechnung *> auswahl = selectedObjects();
    if (auswahl.isEmpty())
        return;
    if (auswahl.first()->versandt() == true) {
        m_delegate.presenter().zeigeAlert({u"ALERT_TITLE_VERSANDTE_RECHNUNG_OEFFNEN"_s,
                                           u"ALERT_TEXT_VERSANDTE_RECHNUNG_OEFFNEN"_s,
                                           {u"BUTTON_TITLE_OK"_s},
                                           FKRAlert::Stil::Information});
        return;
    }
    prepareForSegue(kSegueDetails);
}

FKRRechnungsDetailsWindowController *FKRRechnungenListeViewController::prepareForSegue(const QString &segue)
{
    FKRRechnung *rechnung = nullptr;
    if (segue == kSegueDetails) {
        const QList<FKRRechnung *> auswahl = selectedObjects();
        if (auswahl.isEmpty())
            return nullptr;
        rechnung = auswahl.first();
    } else {
        rechnung = erstelleNeueRechnung();
    }
    return FKRRechnungsDetailsWindowController::oeffne(m_delegate, rechnung, ansicht(), rechnung->empfaenger());
}

FKRRechnung *FKRRechnungenListeViewController::erstelleNeueRechnung()
{
    // Asked before the new document exists, which has no sender yet anyway.
    FKRAbsender *absender =
        FKRRechnung::absenderFuerNeuesDokument(m_context->fetch<FKRAbsender>(), m_context->fetch<FKRRechnung>());
    auto *rechnung = m_arrayController->newObjectOf<FKRRechnung>();
    rechnung->setSprache(FKRRechnung::spracheFuerNeueDokumente());
    rechnung->setzeNummerFuerNeuesDokument();
    rechnung->setzeDatenFuerNeuesDokument(FKRUhr::jetzt());
    rechnung->setAbsender(absender);
    m_delegate.saveAction();
    setSelectedObjects({rechnung});
    return rechnung;
}

void FKRRechnungenListeViewController::dupliziereRechnung()
{
    if (FKRRechnungsAnsichtViewController *view = ansicht())
        view->dupliziereRechnung();
}

void FKRRechnungenListeViewController::loescheRechung()
{
    // The documents are taken before asking: the answer must apply to what the user saw.
    const QList<FKRRechnung *> auswahl = selectedObjects();
    if (auswahl.isEmpty())
        return;
    const int antwort = m_delegate.presenter().zeigeAlert({u"ALERT_TITLE_DELETE"_s,
                                                           u"ALERT_TEXT_DELETE"_s,
                                                           {u"BUTTON_TITLE_OK"_s, u"BUTTON_TITLE_ABBRECHEN"_s},
                                                           FKRAlert::Stil::Warnung});
    if (antwort != kErsterKnopf)
        return;
    for (FKRRechnung *rechnung : auswahl) {
        if (!rechnung->isDeleted())
            m_context->deleteObject(rechnung);
    }
    m_delegate.saveAction();
}

void FKRRechnungenListeViewController::zeigeHilfeBox()
{
    if (m_hilfeBox->isHidden()) {
        m_hilfeBox->setGeometry(rect());
        m_hilfeBox->show();
        m_hilfeBox->raise();
    } else {
        // Put away with the help command is closed as well.
        m_hilfeBox->hide();
        FKRHilfeBox::merkeGeschlossen();
    }
}

// ---- Row actions ----

void FKRRechnungenListeViewController::dupliziereZeile(int zeile)
{
    auto *rechnung = static_cast<FKRRechnung *>(m_arrayController->objectAt(zeile));
    if (!rechnung)
        return;
    setSelectedObjects({rechnung});
    dupliziereRechnung();
}

void FKRRechnungenListeViewController::loescheZeile(int zeile)
{
    auto *rechnung = static_cast<FKRRechnung *>(m_arrayController->objectAt(zeile));
    if (!rechnung)
        return;
    setSelectedObjects({rechnung});
    loescheRechung();
}

QList<QAction *> FKRRechnungenListeViewController::rowActionsForRow(int zeile, QObject *parent)
{
    auto *duplizieren = new QAction(text("BUTTON_TITLE_DUPLIZIEREN"), parent);
    connect(duplizieren, &QAction::triggered, this, [this, zeile] { dupliziereZeile(zeile); });
    auto *loeschen = new QAction(text("BUTTON_TITLE_DELETE"), parent);
    connect(loeschen, &QAction::triggered, this, [this, zeile] { loescheZeile(zeile); });
    return {duplizieren, loeschen};
}

void FKRRechnungenListeViewController::zeigeKontextMenue(const QPoint &position)
{
    QModelIndex index = m_tableView->indexAt(position);
    QPoint ort = position;
    if (!index.isValid()) {
        // From the keyboard's menu key: the current row.
        index = m_tableView->currentIndex();
        if (!index.isValid())
            return;
        ort = m_tableView->visualRect(index).center();
    }
    if (m_kontextMenue)
        m_kontextMenue->close();
    auto *menue = new QMenu(this);
    menue->setAttribute(Qt::WA_DeleteOnClose);
    menue->addActions(rowActionsForRow(index.row(), menue));
    m_kontextMenue = menue;
    menue->popup(m_tableView->viewport()->mapToGlobal(ort));
}

// ---- Events ----

bool FKRRechnungenListeViewController::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_tableView && event->type() == QEvent::KeyPress) {
        const auto *taste = static_cast<QKeyEvent *>(event);
        if (taste->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
            return QWidget::eventFilter(watched, event);
        switch (taste->key()) {
        case Qt::Key_Delete:
        case Qt::Key_Backspace:
            loescheRechung();
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            tabelleDoppelGeklickt();
            return true;
        default:
            break;
        }
    } else if (watched == m_tableView->viewport() && event->type() == QEvent::MouseButtonDblClick) {
        // Handled here rather than through the view's doubleClicked: the first click may have
        // made the document view save, and the rebuild that follows a save makes the table
        // forget which row was pressed.
        const auto *maus = static_cast<QMouseEvent *>(event);
        const QModelIndex index = m_tableView->indexAt(maus->position().toPoint());
        if (maus->button() == Qt::LeftButton && index.isValid()) {
            if (!m_tableView->selectionModel()->isRowSelected(index.row()))
                m_auswahl->waehleAus({m_auswahl->objektAm(index.row())});
            tabelleDoppelGeklickt();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void FKRRechnungenListeViewController::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (!m_hilfeBox->isHidden())
        m_hilfeBox->setGeometry(rect());
}
