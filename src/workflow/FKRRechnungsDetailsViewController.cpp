#include "FKRRechnungsDetailsViewController.h"

#include "FKRAlertPresenter.h"
#include "FKRAppDelegate.h"
#include "FKRArrayController.h"
#include "FKRBetragsFormat.h"
#include "FKREditorAbsenderTab.h"
#include "FKREditorBetragTab.h"
#include "FKREditorEmpfaengerTab.h"
#include "FKREditorPostenTab.h"
#include "FKREditorStatusTab.h"
#include "FKREditorTextTab.h"
#include "FKREmpfaenger.h"
#include "FKRLocalizationHelper.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "FKRTabellenAuswahl.h"
#include "ManagedObjectContext.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTabWidget>
#include <QVBoxLayout>

const QStringList &FKRRechnungsDetailsViewController::tabIdentifier()
{
    static const QStringList identifier{QStringLiteral("POSTEN_TAB"),     QStringLiteral("BETRAG_TAB"),
                                        QStringLiteral("EMPFAENGER_TAB"), QStringLiteral("ABSENDER_TAB"),
                                        QStringLiteral("TEXT_TAB"),       QStringLiteral("STATUS_TAB")};
    return identifier;
}

const QList<SortDescriptor> &FKRRechnungsDetailsViewController::einzelpostenSortDescriptor()
{
    static const QList<SortDescriptor> sortierung{{QStringLiteral("postenNummer"), true}};
    return sortierung;
}

const QList<SortDescriptor> &FKRRechnungsDetailsViewController::empfaengerNameSortDescriptor()
{
    static const QList<SortDescriptor> sortierung{{QStringLiteral("firma"), true}, {QStringLiteral("name"), true}};
    return sortierung;
}

const QList<SortDescriptor> &FKRRechnungsDetailsViewController::absenderSortDescriptor()
{
    static const QList<SortDescriptor> sortierung{{QStringLiteral("firma"), true}, {QStringLiteral("name"), true}};
    return sortierung;
}

FKRRechnungsDetailsViewController::FKRRechnungsDetailsViewController(FKRAppDelegate &delegate, QWidget *parent)
    : QWidget(parent)
    , m_delegate(delegate)
{
    ManagedObjectContext &context = *delegate.managedObjectContext();
    m_postenController = new FKRArrayController(context, QStringLiteral("FKRPosten"), this);
    // Until a document is set the item list shows nothing.
    m_postenController->setFilterPredicate([](const ManagedObject &) { return false; });
    m_postenController->setSortDescriptors(einzelpostenSortDescriptor());
    m_empfaengerController = new FKRArrayController(context, QStringLiteral("FKREmpfaenger"), this);
    m_empfaengerController->setSortDescriptors(empfaengerNameSortDescriptor());
    m_absenderController = new FKRArrayController(context, QStringLiteral("FKRAbsender"), this);
    m_absenderController->setSortDescriptors(absenderSortDescriptor());

    m_postenTab = new FKREditorPostenTab(*this);
    m_betragTab = new FKREditorBetragTab(*this);
    m_empfaengerTab = new FKREditorEmpfaengerTab(*this);
    m_absenderTab = new FKREditorAbsenderTab(*this);
    m_textTab = new FKREditorTextTab(*this);
    m_statusTab = new FKREditorStatusTab(*this);
    m_tabView = new QTabWidget(this);
    m_tabView->setObjectName(QStringLiteral("tabView"));
    const QList<QWidget *> seiten{m_postenTab, m_betragTab, m_empfaengerTab, m_absenderTab, m_textTab, m_statusTab};
    for (qsizetype i = 0; i < seiten.size(); ++i) {
        seiten[i]->setObjectName(tabIdentifier()[i]);
        m_tabView->addTab(seiten[i], FKRLocalizationHelper::hauptTabellenText(tabIdentifier()[i]));
    }

    m_hilfeText = new QLabel(this);
    m_hilfeText->setObjectName(QStringLiteral("hilfeTextField"));
    m_hilfeText->setWordWrap(true);
    m_hilfeText->setForegroundRole(QPalette::PlaceholderText);
    m_weiter = new QPushButton(FKRLocalizationHelper::hauptTabellenText(QStringLiteral("BUTTON_TITLE_WEITER")), this);
    m_weiter->setObjectName(QStringLiteral("weiterButton"));
    m_weiter->setDefault(false);
    auto *fuss = new QHBoxLayout;
    fuss->addWidget(m_hilfeText, 1);
    fuss->addWidget(m_weiter, 0, Qt::AlignBottom);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_tabView, 1);
    layout->addLayout(fuss);

    connect(m_tabView, &QTabWidget::currentChanged, this, &FKRRechnungsDetailsViewController::tabGewechselt);
    connect(m_weiter, &QPushButton::clicked, this, &FKRRechnungsDetailsViewController::weiterButtonPressed);
    connect(new QShortcut(QKeySequence::Save, this), &QShortcut::activated, this,
            &FKRRechnungsDetailsViewController::sichern);
    // The item tab follows the arrangement of the items: new, deleted, imported and reordered
    // items refresh the number and the sums.
    connect(m_postenController, &FKRArrayController::arrangedObjectsChanged, this,
            &FKRRechnungsDetailsViewController::updateRechnungsPostenTab);
    updateHilfeTexte();
}

FKRRechnungsDetailsViewController::~FKRRechnungsDetailsViewController() = default;

void FKRRechnungsDetailsViewController::setRechnung(FKRRechnung *rechnung)
{
    m_rechnung = rechnung;
    if (!rechnung)
        m_postenController->setFilterPredicate([](const ManagedObject &) { return false; });
    viewWillAppear();
    updateRechnungsPostenTab();
}

