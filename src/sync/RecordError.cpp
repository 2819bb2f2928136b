#include "RecordError.h"

#include <QStringList>

#include <algorithm>

RecordError RecordError::partial(QMap<QString, RecordError> items)
{
    QStringList namen = items.keys();
    if (namen.size() > 5)
        namen = namen.mid(0, 5) << QStringLiteral("…");
    RecordError fehler(PartialFailure, QStringLiteral("%1 of the items failed: %2").arg(items.size()).arg(namen.join(u", ")));
    fehler.m_items = std::move(items);
    return fehler;
}

bool RecordError::onlyIncludesErrorCode(int code) const
{
    return m_code == PartialFailure && !m_items.isEmpty()
           && std::all_of(m_items.cbegin(), m_items.cend(), [code](const RecordError &e) { return e.code() == code; });
}
