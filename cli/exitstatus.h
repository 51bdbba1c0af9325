// The exit status, by which a script learns how the command ended.
#pragma once

enum class ExitStatus {
    Done = 0,
    WithFailures = 1, ///< something could not be done; each failure was named on standard error
    WrongUse = 2,
    NothingDone = 3 ///< refused, or there was nothing to do
};
