#include "FKRImageView.h"

#include "FKRAbsender.h"
#include "FKRAlertPresenter.h"
#include "FKRAppDelegate.h"
#include "FKRBildLeser.h"
#include "FKRLocalizationHelper.h"

#include <QApplication>
#include <QDrag>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QImageReader>
#include <QMimeData>
#include <QStandardPaths>

const QString FKRImageView::kSlotMimeType = QStringLiteral("application/x-velmora-bildfeld");

namespace {

QString platzhalter()
{
    return FKRLocalizationHelper::hauptTabellenText(QStringLiteral("EDITOR_BILD_HIERHER_ZIEHEN"));
}

std::optional<QUrl> ersteDatei(const QMimeData &daten)
{
    for (const QUrl &url : daten.urls())
        if (url.isLocalFile())
            return url;
    return std::nullopt;
}

} // namespace

const QStringList &FKRImageView::akzeptierteEndungen()
{
    static const QStringList typen{QStringLiteral("jpg"), QStringLiteral("jpeg"), QStringLiteral("png"),
                                   QStringLiteral("tif"), QStringLiteral("tiff")};
    return typen;
}

bool FKRImageView::istAkzeptierterDateiTyp(const QUrl &datei)
{
    const QString endung = QFileInfo(datei.path()).suffix().toLower();
    return !endung.isEmpty() && akzeptierteEndungen().contains(endung);
}

QSizeF FKRImageView::groesseInPunkten(const QImage &bild)
{
    return FKRBildLeser::groesseInPunkten(bild);
}

FKRImageView::FKRImageView(FKRAppDelegate &delegate, QWidget *parent)
    : QLabel(parent)
    , m_delegate(delegate)
{
    setAcceptDrops(true);
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    setFrameShape(QFrame::StyledPanel);
    setFrameShadow(QFrame::Sunken);
    setFocusPolicy(Qt::StrongFocus);
    // The image follows the slot's size, never the other way round.
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    setMinimumSize(140, 90);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    setAbsender(nullptr);
    zeige(QImage());
}

FKRAbsender *FKRImageView::absender() const
{
    return m_absender;
}

void FKRImageView::setAbsender(FKRAbsender *absender)
{
    if (absender != m_absender)
        m_quelle.reset();
    m_absender = absender;
    setEnabled(absender != nullptr);
}

void FKRImageView::zeigeGespeichertesBild()
{
    if (!m_absender) {
        m_quelle.reset();
        zeige(QImage());
        return;
    }
    Quelle quelle{gespeicherteBytes(*m_absender), std::nullopt};
    if (!quelle.bytes)
        quelle.pfad = gespeicherterPfad(*m_absender);
    if (m_quelle == quelle)
        return;
    m_quelle = quelle;
    FKRBildLeser::Ergebnis gelesen;
    if (quelle.bytes) {
        gelesen = FKRBildLeser::lies(*quelle.bytes);
    } else if (quelle.pfad) {
        const QUrl ort(*quelle.pfad, QUrl::StrictMode);
        if (ort.isValid() && ort.isLocalFile())
            gelesen = FKRBildLeser::liesDatei(ort.toLocalFile());
    }
    zeige(gelesen.bild);
    // An image stored before the bounds (an older version, a restored backup) is not decoded; the
    // slot says so, and the image can be replaced or deleted like any other.
    if (gelesen.zuGross()) {
        m_zuGross = true;
        setText(FKRLocalizationHelper::hauptTabellenText(QStringLiteral("EDITOR_BILD_ZU_GROSS")));
    }
}

void FKRImageView::waehleBildDatei()
{
    if (!m_absender)
        return;
    const QStringList dateien = m_delegate.presenter().waehleDateien(
        QStandardPaths::writableLocation(QStandardPaths::PicturesLocation),
        QString::fromLatin1(QT_TRANSLATE_NOOP("Velmora", "PANEL_TEXT_BILD_WAEHLEN")), QString(),
        {QString::fromLatin1(QT_TRANSLATE_NOOP("Velmora", "PANEL_FILTER_BILDER")), akzeptierteEndungen()});
    if (!dateien.isEmpty())
        uebernehmeDatei(QUrl::fromLocalFile(dateien.first()));
}

bool FKRImageView::uebernehmeDatei(const QUrl &datei)
{
    if (!m_absender || !datei.isLocalFile())
        return false;
    if (!istAkzeptierterDateiTyp(datei)) {
        zeigeWarnung(typWarnungsSchluessel());
        return false;
    }
    // Read as the documents read it, within the same bounds: a file beyond them is not read, a
    // picture beyond them not decoded.
    const FKRBildLeser::Ergebnis gelesen = FKRBildLeser::liesDatei(datei.toLocalFile());
    if (gelesen.zuGross()) {
        zeigeWarnung(QString::fromLatin1(QT_TRANSLATE_NOOP("Velmora", "ALERT_TEXT_BILD_ZU_GROSS")));
        return false;
    }
    if (!gelesen.gelesen()) {
        zeigeWarnung(typWarnungsSchluessel());
        return false;
    }
    if (!pruefeBild(gelesen.bild) || !speichereBytes(*m_absender, datei))
        return false;
    m_imageFileURL = datei;
    m_quelle = Quelle{gespeicherteBytes(*m_absender), std::nullopt};
    zeige(gelesen.bild);
    m_delegate.saveAction();
    Q_EMIT bildGespeichert();
    return true;
}

