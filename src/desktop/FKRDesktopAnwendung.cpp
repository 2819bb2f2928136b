#include "FKRDesktopAnwendung.h"

#include "FKRAppDelegate.h"
#include "FKRAppWindowController.h"
#include "FKRBeendenSignale.h"
#include "FKRMessageBoxPresenter.h"
#include "FKRUrlEmpfang.h"
#include "FKRUrlImport.h"

#include <QApplication>
#include <QTimer>
#include <QUrl>

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

bool FKRDesktopAnwendung::uebergibtAnLaufendesProgramm(const QStringList &urls)
{
    const QString name = FKRUrlEmpfang::socketName(m_delegate->applicationDocumentsDirectory());
    // Twice: a program that starts at the same moment may have won the socket meanwhile.
    for (int versuch = 0; versuch < 2; ++versuch) {
        if (FKRUrlEmpfang::uebergebeAnLaufendeInstanz(name, urls))
            return true;
        if (m_empfang->lausche(name))
            return false;
    }
    qWarning("Another Velmora Rechnungen is running but does not answer; starting anyway.");
    return false;
}

void FKRDesktopAnwendung::starte(const QStringList &urls)
{
    FKRAppDelegate &delegate = *m_delegate;
    connect(m_empfang.get(), &FKRUrlEmpfang::urlEmpfangen, &delegate, &FKRAppDelegate::nimmUrlEntgegen);
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
