#include "storage/standardhandles.h"

#include <QtGlobal>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

void fillStandardHandles()
{
#ifdef Q_OS_UNIX
    for (int handle = STDIN_FILENO; handle <= STDERR_FILENO; ++handle) {
        if (::fcntl(handle, F_GETFD) != -1)
            continue;
        // The lowest free number is given: this one, since those below it are in use by now.
        const int mode = handle == STDIN_FILENO ? O_WRONLY : O_RDONLY;
        if (::open("/dev/null", mode) != handle)
            ::_exit(127); // without them no song is safe
    }
#endif
}