QString FKRImageView::typWarnungsSchluessel() const
{
    return QString::fromLatin1(QT_TRANSLATE_NOOP("Velmora", "ALERT_TEXT_IMAGETYPE_IMPORT_WARNING"));
}

bool FKRImageView::pruefeBild(const QImage &)
{
    return true;
}

void FKRImageView::zeigeWarnung(const QString &textSchluessel)
{
    m_delegate.presenter().zeigeAlert({QString::fromLatin1(QT_TRANSLATE_NOOP("Velmora", "ALERT_TITLE_HINWEIS")),
                                       textSchluessel,
                                       {QString::fromLatin1(QT_TRANSLATE_NOOP("Velmora", "BUTTON_TITLE_OK"))},
                                       FKRAlert::Stil::Warnung});
}

bool FKRImageView::kommtVonGleicherArt(const QMimeData &daten) const
{
    return daten.hasFormat(kSlotMimeType) && daten.data(kSlotMimeType) == metaObject()->className();
}

void FKRImageView::dragEnterEvent(QDragEnterEvent *event)
{
    const QMimeData *daten = event->mimeData();
    if (m_absender && daten && !kommtVonGleicherArt(*daten) && ersteDatei(*daten)) {
        setzeHervorhebung(true);
        event->acceptProposedAction();
    } else {
        event->ignore();
    }
}

void FKRImageView::dragMoveEvent(QDragMoveEvent *event)
{
    const QMimeData *daten = event->mimeData();
    if (m_absender && daten && !kommtVonGleicherArt(*daten) && ersteDatei(*daten))
        event->acceptProposedAction();
    else
        event->ignore();
}

void FKRImageView::dragLeaveEvent(QDragLeaveEvent *event)
{
    setzeHervorhebung(false);
    QLabel::dragLeaveEvent(event);
}

void FKRImageView::dropEvent(QDropEvent *event)
{
    setzeHervorhebung(false);
    event->ignore();
    const QMimeData *daten = event->mimeData();
    if (!daten || kommtVonGleicherArt(*daten))
        return;
    // Only a file that holds an image is looked at further; its type is checked next.
    const std::optional<QUrl> datei = ersteDatei(*daten);
    if (!datei || !QImageReader(datei->toLocalFile()).canRead())
        return;
    if (uebernehmeDatei(*datei)) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    }
}

void FKRImageView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        m_druckPunkt = event->position().toPoint();
    QLabel::mousePressEvent(event);
}

void FKRImageView::mouseMoveEvent(QMouseEvent *event)
{
    if (!(event->buttons() & Qt::LeftButton) || m_bild.isNull()
        || (event->position().toPoint() - m_druckPunkt).manhattanLength() < QApplication::startDragDistance()) {
        QLabel::mouseMoveEvent(event);
        return;
    }
    auto *daten = new QMimeData;
    daten->setImageData(m_bild);
    daten->setData(kSlotMimeType, metaObject()->className());
    if (m_imageFileURL)
        daten->setUrls({*m_imageFileURL});
    auto *drag = new QDrag(this);
    drag->setMimeData(daten);
    drag->setPixmap(QPixmap::fromImage(m_bild.scaled(96, 96, Qt::KeepAspectRatio, Qt::SmoothTransformation)));
    drag->exec(Qt::CopyAction);
}

void FKRImageView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace) {
        Q_EMIT loeschenAngefordert();
        event->accept();
        return;
    }
    QLabel::keyPressEvent(event);
}

void FKRImageView::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    skaliere();
}

void FKRImageView::zeige(const QImage &bild)
{
    m_bild = bild;
    m_zuGross = false;
    if (m_bild.isNull()) {
        setPixmap(QPixmap());
        setText(platzhalter());
        return;
    }
    skaliere();
}

void FKRImageView::skaliere()
{
    if (m_bild.isNull())
        return;
    const QSize platz = contentsRect().size();
    // Shrunk to fit, never enlarged.
    const QImage gezeigt = m_bild.width() > platz.width() || m_bild.height() > platz.height()
                               ? m_bild.scaled(platz, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                               : m_bild;
    setPixmap(QPixmap::fromImage(gezeigt));
}

void FKRImageView::setzeHervorhebung(bool an)
{
    setBackgroundRole(an ? QPalette::Highlight : QPalette::Base);
}
