#include "FKREditorPostenTab.h"

#include "DecimalMetaType.h"
#include "FKRAppDelegate.h"
#include "FKRArrayController.h"
#include "FKRBetragsFormat.h"
#include "FKRDezimalDelegate.h"
#include "FKRFeldBindung.h"
#include "FKRLocalizationHelper.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "FKRRechnungsDetailsViewController.h"
#include "FKRTabellenAuswahl.h"
#include "ManagedObjectContext.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

namespace {

using Spalte = FKRArrayController::Spalte;

// The user's text of a literal key (the key check of the translation tables finds it here).
QString hauptTabellenText(const char *schluessel)
{
    return FKRLocalizationHelper::hauptTabellenText(QString::fromUtf8(schluessel));
}

FKRPosten &posten(ManagedObject &objekt)
{
    return static_cast<FKRPosten &>(objekt);
}

const FKRPosten &posten(const ManagedObject &objekt)
{
    return static_cast<const FKRPosten &>(objekt);
}

// A cell's new value as a number: from the number editor, or a text in the user's locale.
std::optional<Decimal> zahlAus(const QVariant &wert)
{
    if (wert.metaType() == QMetaType::fromType<Decimal>())
        return wert.value<Decimal>();
    if (wert.metaType() == QMetaType::fromType<QString>())
        return wert.toString().trimmed().isEmpty() ? Decimal(0) : FKRDezimalFeld::leseZahl(wert.toString());
    if (wert.metaType() == QMetaType::fromType<qint64>() || wert.metaType() == QMetaType::fromType<int>())
        return Decimal(std::int64_t(wert.toLongLong()));
    return std::nullopt;
}

QVariant zahlZelle(const std::optional<Decimal> &wert, int role, bool betrag)
{
    switch (role) {
    case Qt::DisplayRole:
        if (!wert || wert->isNaN())
            return QString();
        return betrag ? FKRBetragsFormat::formatiert(*wert) : FKRDezimalFeld::zahlText(*wert);
    case Qt::EditRole:
        return wert && !wert->isNaN() ? FKRDezimalFeld::zahlText(*wert) : QString();
    case Qt::TextAlignmentRole:
        return int(Qt::AlignRight | Qt::AlignVCenter);
    default:
        return QVariant();
    }
}

QVariant textZelle(const std::optional<QString> &wert, int role)
{
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return wert.value_or(QString());
    return QVariant();
}

std::optional<QString> textAus(const QVariant &wert)
{
    const QString text = wert.toString();
    return text.isEmpty() ? std::nullopt : std::optional<QString>(text);
}

} // namespace

