// velmora-cli: the document model of Velmora Rechnungen on the command line, without windows.
#include "FKRLocalizationHelper.h"
#include "VelmoraCli.h"

#include <QGuiApplication>

#include <cstdlib>

#include <iostream>

int main(int argc, char **argv)
{
    // The renderer lays out text with the desktop's font machinery but never opens a window.
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QGuiApplication app(argc, argv);
    // The same names as the application, so that settings and data folders are the user's own.
    QCoreApplication::setOrganizationName(QStringLiteral("Velmora"));
    QCoreApplication::setApplicationName(QStringLiteral("Velmora-Rechnungen"));
    FKRLocalizationHelper::installiereHauptTabelle();

    CommandStreams io{std::cin, std::cout, std::cerr};
    return VelmoraCli().run(QCoreApplication::arguments().mid(1), io);
}
