// A job that may take so long that the user does something else meanwhile.
#pragma once

#include <QElapsedTimer>
#include <QString>

/**
 * Lives as long as the job, or a part of it, shows its progress. The taskbar shows it too. When a
 * long job is over, or asks something, and no window of the program is active, the desktop tells
 * the user: at the next dialog that opens, or when isOver() is called. Not at the end of the object
 * itself, since another part of the job may follow, such as the index after the copying.
 */
class LongJob
{
public:
    static constexpr int longMilliseconds = 10000; ///< shorter ones are not told

    explicit LongJob(const QString &title);
    ~LongJob();
    Q_DISABLE_COPY_MOVE(LongJob)

    /** How far the job is; a maximum of 0 or less means that it is not known. */
    void setProgress(int done, int maximum);

    /** Nothing runs any more: what the user was not told yet is told now. */
    static void isOver();

    /** For tests: jobs count as long from here on. */
    static void setLongFrom(int milliseconds);

private:
    const QString m_title;
    QElapsedTimer m_age;
    int m_shownPercent = -1;
};
