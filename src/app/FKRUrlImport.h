#pragma once

#include "FKRUrlErgebnis.h"

#include <QString>
#include <QUrl>

#include <functional>

class FKRAlertPresenter;
class FKROffenerEditor;

// Turns a URL of the application's scheme into a line item of the document open in the editor
// (a block of tracked work handed over by a time tracker).
class FKRUrlImport
{
public:
    static constexpr const char *kSchema = "velmora";
    static constexpr const char *kImportHost = "importRechnungsPosten";

    // `offenerEditor` finds the open editor (nullptr when none); `saveAction` is the
    // application's save operation and tells whether everything is stored afterwards.
    FKRUrlImport(FKRAlertPresenter &presenter, std::function<FKROffenerEditor *()> offenerEditor,
                 std::function<bool()> saveAction);

    // The text of a URL as the desktop delivers it; anything that is not a URL of the scheme with
    // a known host is ignored (and answered as not imported). `antwort`, when given, learns the
    // outcome before any alert is shown; the outcome is returned as well.
    FKRUrlErgebnis handleGetUrlEvent(const QString &urlText, const FKRUrlAntwort &antwort = {});
    // Stores the item only when the request is accepted (FKRImportAnfrage), an editor is open and
    // it shows a document; otherwise nothing changes, and the user learns why by an alert unless
    // the editor merely shows no document.
    FKRUrlErgebnis importiereRechnungsPosten(const QUrl &url, const FKRUrlAntwort &antwort = {});

private:
    FKRAlertPresenter &m_presenter;
    std::function<FKROffenerEditor *()> m_offenerEditor;
    std::function<bool()> m_saveAction;
};
