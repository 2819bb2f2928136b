// Pictures of the program for the README: the main window with a document shown, the editor's
// six tabs and the settings screen, each written as a PNG into the folder given on the command
// line. The program runs on a fresh data home (scripts/screenshots sets XDG_*), fills it with
// the demo business and shows its real windows.

#include "FKRAppDelegate.h"
#include "FKRAppWindowController.h"
#include "FKRDemoDaten.h"
#include "FKRLocalizationHelper.h"
#include "FKRMessageBoxPresenter.h"
#include "FKRRechnung.h"
#include "FKRRechnungenListeViewController.h"
#include "FKRRechnungsAnsichtViewController.h"
#include "FKRRechnungsDetailsViewController.h"
#include "FKRRechnungsDetailsWindowController.h"
#include "ManagedObjectContext.h"
#include "QBMEinstellungenViewController.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QPdfDocument>
#include <QTabWidget>
#include <QThread>

#include <cstdio>

using namespace Qt::Literals::StringLiterals;

namespace {

void warte(int ms)
{
    QDeadlineTimer frist(ms);
    while (!frist.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(5);
    }
}

bool sichere(QWidget *fenster, const QString &pfad)
{
    warte(400);
    if (!fenster->window()->grab().save(pfad)) {
        std::fprintf(stderr, "Could not write %s\n", qPrintable(pfad));
        return false;
    }
    std::printf("%s\n", qPrintable(pfad));
    return true;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(u"Velmora"_s);
    QCoreApplication::setApplicationName(u"Velmora-Rechnungen"_s);
    QGuiApplication::setApplicationDisplayName(u"Velmora Rechnungen"_s);
    FKRLocalizationHelper::installiereHauptTabelle();
    if (argc < 2) {
        std::fprintf(stderr, "usage: velmora-screenshots OUTPUT-FOLDER\n");
        return 2;
    }
    const QString ziel = QString::fromLocal8Bit(argv[1]);
    QDir().mkpath(ziel);

    FKRMessageBoxPresenter presenter;
    FKRAppDelegate delegate(presenter);
    FKRDemoDaten::fuelle(*delegate.managedObjectContext());
    delegate.saveAction();

    FKRAppWindowController fenster(delegate);
    delegate.setFensterSchicht(&fenster);
    presenter.setFenster(&fenster);
    fenster.resize(1400, 860);
    fenster.show();
    warte(300);

    // A sent invoice of the first customer, as the user would pick it from the list.
    FKRRechnungenListeViewController *liste = fenster.listeViewController();
    FKRRechnung *gezeigt = nullptr;
    for (FKRRechnung *r : delegate.managedObjectContext()->fetch<FKRRechnung>()) {
        if (r->rechnungsNummer() == u"Rechnung: 2026-028"_s)
            gezeigt = r;
    }
    if (liste && gezeigt)
        liste->setSelectedObjects({gezeigt});
    warte(1200); // the PDF view renders its pages in the background
    bool gut = sichere(&fenster, ziel + u"/hauptfenster.png"_s);

    FKRRechnung *entwurf = nullptr;
    for (FKRRechnung *r : delegate.managedObjectContext()->fetch<FKRRechnung>()) {
        if (r->rechnungsNummer() == u"Rechnung: 2026-031"_s)
            entwurf = r;
    }
    auto *editorFenster = FKRRechnungsDetailsWindowController::oeffne(delegate, entwurf, fenster.ansichtViewController(),
                                                                      entwurf ? entwurf->empfaenger() : nullptr);
    if (editorFenster) {
        editorFenster->resize(900, 640);
        QTabWidget *tabs = editorFenster->editor()->tabView();
        for (int i = 0; tabs && i < tabs->count(); ++i) {
            tabs->setCurrentIndex(i);
            gut &= sichere(editorFenster, ziel + u"/editor-%1.png"_s.arg(i + 1));
        }
        editorFenster->close();
    } else {
        gut = false;
    }

    QBMEinstellungenViewController *einstellungen = fenster.zeigeEinstellungen();
    einstellungen->resize(620, 520);
    gut &= sichere(einstellungen, ziel + u"/einstellungen.png"_s);
    einstellungen->close();

    delegate.saveAction();
    return gut ? 0 : 1;
}
