#pragma once

#include <QString>
#include <QStringList>

// One modal alert as the application asks for it: every text is a key of the user's text table,
// so the window layer translates and tests compare keys. The first button is the default one.
struct FKRAlert {
    enum class Stil { Information, Warnung, Kritisch };

    QString titelSchluessel;
    QString textSchluessel;
    QStringList knopfSchluessel;
    Stil stil = Stil::Information;
    // A text shown under the translated one as it stands (a path, a detail); empty for none.
    QString zusatzText = {};
};

// The answers of an alert: the index of the pressed button, or kAlertAbgebrochen when the alert
// was closed without one (Escape, window closed).
inline constexpr int kErsterKnopf = 0;
inline constexpr int kZweiterKnopf = 1;
inline constexpr int kAlertAbgebrochen = -1;
