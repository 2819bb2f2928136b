#pragma once

// One run of velmora-cli in the test process, with string streams for input and output.

#include "VelmoraCli.h"

#include <QStringList>

#include <sstream>
#include <string>

struct Lauf
{
    int status;
    std::string out, err;
};

inline Lauf starteCli(const QStringList &arguments, const std::string &eingabe = {})
{
    std::istringstream in(eingabe);
    std::ostringstream out, err;
    CommandStreams io{in, out, err};
    const int status = VelmoraCli().run(arguments, io);
    return {status, out.str(), err.str()};
}
