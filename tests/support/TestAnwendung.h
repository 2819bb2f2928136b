#pragma once

#include <QCoreApplication>

#include <memory>

// The application object of a test binary: a QCoreApplication for the model layers, a
// QGuiApplication (offscreen) for the layers that draw. Which one is decided by the support
// library the test binary links.
std::unique_ptr<QCoreApplication> erzeugeTestAnwendung(int &argc, char **argv);
