// Keeps the windows alive while long work runs.
#pragma once

#include <QElapsedTimer>

#include <functional>

/**
 * Long work runs on the thread of the windows, which react to no click and are not repainted unless
 * the work lets their events run. It does so in one of three ways:
 *
 * - processEventsNow() after each song or folder that was read or written: that takes longer than a
 * look for events, and a click on "stop" has to be noticed before the next one.
 * - processEvents() in loops whose steps are short, such as over the files of a memory: often
 *   enough for a window to feel alive, seldom enough that the loop does not pay for it.
 * - workInBackground() for one step that takes long by itself, such as rewriting a long MP3 or
 *   waiting for a slow stick to take what was written.
 *
 * A progress is painted less often than it is told of steps, since painting takes longer than many
 * steps do.
 *
 * In all cases an event may close, sort or click whatever is not disabled. So the caller first
 * makes sure that no event can start other work or close the window, and the work remembers rows of
 * a table across these calls by persistent indexes, never by numbers.
 */
class KeepAlive
{
public:
    static constexpr int eventsMilliseconds = 20;   ///< between two looks for events
    static constexpr int progressMilliseconds = 40; ///< between two steps of a bar on the screen

    /**
     * Lets pending events run, at most once in eventsMilliseconds. The first call always lets them
     * run.
     */
    void processEvents();

    /** Lets pending events run. */
    static void processEventsNow();

    /** Does the work on a thread of its own while events run here; returns the work's result. */
    static bool workInBackground(const std::function<bool()> &work);

private:
    QElapsedTimer m_sinceLast;
};
