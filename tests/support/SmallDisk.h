#pragma once

#include <csignal>
#include <sys/resource.h>

namespace test {

/// No file of this process grows beyond so many bytes for as long as it lives: a disk that is full.
class SmallDisk
{
public:
    explicit SmallDisk(rlim_t bytes)
    {
        m_formerSignal = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_former);
        const rlimit limit{bytes, m_former.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~SmallDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_former);
        std::signal(SIGXFSZ, m_formerSignal);
    }
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;

private:
    rlimit m_former{};
    void (*m_formerSignal)(int) = nullptr;
};

} // namespace test
