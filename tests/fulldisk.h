#pragma once

#include <csignal>
#include <sys/resource.h>

/// While it lives, no file can grow beyond a few bytes, as on a full disk.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes = 16)
    {
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_limit);
        rlimit low = m_limit;
        low.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &low);
    }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_limit);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    rlimit m_limit = {};
    void (*m_handler)(int) = SIG_DFL;
};
