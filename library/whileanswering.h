// Lets the windows answer while the disk is at work.
#pragma once

#include <functional>

/**
 * Does the work on a thread of its own and processes events until it is done: rewriting a long MP3,
 * or waiting for a slow stick to take what was written, would else freeze the windows. Returns what
 * the work returned. The caller sees to it that no event starts anything that the work uses.
 */
bool whileAnswering(const std::function<bool()> &work);
