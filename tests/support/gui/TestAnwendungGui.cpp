#include "TestAnwendung.h"

#include <QGuiApplication>

#include <cstdlib>

std::unique_ptr<QCoreApplication> erzeugeTestAnwendung(int &argc, char **argv)
{
    // Tests draw without a display.
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    return std::make_unique<QGuiApplication>(argc, argv);
}
