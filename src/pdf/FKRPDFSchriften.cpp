#include "FKRPDFSchriften.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QStringList>

#include <mutex>
#include <stdexcept>

void FKRPDFSchriften::registriere()
{
    static std::once_flag einmal;
    std::call_once(einmal, [] {
        if (!qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
            throw std::runtime_error("the document font needs a QGuiApplication");
        for (const char *datei : {":/fonts/NotoSans-Regular.ttf", ":/fonts/NotoSans-Bold.ttf"}) {
            const int id = QFontDatabase::addApplicationFont(QString::fromLatin1(datei));
            if (id < 0 || !QFontDatabase::applicationFontFamilies(id).contains(QLatin1String(kFamilie)))
                throw std::runtime_error(std::string("cannot load the document font ") + datei);
        }
        // Anything that still asks for the designed typeface by name gets the substitute.
        QFont::insertSubstitution(QLatin1String(kEntwurfsFamilie), QLatin1String(kFamilie));
    });
}

QFont FKRPDFSchriften::schrift(double punkte, bool fett)
{
    registriere();
    QFont font{QString::fromLatin1(kFamilie)};
    font.setPointSizeF(punkte);
    font.setWeight(fett ? QFont::Bold : QFont::Normal);
    font.setHintingPreference(QFont::PreferNoHinting);
    // No ligatures: "fi" must stay two characters for anyone who searches or copies a name or an
    // account number out of the PDF.
    font.setStyleStrategy(QFont::PreferNoShaping);
    return font;
}
