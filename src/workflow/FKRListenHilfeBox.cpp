#include "FKRListenHilfeBox.h"

#include "FKRLocalizationHelper.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

FKRListenHilfeBox::FKRListenHilfeBox(QWidget *parent)
    : QFrame(parent)
{
    setAutoFillBackground(true);
    setFrameShape(QFrame::StyledPanel);
    auto *text = new QLabel(FKRLocalizationHelper::hauptTabellenText(QStringLiteral("HILFE_TEXT_RECHNUNGSLISTE")), this);
    text->setWordWrap(true);
    text->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_schliessen = new QPushButton(FKRLocalizationHelper::hauptTabellenText(QStringLiteral("BUTTON_TITLE_CLOSE")), this);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 20, 20, 20);
    layout->setSpacing(16);
    layout->addWidget(text);
    layout->addWidget(m_schliessen, 0, Qt::AlignRight);
    layout->addStretch(1);
    connect(m_schliessen, &QPushButton::clicked, this, &QWidget::hide);
}

void FKRListenHilfeBox::mousePressEvent(QMouseEvent *)
{
    hide();
}
