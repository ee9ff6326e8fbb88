#pragma once

#ifndef _WIN32

#include <csignal>
#include <sys/resource.h>

/// While it lives no file of this process can grow past `bytes`: a disk that fills up in the middle of a write.
class LimiteDeArchivos
{
public:
    explicit LimiteDeArchivos(rlim_t bytes)
        : m_senal(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_antes);
        const rlimit limite{bytes, m_antes.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limite);
    }
    ~LimiteDeArchivos()
    {
        setrlimit(RLIMIT_FSIZE, &m_antes);
        std::signal(SIGXFSZ, m_senal);
    }

private:
    void (*m_senal)(int);
    rlimit m_antes{};
};

#endif
