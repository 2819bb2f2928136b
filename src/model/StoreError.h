#pragma once

#include <QString>

#include <stdexcept>

// A failure of the object store, with a message for the user in the user's language and the
// technical detail for the log.
class StoreError : public std::runtime_error
{
public:
    enum class Kind {
        CannotOpen,      // the file or its folder cannot be opened or created
        NotAStore,       // the file is not a database of this application
        Damaged,         // the file is a store but cannot be read completely
        NewerVersion,    // written by a newer version of the application
        SaveFailed,      // a save was rolled back
    };

    StoreError(Kind kind, const QString &message, const QString &detail)
        : std::runtime_error(message.toStdString()), m_kind(kind), m_message(message), m_detail(detail)
    {
    }

    Kind kind() const { return m_kind; }
    QString message() const { return m_message; }
    QString detail() const { return m_detail; }

private:
    Kind m_kind;
    QString m_message;
    QString m_detail;
};
