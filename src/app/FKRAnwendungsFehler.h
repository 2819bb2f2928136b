#pragma once

#include <QString>

// An error as the application presents it: what failed in one line, why, and the technical
// cause underneath. The domain and code identify the error for the log.
struct FKRAnwendungsFehler {
    QString domain;
    int code = 0;
    QString localizedDescription;
    QString failureReason;
    QString underlyingError; // empty when there is none
};
