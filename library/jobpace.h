// How fast a long job goes, and how long it still takes.
#pragma once

#include <QCoreApplication>
#include <QList>
#include <QString>

#include <functional>
#include <optional>

/**
 * Judges by the last seconds, since a slow medium or a question may have held the job up before.
 * Says nothing about the first seconds, which tell little.
 */
class JobPace
{
    Q_DECLARE_TR_FUNCTIONS(JobPace)

public:
    static constexpr qint64 silentMilliseconds = 3000;
    static constexpr qint64 judgedMilliseconds = 20000;

    /** A clock that never goes back, in milliseconds. */
    using Clock = std::function<qint64()>;

    /** The job begins now. */
    explicit JobPace(Clock clock);

    /**
     * So many of all steps are done; fewer than before means that another part of the job begins.
     * A number of all steps of 0 or less means that it is not known.
     */
    void take(int done, int all);

    /** Steps a second; none in the first seconds and while nothing goes on. */
    std::optional<double> perSecond() const;

    /** None where perSecond() is none, where the number of steps is not known, and at the end. */
    std::optional<double> secondsLeft() const;

    /** Both in words, for steps that are songs; empty where there is nothing to say. */
    QString text() const;

    /** As text(), for these numbers; a part that is none is left out. */
    static QString text(std::optional<double> perSecond, std::optional<double> secondsLeft);

private:
    struct Step {
        qint64 time;
        int done;
    };

    static QString paceText(double perSecond);
    static QString leftText(double seconds);

    Clock m_clock;
    qint64 m_begin;
    QList<Step> m_steps; ///< of the last seconds; at most some a second
    Step m_last;
    int m_all = 0;
};
