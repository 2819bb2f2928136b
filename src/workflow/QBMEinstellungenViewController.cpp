#include "QBMEinstellungenViewController.h"

#include "FKRAppDelegate.h"
#include "FKRDatenbankImport.h"
#include "FKRLocalizationHelper.h"
#include "FKRSyncKoordinator.h"
#include "QBBenutzerEinstellungen.h"
#include "QBMStyleUtil.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QShowEvent>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {
QString text(const char *schluessel)
{
    return FKRLocalizationHelper::hauptTabellenText(QString::fromUtf8(schluessel));
}

// The version the screen shows; the program's own version bookkeeping counts from it too.
constexpr char kVersion[] = "3.13";
} // namespace

QBMEinstellungenViewController::QBMEinstellungenViewController(FKRAppDelegate &delegate, QWidget *parent,
                                                               QBBenutzerEinstellungen *einstellungen)
    : QWidget(parent)
    , m_delegate(delegate)
    , m_einstellungen(einstellungen ? *einstellungen : *QBBenutzerEinstellungen::sharedInstance())
{
    setWindowTitle(text("EINSTELLUNGEN_TITEL"));
    baueOberflaeche();
}

QBMEinstellungenViewController::~QBMEinstellungenViewController() = default;

const QList<int> &QBMEinstellungenViewController::farbCodes()
{
    static const QList<int> codes{3, 2, 43, 53, 23, 33, 13, 63};
    return codes;
}

void QBMEinstellungenViewController::baueOberflaeche()
{
    m_a4 = new QCheckBox(text("EINSTELLUNGEN_DOKUMENTE_IN_A4"));
    m_mitteilungen = new QCheckBox(text("EINSTELLUNGEN_KEINE_FAELLIGKEITS_MITTEILUNGEN"));
    m_sync = new QCheckBox(text("EINSTELLUNGEN_SYNC"));
    // The check boxes write the setting the way a binding would, then the action persists it.
    connect(m_a4, &QCheckBox::clicked, this, [this](bool an) {
        m_einstellungen.setPdfDocumentSizeIsLetter(!an);
        dokumenteInA4Selected();
    });
    connect(m_mitteilungen, &QCheckBox::clicked, this, [this](bool an) {
        m_einstellungen.setDeaktiviereFaelligeRechnungsMitteilungen(an);
        deaktiviereFaelligeRechnungsMitteilungenSelected();
    });
    connect(m_sync, &QCheckBox::clicked, this, [this](bool an) {
        m_einstellungen.setVerwendeiCloudSync(an);
        verwendeIcloudSyncSelected();
    });

    m_zahlungsfrist = new QSpinBox;
    m_zahlungsfrist->setRange(QBBenutzerEinstellungen::kMinZahlungsfristTage, QBBenutzerEinstellungen::kMaxZahlungsfristTage);
    m_zahlungsfrist->setSuffix(text("EINSTELLUNGEN_TAGE_EINHEIT"));
    connect(m_zahlungsfrist, &QSpinBox::valueChanged, this, &QBMEinstellungenViewController::mahnungZahlungsfristSelected);
    auto *frist = new QHBoxLayout;
    auto *fristLabel = new QLabel(text("EINSTELLUNGEN_MAHNUNG_ZAHLUNGSFRIST"));
    fristLabel->setBuddy(m_zahlungsfrist);
    frist->addWidget(fristLabel);
    frist->addWidget(m_zahlungsfrist);
    frist->addStretch(1);

    auto *dokumente = new QGroupBox(text("EINSTELLUNGEN_GRUPPE_DOKUMENTE"));
    auto *dokumenteLayout = new QVBoxLayout(dokumente);
    dokumenteLayout->addWidget(m_a4);
    dokumenteLayout->addWidget(m_mitteilungen);
    dokumenteLayout->addWidget(m_sync);
    dokumenteLayout->addLayout(frist);

    auto *farbe = new QGroupBox(text("EINSTELLUNGEN_GRUPPE_FARBE"));
    auto *farbeLayout = new QVBoxLayout(farbe);
    farbeLayout->addWidget(baueSwatches());

    auto *daten = new QGroupBox(text("EINSTELLUNGEN_GRUPPE_DATENBANK"));
    auto *datenLayout = new QVBoxLayout(daten);
    auto *hinweis = new QLabel(text("EINSTELLUNGEN_IMPORT_HINWEIS"));
    hinweis->setWordWrap(true);
    m_importButton = new QPushButton(text("EINSTELLUNGEN_IMPORT_BUTTON"));
    connect(m_importButton, &QPushButton::clicked, this, &QBMEinstellungenViewController::datenbankImportButtonSelected);
    m_spinner = new QWidget;
    auto *spinnerLayout = new QHBoxLayout(m_spinner);
    spinnerLayout->setContentsMargins(0, 0, 0, 0);
    m_progressIndicator = new QProgressBar;
    m_progressIndicator->setRange(0, 0); // busy: the import cannot say how far it is
    m_progressIndicator->setTextVisible(false);
    spinnerLayout->addWidget(new QLabel(text("STATUS_IMPORT_LAEUFT")));
    spinnerLayout->addWidget(m_progressIndicator, 1);
    m_spinner->hide();
    datenLayout->addWidget(hinweis);
    datenLayout->addWidget(m_importButton, 0, Qt::AlignLeft);
    datenLayout->addWidget(m_spinner);

    m_version = new QLabel;
    m_version->setAlignment(Qt::AlignRight);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(dokumente);
    layout->addWidget(farbe);
    layout->addWidget(daten);
    layout->addStretch(1);
    layout->addWidget(m_version);
}

