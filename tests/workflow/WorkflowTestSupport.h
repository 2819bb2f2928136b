#pragma once

// Window tests over a fresh data home, alerts and panels answered from a script.

#include "../app/AppTestSupport.h"
#include "../app/SkriptPresenter.h"

#include "FKRAbsender.h"
#include "FKRAnsichtAktionsBox.h"
#include "FKRAppDelegate.h"
#include "FKRAppWindowController.h"
#include "FKRArrayController.h"
#include "FKREditorPostenTab.h"
#include "FKREmpfaenger.h"
#include "FKRLocalizationHelper.h"
#include "FKRMenuKnopf.h"
#include "FKRMenuViewController.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "FKRRechnungenListeViewController.h"
#include "FKRRechnungsAnsichtViewController.h"
#include "FKRRechnungsDetailsViewController.h"
#include "FKRRechnungsDetailsWindowController.h"
#include "FKRUhr.h"
#include "ManagedObjectContext.h"
#include "QBBenutzerEinstellungen.h"

#include <QDir>
#include <QLineEdit>
#include <QPointer>
#include <QSplitter>
#include <QTableView>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include <memory>

namespace workflowtest {

using namespace Qt::Literals::StringLiterals;

inline Decimal zahl(const char *text) { return *Decimal::parse(text); }

inline void ersetze(QWidget *feld, const QString &text)
{
    QTest::keyClick(feld, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(feld, text);
}

inline void klicke(FKRAnsichtAktionsBox *box) { QTest::mouseClick(box->knopf(), Qt::LeftButton); }

inline void setzeSprache(const char *locale)
{
    QLocale::setDefault(QLocale(QString::fromLatin1(locale)));
    FKRLocalizationHelper::installiereHauptTabelle();
}

class FensterTest : public ::testing::Test
{
protected:
    FensterTest()
    {
        setzeSprache("de_DE");
        delegate = std::make_unique<FKRAppDelegate>(presenter);
        delegate->setProzessEnde([](int status) { throw apptest::ProzessEnde{status}; });
    }
    ~FensterTest() override
    {
        while (auto *offen = FKRRechnungsDetailsWindowController::aktuellesFenster())
            offen->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        FKRUhr::laufeWeiter();
        splitView.reset();
        delegate.reset();
        setzeSprache("de_DE");
    }

    ManagedObjectContext &moc() { return *delegate->managedObjectContext(); }

    FKRRechnung *dokument(const QString &nummer)
    {
        auto *r = moc().insertNewObject<FKRRechnung>();
        r->setRechnungsNummer(nummer);
        return r;
    }

    static QStringList nummern(const FKRArrayController &controller)
    {
        QStringList result;
        for (FKRRechnung *r : controller.arranged<FKRRechnung>())
            result.append(r->rechnungsNummer().value_or(u"-"_s));
        return result;
    }

    QStringList archivDateien() const { return QDir(delegate->applicationArchiveDirectory()).entryList({u"*.pdf"_s}); }

    // Edits cell (0, spalte) and confirms with Return; the editing field.
    static QWidget *bearbeiteZelle(FKRRechnungsDetailsViewController &editor, int spalte, const QString &text)
    {
        QTableView *tabelle = editor.postenTab()->postenTableView;
        const QModelIndex zelle = editor.rechnungsPostenArrayController().index(0, spalte);
        tabelle->setCurrentIndex(zelle);
        tabelle->edit(zelle);
        QPointer<QWidget> feld = tabelle->indexWidget(zelle);
        if (feld)
            ersetze(feld, text), QTest::keyClick(feld, Qt::Key_Return);
        QCoreApplication::processEvents(); // the view commits a cell on the next turn
        return feld;
    }

    // Menu, list and view in a split view, so the controllers find each other.
    void baueHauptfenster()
    {
        splitView = std::make_unique<QSplitter>();
        splitView->addWidget(menu = new FKRMenuViewController(splitView.get()));
        splitView->addWidget(liste = new FKRRechnungenListeViewController(*delegate, splitView.get()));
        splitView->addWidget(ansicht = new FKRRechnungsAnsichtViewController(*delegate, splitView.get()));
        splitView->resize(1200, 800);
        splitView->show();
    }

    apptest::DatenHeimat heimat;
    SkriptPresenter presenter;
    std::unique_ptr<FKRAppDelegate> delegate;
    std::unique_ptr<QSplitter> splitView;
    FKRMenuViewController *menu = nullptr;
    FKRRechnungenListeViewController *liste = nullptr;
    FKRRechnungsAnsichtViewController *ansicht = nullptr;
};

class ProgrammTest : public FensterTest
{
protected:
    explicit ProgrammTest(const char *locale = "de_DE")
    {
        setzeSprache(locale);
        fenster = std::make_unique<FKRAppWindowController>(*delegate);
        delegate->setFensterSchicht(fenster.get());
        fenster->show();
        QApplication::setActiveWindow(fenster.get());
    }
    ~ProgrammTest() override { delegate->setFensterSchicht(nullptr), fenster.reset(); }

    std::unique_ptr<FKRAppWindowController> fenster;
};

} // namespace workflowtest
