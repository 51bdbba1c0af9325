#include "devindex/readback.h"

#include "devindex/contentcomparer.h"

#include <QFile>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#endif

namespace
{

/** What the computer keeps of the file's bytes is given up, so that the next reader must fetch
 * them. */
bool dropPages(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return false;
#if defined(Q_OS_LINUX)
    ::posix_fadvise(file.handle(), 0, 0, POSIX_FADV_DONTNEED);
#elif defined(Q_OS_MACOS)
    ::fcntl(file.handle(), F_NOCACHE, 1);
#endif
    return true;
}

} // namespace

bool readBackMatches(const QString &copy, const QString &source)
{
    return dropPages(copy) &&
           ContentComparer().compare(source, copy) == ContentComparer::Result::Same;
}
