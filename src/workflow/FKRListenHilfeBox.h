#pragma once

#include <QFrame>

class QPushButton;

// The help panel laid over the document list: how the list is filtered, sorted and used. A click
// anywhere on it or its close button puts it away.
class FKRListenHilfeBox : public QFrame
{
    Q_OBJECT

public:
    explicit FKRListenHilfeBox(QWidget *parent = nullptr);

    QPushButton *schliessenKnopf() const { return m_schliessen; }

protected:
    void mousePressEvent(QMouseEvent *event) override;

private:
    QPushButton *m_schliessen;
};
