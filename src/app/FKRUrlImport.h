#pragma once

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
    // application's save operation.
    FKRUrlImport(FKRAlertPresenter &presenter, std::function<FKROffenerEditor *()> offenerEditor,
                 std::function<void()> saveAction);

    // The text of a URL as the desktop delivers it; anything that is not a URL of the scheme with
    // a known host is ignored.
    void handleGetUrlEvent(const QString &urlText);
    void importiereRechnungsPosten(const QUrl &url);

private:
    FKRAlertPresenter &m_presenter;
    std::function<FKROffenerEditor *()> m_offenerEditor;
    std::function<void()> m_saveAction;
};