QTabWidget *FKRRechnungsDetailsViewController::tabView() const
{
    return m_tabView;
}

FKRArrayController &FKRRechnungsDetailsViewController::rechnungsPostenArrayController()
{
    return *m_postenController;
}

FKRArrayController &FKRRechnungsDetailsViewController::empfaengerArrayController()
{
    return *m_empfaengerController;
}

FKRArrayController &FKRRechnungsDetailsViewController::absenderArrayController()
{
    return *m_absenderController;
}

void FKRRechnungsDetailsViewController::viewWillAppear()
{
    updateHilfeTexte();
    m_statusTab->zeigeArtUndSprache();
}

void FKRRechnungsDetailsViewController::tabGewechselt()
{
    updateTabViews();
    const bool letzter = m_tabView->currentIndex() == m_tabView->count() - 1;
    m_weiter->setText(letzter ? FKRLocalizationHelper::hauptTabellenText(QStringLiteral("BUTTON_TITLE_FERTIG"))
                              : FKRLocalizationHelper::hauptTabellenText(QStringLiteral("BUTTON_TITLE_WEITER")));
}

void FKRRechnungsDetailsViewController::updateTabViews()
{
    updateRechnungsPostenTab();
    m_betragTab->aktualisiere();
    m_empfaengerTab->aktualisiere();
    m_absenderTab->aktualisiere();
    m_textTab->aktualisiere();
    m_statusTab->aktualisiere();
    updateHilfeTexte();
}

void FKRRechnungsDetailsViewController::updateHilfeTexte()
{
    const int index = m_tabView->currentIndex();
    if (index < 0 || index >= tabIdentifier().size())
        return;
    const QString hilfeSchluessel = QStringLiteral("HILFE_TEXT_") + tabIdentifier()[index];
    m_hilfeText->setText(FKRLocalizationHelper::hauptTabellenText(hilfeSchluessel));
}

void FKRRechnungsDetailsViewController::updateRechnungsPostenTab()
{
    m_postenTab->aktualisiere();
}

void FKRRechnungsDetailsViewController::aktualisiereRechnungsSummeBetragTab()
{
    m_betragTab->aktualisiereRechnungsSumme();
}

Decimal FKRRechnungsDetailsViewController::zwischenSummePostenTab() const
{
    if (!m_rechnung)
        return Decimal(0);
    try {
        return m_rechnung->postenSumme();
    } catch (const std::runtime_error &) {
        return Decimal::notANumber();
    }
}

Decimal FKRRechnungsDetailsViewController::rechnungsSummeBetragTab() const
{
    if (!m_rechnung)
        return Decimal(0);
    try {
        return m_rechnung->rechnungsSumme();
    } catch (const std::runtime_error &) {
        return Decimal::notANumber();
    }
}

QString FKRRechnungsDetailsViewController::betragsText(const Decimal &betrag) const
{
    if (betrag.isNaN())
        return QStringLiteral("–");
    const QString formatiert = FKRBetragsFormat::formatiert(betrag);
    return m_rechnung ? FKRBetragsFormat::betragText(formatiert, *m_rechnung) : formatiert;
}

void FKRRechnungsDetailsViewController::waehleEmpfaengerAus(FKREmpfaenger *empfaenger)
{
    m_empfaengerTab->waehleAus(empfaenger);
}

void FKRRechnungsDetailsViewController::dokumentenArtDidChange(const Decimal &art)
{
    if (!m_rechnung)
        return;
    m_rechnung->wechsleDokumentArt(art);
    sichern();
    updateTabViews();
    updateHilfeTexte();
}

void FKRRechnungsDetailsViewController::weiterButtonPressed()
{
    const int index = m_tabView->currentIndex();
    if (index < m_tabView->count() - 1)
        m_tabView->setCurrentIndex(index + 1);
    else
        Q_EMIT schliessenAngefordert();
}

void FKRRechnungsDetailsViewController::sichern()
{
    m_delegate.saveAction();
}

bool FKRRechnungsDetailsViewController::bestaetigeLoeschen()
{
    const FKRAlert alert{QString::fromLatin1(QT_TRANSLATE_NOOP("Velmora", "ALERT_TITLE_DELETE")),
                         QString::fromLatin1(QT_TRANSLATE_NOOP("Velmora", "ALERT_TEXT_DELETE")),
                         {QString::fromLatin1(QT_TRANSLATE_NOOP("Velmora", "BUTTON_TITLE_OK")),
                          QString::fromLatin1(QT_TRANSLATE_NOOP("Velmora", "BUTTON_TITLE_ABBRECHEN"))},
                         FKRAlert::Stil::Warnung};
    return m_delegate.presenter().zeigeAlert(alert) == kErsterKnopf;
}

void FKRRechnungsDetailsViewController::commitEditing()
{
    // A cell editor hands its text to the item when it loses the focus.
    QWidget *fokus = QApplication::focusWidget();
    if (fokus && isAncestorOf(fokus))
        fokus->clearFocus();
}

FKRPosten *FKRRechnungsDetailsViewController::neuerPosten()
{
    return m_postenController->newObjectOf<FKRPosten>();
}

void FKRRechnungsDetailsViewController::waehlePostenAus(FKRPosten *posten)
{
    m_postenController->rearrangeObjects();
    m_postenTab->waehleAus(posten);
    updateRechnungsPostenTab();
    aktualisiereRechnungsSummeBetragTab();
}

QList<FKREmpfaenger *> FKRRechnungsDetailsViewController::angeordneteEmpfaenger() const
{
    return m_empfaengerController->arranged<FKREmpfaenger>();
}

FKREmpfaenger *FKRRechnungsDetailsViewController::neuerEmpfaenger()
{
    return m_empfaengerController->newObjectOf<FKREmpfaenger>();
}
