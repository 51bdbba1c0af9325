// Keeps the windows alive while long work runs.
#pragma once

#include <QElapsedTimer>

#include <functional>

/**
 * Long work runs on the thread of the windows, which see no click and repaint nothing unless the
 * work lets their events run. It does so in one of three ways:
 *
 * - processEventsNow() after each song or folder that was read or written: it took longer than
 *   looking for events does, and before the next one "stop" must be noticed.
 * - processEvents() in loops whose steps are short, such as over the files of a memory: often
 *   enough for a window to feel alive, seldom enough that the loop does not pay for it.
 * - workInBackground() for one step that takes long by itself, such as rewriting a long MP3 or
 *   waiting for a slow stick to take what was written.
 *
 * A progress is painted at a pace of its own, since painting takes longer than many a step.
 *
 * What holds in all cases: an event may close, sort or click whatever is not disabled. So whoever
 * starts the work first sees to it that no event starts other work or closes the window, and the
 * work keeps rows of a table by persistent indexes, never by numbers, across these calls.
 */
class KeepAlive
{
public:
    static constexpr int eventsMilliseconds = 20;   ///< between two looks for events
    static constexpr int progressMilliseconds = 40; ///< between two steps of a bar on the screen

    /** Lets pending events run, at most once in eventsMilliseconds. The first call always does. */
    void processEvents();

    /** Lets pending events run. */
    static void processEventsNow();

    /** Does the work on a thread of its own while events run here; returns the work's result. */
    static bool workInBackground(const std::function<bool()> &work);

private:
    QElapsedTimer m_sinceLast;
};
