#pragma once

#include "FKRAlertPresenter.h"

#include <QPointer>

class QWidget;

// Alerts, error presentations and the file panels of the desktop: message boxes and file
// dialogs in the user's language, modal to the window the user works in (the editor's alerts
// sit on the editor, the main window's on the main window).
class FKRMessageBoxPresenter : public FKRAlertPresenter
{
public:
    void setFenster(QWidget *fenster) { m_fenster = fenster; }

    int zeigeAlert(const FKRAlert &alert) override;
    bool praesentiereFehler(const FKRAnwendungsFehler &fehler) override;
    QStringList waehleDateien(const QString &startOrdner, const QString &nachrichtSchluessel,
                              const QString &weitererOrt, const DateiFilter &filter) override;
    QString waehleSpeicherOrt(const QString &startOrdner, const QString &vorschlag,
                              const QString &nachrichtSchluessel, const QString &dateiTyp) override;

private:
    QWidget *elternFenster() const;

    QPointer<QWidget> m_fenster;
};
