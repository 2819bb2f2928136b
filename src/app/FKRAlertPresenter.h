#pragma once

#include "FKRAlert.h"
#include "FKRAnwendungsFehler.h"

#include <QStringList>

// Everything the application core asks of the user goes through this one interface: alerts,
// error presentations, the open panel of the database import and the save panel of the PDF export. The window layer shows them
// with message boxes and file dialogs; tests answer them from a script. Every call is modal:
// it returns only when the user has answered.
class FKRAlertPresenter
{
public:
    // The files an open panel offers: the text key of the filter's name and the extensions
    // (without the dot, matched in any case). No extensions: every file.
    struct DateiFilter {
        QString schluessel;
        QStringList endungen;
    };

    virtual ~FKRAlertPresenter() = default;

    // The index of the pressed button (kErsterKnopf, ...) or kAlertAbgebrochen.
    virtual int zeigeAlert(const FKRAlert &alert) = 0;

    // Presents an error of the store or a save; true when the presentation resolved it (the user
    // chose a recovery), false when it was only acknowledged.
    virtual bool praesentiereFehler(const FKRAnwendungsFehler &fehler) = 0;

    // The open panel: starts in `startOrdner`, shows the text of `nachrichtSchluessel`, lists
    // the files `filter` admits, and offers `weitererOrt` (the backups folder, which is hidden
    // deep in the data folder) as a place to jump to. The chosen files, empty when cancelled.
    virtual QStringList waehleDateien(const QString &startOrdner, const QString &nachrichtSchluessel,
                                      const QString &weitererOrt, const DateiFilter &filter) = 0;

    // The save panel: starts in `startOrdner` with the proposed file name `vorschlag`, shows the
    // text of `nachrichtSchluessel` and allows only files ending in `.<dateiTyp>`. The chosen
    // path (with the extension), empty when cancelled.
    virtual QString waehleSpeicherOrt(const QString &startOrdner, const QString &vorschlag,
                                      const QString &nachrichtSchluessel, const QString &dateiTyp) = 0;
};
