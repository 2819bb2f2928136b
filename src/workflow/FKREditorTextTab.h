#pragma once

#include <QWidget>

class FKRFeldBindung;
class FKRRechnungsDetailsViewController;
class QPlainTextEdit;

// The editor's texts tab: the salutation, the text before the items and the closing text of
// the document.
class FKREditorTextTab : public QWidget
{
    Q_OBJECT

public:
    explicit FKREditorTextTab(FKRRechnungsDetailsViewController &editor);

    void aktualisiere();

    // Outlets.
    QPlainTextEdit *rechnungsTextTabAnredeTextField = nullptr;
    QPlainTextEdit *rechnungsTextTabRechnungsTextTextField = nullptr;
    QPlainTextEdit *rechnungsTextTabRechnungsText2TextField = nullptr;

private:
    FKRRechnungsDetailsViewController &m_editor;
    FKRFeldBindung *m_anrede = nullptr;
    FKRFeldBindung *m_text = nullptr;
    FKRFeldBindung *m_text2 = nullptr;
};
