#pragma once

// The user of the application core in tests: answers alerts, error presentations and open
// panels from a script and records what was asked, so a test can check the keys.

#include "FKRAlertPresenter.h"

#include <QList>

#include <QStringList>

class SkriptPresenter : public FKRAlertPresenter
{
public:
    QList<FKRAlert> alerts;
    QList<FKRAnwendungsFehler> fehler;

    // Answers in order; an alert without a scripted answer gets the first button.
    QList<int> antworten;
    QList<bool> fehlerGeloest;
    QList<QStringList> panelAntworten;
    QStringList speicherAntworten; // save panels' answers

    int zeigeAlert(const FKRAlert &alert) override
    {
        alerts.append(alert);
        return antworten.isEmpty() ? kErsterKnopf : antworten.takeFirst();
    }

    bool praesentiereFehler(const FKRAnwendungsFehler &f) override
    {
        fehler.append(f);
        return fehlerGeloest.isEmpty() ? false : fehlerGeloest.takeFirst();
    }

    QStringList waehleDateien(const QString &, const QString &, const QString &, const DateiFilter &) override
    {
        return panelAntworten.isEmpty() ? QStringList() : panelAntworten.takeFirst();
    }

    QString waehleSpeicherOrt(const QString &, const QString &, const QString &, const QString &) override
    {
        return speicherAntworten.isEmpty() ? QString() : speicherAntworten.takeFirst();
    }

    QStringList alertTexte() const
    {
        QStringList texte;
        for (const FKRAlert &alert : alerts)
            texte.append(alert.textSchluessel);
        return texte;
    }
};
