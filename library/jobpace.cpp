#include "library/jobpace.h"

#include <QLocale>

#include <cmath>
#include <utility>

namespace
{
constexpr qint64 keptEveryMilliseconds = 500;
constexpr double millisecondsInASecond = 1000;
constexpr double secondsInAMinute = 60;
constexpr double minutesInAnHour = 60;
constexpr double wholeFrom = 10; ///< below, one decimal is shown
constexpr double roundedSeconds = 10;
} // namespace

JobPace::JobPace(Clock clock)
    : m_clock(std::move(clock))
    , m_begin(m_clock())
    , m_last{m_begin, 0}
{
    m_steps.append(m_last);
}

void JobPace::take(int done, int all)
{
    const qint64 now = m_clock();
    m_all = all;
    if (done < m_last.done) {
        m_begin = now;
        m_steps = {{now, done}};
    }
    m_last = {now, done};
    if (now - m_steps.constLast().time >= keptEveryMilliseconds)
        m_steps.append(m_last);
    // One that is older stays, so that a job with rare steps has a pace too.
    while (m_steps.size() > 2 && now - m_steps.at(1).time > judgedMilliseconds)
        m_steps.removeFirst();
}

std::optional<double> JobPace::perSecond() const
{
    const Step &first = m_steps.constFirst();
    if (m_last.time - m_begin < silentMilliseconds || m_last.done <= first.done)
        return std::nullopt;
    return (m_last.done - first.done) * millisecondsInASecond /
           static_cast<double>(m_last.time - first.time);
}

std::optional<double> JobPace::secondsLeft() const
{
    const std::optional<double> pace = perSecond();
    if (!pace || m_last.done >= m_all)
        return std::nullopt;
    return (m_all - m_last.done) / *pace;
}

QString JobPace::text() const
{
    return text(perSecond(), secondsLeft());
}

QString JobPace::text(std::optional<double> perSecond, std::optional<double> secondsLeft)
{
    QStringList parts;
    if (perSecond)
        parts.append(paceText(*perSecond));
    if (secondsLeft)
        parts.append(leftText(*secondsLeft));
    return parts.join(QStringLiteral(" – "));
}

QString JobPace::paceText(double perSecond)
{
    const auto number = [](double value) {
        return QLocale().toString(value, 'f', value < wholeFrom ? 1 : 0);
    };
    return perSecond < 1 ? tr("Song al minuto: %1").arg(number(perSecond * secondsInAMinute))
                         : tr("Song al secondo: %1").arg(number(perSecond));
}

/** Rounded up: nobody is glad about a time that was too short. */
QString JobPace::leftText(double seconds)
{
    if (seconds <= secondsInAMinute - roundedSeconds)
        return tr("ancora %n secondi circa", "",
                  static_cast<int>(std::ceil(seconds / roundedSeconds) * roundedSeconds));
    const double minutes = std::ceil(seconds / secondsInAMinute);
    if (minutes < 2 * minutesInAnHour)
        return tr("ancora %n minuti circa", "", static_cast<int>(minutes));
    constexpr double mostHours = 1000;
    return tr("ancora %n ore circa", "",
              static_cast<int>(std::fmin(std::ceil(minutes / minutesInAnHour), mostHours)));
}
