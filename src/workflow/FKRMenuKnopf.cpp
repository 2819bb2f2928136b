#include "FKRMenuKnopf.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace {

QLabel *feld(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setAlignment(Qt::AlignCenter);
    // Clicks land on the button beneath.
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    // Inside a button a label would take the button's text role; the menu sets the window text.
    label->setForegroundRole(QPalette::WindowText);
    return label;
}

void setzeFarbe(QLabel *label, const QColor &farbe)
{
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, farbe);
    label->setPalette(palette);
}

} // namespace

FKRMenuKnopf::FKRMenuKnopf(const QString &glyphe, const QString &titel, const QFont &iconSchrift, QWidget *parent)
    : QAbstractButton(parent)
{
    setText(titel);
    setAccessibleName(titel);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);

    m_icon = feld(glyphe, this);
    m_icon->setFont(iconSchrift);
    m_label = feld(titel, this);
    m_label->setWordWrap(true);
    QFont labelSchrift = font();
    labelSchrift.setBold(true);
    m_label->setFont(labelSchrift);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 8, 4, 8);
    layout->setSpacing(2);
    layout->addWidget(m_icon);
    layout->addWidget(m_label);
    setTextFarbe(Qt::white);
}

void FKRMenuKnopf::setTextFarbe(const QColor &farbe)
{
    setzeFarbe(m_icon, farbe);
    setzeFarbe(m_label, farbe);
}

QColor FKRMenuKnopf::textFarbe() const
{
    return m_label->palette().color(QPalette::WindowText);
}

QSize FKRMenuKnopf::sizeHint() const
{
    return layout() ? layout()->sizeHint() : QAbstractButton::sizeHint();
}

void FKRMenuKnopf::paintEvent(QPaintEvent *)
{
    // The menu paints the accent colour; the button only lightens it under the mouse or while
    // pressed, and marks the keyboard focus.
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF flaeche = QRectF(rect()).adjusted(3, 2, -3, -2);
    if (isDown() || m_unterMaus) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(255, 255, 255, isDown() ? 70 : 35));
        painter.drawRoundedRect(flaeche, 6, 6);
    }
    if (hasFocus()) {
        painter.setPen(QPen(QColor(255, 255, 255, 200), 1.5, Qt::DashLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(flaeche, 6, 6);
    }
}

void FKRMenuKnopf::keyPressEvent(QKeyEvent *event)
{
    // Space is the button's own key; Return and Enter press it as well.
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && !event->isAutoRepeat()) {
        click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

void FKRMenuKnopf::enterEvent(QEnterEvent *event)
{
    m_unterMaus = true;
    update();
    QAbstractButton::enterEvent(event);
}

void FKRMenuKnopf::leaveEvent(QEvent *event)
{
    m_unterMaus = false;
    update();
    QAbstractButton::leaveEvent(event);
}
