#pragma once

#include <QString>

#include <stdexcept>

// A value that the amount arithmetic needs is absent (the store's defaults normally prevent it;
// a document read from a file can lack it). Carries the attribute's name for the message.
class FKRFehlenderWert : public std::runtime_error
{
public:
    explicit FKRFehlenderWert(const QString &attribute)
        : std::runtime_error("missing value: " + attribute.toStdString()), m_attribute(attribute)
    {
    }
    QString attribute() const { return m_attribute; }

private:
    QString m_attribute;
};
