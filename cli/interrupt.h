// The user's wish to stop: Ctrl+C, or a signal to end.
#pragma once

namespace interrupt
{

/** From now on SIGINT and SIGTERM do not end the program: it stops between two files. */
void catchSignals();

/** True once one of the signals came. */
bool isRequested();

/** As if a signal had come: what reads our output has gone. */
void request();

} // namespace interrupt
