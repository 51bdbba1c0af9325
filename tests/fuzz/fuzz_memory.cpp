// Any bytes as the index files and playlists of a memory: load, rewrite, restore, update.
#include "devindex/index.h"
#include "devindex/indexfiles.h"
#include "fuzzing.h"
#include "library/answer.h"

#include <QDir>
#include <QFile>
#include <QMap>

#include <algorithm>

namespace
{

using fuzzing::readFile;
using fuzzing::writeFile;

const QByteArray smallSong("MThd\0\0\0\x06\0\0\0\x01\0\x60MTrk\0\0\0\x04\0\xFF\x2F\0", 26);

QString at(const QString &root, QLatin1String name)
{
    return root + QLatin1Char('/') + name;
}

/** Lays the files out anew: the sections of the input, the rest of an index, two songs. */
QString layOut(fuzzing::Input &input)
{
    static const QString root = fuzzing::memoryFolder();
    QDir(root).removeRecursively();
    FUZZ_REQUIRE(QDir().mkpath(at(root, indexfiles::playlistFolder)));
    const quint8 options = input.byte();
    for (const QLatin1String name : indexfiles::all)
        writeFile(at(root, name), QByteArray());
    for (const QLatin1String name :
         {indexfiles::path, indexfiles::title, indexfiles::artist, indexfiles::genre})
        writeFile(at(root, name), input.longBytes());
    if ((options & 1) != 0)
        QFile::remove(at(root, indexfiles::count));
    if ((options & 2) != 0) {
        writeFile(root + QLatin1String("/A.MID"), smallSong);
        writeFile(root + QLatin1String("/B.MP3"), smallSong);
    }
    writeFile(at(root, indexfiles::playlistList), input.longBytes());
    for (const char *name : {"play0001.dat", "play0001.pts", "play0258.dat", "play0258.pts"}) {
        const QByteArray bytes = input.longBytes();
        if (!bytes.isEmpty())
            writeFile(at(root, indexfiles::playlistFolder) + QLatin1Char('/') + QLatin1String(name),
                      bytes);
    }
    return root;
}

/** The playlists' own files by name; the path files are the program's. */
QMap<QString, QByteArray> playlists(const QString &root)
{
    QMap<QString, QByteArray> files;
    const QDir folder(at(root, indexfiles::playlistFolder));
    for (const QString &name : folder.entryList({QStringLiteral("*.dat")}, QDir::Files))
        files.insert(name, readFile(folder.filePath(name)));
    return files;
}

/** Ids may have changed in a playlist; the player's own bytes and the list of playlists not. */
void requireOnlyIdsChanged(const QMap<QString, QByteArray> &before,
                           const QMap<QString, QByteArray> &after)
{
    FUZZ_REQUIRE(before.keys() == after.keys());
    for (auto file = before.cbegin(); file != before.cend(); ++file) {
        const QByteArray now = after.value(file.key());
        FUZZ_REQUIRE(now.size() == file->size());
        const bool isList = !file.key().startsWith(QLatin1String("play0"));
        for (qsizetype i = 0; i < now.size(); ++i)
            FUZZ_REQUIRE(now.at(i) == file->at(i) || (!isList && i % 32 < 4));
    }
}

bool isSame(const SongInfoIndex &a, const SongInfoIndex &b)
{
    return a.id == b.id && a.path == b.path && a.date == b.date && a.time == b.time &&
           a.posidx == b.posidx;
}

bool hasSameTexts(const SongInfoIndex &a, const SongInfoIndex &b)
{
    return a.title == b.title && a.artist == b.artist && a.genre == b.genre && a.bpm == b.bpm &&
           a.fileType == b.fileType && a.hasMarkers == b.hasMarkers;
}

QList<SongInfoIndex> loaded(const QString &root, bool &isSound)
{
    Index index;
    index.rootPath = root;
    isSound = index.loadAllIndexFile() == 0;
    FUZZ_REQUIRE(isSound || index.entries.isEmpty());
    FUZZ_REQUIRE(!isSound ||
                 readFile(at(root, indexfiles::path)).size() == 64 * index.entries.size());
    return index.entries;
}

/** Writes the four files that are read back. */
void rewrite(const QString &root, const QList<SongInfoIndex> &entries)
{
    Index index;
    index.rootPath = root;
    index.entries = entries;
    FUZZ_REQUIRE(index.writePathIndex() >= 0);
    FUZZ_REQUIRE(index.writeTitleIndex(indexfiles::title) >= 0);
    FUZZ_REQUIRE(index.writeArtistIndex(indexfiles::artist) >= 0);
    FUZZ_REQUIRE(index.writeGenreIndex(indexfiles::genre) >= 0);
    FUZZ_REQUIRE(index.writeAlphaBuffer(indexfiles::alphaGenre) >= 0);
}

/** What was loaded can be written and comes back the same; texts after one change at most. */
void requireStable(const QString &root, const QList<SongInfoIndex> &first)
{
    bool isSound = false;
    rewrite(root, first);
    const QList<SongInfoIndex> second = loaded(root, isSound);
    FUZZ_REQUIRE(isSound &&
                 std::equal(first.begin(), first.end(), second.begin(), second.end(), isSame));
    rewrite(root, second);
    const QList<SongInfoIndex> third = loaded(root, isSound);
    FUZZ_REQUIRE(isSound && std::equal(second.begin(), second.end(), third.begin(), third.end(),
                                       hasSameTexts));
}

bool holdsSong(const QList<SongInfoIndex> &entries, const char *path)
{
    return std::any_of(entries.begin(), entries.end(), [path](const SongInfoIndex &entry) {
        return entry.path.compare(QLatin1String(path), Qt::CaseInsensitive) == 0;
    });
}

void update(const QString &root)
{
    Index index;
    index.setRenameQuestion(
        [](const QString &, const QString &) -> Answer { return Answer::NoToAll; });
    int refused = 0; // where the ids have run out, a song is refused with a message
    QObject::connect(&index, &Index::errorFromIndex, [&refused] { ++refused; });
    const bool updated = index.updateIndex(root);
    bool isSound = false;
    const QList<SongInfoIndex> entries = loaded(root, isSound);
    FUZZ_REQUIRE(updated == (index.checkIndexFile() && isSound));
    if (!updated || index.filesFound == 0)
        return;
    FUZZ_REQUIRE(refused > 0 || (holdsSong(entries, "/A.MID") && holdsSong(entries, "/B.MP3")));
    for (const SongInfoIndex &entry : entries)
        FUZZ_REQUIRE(QFile::exists(entry.fullPath));
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzzing::Input input(data, size);
    const QString root = layOut(input);
    const QMap<QString, QByteArray> before = playlists(root);

    bool isSound = false;
    const QList<SongInfoIndex> entries = loaded(root, isSound);
    Index index;
    index.rootPath = root;
    if (index.createPlaylistFilePath())
        FUZZ_REQUIRE(isSound && playlists(root) == before);
    index.entries = entries;
    index.restorePlaylistFilePath();
    requireOnlyIdsChanged(before, playlists(root));

    // A path that fills its field has no zero behind it; an update drops the song.
    const bool fits = std::all_of(entries.begin(), entries.end(), [](const SongInfoIndex &entry) {
        return entry.path.size() <= 45;
    });
    if (isSound && fits && (input.byte() & 1) != 0)
        requireStable(root, entries);
    update(root);
    requireOnlyIdsChanged(before, playlists(root));
    return 0;
}
