#include "TestAnwendung.h"

#include <QApplication>

#include <cstdlib>

std::unique_ptr<QCoreApplication> erzeugeTestAnwendung(int &argc, char **argv)
{
    // Windows are built and clicked without a display.
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    return std::make_unique<QApplication>(argc, argv);
}
