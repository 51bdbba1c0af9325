#include "storage/songjournal.h"

#include "storage/safefile.h"
#include "storage/songlayout.h"

#include <QCryptographicHash>
#include <QtEndian>

#include <algorithm>

namespace
{

constexpr char magic[] = "KvSongJr";
constexpr quint32 version = 2;

constexpr qsizetype versionPos = 8;
constexpr qsizetype oldSizePos = 12;
constexpr qsizetype newSizePos = 16;
constexpr qsizetype commonStartPos = 20;
constexpr qsizetype commonEndPos = 24;
constexpr qsizetype checksumPos = 28;
constexpr qsizetype checksumSize = 32;
constexpr qsizetype headerSize = checksumPos + checksumSize;

/** What media write at once. A save that is cut off leaves such a piece old or new. */
constexpr qsizetype sectorSize = 512;

/**
 * Sectors that may be old and new in themselves: where a write stopped, where the one that put the
 * old bytes back stopped, and where the shorter of the two songs ends.
 */
constexpr int tornSectors = 3;

/** Hidden, and with no song's suffix: neither an import nor a scan takes it for a song. */
QByteArray suffix(int number)
{
    return number == 0 ? QByteArray("kavena-journal")
                       : "kavena-journal" + QByteArray::number(number);
}

QString nameOf(const QString &song, int number)
{
    return hiddenBeside(song, QLatin1String(suffix(number)));
}

quint32 numberAt(const QByteArray &bytes, qsizetype pos)
{
    return qFromBigEndian<quint32>(bytes.constData() + pos);
}

void putNumber(QByteArray &bytes, qsizetype pos, qsizetype number)
{
    qToBigEndian(static_cast<quint32>(number), bytes.data() + pos);
}

QByteArray checksum(QByteArrayView head, QByteArrayView body)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(head);
    hash.addData(body);
    return hash.result();
}

qsizetype commonStart(const QByteArray &one, const QByteArray &other)
{
    const auto end = one.cbegin() + std::min(one.size(), other.size());
    return std::mismatch(one.cbegin(), end, other.cbegin()).first - one.cbegin();
}

/** At most so many. */
qsizetype commonEnd(const QByteArray &one, const QByteArray &other, qsizetype most)
{
    const auto end = one.crbegin() + most;
    return std::mismatch(one.crbegin(), end, other.crbegin()).first - one.crbegin();
}

/** A MIDI or MFX file that does not say itself that bytes are missing at its end. */
bool isWholeSong(const QByteArray &song)
{
    using namespace songlayout;
    if (song.startsWith(mfxMagic))
        return song.size() >= mfxFileSizePos + qsizetype{sizeof(quint32)} &&
               qFromLittleEndian<quint32>(song.constData() + mfxFileSizePos) <=
                   static_cast<quint64>(song.size());
    if (!song.startsWith(midiMagic))
        return false;
    qint64 pos = 0;
    int tracks = 0;
    while (pos + chunkHeaderSize <= song.size()) {
        tracks += song.mid(pos, chunkSizePos) == midiTrackMagic ? 1 : 0;
        pos += qint64{chunkHeaderSize} + numberAt(song, pos + chunkSizePos);
    }
    return tracks > 0 && pos == song.size();
}

/** A MIDI file that has as many tracks as its header says, and nothing else at its end. */
bool hasItsTracks(const QByteArray &song)
{
    using namespace songlayout;
    if (!song.startsWith(midiMagic) || song.size() < trackCountPos + qsizetype{sizeof(quint16)})
        return false;
    qint64 pos = 0;
    int tracks = 0;
    while (pos + chunkHeaderSize <= song.size()) {
        if (song.at(pos) == '\0') // a place without bytes is no chunk
            return false;
        tracks += song.mid(pos, chunkSizePos) == midiTrackMagic ? 1 : 0;
        pos += qint64{chunkHeaderSize} + numberAt(song, pos + chunkSizePos);
    }
    return pos == song.size() &&
           tracks == qFromBigEndian<quint16>(song.constData() + trackCountPos);
}

/** The bytes from the position on, as many as there are. */
QByteArrayView piece(QByteArrayView bytes, qsizetype pos, qsizetype size)
{
    const qsizetype start = std::min(pos, bytes.size());
    return bytes.sliced(start, std::min(size, bytes.size() - start));
}

/** Each sector is the old or the new one, but for those in which a write may have stopped. */
bool isMadeOf(const QByteArray &oldBytes, const QByteArray &newBytes, const QByteArray &song)
{
    int torn = 0;
    for (qsizetype start = 0; start < song.size(); start += sectorSize) {
        const QByteArrayView now = piece(song, start, sectorSize);
        const QByteArrayView before = piece(oldBytes, start, now.size());
        const QByteArrayView after = piece(newBytes, start, now.size());
        if (now == before || now == after)
            continue;
        for (qsizetype i = 0; i < now.size(); ++i) {
            const bool isOld = i < before.size() && now[i] == before[i];
            const bool isNew = i < after.size() && now[i] == after[i];
            if (!isOld && !isNew)
                return false;
        }
        if (++torn > tornSectors)
            return false;
    }
    return true;
}

} // namespace

