#pragma once

#include <QString>

#include <functional>

// What became of one message handed over by a second process: `erledigt` when a URL's item was
// stored (or the program came forward when asked to), otherwise the reason in one English line
// for the sender, which prints it.
struct FKRUrlErgebnis {
    bool erledigt = false;
    QString grund = {};
};

// Called once with the outcome, as soon as it is decided and before anything is shown to the
// user, so that an alert never keeps the sender waiting.
using FKRUrlAntwort = std::function<void(const FKRUrlErgebnis &)>;