FKREditorPostenTab::FKREditorPostenTab(FKRRechnungsDetailsViewController &editor)
    : m_editor(editor)
{
    rechnungsNummerTextField = new QLineEdit(this);
    rechnungsNummerTextField->setObjectName(QStringLiteral("rechnungsNummerTextField"));
    m_nummerBindung = new FKRFeldBindung(rechnungsNummerTextField, QStringLiteral("rechnungsNummer"));

    postenTableView = new QTableView(this);
    postenTableView->setObjectName(QStringLiteral("postenTableView"));
    m_auswahl = new FKRTabellenAuswahl(*postenTableView, editor.rechnungsPostenArrayController());
    setzeSpalten();
    postenTableView->setItemDelegateForColumn(kNummer, new FKRDezimalDelegate(FKRDezimalFeld::Art::Ganzzahl, this));
    postenTableView->setItemDelegateForColumn(kAnzahl, new FKRDezimalDelegate(FKRDezimalFeld::Art::Zahl, this));
    postenTableView->setItemDelegateForColumn(kEinzelbetrag, new FKRDezimalDelegate(FKRDezimalFeld::Art::Zahl, this));
    postenTableView->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed
                                     | QAbstractItemView::AnyKeyPressed);
    QHeaderView *kopf = postenTableView->horizontalHeader();
    kopf->setSectionResizeMode(QHeaderView::ResizeToContents);
    kopf->setSectionResizeMode(kBezeichnung, QHeaderView::Stretch);
    kopf->setSectionResizeMode(kBeschreibung, QHeaderView::Stretch);

    postenBeschreibungTextField = new QPlainTextEdit(this);
    postenBeschreibungTextField->setObjectName(QStringLiteral("postenBeschreibungTextField"));
    postenBeschreibungTextField->setMaximumHeight(90);
    postenBeschreibungTextField->setPlaceholderText(hauptTabellenText("EDITOR_PLATZHALTER_BESCHREIBUNG"));
    m_beschreibungBindung = new FKRFeldBindung(postenBeschreibungTextField, QStringLiteral("postenBeschreibung"));
    connect(m_beschreibungBindung, &FKRFeldBindung::geaendert, postenTableView->viewport(),
            qOverload<>(&QWidget::update));

    neuerPostenButton = new QPushButton(hauptTabellenText("BUTTON_TITLE_NEUER_POSTEN"), this);
    neuerPostenButton->setObjectName(QStringLiteral("neuerPostenButton"));
    loeschePostenButton = new QPushButton(hauptTabellenText("BUTTON_TITLE_POSTEN_LOESCHEN"), this);
    loeschePostenButton->setObjectName(QStringLiteral("loeschePostenButton"));
    postenTabRechnungsSummeTextField = new QLineEdit(this);
    postenTabRechnungsSummeTextField->setObjectName(QStringLiteral("postenTabRechnungsSummeTextField"));
    postenTabRechnungsSummeTextField->setReadOnly(true);
    postenTabRechnungsSummeTextField->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    postenTabRechnungsSummeTextField->setMaximumWidth(220);

    auto *kopfzeile = new QFormLayout;
    kopfzeile->addRow(hauptTabellenText("EDITOR_LABEL_NUMMER"), rechnungsNummerTextField);
    auto *fusszeile = new QHBoxLayout;
    fusszeile->addWidget(neuerPostenButton);
    fusszeile->addWidget(loeschePostenButton);
    fusszeile->addStretch();
    fusszeile->addWidget(new QLabel(hauptTabellenText("EDITOR_LABEL_POSTENSUMME"), this));
    fusszeile->addWidget(postenTabRechnungsSummeTextField);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(kopfzeile);
    layout->addWidget(postenTableView, 1);
    layout->addWidget(new QLabel(hauptTabellenText("EDITOR_LABEL_BESCHREIBUNG"), this));
    layout->addWidget(postenBeschreibungTextField);
    layout->addLayout(fusszeile);

    connect(neuerPostenButton, &QPushButton::clicked, this, &FKREditorPostenTab::neuerPostenButtonPressed);
    connect(loeschePostenButton, &QPushButton::clicked, this, &FKREditorPostenTab::loeschePostenButtonPressed);
    connect(m_auswahl, &FKRTabellenAuswahl::auswahlGeaendert, this, &FKREditorPostenTab::auswahlGeaendert);
    connect(&editor.rechnungsPostenArrayController(), &QAbstractItemModel::dataChanged, this,
            &FKREditorPostenTab::einzelpostenBetragChanged);
    connect(&editor.rechnungsPostenArrayController(), &QAbstractItemModel::modelReset, this,
            &FKREditorPostenTab::auswahlGeaendert);
    auswahlGeaendert();
}

void FKREditorPostenTab::setzeSpalten()
{
    QList<Spalte> spalten(6);
    spalten[kNummer] = {hauptTabellenText("EDITOR_SPALTE_NUMMER"),
                        [](const ManagedObject &o, int role) -> QVariant {
                            const auto nummer = posten(o).postenNummer();
                            return zahlZelle(nummer ? std::optional<Decimal>(Decimal(std::int64_t(*nummer))) : std::nullopt,
                                             role, false);
                        },
                        [](ManagedObject &o, const QVariant &wert) {
                            const auto zahl = zahlAus(wert);
                            if (!zahl || zahl->isNegative() || Decimal(std::int64_t(zahl->toInt64())) != *zahl)
                                return false;
                            posten(o).setPostenNummer(qint64(zahl->toInt64()));
                            return true;
                        }};
    // An item without a name shows a hint in the placeholder colour; editing starts empty.
    const QString hinweis = hauptTabellenText("EDITOR_PLATZHALTER_BEZEICHNUNG");
    const QBrush hinweisFarbe = postenTableView->palette().brush(QPalette::PlaceholderText);
    spalten[kBezeichnung] = {hauptTabellenText("EDITOR_SPALTE_BEZEICHNUNG"),
                             [hinweis, hinweisFarbe](const ManagedObject &o, int role) -> QVariant {
                                 const auto bezeichnung = posten(o).postenBezeichnung();
                                 if (!bezeichnung && role == Qt::DisplayRole)
                                     return hinweis;
                                 if (!bezeichnung && role == Qt::ForegroundRole)
                                     return hinweisFarbe;
                                 return textZelle(bezeichnung, role);
                             },
                             [](ManagedObject &o, const QVariant &wert) {
                                 posten(o).setPostenBezeichnung(textAus(wert));
                                 return true;
                             }};
    // The description is often several lines long; the table shows it on one line, and it is
    // edited in the field below the table.
    spalten[kBeschreibung] = {hauptTabellenText("EDITOR_SPALTE_BESCHREIBUNG"),
                              [](const ManagedObject &o, int role) -> QVariant {
                                  const QString beschreibung = posten(o).postenBeschreibung().value_or(QString());
                                  if (role == Qt::DisplayRole)
                                      return QString(beschreibung).replace(QLatin1Char('\n'), QLatin1Char(' '));
                                  if (role == Qt::ToolTipRole && !beschreibung.isEmpty())
                                      return beschreibung;
                                  return QVariant();
                              },
                              {}};
    spalten[kAnzahl] = {hauptTabellenText("EDITOR_SPALTE_ANZAHL"),
                        [](const ManagedObject &o, int role) { return zahlZelle(posten(o).anzahl(), role, false); },
                        [](ManagedObject &o, const QVariant &wert) {
                            const auto zahl = zahlAus(wert);
                            if (!zahl)
                                return false;
                            posten(o).setAnzahl(zahl);
                            return true;
                        }};
    spalten[kEinzelbetrag] = {hauptTabellenText("EDITOR_SPALTE_EINZELPREIS"),
                              [](const ManagedObject &o, int role) { return zahlZelle(posten(o).einzelbetrag(), role, true); },
                              [](ManagedObject &o, const QVariant &wert) {
                                  const auto zahl = zahlAus(wert);
                                  if (!zahl)
                                      return false;
                                  posten(o).setEinzelbetrag(zahl);
                                  return true;
                              }};
    spalten[kGesamt] = {hauptTabellenText("EDITOR_SPALTE_GESAMT"),
                        [](const ManagedObject &o, int role) -> QVariant {
                            if (role != Qt::DisplayRole)
                                return zahlZelle(std::nullopt, role, true);
                            try {
                                return zahlZelle(posten(o).zwischenSumme(), role, true);
                            } catch (const std::runtime_error &) {
                                return QStringLiteral("–");
                            }
                        },
                        {}};
    m_auswahl->setSpalten(spalten);
}

