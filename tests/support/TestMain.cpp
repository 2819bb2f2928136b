#include "PrivatesHeim.h"
#include "TestAnwendung.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <cstdlib>

// Every test binary gets a private XDG home, so no test ever reads or writes the
// developer's real settings or data folders.
int main(int argc, char **argv)
{
    QTemporaryDir home(QDir::tempPath() + QStringLiteral("/velmora-test-XXXXXX"));
    if (!home.isValid())
        return 3;
    richtePrivatesHeimEin(home.path().toUtf8());
    // Tests pin their own locales and zones; the default is a German desktop in Berlin.
    if (!getenv("VELMORA_TEST_KEEP_LOCALE")) {
        setenv("LANG", "de_DE.UTF-8", 1);
        setenv("TZ", "Europe/Berlin", 1);
    }
    ::testing::InitGoogleTest(&argc, argv);
    const std::unique_ptr<QCoreApplication> app = erzeugeTestAnwendung(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Velmora"));
    QCoreApplication::setApplicationName(QStringLiteral("Velmora-Rechnungen"));
    return RUN_ALL_TESTS();
}
