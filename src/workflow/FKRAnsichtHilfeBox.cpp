#include "FKRAnsichtHilfeBox.h"

#include "FKRLocalizationHelper.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

FKRAnsichtHilfeBox::FKRAnsichtHilfeBox(QWidget *parent)
    : QFrame(parent)
    , m_text(new QLabel(this))
    , m_webseite(new QPushButton(this))
    , m_schliessen(new QPushButton(this))
{
    setObjectName(QStringLiteral("hilfeBox"));
    // A translucent sheet over the PDF, so the user still sees what the text is about.
    setAutoFillBackground(true);
    QPalette palette = this->palette();
    QColor grund = palette.color(QPalette::Window);
    grund.setAlpha(235);
    palette.setColor(QPalette::Window, grund);
    setPalette(palette);

    m_text->setWordWrap(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // The web page as a link: link colour, underlined, still a button for the keyboard.
    m_webseite->setFlat(true);
    m_webseite->setCursor(Qt::PointingHandCursor);
    QFont linkSchrift = m_webseite->font();
    linkSchrift.setUnderline(true);
    m_webseite->setFont(linkSchrift);
    QPalette linkFarbe = m_webseite->palette();
    linkFarbe.setColor(QPalette::ButtonText, linkFarbe.color(QPalette::Link));
    m_webseite->setPalette(linkFarbe);
    m_schliessen->setDefault(true);

    // A card of readable width in the middle of the view.
    auto *karte = new QWidget(this);
    karte->setMaximumWidth(520);
    auto *knoepfe = new QHBoxLayout;
    knoepfe->setContentsMargins(0, 0, 0, 0);
    knoepfe->addWidget(m_webseite);
    knoepfe->addStretch();
    knoepfe->addWidget(m_schliessen);
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

    connect(m_schliessen, &QPushButton::clicked, this, &FKRAnsichtHilfeBox::schliessenGewaehlt);
    connect(m_webseite, &QPushButton::clicked, this, &FKRAnsichtHilfeBox::webseiteGewaehlt);
    uebersetze();
}

void FKRAnsichtHilfeBox::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        uebersetze();
    QFrame::changeEvent(event);
}

void FKRAnsichtHilfeBox::uebersetze()
{
    m_text->setText(FKRLocalizationHelper::hauptTabellenText(QStringLiteral("HILFE_TEXT_RECHNUNGSANSICHT")));
    m_webseite->setText(FKRLocalizationHelper::hauptTabellenText(QStringLiteral("ANSICHT_WEBSEITE")));
    m_schliessen->setText(FKRLocalizationHelper::hauptTabellenText(QStringLiteral("BUTTON_TITLE_CLOSE")));
}
