#include "devindex/transferplan.h"

#include "devindex/memorydevice.h"
#include "devindex/songinfoindex.h"

#include <algorithm>

QString TransferPlan::Item::destination() const
{
    switch (remedy) {
    case Remedy::Copy:
    case Remedy::Replace:
        return target;
    case Remedy::KeepBoth:
        return keepBothTarget;
    case Remedy::SubFolder:
        return subFolderTarget;
    case Remedy::Skip:
    case Remedy::Remove:
        break;
    }
    return {};
}

qint64 TransferPlan::Item::growth() const
{
    switch (remedy) {
    case Remedy::Skip:
        return 0;
    case Remedy::Remove:
        return -room;
    case Remedy::Replace:
        return room - roomThere;
    case Remedy::Copy:
    case Remedy::KeepBoth:
    case Remedy::SubFolder:
        break;
    }
    return room;
}

QList<TransferPlan::Remedy> TransferPlan::Item::remedies() const
{
    QList<Remedy> all;
    switch (state) {
    case State::New:
        all = {Remedy::Copy, Remedy::SubFolder};
        break;
    case State::Differs:
        all = {Remedy::Replace, Remedy::KeepBoth, Remedy::SubFolder};
        break;
    case State::Renamed:
    case State::Collides:
        all = {Remedy::KeepBoth, Remedy::SubFolder};
        break;
    case State::TooLong:
        all = {Remedy::KeepBoth};
        break;
    case State::Remove:
        all = {Remedy::Remove};
        break;
    case State::Same:
    case State::Unreadable:
        break;
    }
    all.removeIf([this](Remedy choice) {
        return (choice == Remedy::KeepBoth && keepBothTarget.isEmpty()) ||
               (choice == Remedy::SubFolder && subFolderTarget.isEmpty());
    });
    all.append(Remedy::Skip);
    return all;
}

void TransferPlan::choose(const QList<int> &numbers, Remedy remedy)
{
    for (const int number : numbers) {
        Item &item = items[number];
        if (item.remedies().contains(remedy))
            item.remedy = remedy;
    }
}

bool TransferPlan::isMemoryThere() const
{
    const QByteArray now = memoryDevice(root);
    return !now.isEmpty() && (device.isEmpty() || now == device);
}

qint64 TransferPlan::bytesNeeded() const
{
    qint64 bytes = 0;
    for (const Item &item : items)
        bytes += std::max<qint64>(item.growth(), 0);
    return bytes;
}

qint64 TransferPlan::songsAfter() const
{
    qint64 songs = songsThere;
    for (const Item &item : items) {
        const bool isOneMore =
            !item.destination().isEmpty() && !(item.isThere && item.destination() == item.target);
        songs += isOneMore ? 1 : 0;
        songs -= item.remedy == Remedy::Remove ? 1 : 0;
    }
    return songs;
}

int TransferPlan::count(State state) const
{
    return static_cast<int>(std::count_if(
        items.cbegin(), items.cend(), [state](const Item &item) { return item.state == state; }));
}

int TransferPlan::count(Remedy remedy) const
{
    return static_cast<int>(std::count_if(items.cbegin(), items.cend(), [remedy](const Item &item) {
        return item.remedy == remedy;
    }));
}

bool TransferPlan::fits() const
{
    return freeBytes < 0 || bytesNeeded() <= freeBytes;
}

bool TransferPlan::canBeIndexed() const
{
    return songsAfter() <= SongInfoIndex::maxSongs;
}

bool TransferPlan::needsReview() const
{
    return !fits() || !canBeIndexed() ||
           std::any_of(items.cbegin(), items.cend(), [](const Item &item) {
               return item.state == State::Renamed ||
                      (item.state == State::Collides && !item.isTwin);
           });
}