void FKREditorPostenTab::aktualisiere()
{
    FKRRechnung *rechnung = m_editor.rechnung();
    m_nummerBindung->setObjekt(rechnung);
    postenTabRechnungsSummeTextField->setText(m_editor.betragsText(m_editor.zwischenSummePostenTab()));
    neuerPostenButton->setEnabled(rechnung != nullptr);

    // Items that came without a number (postenNummer 0) take their position in the list.
    qint64 position = 1;
    for (FKRPosten *einzelposten : m_editor.rechnungsPostenArrayController().arranged<FKRPosten>()) {
        if (einzelposten->postenNummer() == qint64(0))
            einzelposten->setPostenNummer(position);
        ++position;
    }
    postenTableView->viewport()->update();
}

void FKREditorPostenTab::neuerPostenButtonPressed()
{
    FKRRechnung *rechnung = m_editor.rechnung();
    if (!rechnung)
        return;
    FKRArrayController &controller = m_editor.rechnungsPostenArrayController();
    const qint64 anzahl = controller.arrangedObjects().size();
    // One of something, nameless: the fields show hints until the user writes the texts.
    auto *neu = controller.newObjectOf<FKRPosten>();
    neu->setAnzahl(Decimal(1));
    neu->setRechnung(rechnung);
    neu->setPostenNummer(anzahl + 1);
    m_editor.sichern();
    waehleAus(neu);
    aktualisiere();
    m_editor.aktualisiereRechnungsSummeBetragTab();
}

void FKREditorPostenTab::loeschePostenButtonPressed()
{
    const QList<ManagedObject *> ausgewaehlt = m_auswahl->ausgewaehlteObjekte();
    if (ausgewaehlt.isEmpty() || !m_editor.bestaetigeLoeschen())
        return;
    for (ManagedObject *einzelposten : ausgewaehlt)
        m_editor.rechnungsPostenArrayController().managedObjectContext().deleteObject(einzelposten);
    m_editor.sichern();
    aktualisiere();
    m_editor.aktualisiereRechnungsSummeBetragTab();
}

void FKREditorPostenTab::einzelpostenBetragChanged()
{
    aktualisiere();
    m_editor.aktualisiereRechnungsSummeBetragTab();
}

void FKREditorPostenTab::waehleAus(FKRPosten *einzelposten)
{
    m_auswahl->waehleAus({einzelposten});
    auswahlGeaendert();
}

void FKREditorPostenTab::auswahlGeaendert()
{
    const QList<ManagedObject *> ausgewaehlt = m_auswahl->ausgewaehlteObjekte();
    m_beschreibungBindung->setObjekt(ausgewaehlt.size() == 1 ? ausgewaehlt.first() : nullptr);
    loeschePostenButton->setEnabled(!ausgewaehlt.isEmpty());
}
