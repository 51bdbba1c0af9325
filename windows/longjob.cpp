#include "windows/longjob.h"

#include "windows/desktopbus.h"
#include "windows/jobnotice.h"

namespace
{

constexpr int wholePercent = 100;
constexpr int taskbarMilliseconds = 3000; ///< until then nobody has looked for another window
int longFrom = LongJob::longMilliseconds;

} // namespace

LongJob::LongJob(const QString &title)
    : m_title(title)
{
    m_age.start();
}

LongJob::~LongJob()
{
    if (m_shownPercent >= 0)
        desktopbus::hideProgress();
    if (m_age.elapsed() >= longFrom)
        JobNotice::expect(m_title);
}

void LongJob::setProgress(int done, int maximum)
{
    if (maximum <= 0 || m_age.elapsed() < qMin(taskbarMilliseconds, longFrom))
        return;
    const int percent = static_cast<int>(wholePercent * qint64{qBound(0, done, maximum)} / maximum);
    if (percent == m_shownPercent)
        return;
    m_shownPercent = percent;
    desktopbus::showProgress(static_cast<double>(percent) / wholePercent);
}

void LongJob::isOver()
{
    JobNotice::tell();
}

void LongJob::setLongFrom(int milliseconds)
{
    longFrom = milliseconds;
}
