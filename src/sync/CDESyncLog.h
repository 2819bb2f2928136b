#pragma once

#include <QLoggingCategory>
#include <QString>

Q_DECLARE_LOGGING_CATEGORY(velmoraSync)

// The sync library's log lines: "  message  <<<  operation line N", in columns, at info level of
// the category "velmora.sync" (QT_LOGGING_RULES decides whether they are written).
namespace CDESyncLog {

void log(const QString &message, const char *operation, int line);

} // namespace CDESyncLog

#define CDE_LOG(message) CDESyncLog::log((message), Q_FUNC_INFO, __LINE__)
