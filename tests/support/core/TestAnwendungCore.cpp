#include "TestAnwendung.h"

std::unique_ptr<QCoreApplication> erzeugeTestAnwendung(int &argc, char **argv)
{
    return std::make_unique<QCoreApplication>(argc, argv);
}
