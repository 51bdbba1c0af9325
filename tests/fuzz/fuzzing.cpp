#include "fuzzing.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    return 0;
}

namespace fuzzing
{

void fail(const char *condition, const char *file, int line)
{
    std::fprintf(stderr, "%s:%d: broken: %s\n", file, line, condition);
    std::abort();
}

Input::Input(const std::uint8_t *data, std::size_t size)
    : m_left(data, static_cast<qsizetype>(size))
{
}

quint8 Input::byte()
{
    const QByteArray taken = bytes(1);
    return taken.isEmpty() ? quint8(0) : static_cast<quint8>(taken.at(0));
}

qint32 Input::number()
{
    qint32 value = 0;
    const QByteArray taken = bytes(sizeof value);
    return taken.size() < qsizetype{sizeof value} ? 0 : qFromBigEndian<qint32>(taken.constData());
}

QByteArray Input::bytes(qsizetype size)
{
    const QByteArrayView taken = m_left.first(std::min(size, m_left.size()));
    m_left = m_left.sliced(taken.size());
    return taken.toByteArray();
}

QByteArray Input::longBytes()
{
    const int high = byte();
    const int middle = byte();
    return bytes(high << 16 | middle << 8 | byte());
}

QList<Marker> Input::markers()
{
    QList<Marker> list;
    for (int left = byte() % 8; left > 0; --left) {
        const auto bar = static_cast<quint16>(byte() << 8 | byte());
        list.append({bar, text()});
    }
    return list;
}

SongInfo Input::songInfo()
{
    SongInfo info;
    info.title = text();
    info.artist = text();
    info.altArtist = text();
    info.genre = text();
    info.author = text();
    info.key = text();
    info.length = number();
    info.userBpm = number();
    info.isKravo = (byte() & 1) != 0;
    info.markers = markers();
    return info;
}

quint32 bigEndianAt(const QByteArray &bytes, qsizetype pos)
{
    FUZZ_REQUIRE(pos >= 0 && pos + 4 <= bytes.size());
    return qFromBigEndian<quint32>(bytes.constData() + pos);
}

QString memoryFolder()
{
    static const QTemporaryDir folder(QDir(QStringLiteral("/dev/shm")).exists()
                                          ? QStringLiteral("/dev/shm/kavena-fuzz-XXXXXX")
                                          : QDir::temp().filePath(QStringLiteral("kavena-fuzz")));
    FUZZ_REQUIRE(folder.isValid());
    return folder.path();
}

void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    FUZZ_REQUIRE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() &&
                 file.flush());
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    FUZZ_REQUIRE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

} // namespace fuzzing
