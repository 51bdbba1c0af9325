#include "library/songentries.h"

#include "formats/metasong.h"
#include "library/keepalive.h"
#include "library/owncatalogue.h"
#include "library/unreadablefile.h"

#include <QFileInfo>
#include <QSet>

SongEntries SongEntries::read(const QStringList &paths, Progress &progress)
{
    SongEntries result;
    QSet<QString> names;
    int done = 0;
    for (const QString &path : paths) {
        if (progress.wasCanceled()) {
            result.isStopped = true;
            break;
        }
        if (MetaSong::takesLongToImport(path))
            progress.catchUp();
        MetaSong song;
        SongInfo info;
        const bool isRead = song.importFile(path);
        song.getSongInfo(info);
        info.shortName = QFileInfo(path).fileName();
        const SongsDbRecord entry = OwnCatalogue::entryOf(info);
        if (!isRead)
            result.failures.append(
                {path, UnreadableFile::examine(path, song.wasInUse()).reasonText()});
        else if (!OwnCatalogue::isValid(entry))
            result.failures.append({path, tr("Senza titolo o nome non può stare nel catalogo")});
        else if (names.contains(entry.filename))
            result.failures.append({path, tr("Un'altra song ha lo stesso nome")});
        else {
            result.entries.append(entry);
            result.paths.append(path);
        }
        names.insert(entry.filename);
        progress.updateProgress(++done);
        KeepAlive::processEventsNow();
    }
    return result;
}
