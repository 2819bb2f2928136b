#include "FKRDesktopAnwendung.h"

#include "FKRAppDelegate.h"
#include "FKRAppWindowController.h"
#include "FKRBeendenSignale.h"
#include "FKRMessageBoxPresenter.h"
#include "FKRUrlEmpfang.h"
#include "FKRUrlImport.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QThread>
#include <QTimer>
#include <QUrl>

#include <cstdio>
#include <cstdlib>

namespace {
// A program that holds the data folder but does not listen yet is starting (or is a command that
// replaces the store): this long it gets before this process gives up.
constexpr int kStartFristMs = 10000;
constexpr int kNeuerVersuchMs = 100;

void meldeFehler(const QString &zeile)
{
    std::fprintf(stderr, "velmora: %s\n", zeile.toUtf8().constData());
}

// The exit status of a second process, with one line on stderr for every message that failed.
int meldeUebergabe(const QStringList &urls, const FKRUrlEmpfang::Uebergabe &uebergabe)
{
    if (uebergabe.status != FKRUrlEmpfang::Uebergabe::Status::Beantwortet) {
        meldeFehler(QStringLiteral("Velmora Rechnungen runs but did not answer within %1 s; nothing was confirmed")
                        .arg(FKRUrlEmpfang::kAntwortFristMs / 1000));
        return EXIT_FAILURE;
    }
    for (const FKRUrlErgebnis &ergebnis : uebergabe.ergebnisse) {
        if (!ergebnis.erledigt)
            meldeFehler((urls.isEmpty() ? QStringLiteral("Velmora Rechnungen did not come forward: ")
                                        : QStringLiteral("the item was not imported: "))
                        + ergebnis.grund);
    }
    return uebergabe.allesErledigt() ? EXIT_SUCCESS : EXIT_FAILURE;
}
} // namespace

FKRDesktopAnwendung::FKRDesktopAnwendung()
    : m_presenter(std::make_unique<FKRMessageBoxPresenter>())
    , m_delegate(std::make_unique<FKRAppDelegate>(*m_presenter))
    , m_empfang(std::make_unique<FKRUrlEmpfang>())
{
}

FKRDesktopAnwendung::~FKRDesktopAnwendung()
{
    // The window refers to the delegate, the delegate to the presenter.
    m_signale.reset();
    m_fenster.reset();
    m_delegate.reset();
}

QStringList FKRDesktopAnwendung::urlsAusArgumenten(const QStringList &argumente)
{
    QStringList urls;
    for (const QString &argument : argumente.mid(1)) {
        if (QUrl(argument).scheme().compare(QLatin1String(FKRUrlImport::kSchema), Qt::CaseInsensitive) == 0)
            urls.append(argument);
    }
    return urls;
}

std::optional<int> FKRDesktopAnwendung::uebergibtAnLaufendesProgramm(const QStringList &urls)
{
    const QString name = FKRUrlEmpfang::socketName(m_delegate->applicationDocumentsDirectory());
    const QDeadlineTimer frist(kStartFristMs);
    for (;;) {
        const FKRUrlEmpfang::Uebergabe uebergabe = FKRUrlEmpfang::uebergebeAnLaufendeInstanz(name, urls);
        if (uebergabe.status != FKRUrlEmpfang::Uebergabe::Status::NiemandLauscht)
            return meldeUebergabe(urls, uebergabe);
        switch (m_delegate->sperreDatenOrdner()) {
        case FKRDatenOrdnerSperre::Ergebnis::Gehalten:
            // This process is the program now. The lock is taken before listening, so whatever
            // answers at the name without it is no program of this data folder.
            if (!m_empfang->lausche(name))
                qWarning("Could not listen for URLs; other processes cannot hand theirs over.");
            return std::nullopt;
        case FKRDatenOrdnerSperre::Ergebnis::Fehler:
            return std::nullopt; // opening the store tells the user what is wrong with the folder
        case FKRDatenOrdnerSperre::Ergebnis::Belegt:
            break;
        }
        if (frist.hasExpired()) {
            meldeFehler(QStringLiteral("another program works on the data folder %1 and does not answer")
                            .arg(m_delegate->applicationDocumentsDirectory()));
            m_delegate->meldeDatenOrdnerBelegt();
            return EXIT_FAILURE;
        }
        QThread::msleep(kNeuerVersuchMs);
    }
}

void FKRDesktopAnwendung::starte(const QStringList &urls)
{
    FKRAppDelegate &delegate = *m_delegate;
    m_empfang->setBearbeiter([&delegate](const QString &url, const FKRUrlAntwort &antwort) {
        delegate.nimmUrlEntgegen(url, antwort);
    });
    for (const QString &url : urls)
        delegate.nimmUrlEntgegen(url);

    delegate.applicationWillFinishLaunching();
    m_fenster = std::make_unique<FKRAppWindowController>(delegate);
    m_presenter->setFenster(m_fenster.get());
    delegate.setFensterSchicht(m_fenster.get());
    connect(m_empfang.get(), &FKRUrlEmpfang::aktivierungAngefordert, m_fenster.get(), [this] {
        m_fenster->showNormal();
        m_fenster->raise();
        m_fenster->activateWindow();
    });
    // The database import ends the program through the same decision as the user's quit.
    connect(&delegate, &FKRAppDelegate::beendenAngefordert, m_fenster.get(), &QWidget::close, Qt::QueuedConnection);
    connect(qApp, &QGuiApplication::applicationStateChanged, &delegate, [&delegate](Qt::ApplicationState zustand) {
        if (zustand == Qt::ApplicationActive)
            delegate.applicationDidBecomeActive();
    });
    // A SIGTERM asks the way the window's close does; the quit decision saves what is pending.
    m_signale = std::make_unique<FKRBeendenSignale>();
    connect(m_signale.get(), &FKRBeendenSignale::beendenVerlangt, m_fenster.get(), &QWidget::close);
    connect(qApp, &QCoreApplication::aboutToQuit, &delegate, &FKRAppDelegate::applicationWillTerminate);
    QApplication::setQuitOnLastWindowClosed(delegate.applicationShouldTerminateAfterLastWindowClosed());

    m_fenster->show();
    // The window is up before the start-up runs, so the user sees the program at once.
    QTimer::singleShot(0, this, [this] {
        m_delegate->applicationDidFinishLaunching();
        if (m_delegate->laufendeDatensicherung())
            m_fenster->zeigeDatensicherungLaeuft();
    });
}
