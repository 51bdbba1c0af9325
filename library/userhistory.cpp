#include "library/userhistory.h"

#include "library/settings.h"

#include <QFileInfo>
#include <QSettings>

#include <algorithm>
#include <utility>

UserHistory::UserHistory(HistoryRecorder::AskWithout askWithout,
                         HistoryRecorder::TellDropped tellDropped)
    : m_askWithout(std::move(askWithout))
    , m_tellDropped(std::move(tellDropped))
    , m_store(HistoryStore::defaultPath())
{
}

HistoryStore::State UserHistory::open()
{
    if (!QFileInfo::exists(m_store.path()))
        return HistoryStore::State::Closed;
    const HistoryStore::State state = m_store.open();
    m_store.settle();
    return state;
}

OpenHistory UserHistory::opener()
{
    return [this](HistoryJob::Kind kind) { return recorder(kind); };
}

std::unique_ptr<HistoryRecorder> UserHistory::recorder(HistoryJob::Kind kind, qint64 takesBack)
{
    constexpr qint64 megabyte = qint64{1024} * 1024;
    m_store.setLimit(limit() * megabyte);
    auto recorder = std::make_unique<HistoryRecorder>(m_store, kind, m_askWithout, takesBack);
    recorder->setTellDropped(m_tellDropped);
    return recorder;
}

std::optional<HistoryJob> UserHistory::last(const QList<HistoryJob> &jobs)
{
    const auto found = std::find_if(jobs.cbegin(), jobs.cend(), [](const HistoryJob &job) {
        return job.kind != HistoryJob::Kind::TakeBack && !job.isUndone;
    });
    return found == jobs.cend() ? std::nullopt : std::optional(*found);
}

bool UserHistory::isTakenBack(const HistoryJob &job, const QList<HistoryJob> &jobs)
{
    // Each job is taken back by later ones only, so that this ends.
    bool isTakenBack = false;
    qint64 number = job.takenBackBy;
    for (qint64 before = job.number; number > before;) {
        isTakenBack = !isTakenBack;
        const auto next =
            std::find_if(jobs.cbegin(), jobs.cend(),
                         [number](const HistoryJob &other) { return other.number == number; });
        before = number;
        number = next == jobs.cend() ? 0 : next->takenBackBy;
    }
    return isTakenBack;
}

int UserHistory::limit()
{
    const QSettings preferences(settings::organisation, settings::application);
    bool isNumber = false;
    const int stored = preferences.value(settings::historyLimit, defaultLimit).toInt(&isNumber);
    return isNumber ? qBound(smallestLimit, stored, largestLimit) : defaultLimit;
}

void UserHistory::setLimit(int megabytes)
{
    QSettings(settings::organisation, settings::application)
        .setValue(settings::historyLimit, megabytes);
}
