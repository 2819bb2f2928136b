#include "UserLocale.h"

#include <QLocale>

QString UserLocale::name()
{
    return QLocale().name();
}

std::string UserLocale::icuLocaleId()
{
    return name().toStdString();
}
