#include "formats/songjournal.h"

#include "formats/safefile.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QtEndian>

namespace
{

constexpr char magic[] = "KvSongJr";
constexpr quint32 version = 1;

constexpr qsizetype versionPos = 8;
constexpr qsizetype oldSizePos = 12;
constexpr qsizetype newSizePos = 16;
constexpr qsizetype checksumPos = 20;
constexpr qsizetype headerSize = 52;

/** Hidden, and with no song's suffix: neither an import nor a scan takes it for a song. */
constexpr QLatin1String suffix("kavena-journal");

QByteArray checksum(const char *sizes, const QByteArray &oldBytes)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(QByteArrayView(sizes, checksumPos - oldSizePos));
    hash.addData(oldBytes);
    return hash.result();
}

} // namespace

QByteArray SongJournal::Content::encode() const
{
    QByteArray bytes(checksumPos, '\0');
    bytes.replace(0, versionPos, magic);
    qToBigEndian(version, bytes.data() + versionPos);
    qToBigEndian(static_cast<quint32>(oldBytes.size()), bytes.data() + oldSizePos);
    qToBigEndian(static_cast<quint32>(newSize), bytes.data() + newSizePos);
    return bytes + checksum(bytes.constData() + oldSizePos, oldBytes) + oldBytes;
}

std::optional<SongJournal::Content> SongJournal::Content::decode(const QByteArray &bytes)
{
    if (bytes.size() < headerSize || !bytes.startsWith(magic) ||
        qFromBigEndian<quint32>(bytes.constData() + versionPos) != version ||
        qFromBigEndian<quint32>(bytes.constData() + oldSizePos) != bytes.size() - headerSize)
        return std::nullopt;
    Content content;
    content.oldBytes = bytes.mid(headerSize);
    content.newSize = qFromBigEndian<quint32>(bytes.constData() + newSizePos);
    if (bytes.mid(checksumPos, headerSize - checksumPos) !=
        checksum(bytes.constData() + oldSizePos, content.oldBytes))
        return std::nullopt;
    return content;
}

SongJournal::SongJournal(const QString &song)
    : m_file(hiddenBeside(song, suffix))
{
}

bool SongJournal::write(const Content &content)
{
    if (content.oldBytes.size() > LargestSong || content.newSize > LargestSong)
        return false;
    // Nobody but the owner may read it: the song itself may be private.
    if (!m_file.open(QFile::WriteOnly | QFile::NewOnly | QFile::Unbuffered,
                     QFile::ReadOwner | QFile::WriteOwner))
        return false;
    if (!holdFile(m_file)) {
        m_file.close();
        return false;
    }
    const QByteArray bytes = content.encode();
    if (m_file.write(bytes) == bytes.size() && flushToMedium(m_file) && flushFolderOf(path()))
        return true;
    remove();
    return false;
}

SongJournal::State SongJournal::read(Content &content)
{
    const QFileInfo info(m_file);
    if (!info.isFile() || info.isSymLink())
        return State::Missing;
    if (!m_file.open(QFile::ReadOnly | QFile::Unbuffered))
        return State::Unreadable;
    if (!holdFile(m_file)) {
        m_file.close();
        return State::InUse;
    }
    const qint64 size = m_file.size();
    const bool hasSize = size >= headerSize && size <= headerSize + LargestSong;
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
    // Removed while it is held, where the system lets an open file be removed: nobody must find it
    // free and still there.
    const bool removed = QFile::remove(path());
    m_file.close();
    // A journal that comes back after a power cut would undo a save that was reported.
    if (removed || m_file.remove())
        return flushFolderOf(path());
    // An empty journal is invalid: it can never put anything back over newer bytes.
    const bool emptied = m_file.resize(0) && flushPath(path());
    return (m_file.remove() && flushFolderOf(path())) || emptied;
}
