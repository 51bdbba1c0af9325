#include "devindex/unlistedsongs.h"

#include "devindex/devicetext.h"
#include "devindex/namekey.h"
#include "devindex/samefile.h"

#include <QHash>

#include <algorithm>
#include <utility>

namespace
{

/** What the index has instead of a character that it cannot hold: several files can share a path.
 */
constexpr char sharedCharacter = '?';

QString keyInIndex(const QByteArray &path)
{
    return nameKey(textFromIbm850(path));
}

} // namespace

QList<unlistedsongs::Song> unlistedsongs::find(const QString &root, const QStringList &files,
                                               const QList<QByteArray> &listed)
{
    QHash<QByteArray, int> entries;
    for (const QByteArray &path : listed)
        entries[path] = path.contains(sharedCharacter) ? entries.value(path) + 1 : 1;

    QHash<QString, QStringList> withEntry; // by nameKey()
    QStringList left;
    for (const QString &file : files) {
        const auto entry = entries.find(ibm850FromText(file));
        if (entry == entries.end() || *entry == 0) {
            left.append(file);
            continue;
        }
        --*entry;
        withEntry[nameKey(file)].append(file);
    }
    QHash<QString, int> otherwiseSpelled;
    for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry)
        otherwiseSpelled[keyInIndex(entry.key())] += *entry;

    QList<Song> songs;
    for (const QString &file : std::as_const(left)) {
        const QString key = nameKey(file);
        const QStringList candidates = withEntry.value(key);
        const auto twin =
            std::find_if(candidates.cbegin(), candidates.cend(), [&file](const QString &other) {
                return other.compare(file, Qt::CaseInsensitive) == 0;
            });
        if (twin != candidates.cend()) {
            if (!isSameFile(root + *twin, root + file))
                songs.append({file, true});
            continue;
        }
        int &entriesLeft = otherwiseSpelled[keyInIndex(ibm850FromText(file))];
        if (entriesLeft == 0) {
            songs.append({file, false});
            continue;
        }
        --entriesLeft;
        withEntry[key].append(file);
    }
    return songs;
}
