// Makes writes fail as on a full disk, for tests of what must then be left.
#pragma once

#include <QtGlobal>

#include <csignal>
#include <sys/resource.h>

/** While it lives, no file can be written beyond this many bytes; the write fails instead. */
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
        : m_handlerBefore(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handlerBefore);
    }
    Q_DISABLE_COPY_MOVE(FileSizeLimit)

private:
    void (*m_handlerBefore)(int);
    rlimit m_before{};
};
