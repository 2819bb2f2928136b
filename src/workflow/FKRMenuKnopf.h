#pragma once

#include <QAbstractButton>

class QLabel;

// One entry of the navigation menu: an icon glyph above a short label, on the menu's accent
// colour. A real button: it takes the keyboard focus and is pressed with Space or Return.
class FKRMenuKnopf : public QAbstractButton
{
    Q_OBJECT

public:
    FKRMenuKnopf(const QString &glyphe, const QString &titel, const QFont &iconSchrift, QWidget *parent = nullptr);

    QLabel *iconTextField() const { return m_icon; }
    QLabel *labelTextField() const { return m_label; }
    // The colour of glyph and label.
    void setTextFarbe(const QColor &farbe);
    QColor textFarbe() const;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    QLabel *m_icon;
    QLabel *m_label;
    bool m_unterMaus = false;
};
