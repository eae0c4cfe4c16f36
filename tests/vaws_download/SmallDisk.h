#pragma once

#include <sys/resource.h>

#include <csignal>
#include <cstdint>

/// A disk on which no file grows beyond so many bytes, until the end of the scope.
class SmallDisk
{
public:
    explicit SmallDisk(std::uint64_t bytes)
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit small{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SmallDisk() { setrlimit(RLIMIT_FSIZE, &m_before); }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

private:
    rlimit m_before{};
};
