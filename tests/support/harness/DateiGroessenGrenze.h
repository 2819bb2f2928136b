#pragma once

// A full disk on demand: files may grow only to `bytes` while it lives; the next write beyond
// fails (the signal that would end the process is ignored).

#include <csignal>
#include <sys/resource.h>

namespace harness {

class DateiGroessenGrenze
{
public:
    explicit DateiGroessenGrenze(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_alt);
        rlimit neu = m_alt;
        neu.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &neu);
    }
    ~DateiGroessenGrenze() { setrlimit(RLIMIT_FSIZE, &m_alt); }
    DateiGroessenGrenze(const DateiGroessenGrenze &) = delete;
    DateiGroessenGrenze &operator=(const DateiGroessenGrenze &) = delete;

private:
    rlimit m_alt{};
};

} // namespace harness
