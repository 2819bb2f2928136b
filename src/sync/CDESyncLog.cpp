#include "CDESyncLog.h"

Q_LOGGING_CATEGORY(velmoraSync, "velmora.sync", QtInfoMsg)

void CDESyncLog::log(const QString &message, const char *operation, int line)
{
    // "Class::method" out of the compiler's full signature (return type, parameters, lambdas).
    QByteArray name(operation);
    name.truncate(name.indexOf('(') < 0 ? name.size() : name.indexOf('('));
    name = name.mid(name.lastIndexOf(' ') + 1);
    qCInfo(velmoraSync).noquote() << QString::asprintf("  %-60s  <<<  %-70s line %d", message.toUtf8().constData(),
                                                       name.constData(), line);
}
