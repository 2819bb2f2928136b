#include "FuzzUmgebung.h"

#include "PrivatesHeim.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <cstdlib>

namespace {
QTemporaryDir *heim = nullptr;
} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    // Kept for the life of the process; the fuzzer ends it with exit().
    static QTemporaryDir ordner(QDir::tempPath() + QStringLiteral("/velmora-fuzz-XXXXXX"));
    heim = &ordner;
    richtePrivatesHeimEin(ordner.path().toUtf8());
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("LANG", "de_DE.UTF-8", 0);
    static QGuiApplication anwendung(*argc, *argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Velmora"));
    QCoreApplication::setApplicationName(QStringLiteral("Velmora-Rechnungen"));
    QDir().mkpath(FuzzUmgebung::arbeitsOrdner());
    return 0;
}

QString FuzzUmgebung::arbeitsOrdner()
{
    return heim->path() + QStringLiteral("/arbeit");
}

void FuzzUmgebung::leere()
{
    QDir(arbeitsOrdner()).removeRecursively();
    QDir().mkpath(arbeitsOrdner());
}

QString FuzzUmgebung::alsDatei(const std::uint8_t *daten, std::size_t groesse, const QString &name)
{
    const QString pfad = arbeitsOrdner() + QLatin1Char('/') + name;
    QFile datei(pfad);
    if (!datei.open(QIODevice::WriteOnly) || datei.write(bytes(daten, groesse)) != qint64(groesse))
        std::abort(); // the scratch folder must work, or no result means anything
    return pfad;
}