QWidget *QBMEinstellungenViewController::baueSwatches()
{
    auto *leiste = new QWidget;
    auto *layout = new QHBoxLayout(leiste);
    layout->setContentsMargins(0, 0, 0, 0);
    static const char *const namen[] = {
        QT_TRANSLATE_NOOP("Velmora", "FARBE_GRAU"),   QT_TRANSLATE_NOOP("Velmora", "FARBE_DUNKELGRAU"),
        QT_TRANSLATE_NOOP("Velmora", "FARBE_ROT"),    QT_TRANSLATE_NOOP("Velmora", "FARBE_ORANGE"),
        QT_TRANSLATE_NOOP("Velmora", "FARBE_GELB"),   QT_TRANSLATE_NOOP("Velmora", "FARBE_GRUEN"),
        QT_TRANSLATE_NOOP("Velmora", "FARBE_BLAU"),   QT_TRANSLATE_NOOP("Velmora", "FARBE_VIOLETT")};
    for (int i = 0; i < farbCodes().size(); ++i) {
        auto *knopf = new QPushButton;
        const QColor farbe = QBMStyleUtil::farbeFuerCode(farbCodes().at(i)).value_or(QBMStyleUtil::mittelGrau());
        knopf->setFixedSize(36, 36);
        knopf->setCheckable(true);
        knopf->setToolTip(text(namen[i]));
        knopf->setAccessibleName(text(namen[i]));
        knopf->setStyleSheet(QStringLiteral("QPushButton { background: %1; border: 2px solid palette(base); border-radius: 18px; }"
                                            "QPushButton:checked, QPushButton:focus { border: 3px solid palette(text); }")
                                 .arg(farbe.name()));
        connect(knopf, &QPushButton::clicked, this, [this, i] { appColorSelected(i + 1); });
        layout->addWidget(knopf);
        m_swatches.append(knopf);
    }
    layout->addStretch(1);
    return leiste;
}

QPushButton *QBMEinstellungenViewController::swatch(int nummer) const
{
    return nummer >= 1 && nummer <= m_swatches.size() ? m_swatches.at(nummer - 1) : nullptr;
}

void QBMEinstellungenViewController::showEvent(QShowEvent *event)
{
    m_version->setText(QStringLiteral("v %1").arg(QLatin1String(kVersion)));
    zeigeEinstellungen();
    QWidget::showEvent(event);
}

void QBMEinstellungenViewController::zeigeEinstellungen()
{
    m_a4->setChecked(!m_einstellungen.pdfDocumentSizeIsLetter());
    m_mitteilungen->setChecked(m_einstellungen.deaktiviereFaelligeRechnungsMitteilungen());
    m_sync->setChecked(m_einstellungen.verwendeiCloudSync());
    {
        const QSignalBlocker still(m_zahlungsfrist);
        m_zahlungsfrist->setValue(m_einstellungen.mahnungZahlungsfristTage());
    }
    const Decimal code = m_einstellungen.backgroundColorRechnungen();
    for (int i = 0; i < m_swatches.size(); ++i)
        m_swatches.at(i)->setChecked(code == Decimal(farbCodes().at(i)));
}

void QBMEinstellungenViewController::appColorSelected(int swatch)
{
    if (swatch < 1 || swatch > farbCodes().size())
        return;
    // The menu listens to the setting and repaints at once.
    m_einstellungen.setBackgroundColorRechnungen(Decimal(farbCodes().at(swatch - 1)));
    m_einstellungen.sichereBenutzerEinstellungen();
    zeigeEinstellungen();
}

void QBMEinstellungenViewController::dokumenteInA4Selected()
{
    m_einstellungen.sichereBenutzerEinstellungen();
}

void QBMEinstellungenViewController::deaktiviereFaelligeRechnungsMitteilungenSelected()
{
    m_einstellungen.sichereBenutzerEinstellungen();
}

void QBMEinstellungenViewController::verwendeIcloudSyncSelected()
{
    // Switched off: withdraw the store first; the sync step then sees the new setting.
    if (!m_einstellungen.verwendeiCloudSync())
        m_delegate.syncKoordinator().trenneSyncMitAbschluss([] {});
    m_delegate.synchronisiere();
    m_einstellungen.sichereBenutzerEinstellungen();
}

void QBMEinstellungenViewController::mahnungZahlungsfristSelected(int tage)
{
    m_einstellungen.setMahnungZahlungsfristTage(tage);
    m_einstellungen.sichereBenutzerEinstellungen();
}

FKRDatenbankImport &QBMEinstellungenViewController::datenbankImport()
{
    if (!m_import) {
        m_import = new FKRDatenbankImport(m_delegate, this);
        connect(m_import, &FKRDatenbankImport::fortschrittSichtbar, this, [this](bool sichtbar) {
            m_spinner->setVisible(sichtbar);
            m_importButton->setEnabled(!sichtbar);
        });
    }
    return *m_import;
}

void QBMEinstellungenViewController::datenbankImportButtonSelected()
{
    datenbankImport().datenbankImportButtonSelected();
}
