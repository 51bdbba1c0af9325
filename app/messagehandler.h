// The two handlers through which every diagnostic line of the program passes.
#pragma once

#include <QtGlobal>

/**
 * Appends the message to "log.txt" in the working directory: a time stamp in brackets, a one-letter
 * level, the message and a line feed. A log that cannot be opened loses the message. Aborts after a
 * fatal message; levels other than debug, warning, critical and fatal are ignored.
 */
void myMessageOutput(QtMsgType type, const char *msg);

/** Discards every message; aborts after a fatal one. */
void dummyMessageOutput(QtMsgType type, const char *msg);

/** From now on messages go through myMessageOutput, as text in the encoding of the locale. */
void installLogHandler();

/** From now on messages go through dummyMessageOutput. */
void installSilentHandler();
