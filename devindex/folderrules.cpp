#include "devindex/folderrules.h"

#include "devindex/indexfiles.h"

#include <algorithm>
#include <array>

namespace
{

template <std::size_t Count>
bool isOneOf(const QString &name, const std::array<QLatin1String, Count> &names)
{
    return std::any_of(names.begin(), names.end(), [&name](QLatin1String known) {
        return name.compare(known, Qt::CaseInsensitive) == 0;
    });
}

/** "FOUND.000" and on: what a repair of the file system saved. */
bool isFoundFolder(const QString &name)
{
    constexpr QLatin1String start("FOUND.");
    const QStringView number = QStringView(name).mid(start.size());
    return name.startsWith(start, Qt::CaseInsensitive) && number.size() == 3 &&
           std::all_of(number.begin(), number.end(), [](QChar character) {
               return character >= QLatin1Char('0') && character <= QLatin1Char('9');
           });
}

} // namespace

bool isPlayerFolder(const QString &name)
{
    return isOneOf(name, std::array{indexfiles::effectsFolder, indexfiles::bridgeFolder});
}

bool isReservedFolder(const QString &name)
{
    return isPlayerFolder(name) || isOneOf(name, std::array{indexfiles::playlistFolder});
}

bool isSystemFolder(const QString &name)
{
    return isFoundFolder(name) ||
           isOneOf(name, std::array{QLatin1String("System Volume Information"),
                                    QLatin1String("$RECYCLE.BIN"), QLatin1String("RECYCLER"),
                                    QLatin1String("LOST.DIR")});
}

bool isRepairFolder(const QString &name)
{
    return name == QLatin1String("lost+found");
}
