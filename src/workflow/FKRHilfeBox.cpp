#include "FKRHilfeBox.h"

#include "FKRLocalizationHelper.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QVBoxLayout>

FKRHilfeBox::FKRHilfeBox(const char *textSchluessel, Optionen optionen, QWidget *parent)
    : QFrame(parent)
    , m_textSchluessel(textSchluessel)
    , m_optionen(optionen)
    , m_text(new QLabel(this))
{
    setObjectName(QStringLiteral("hilfeBox"));
    // A translucent sheet over the view, so the user still sees what the text is about.
    setAutoFillBackground(true);
    QPalette palette = this->palette();
    QColor grund = palette.color(QPalette::Window);
    grund.setAlpha(235);
    palette.setColor(QPalette::Window, grund);
    setPalette(palette);

    m_text->setWordWrap(true);
    m_text->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    // Selecting the text would swallow the click that is meant to close the panel.
    if (!(m_optionen & KlickSchliesst))
        m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto *knoepfe = new QHBoxLayout;
    knoepfe->setContentsMargins(0, 0, 0, 0);
    if (m_optionen & WebseiteLink) {
        // The web page as a link: link colour, underlined, still a button for the keyboard.
        m_webseite = new QPushButton(this);
        m_webseite->setFlat(true);
        m_webseite->setCursor(Qt::PointingHandCursor);
        QFont linkSchrift = m_webseite->font();
        linkSchrift.setUnderline(true);
        m_webseite->setFont(linkSchrift);
        QPalette linkFarbe = m_webseite->palette();
        linkFarbe.setColor(QPalette::ButtonText, linkFarbe.color(QPalette::Link));
        m_webseite->setPalette(linkFarbe);
        knoepfe->addWidget(m_webseite);
        connect(m_webseite, &QPushButton::clicked, this, &FKRHilfeBox::webseiteGewaehlt);
    }
    knoepfe->addStretch();
    m_schliessen = new QPushButton(this);
    m_schliessen->setDefault(true);
    knoepfe->addWidget(m_schliessen);
    connect(m_schliessen, &QPushButton::clicked, this, &FKRHilfeBox::schliessenGewaehlt);

    // A card of readable width in the middle of the view.
    auto *karte = new QWidget(this);
    karte->setMaximumWidth(520);
    auto *inhalt = new QVBoxLayout(karte);
    inhalt->setContentsMargins(0, 0, 0, 0);
    inhalt->setSpacing(16);
    inhalt->addWidget(m_text);
    inhalt->addLayout(knoepfe);

    auto *zeile = new QHBoxLayout;
    zeile->addStretch(1);
    zeile->addWidget(karte, 10);
    zeile->addStretch(1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(32, 32, 32, 32);
    layout->addStretch(1);
    layout->addLayout(zeile);
    layout->addStretch(2);

    uebersetze();
}

void FKRHilfeBox::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        uebersetze();
    QFrame::changeEvent(event);
}

void FKRHilfeBox::mousePressEvent(QMouseEvent *event)
{
    if (m_optionen & KlickSchliesst)
        Q_EMIT schliessenGewaehlt();
    else
        QFrame::mousePressEvent(event);
}

void FKRHilfeBox::uebersetze()
{
    m_text->setText(FKRLocalizationHelper::hauptTabellenText(QString::fromUtf8(m_textSchluessel)));
    if (m_webseite)
        m_webseite->setText(FKRLocalizationHelper::hauptTabellenText(QStringLiteral("ANSICHT_WEBSEITE")));
    m_schliessen->setText(FKRLocalizationHelper::hauptTabellenText(QStringLiteral("BUTTON_TITLE_CLOSE")));
}
