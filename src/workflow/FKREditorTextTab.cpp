#include "FKREditorTextTab.h"

#include "FKRFeldBindung.h"
#include "FKRLocalizationHelper.h"
#include "FKRRechnung.h"
#include "FKRRechnungsDetailsViewController.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace {

// The user's text of a literal key (the key check of the translation tables finds it here).
QString hauptTabellenText(const char *schluessel)
{
    return FKRLocalizationHelper::hauptTabellenText(QString::fromUtf8(schluessel));
}

} // namespace

FKREditorTextTab::FKREditorTextTab(FKRRechnungsDetailsViewController &editor)
    : m_editor(editor)
{
    auto *layout = new QVBoxLayout(this);
    const auto textFeld = [this, layout](const char *name, const QString &titel, int hoehe) {
        auto *feld = new QPlainTextEdit(this);
        feld->setObjectName(QString::fromLatin1(name));
        // Tab moves on to the next field; the texts themselves have no use for tab stops.
        feld->setTabChangesFocus(true);
        auto *beschriftung = new QLabel(titel, this);
        beschriftung->setBuddy(feld);
        layout->addWidget(beschriftung);
        layout->addWidget(feld, hoehe);
        return feld;
    };
    rechnungsTextTabAnredeTextField =
        textFeld("rechnungsTextTabAnredeTextField", hauptTabellenText("EDITOR_LABEL_ANREDE"), 1);
    rechnungsTextTabRechnungsTextTextField =
        textFeld("rechnungsTextTabRechnungsTextTextField", hauptTabellenText("EDITOR_LABEL_RECHNUNGSTEXT"), 3);
    rechnungsTextTabRechnungsText2TextField =
        textFeld("rechnungsTextTabRechnungsText2TextField", hauptTabellenText("EDITOR_LABEL_RECHNUNGSTEXT2"), 3);
    m_anrede = new FKRFeldBindung(rechnungsTextTabAnredeTextField, QStringLiteral("rechnungsTextAnrede"));
    m_text = new FKRFeldBindung(rechnungsTextTabRechnungsTextTextField, QStringLiteral("rechnungsText"));
    m_text2 = new FKRFeldBindung(rechnungsTextTabRechnungsText2TextField, QStringLiteral("rechnungsText2"));
}

void FKREditorTextTab::aktualisiere()
{
    FKRRechnung *rechnung = m_editor.rechnung();
    m_anrede->setObjekt(rechnung);
    m_text->setObjekt(rechnung);
    m_text2->setObjekt(rechnung);
}
