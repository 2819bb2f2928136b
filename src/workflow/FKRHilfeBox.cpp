#include "FKRHilfeBox.h"

#include "FKRLocalizationHelper.h"
#include "QBBenutzerEinstellungen.h"

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
    , m_karte(new QFrame(this))
    , m_text(new QLabel(m_karte))
{
    setObjectName(QStringLiteral("hilfeBox"));
    // Only the card is drawn and takes clicks (the mask follows it); the view around it is not
    // dimmed, so the user sees what the text is about and can go on working with it.
    setAutoFillBackground(false);
    m_karte->setObjectName(QStringLiteral("hilfeKarte"));
    m_karte->setFrameShape(QFrame::StyledPanel);
    m_karte->setAutoFillBackground(true);
    m_karte->setMaximumWidth(520);
    m_karte->installEventFilter(this);

    m_text->setWordWrap(true);
    m_text->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    // Selecting the text would swallow the click that is meant to close the panel.
    if (!(m_optionen & KlickSchliesst))
        m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto *knoepfe = new QHBoxLayout;
    knoepfe->setContentsMargins(0, 0, 0, 0);
    if (m_optionen & WebseiteLink) {
        // The web page as a link: link colour, underlined, still a button for the keyboard.
        m_webseite = new QPushButton(m_karte);
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
    m_schliessen = new QPushButton(m_karte);
    m_schliessen->setDefault(true);
    knoepfe->addWidget(m_schliessen);
    connect(m_schliessen, &QPushButton::clicked, this, &FKRHilfeBox::schliessen);

    // A card of readable width at the foot of the view, where it hides the least.
    auto *inhalt = new QVBoxLayout(m_karte);
    inhalt->setContentsMargins(16, 16, 16, 16);
    inhalt->setSpacing(16);
    inhalt->addWidget(m_text);
    inhalt->addLayout(knoepfe);

    auto *zeile = new QHBoxLayout;
    zeile->addStretch(1);
    zeile->addWidget(m_karte, 10);
    zeile->addStretch(1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->addStretch(1);
    layout->addLayout(zeile);

    uebersetze();
}

bool FKRHilfeBox::erscheintBeimStart()
{
    return QBBenutzerEinstellungen::sharedInstance()->zeigeErklaerungstexte();
}

void FKRHilfeBox::merkeGeschlossen()
{
    QBBenutzerEinstellungen *einstellungen = QBBenutzerEinstellungen::sharedInstance();
    if (!einstellungen->zeigeErklaerungstexte())
        return;
    einstellungen->setZeigeErklaerungstexte(false);
    einstellungen->sichereBenutzerEinstellungen();
}

void FKRHilfeBox::schliessen()
{
    merkeGeschlossen();
    Q_EMIT schliessenGewaehlt();
}

bool FKRHilfeBox::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_karte && (event->type() == QEvent::Resize || event->type() == QEvent::Move))
        setMask(m_karte->geometry());
    return QFrame::eventFilter(watched, event);
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
        schliessen();
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
