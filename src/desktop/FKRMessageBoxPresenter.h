#pragma once

#include "FKRAlertPresenter.h"

#include <QPointer>

class QWidget;

// Alerts, error presentations and the open panel of the desktop: message boxes and file
// dialogs in the user's language, modal to the main window.
class FKRMessageBoxPresenter : public FKRAlertPresenter
{
public:
    void setFenster(QWidget *fenster) { m_fenster = fenster; }

    int zeigeAlert(const FKRAlert &alert) override;
    bool praesentiereFehler(const FKRAnwendungsFehler &fehler) override;
    QStringList waehleDateien(const QString &startOrdner, const QString &nachrichtSchluessel,
                              const QString &weitererOrt) override;

private:
    QPointer<QWidget> m_fenster;
};
