#pragma once

// Helpers of the window tests: a delegate over a fresh data home whose alerts and panels are
// answered from a script, and the three columns of the main window in a split view, so the
// controllers find each other as they do in the program.

#include "../app/AppTestSupport.h"
#include "../app/SkriptPresenter.h"

#include "FKRAppDelegate.h"
#include "FKRLocalizationHelper.h"
#include "FKRMenuViewController.h"
#include "FKRRechnungenListeViewController.h"
#include "FKRRechnungsAnsichtViewController.h"
#include "ManagedObjectContext.h"

#include <QLocale>
#include <QSplitter>
#include <QTest>

#include <memory>

namespace workflowtest {

class FensterTest : public ::testing::Test
{
protected:
    FensterTest()
    {
        QLocale::setDefault(QLocale(QStringLiteral("de_DE")));
        FKRLocalizationHelper::installiereHauptTabelle();
        delegate = std::make_unique<FKRAppDelegate>(presenter);
        delegate->setProzessEnde([](int status) { throw apptest::ProzessEnde{status}; });
    }
    ~FensterTest() override
    {
        splitView.reset();
        delegate.reset();
    }

    ManagedObjectContext &moc() { return *delegate->managedObjectContext(); }

    // Menu, list and document view as items 0, 1 and 2 of a split view.
    void baueHauptfenster()
    {
        splitView = std::make_unique<QSplitter>();
        menu = new FKRMenuViewController(splitView.get());
        liste = new FKRRechnungenListeViewController(*delegate, splitView.get());
        ansicht = new FKRRechnungsAnsichtViewController(*delegate, splitView.get());
        splitView->addWidget(menu);
        splitView->addWidget(liste);
        splitView->addWidget(ansicht);
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

} // namespace workflowtest
