// A library for LD_PRELOAD that lets one system call on files below a folder fail, or ends the
// program there. The environment tells what happens (read again by faults_read_environment):
//
//   FAULTS_ROOT   only files and folders below this one count; nothing happens while it is unset
//   FAULTS_AT     the number of the call, from 1; 0 only counts
//   FAULTS_MODE   eio     the call fails with EIO
//                 enospc  the call fails with ENOSPC
//                 short   a write writes half of its bytes; the next one to the file fails (ENOSPC)
//                 dead    this call and all later ones fail with EIO
//                 kill    the process is killed instead of the call
//                 gone    the folder FAULTS_GONE is renamed away before the call, as when a memory
//                         is pulled (to the same name with ".gone" behind it)
//   FAULTS_TRACE  a file that gets a line for each call, in their order: its name and the path; for
//                 a rename " -> " and the new path, for an open file " #" and its handle behind it.
//                 Lines that are no calls: "handle" for what an open gave, "failed" behind a call
//                 that had to fail, "say" for what the program told
//
// Counted are the calls that open, write, flush, truncate, rename, remove or close a file or make a
// folder. Flushes that succeed are only traced, not carried out: what is in the page cache outlives
// a killed process, and the tests are quicker. What they would have brought to the medium, and
// whether in the right order, is told from the trace (check_order.py).
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

