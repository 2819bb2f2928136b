#include "FKRUhr.h"

namespace {
QDateTime &festerMoment()
{
    static QDateTime moment;
    return moment;
}
} // namespace

QDateTime FKRUhr::jetzt()
{
    const QDateTime &fest = festerMoment();
    return fest.isValid() ? fest : QDateTime::currentDateTime();
}

void FKRUhr::halteAn(const QDateTime &moment)
{
    festerMoment() = moment;
}
