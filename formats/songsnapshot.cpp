#include "formats/songsnapshot.h"

#include "formats/metasong.h"
#include "formats/mp3header.h"
#include "formats/mp3song.h"
#include "formats/songnames.h"
#include "formats/songreading.h"
#include "formats/songsaving.h"
#include "storage/songfilewriter.h"
#include "storage/songlayout.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>
#include <QtEndian>

#include <algorithm>
#include <array>

namespace
{

/** So much of the audio's start and of its end counts for the digest. */
constexpr qint64 audioPiece = 65536;

bool isMp3File(QFile &file)
{
    constexpr qint64 startSize = 4;
    return Mp3Song::isMp3(file.fileName(), file.peek(startSize));
}

bool addBytes(QCryptographicHash &hash, QFile &file, qint64 pos, qint64 size)
{
    const QByteArray bytes = file.seek(pos) ? file.read(size) : QByteArray();
    hash.addData(bytes);
    return bytes.size() == size;
}

/** False when the file cannot be read or changes meanwhile. */
bool addAudio(QCryptographicHash &hash, QFile &file, qint64 start)
{
    const qint64 audio = file.size() - start;
    std::array<char, sizeof(qint64)> length{};
    qToBigEndian(audio, length.data());
    hash.addData(QByteArrayView(length.data(), length.size()));
    const qint64 piece = std::min(audio, audioPiece);
    return audio >= 0 && addBytes(hash, file, start, piece) &&
           addBytes(hash, file, file.size() - piece, piece);
}

} // namespace

std::optional<SongSnapshot> SongSnapshot::of(const QString &path)
{
    QFile file(path);
    if (!SongFileWriter::recover(path) || !songreading::openSong(file) ||
        !MetaSong::hasKnownFormat(file))
        return {};
    SongSnapshot snapshot;
    snapshot.size = file.size();
    QCryptographicHash hash(QCryptographicHash::Blake2b_256);
    snapshot.isTag = isMp3File(file);
    if (snapshot.isTag) {
        const std::optional<qint64> audio = Mp3Song::audioStart(file);
        if (!audio || !file.seek(0))
            return {};
        snapshot.bytes = file.read(*audio);
        hash.addData(snapshot.bytes);
        if (snapshot.bytes.size() != *audio || !addAudio(hash, file, *audio))
            return {};
    } else {
        if (!songreading::readToEnd(file, snapshot.bytes))
            return {};
        hash.addData(snapshot.bytes);
    }
    snapshot.digest = hash.result();
    return snapshot;
}

SongInfo SongSnapshot::info(const QString &name) const
{
    SongInfo info;
    QTemporaryFile copy(QDir(QDir::tempPath()).filePath(QStringLiteral("kavena.XXXXXX.")) +
                        QFileInfo(name).suffix());
    if (!copy.open() || copy.write(bytes) != bytes.size() || !copy.flush())
        return info;
    MetaSong song;
    if (song.importFile(copy.fileName()))
        song.getSongInfo(info);
    info.fileName = name;
    info.shortName = QFileInfo(name).fileName();
    return info;
}

bool SongSnapshot::isSound() const
{
    if (isTag)
        return bytes.isEmpty() || bytes.startsWith(songlayout::id3Magic);
    return QCryptographicHash::hash(bytes, QCryptographicHash::Blake2b_256) == digest;
}

std::optional<bool> SongSnapshot::fitsAudioOf(const QString &path) const
{
    if (!isTag)
        return isSound();
    QFile file(path);
    if (!songreading::openRegularFile(file))
        return {};
    const std::optional<qint64> audio = Mp3Song::audioStart(file);
    QCryptographicHash hash(QCryptographicHash::Blake2b_256);
    hash.addData(bytes);
    if (!audio || !addAudio(hash, file, *audio))
        return {};
    return hash.result() == digest;
}

bool SongSnapshot::holdsItsTag() const
{
    if (!isTag || bytes.isEmpty())
        return true;
    // What follows the tag, a second one perhaps, was kept with it.
    return bytes.startsWith(songlayout::id3Magic) && bytes.size() >= Mp3Header::headerSize &&
           Mp3Header::headerSize + qint64{Mp3Header().getId3TagSize(bytes)} <= bytes.size();
}

SaveFailure SongSnapshot::restore(const QString &path) const
{
    QFile file(path);
    if (!SongFileWriter::recover(path) || !songreading::openRegularFile(file))
        return loadFailureOf(path);
    // Nothing but songs is ever written, whatever somebody has put into the history.
    if (isMp3File(file) != isTag ||
        (!MetaSong::hasKnownFormat(path) && !songnames::isSongName(path)))
        return SaveFailure::Unreadable;
    if (!isTag) {
        file.close();
        return songsaving::rewrite(path, [this] { return bytes; });
    }
    const std::optional<qint64> audio = Mp3Song::audioStart(file);
    return audio ? songsaving::replaceHead(path, bytes, file, *audio) : loadFailureOf(path);
}
