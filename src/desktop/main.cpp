#include "FKRDesktopAnwendung.h"
#include "FKRLocalizationHelper.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Velmora"));
    QCoreApplication::setApplicationName(QStringLiteral("Velmora-Rechnungen"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Velmora Rechnungen"));
    QGuiApplication::setDesktopFileName(QStringLiteral("velmora"));
    FKRLocalizationHelper::installiereHauptTabelle();

    FKRDesktopAnwendung anwendung;
    const QStringList urls = FKRDesktopAnwendung::urlsAusArgumenten(QCoreApplication::arguments());
    if (const std::optional<int> status = anwendung.uebergibtAnLaufendesProgramm(urls))
        return *status;
    anwendung.starte(urls);
    return QApplication::exec();
}