QByteArray SongJournal::Content::encode() const
{
    const qsizetype start = commonStart(oldBytes, newBytes);
    const qsizetype end =
        commonEnd(oldBytes, newBytes, std::min(oldBytes.size(), newBytes.size()) - start);
    const QByteArray body = oldBytes + newBytes.mid(start, newBytes.size() - start - end);

    QByteArray head(checksumPos, '\0');
    head.replace(0, versionPos, magic);
    putNumber(head, versionPos, version);
    putNumber(head, oldSizePos, oldBytes.size());
    putNumber(head, newSizePos, newBytes.size());
    putNumber(head, commonStartPos, start);
    putNumber(head, commonEndPos, end);
    return head + checksum(head, body) + body;
}

std::optional<SongJournal::Content> SongJournal::Content::decode(const QByteArray &bytes)
{
    if (bytes.size() < headerSize || !bytes.startsWith(magic) ||
        numberAt(bytes, versionPos) != version)
        return std::nullopt;

    const qint64 oldSize = numberAt(bytes, oldSizePos);
    const qint64 newSize = numberAt(bytes, newSizePos);
    const qint64 start = numberAt(bytes, commonStartPos);
    const qint64 end = numberAt(bytes, commonEndPos);
    const qint64 changed = newSize - start - end;
    if (oldSize > largestSong || newSize > largestSong || start + end > oldSize || changed < 0 ||
        bytes.size() != headerSize + oldSize + changed)
        return std::nullopt;
    const QByteArrayView view(bytes);
    if (view.sliced(checksumPos, checksumSize) !=
        checksum(view.first(checksumPos), view.sliced(headerSize)))
        return std::nullopt;

    Content content;
    content.oldBytes = bytes.mid(headerSize, oldSize);
    content.newBytes = content.oldBytes.left(start) + bytes.mid(headerSize + oldSize) +
                       content.oldBytes.right(end);
    return content;
}

SongJournal::Verdict SongJournal::Content::judge(const QByteArray &song) const
{
    if (song == oldBytes)
        return Verdict::Old;
    if (song == newBytes)
        return Verdict::New;
    if (song.size() < std::min(oldBytes.size(), newBytes.size()) ||
        song.size() > std::max(oldBytes.size(), newBytes.size()))
        return Verdict::NotOurs;
    if (isMadeOf(oldBytes, newBytes, song))
        return Verdict::CutOff;
    // The file may already have its new size, but not yet the bytes of its new end; the old song is
    // then untouched in front of that end. Dropping what is behind a whole song's end loses
    // nothing.
    const bool hasJunkAtItsEnd =
        song.startsWith(oldBytes) && isWholeSong(oldBytes) && !hasItsTracks(song);
    return hasJunkAtItsEnd ? Verdict::CutOff : Verdict::NotOurs;
}

SongJournal::SongJournal(const QString &song, int number)
    : m_song(song)
    , m_number(number)
    , m_path(nameOf(song, number))
{
}

bool SongJournal::write(const Content &content)
{
    if (content.oldBytes.size() > largestSong || content.newBytes.size() > largestSong)
        return false;
    while (isTaken(m_path) && m_number < maxNames - 1)
        m_path = nameOf(m_song, ++m_number);
    m_file.setFileName(m_path);
    // Nobody but the owner may read it: the song itself may be private.
    if (!createHeld(m_file))
        return false;
    const QByteArray bytes = content.encode();
    if (m_file.write(bytes) == bytes.size() && flushToMedium(m_file) && flushFolderOf(m_path))
        return true;
    remove();
    return false;
}

SongJournal::State SongJournal::read(Content &content)
{
    switch (openOwnFile(m_file, m_path)) {
    case Found::Nothing:
        return State::Missing;
    case Found::SomethingElse:
        return State::SomethingElse;
    case Found::Unreadable:
        return State::Unreadable;
    case Found::Opened:
        break;
    }
    if (!holdFile(m_file)) {
        m_file.close();
        return State::InUse;
    }
    const qint64 size = m_file.size();
    const bool hasSize = size >= headerSize && size <= headerSize + 2 * largestSong;
    const QByteArray bytes = hasSize ? m_file.read(size) : QByteArray();
    if (m_file.error() != QFile::NoError)
        return State::Unreadable;
    const auto decoded = Content::decode(bytes);
    if (!decoded)
        return State::Invalid;
    content = *decoded;
    return State::Valid;
}

bool SongJournal::remove()
{
    // Removed while this program holds it, where the system lets an open file be removed: no other
    // program may find a journal that nobody holds.
    const bool removed = QFile::remove(m_path);
    // An empty journal is invalid: it can never put anything back over newer bytes. The file that
    // is held is emptied, even if another file has its name by now.
    const bool emptied =
        !removed && m_file.isWritable() && m_file.resize(0) && flushToMedium(m_file);
    m_file.close();
    // The removal is flushed, so that a power cut does not bring the journal back.
    if (removed || QFile::remove(m_path))
        return flushFolderOf(m_path);
    return emptied;
}

void SongJournal::removeAllOf(const QString &song)
{
    for (int number = 0; number < maxNames; ++number) {
        SongJournal journal(song, number);
        Content content;
        const State state = journal.read(content);
        if (state == State::Valid || state == State::Invalid)
            journal.remove();
    }
}
