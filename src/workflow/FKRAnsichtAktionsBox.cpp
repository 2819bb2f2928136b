#include "FKRAnsichtAktionsBox.h"

#include "FKRLocalizationHelper.h"

#include <QEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QToolButton>
#include <QVBoxLayout>

FKRAnsichtAktionsBox::FKRAnsichtAktionsBox(const char *titelSchluessel, const char *tooltipSchluessel,
                                           const QIcon &symbol, QWidget *parent)
    : QFrame(parent)
    , m_titelSchluessel(titelSchluessel)
    , m_tooltipSchluessel(tooltipSchluessel)
    , m_knopf(new QToolButton(this))
    , m_label(new QLabel(this))
{
    m_knopf->setIcon(symbol);
    m_knopf->setIconSize(QSize(28, 28));
    m_knopf->setAutoRaise(true);
    m_knopf->setFocusPolicy(Qt::TabFocus);
    m_label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    m_label->setBuddy(m_knopf);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 2, 6, 2);
    layout->setSpacing(0);
    layout->addWidget(m_knopf, 0, Qt::AlignHCenter);
    layout->addWidget(m_label, 0, Qt::AlignHCenter);

    connect(m_knopf, &QToolButton::clicked, this, &FKRAnsichtAktionsBox::gedrueckt);
    setCursor(Qt::PointingHandCursor);
    uebersetze();
}

void FKRAnsichtAktionsBox::setLabelFarbe(const QColor &farbe)
{
    if (farbe == m_farbe)
        return;
    m_farbe = farbe;
    QPalette palette = m_label->palette();
    palette.setColor(QPalette::WindowText, farbe);
    m_label->setPalette(palette);
}

void FKRAnsichtAktionsBox::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        uebersetze();
    QFrame::changeEvent(event);
}

void FKRAnsichtAktionsBox::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        m_knopf->click();
    QFrame::mouseReleaseEvent(event);
}

void FKRAnsichtAktionsBox::uebersetze()
{
    const QString titel = FKRLocalizationHelper::hauptTabellenText(QString::fromUtf8(m_titelSchluessel));
    m_label->setText(titel);
    m_knopf->setAccessibleName(titel);
    m_knopf->setToolTip(m_tooltipSchluessel ? FKRLocalizationHelper::hauptTabellenText(QString::fromUtf8(m_tooltipSchluessel))
                                            : titel);
}