namespace
{

constexpr int maxHandles = 4096;

struct Plan {
    std::string root;
    std::string mode;
    std::string gone;
    long at = 0;
    long count = 0;
    int trace = -1;
};

Plan &plan()
{
    static Plan instance;
    return instance;
}

std::string paths[maxHandles]; ///< of the open files that count, by handle
bool full[maxHandles];         ///< the next write to this handle fails

template <typename Function>
Function next(const char *name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

#define REAL(name) (next<decltype(&::name)>(#name))

std::string environment(const char *name)
{
    const char *const value = std::getenv(name);
    return value != nullptr ? value : "";
}

std::string absolute(const char *path)
{
    if (path[0] == '/')
        return path;
    char folder[PATH_MAX];
    return getcwd(folder, sizeof folder) != nullptr ? std::string(folder) + '/' + path : path;
}

bool counts(const std::string &path)
{
    const std::string &root = plan().root;
    return !root.empty() && path.compare(0, root.size(), root) == 0 &&
           (path.size() == root.size() || path[root.size()] == '/');
}

void trace(const char *call, const std::string &path)
{
    if (plan().trace < 0)
        return;
    const std::string line = std::string(call) + ' ' + path + '\n';
    REAL(write)(plan().trace, line.data(), line.size());
}

/** Counts a call; true, with errno set, when it has to fail. */
bool fails(const char *call, const std::string &path)
{
    Plan &p = plan();
    ++p.count;
    trace(call, path);
    const bool isAt = p.at > 0 && p.count == p.at;
    if (isAt && p.mode == "kill") {
        kill(getpid(), SIGKILL);
        pause();
    }
    if (isAt && p.mode == "gone") {
        REAL(rename)(p.gone.c_str(), (p.gone + ".gone").c_str());
        return false;
    }
    const bool isDead = p.mode == "dead" && p.at > 0 && p.count >= p.at;
    if (!isDead && (!isAt || p.mode == "short"))
        return false;
    trace("failed", call);
    errno = p.mode == "enospc" ? ENOSPC : EIO;
    return true;
}

bool isTracked(int handle)
{
    return handle >= 0 && handle < maxHandles && !paths[handle].empty();
}

/** How the trace names an open file. */
std::string named(int handle)
{
    return paths[handle] + " #" + std::to_string(handle);
}

int track(int handle, const std::string &path)
{
    if (handle >= 0 && handle < maxHandles) {
        paths[handle] = path;
        full[handle] = false;
    }
    return handle;
}

/** A call with these flags has the new file's permissions as one more argument. */
bool hasMode(int flags)
{
    return (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
}

/** What the trace calls it: reading, writing or making a file. */
const char *openName(int flags)
{
    if ((flags & O_CREAT) != 0)
        return "create";
    return (flags & O_ACCMODE) == O_RDONLY ? "openread" : "open";
}

template <typename Open>
int openCounted(const char *path, int flags, const Open &open)
{
    const std::string full = absolute(path);
    if (!counts(full))
        return open();
    if (fails(openName(flags), full))
        return -1;
    const int handle = track(open(), full);
    trace(handle < 0 ? "refused" : "handle", handle < 0 ? full : named(handle));
    return handle;
}

template <typename Change>
int changeCounted(const char *call, const char *path, const Change &change)
{
    const std::string full = absolute(path);
    return counts(full) && fails(call, full) ? -1 : change();
}

template <typename Write>
ssize_t writeCounted(int handle, size_t size, const Write &write)
{
    if (!isTracked(handle))
        return write(size);
    Plan &p = plan();
    if (fails("write", named(handle)))
        return -1;
    if (full[handle]) {
        full[handle] = false;
        errno = ENOSPC;
        return -1;
    }
    if (p.mode != "short" || p.count != p.at)
        return write(size);
    full[handle] = true;
    return write(size / 2);
}

template <typename Sync>
int syncCounted(const char *call, int handle, const Sync &sync)
{
    if (!isTracked(handle))
        return sync();
    return fails(call, named(handle)) ? -1 : 0;
}

template <typename Rename>
int renameCounted(const char *from, const char *to, const Rename &rename)
{
    const std::string full = absolute(from);
    const std::string target = absolute(to);
    if (counts(full) && fails("rename", full + " -> " + target))
        return -1;
    const int result = rename();
    // An open file keeps its handle under its new name.
    for (std::string &path : paths) {
        if (result == 0 && path == full)
            path = target;
    }
    return result;
}

} // namespace

extern "C" {

/** Puts what the program says among the calls of the trace. */
void faults_note(const char *text)
{
    trace("say", text);
}

__attribute__((constructor)) void faults_read_environment()
{
    Plan &p = plan();
    p.root = environment("FAULTS_ROOT");
    p.mode = environment("FAULTS_MODE");
    p.gone = environment("FAULTS_GONE");
    p.at = std::atol(environment("FAULTS_AT").c_str());
    p.count = 0;
    const std::string traceFile = environment("FAULTS_TRACE");
    if (!traceFile.empty() && p.trace < 0)
        p.trace = REAL(open)(traceFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
}

int open(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = hasMode(flags) ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return openCounted(path, flags, [&] { return REAL(open)(path, flags, mode); });
}

int open64(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = hasMode(flags) ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return openCounted(path, flags, [&] { return REAL(open64)(path, flags, mode); });
}

int openat(int folder, const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = hasMode(flags) ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    const auto real = [&] { return REAL(openat)(folder, path, flags, mode); };
    return folder == AT_FDCWD || path[0] == '/' ? openCounted(path, flags, real) : real();
}

FILE *fopen64(const char *path, const char *mode)
{
    const std::string full = absolute(path);
    if (!counts(full))
        return REAL(fopen64)(path, mode);
    if (fails(mode[0] == 'r' ? "openread" : "create", full))
        return nullptr;
    FILE *const file = REAL(fopen64)(path, mode);
    if (file != nullptr)
        trace("handle", named(track(fileno(file), full)));
    return file;
}

FILE *fopen(const char *path, const char *mode)
{
    return fopen64(path, mode);
}

int fclose(FILE *file)
{
    const int handle = fileno(file);
    if (!isTracked(handle))
        return REAL(fclose)(file);
    const bool failing = fails("close", named(handle));
    const int error = errno;
    track(handle, "");
    const int result = REAL(fclose)(file);
    if (!failing)
        return result;
    errno = error;
    return EOF;
}

int close(int handle)
{
    if (!isTracked(handle))
        return REAL(close)(handle);
    const bool failing = fails("close", named(handle));
    const int error = errno;
    track(handle, "");
    const int result = REAL(close)(handle);
    if (!failing)
        return result;
    errno = error;
    return -1;
}

ssize_t write(int handle, const void *bytes, size_t size)
{
    return writeCounted(handle, size,
                        [&](size_t written) { return REAL(write)(handle, bytes, written); });
}

ssize_t pwrite64(int handle, const void *bytes, size_t size, off64_t position)
{
    return writeCounted(handle, size, [&](size_t written) {
        return REAL(pwrite64)(handle, bytes, written, position);
    });
}

int fsync(int handle)
{
    return syncCounted("flush", handle, [&] { return REAL(fsync)(handle); });
}

int fdatasync(int handle)
{
    return syncCounted("flush", handle, [&] { return REAL(fdatasync)(handle); });
}

int syncfs(int handle) noexcept
{
    return syncCounted("flushall", handle, [&] { return REAL(syncfs)(handle); });
}

/** Not counted: a second handle changes nothing. Closing it can fail like closing the first. */
int dup(int handle) noexcept
{
    const int second = REAL(dup)(handle);
    if (isTracked(handle) && second >= 0)
        trace("handle", named(track(second, paths[handle])));
    return second;
}

int ftruncate64(int handle, off64_t size)
{
    return isTracked(handle) && fails("truncate", named(handle)) ? -1
                                                                 : REAL(ftruncate64)(handle, size);
}

int ftruncate(int handle, off_t size)
{
    return ftruncate64(handle, size);
}

int truncate64(const char *path, off64_t size)
{
    return changeCounted("truncate", path, [&] { return REAL(truncate64)(path, size); });
}

int truncate(const char *path, off_t size)
{
    return truncate64(path, size);
}

int rename(const char *from, const char *to)
{
    return renameCounted(from, to, [&] { return REAL(rename)(from, to); });
}

int renameat2(int fromFolder, const char *from, int toFolder, const char *to, unsigned flags)
{
    return renameCounted(from, to,
                         [&] { return REAL(renameat2)(fromFolder, from, toFolder, to, flags); });
}

int unlink(const char *path)
{
    return changeCounted("remove", path, [&] { return REAL(unlink)(path); });
}

int mkdir(const char *path, mode_t mode)
{
    return changeCounted("mkdir", path, [&] { return REAL(mkdir)(path, mode); });
}

/** Calls that copy without passing their bytes through the program: none may slip by uncounted. */
ssize_t sendfile64(int to, int from, off64_t *position, size_t size)
{
    using SendFile = ssize_t (*)(int, int, off64_t *, size_t);
    return writeCounted(to, size, [&](size_t written) {
        return next<SendFile>("sendfile64")(to, from, position, written);
    });
}

ssize_t copy_file_range(int from, off64_t *fromPosition, int to, off64_t *toPosition, size_t size,
                        unsigned flags)
{
    return writeCounted(to, size, [&](size_t written) {
        return REAL(copy_file_range)(from, fromPosition, to, toPosition, written, flags);
    });
}

} // extern "C"
