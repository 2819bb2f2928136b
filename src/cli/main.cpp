// velmora-cli: the document model of Velmora Rechnungen on the command line, without windows.
#include "FKRLocalizationHelper.h"
#include "VelmoraCli.h"

#include <QCoreApplication>

#include <iostream>

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    // The same names as the application, so that settings and data folders are the user's own.
    QCoreApplication::setOrganizationName(QStringLiteral("Velmora"));
    QCoreApplication::setApplicationName(QStringLiteral("Velmora-Rechnungen"));
    FKRLocalizationHelper::installiereHauptTabelle();

    CommandStreams io{std::cin, std::cout, std::cerr};
    return VelmoraCli().run(QCoreApplication::arguments().mid(1), io);
}
