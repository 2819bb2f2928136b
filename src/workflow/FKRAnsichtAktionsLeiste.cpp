#include "FKRAnsichtAktionsLeiste.h"

#include "FKRAnsichtAktionsBox.h"
#include "FKRLocalizationHelper.h"

#include <QDateTimeEdit>
#include <QEvent>
#include <QHBoxLayout>
#include <QStyle>

namespace {

QIcon symbol(const QWidget &widget, const char *themenName, QStyle::StandardPixmap ersatz)
{
    return QIcon::fromTheme(QString::fromLatin1(themenName), widget.style()->standardIcon(ersatz));
}

void setzeSichtbar(QWidget *widget, bool sichtbar)
{
    if (widget->isHidden() == sichtbar)
        widget->setVisible(sichtbar);
}

} // namespace

const QColor FKRAnsichtAktionsLeiste::kOffenerSchritt(235, 10, 0);
const QColor FKRAnsichtAktionsLeiste::kErledigterSchritt(0, 0, 0, 102);

FKRAnsichtAktionsLeiste::FKRAnsichtAktionsLeiste(QWidget *parent)
    : QWidget(parent)
    , m_versendet(new FKRAnsichtAktionsBox(QT_TRANSLATE_NOOP("Velmora", "ANSICHT_VERSENDET"),
                                           QT_TRANSLATE_NOOP("Velmora", "ANSICHT_TOOLTIP_VERSENDET"),
                                           symbol(*this, "mail-send", QStyle::SP_ArrowForward), this))
    , m_bezahlt(new FKRAnsichtAktionsBox(QT_TRANSLATE_NOOP("Velmora", "ANSICHT_BEZAHLT"),
                                         QT_TRANSLATE_NOOP("Velmora", "ANSICHT_TOOLTIP_BEZAHLT"),
                                         symbol(*this, "emblem-default", QStyle::SP_DialogApplyButton), this))
    , m_bezahltDatePicker(new QDateTimeEdit(this))
    , m_unbezahlt(new FKRAnsichtAktionsBox(QT_TRANSLATE_NOOP("Velmora", "ANSICHT_UNBEZAHLT"),
                                           QT_TRANSLATE_NOOP("Velmora", "ANSICHT_TOOLTIP_UNBEZAHLT"),
                                           symbol(*this, "edit-undo", QStyle::SP_ArrowBack), this))
    , m_mahnung(new FKRAnsichtAktionsBox(QT_TRANSLATE_NOOP("Velmora", "ANSICHT_MAHNUNG"),
                                         QT_TRANSLATE_NOOP("Velmora", "ANSICHT_TOOLTIP_MAHNUNG"),
                                         symbol(*this, "dialog-warning", QStyle::SP_MessageBoxWarning), this))
    , m_duplizieren(new FKRAnsichtAktionsBox(QT_TRANSLATE_NOOP("Velmora", "BUTTON_TITLE_DUPLIZIEREN"), nullptr,
                                             symbol(*this, "edit-copy", QStyle::SP_FileIcon), this))
    , m_sichern(new FKRAnsichtAktionsBox(QT_TRANSLATE_NOOP("Velmora", "ANSICHT_ALS_PDF_SICHERN"), nullptr,
                                         symbol(*this, "document-save-as", QStyle::SP_DialogSaveButton), this))
    , m_drucken(new FKRAnsichtAktionsBox(QT_TRANSLATE_NOOP("Velmora", "ANSICHT_DRUCKEN"), nullptr,
                                         symbol(*this, "document-print", QStyle::SP_FileDialogDetailedView), this))
{
    m_bezahltDatePicker->setCalendarPopup(true);
    m_bezahltDatePicker->setToolTip(FKRLocalizationHelper::hauptTabellenText(QStringLiteral("ANSICHT_BEZAHLT_AM")));

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 4, 8, 4);
    layout->addWidget(m_versendet);
    layout->addWidget(m_bezahlt);
    layout->addWidget(m_bezahltDatePicker, 0, Qt::AlignVCenter);
    layout->addWidget(m_unbezahlt);
    layout->addStretch();
    layout->addWidget(m_mahnung);
    layout->addWidget(m_duplizieren);
    layout->addWidget(m_sichern);
    layout->addWidget(m_drucken);
    // The row keeps its height when no action is offered, so the PDF does not jump.
    setMinimumHeight(m_versendet->sizeHint().height() + layout->contentsMargins().top()
                     + layout->contentsMargins().bottom());
}

void FKRAnsichtAktionsLeiste::zeige(const Zustand &zustand)
{
    m_mahnung->setLabelFarbe(kOffenerSchritt);
    m_versendet->setLabelFarbe(zustand.versendetErledigt ? kErledigterSchritt : kOffenerSchritt);
    m_bezahlt->setLabelFarbe(zustand.bezahltErledigt ? kErledigterSchritt : kOffenerSchritt);
    setzeSichtbar(m_mahnung, zustand.mahnung);
    setzeSichtbar(m_bezahlt, zustand.bezahlt);
    setzeSichtbar(m_bezahltDatePicker, zustand.bezahltDatum);
    setzeSichtbar(m_unbezahlt, zustand.bezahltErledigt);
    for (FKRAnsichtAktionsBox *box : {m_versendet, m_duplizieren, m_sichern, m_drucken})
        setzeSichtbar(box, zustand.dokument);
}

void FKRAnsichtAktionsLeiste::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        m_bezahltDatePicker->setToolTip(FKRLocalizationHelper::hauptTabellenText(QStringLiteral("ANSICHT_BEZAHLT_AM")));
    QWidget::changeEvent(event);
}
