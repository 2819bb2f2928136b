#include "FKRZeilenAktionen.h"

#include "FKRLocalizationHelper.h"
#include "QBMStyleUtil.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScrollBar>

namespace {

QPushButton *aktionsKnopf(const QString &titel, const QColor &hintergrund, QWidget *parent)
{
    auto *knopf = new QPushButton(titel, parent);
    // Only the mouse reaches these buttons; the keyboard has the context menu and the Delete key.
    knopf->setFocusPolicy(Qt::NoFocus);
    knopf->setCursor(Qt::PointingHandCursor);
    knopf->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding); // the full row height
    knopf->setStyleSheet(QStringLiteral("QPushButton { background-color: %1; color: white; border: none;"
                                        " padding: 0 10px; font-weight: bold; }"
                                        "QPushButton:pressed { background-color: %2; }")
                             .arg(hintergrund.name(), hintergrund.darker(125).name()));
    return knopf;
}

} // namespace

FKRZeilenAktionen::FKRZeilenAktionen(QAbstractItemView *tabelle)
    : QWidget(tabelle->viewport())
    , m_tabelle(tabelle)
{
    m_duplizieren = aktionsKnopf(FKRLocalizationHelper::hauptTabellenText(QStringLiteral("BUTTON_TITLE_DUPLIZIEREN")),
                                 QBMStyleUtil::mittelGrau(), this);
    // The destructive action in the red of warnings.
    m_loeschen = aktionsKnopf(FKRLocalizationHelper::hauptTabellenText(QStringLiteral("BUTTON_TITLE_DELETE")),
                              QColor(215, 40, 30), this);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_duplizieren);
    layout->addWidget(m_loeschen);
    hide();

    connect(m_duplizieren, &QPushButton::clicked, this, [this] {
        if (m_zeile >= 0)
            Q_EMIT duplizierenGewaehlt(m_zeile);
    });
    connect(m_loeschen, &QPushButton::clicked, this, [this] {
        if (m_zeile >= 0)
            Q_EMIT loeschenGewaehlt(m_zeile);
    });

    m_tabelle->setMouseTracking(true);
    m_tabelle->viewport()->installEventFilter(this);
    connect(m_tabelle, &QAbstractItemView::entered, this,
            [this](const QModelIndex &index) { zeigeAufZeile(index.isValid() ? index.row() : -1); });
    // Rows move under the buttons on scrolling and rebuilds; they come back with the next move.
    connect(m_tabelle->verticalScrollBar(), &QScrollBar::valueChanged, this, &FKRZeilenAktionen::verstecke);
}

void FKRZeilenAktionen::zeigeAufZeile(int zeile)
{
    QAbstractItemModel *model = m_tabelle->model();
    const QModelIndex index = (model && zeile >= 0) ? model->index(zeile, 0) : QModelIndex();
    const QRect rechteck = index.isValid() ? m_tabelle->visualRect(index) : QRect();
    if (!rechteck.isValid()) {
        m_zeile = -1;
        hide();
        return;
    }
    m_zeile = zeile;
    const int breite = sizeHint().width();
    setGeometry(rechteck.right() + 1 - breite, rechteck.top(), breite, rechteck.height());
    show();
    raise();
}

bool FKRZeilenAktionen::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_tabelle->viewport() && event->type() == QEvent::Leave)
        verstecke();
    return QWidget::eventFilter(watched, event);
}
