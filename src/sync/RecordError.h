#pragma once

#include <QMap>
#include <QString>

#include <optional>

// An error of the record database: a code, a message, and for a batch in which some items failed
// (code PartialFailure) the error of each failed item by record name. The codes are the ones the
// cloud file system acts on; their numbers are those its callers know.
class RecordError
{
public:
    enum Code {
        InternalError = 1,
        PartialFailure = 2,
        NetworkUnavailable = 3, // no server configured, or it cannot be reached
        NetworkFailure = 4,     // the connection broke during the operation; try again
        ServiceUnavailable = 6, // the server asks to try again (a serialization failure, a restart)
        UnknownItem = 11,
        ServerRecordChanged = 14,
        ZoneNotFound = 26,
        UserDeletedZone = 28,   // the zone was deleted and made again: a change token of it is void
    };

    static constexpr const char *kDomain = "VelmoraRecordDatabase";
    // Errors of the cloud file system itself rather than of the server.
    static constexpr const char *kSyncDomain = "VelmoraSync";
    enum SyncCode { UnknownDirectory = 108, NoConnection = 1002 };

    RecordError() = default;
    RecordError(int code, QString message, QString domain = QString::fromLatin1(kDomain))
        : m_domain(std::move(domain)), m_code(code), m_message(std::move(message))
    {
    }
    static RecordError partial(QMap<QString, RecordError> items);
    static RecordError sync(int code, QString message) { return RecordError(code, std::move(message), QString::fromLatin1(kSyncDomain)); }

    const QString &domain() const { return m_domain; }
    int code() const { return m_code; }
    const QString &message() const { return m_message; }
    const QMap<QString, RecordError> &itemErrors() const { return m_items; }
    // Whether trying the same operation again later may succeed.
    bool retryable() const { return m_code == NetworkFailure || m_code == ServiceUnavailable || m_code == NetworkUnavailable; }
    // A batch error whose every item error has `code` (false for any other error).
    bool onlyIncludesErrorCode(int code) const;

private:
    QString m_domain = QString::fromLatin1(kDomain);
    int m_code = InternalError;
    QString m_message;
    QMap<QString, RecordError> m_items;
};

// A value, or the error that kept it from being made; with a partial failure, the items that did
// succeed are in the value.
template<class T>
struct RecordResult {
    T value{};
    std::optional<RecordError> error;
};
