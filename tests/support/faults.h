// Ways to make the file system refuse, so that failures can be tested (Linux only).
#pragma once

#include <QtGlobal>

#include <csignal>
#include <sys/resource.h>
#include <unistd.h>

namespace faults
{

/**
 * While it lives, this process can write no byte at or behind the position in any file, as if the
 * disk were full there. Write nothing to the test's output meanwhile.
 */
class FileSizeLimit
{
public:
    explicit FileSizeLimit(quint64 bytes)
    {
        m_signal = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_old);
        rlimit limited = m_old;
        limited.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limited);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_old);
        std::signal(SIGXFSZ, m_signal);
    }
    Q_DISABLE_COPY_MOVE(FileSizeLimit)

private:
    rlimit m_old{};
    void (*m_signal)(int) = SIG_DFL;
};

/** Only root can become another user; without that, other users' files cannot be tested. */
inline bool canBecomeAnotherUser()
{
    return geteuid() == 0;
}

/** While it lives, this process has the rights of a user ("nobody") who owns no files. */
class AnotherUser
{
public:
    AnotherUser() { m_became = setresuid(nobody, nobody, 0) == 0; }
    ~AnotherUser()
    {
        if (m_became && setresuid(0, 0, 0) != 0)
            qFatal("cannot become root again");
    }
    Q_DISABLE_COPY_MOVE(AnotherUser)

    static constexpr uid_t nobody = 65534;

private:
    bool m_became = false;
};

} // namespace faults
