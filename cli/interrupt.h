// The user's wish to stop: Ctrl+C, or a signal to end.
#pragma once

namespace interrupt
{

/** From now on SIGINT and SIGTERM do not end the program: it stops between two files. */
void catchSignals();

/** True once one of the signals came. */
bool isRequested();

/** Stops as if a signal had come: the program that reads the output has ended. */
void request();

} // namespace interrupt
