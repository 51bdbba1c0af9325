#include "cli/interrupt.h"

#include <csignal>

namespace
{

volatile std::sig_atomic_t requested = 0;

extern "C" void noteSignal(int)
{
    requested = 1;
}

} // namespace

void interrupt::catchSignals()
{
    // Without SA_RESTART: a read that waits for a pipe or a terminal ends with the signal.
    struct sigaction action = {};
    action.sa_handler = noteSignal;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
#ifdef SIGPIPE
    // Writing to a reader that has gone fails then, and the program stops as after Ctrl+C.
    std::signal(SIGPIPE, SIG_IGN);
#endif
#ifdef SIGXFSZ
    // A file that reaches the user's size limit is a write that fails, not the end of the program.
    std::signal(SIGXFSZ, SIG_IGN);
#endif
}

bool interrupt::isRequested()
{
    return requested != 0;
}

void interrupt::request()
{
    requested = 1;
}
