#include "sound/wavefile.h"

#include "sound/pcm.h"
#include "storage/leftovers.h"
#include "storage/safefile.h"

#include <QFileInfo>
#include <QtEndian>

#include <array>
#include <limits>

namespace
{

constexpr qsizetype waveHeaderSize = 44;

template <typename Number>
QByteArray littleEndian(Number number)
{
    std::array<char, sizeof(Number)> bytes{};
    qToLittleEndian(number, bytes.data());
    return {bytes.data(), qsizetype(bytes.size())};
}

} // namespace

WaveFile::~WaveFile()
{
    if (m_file.isOpen()) {
        m_file.close();
        QFile::remove(m_file.fileName());
    }
}

/** RIFF, the form of the samples, and how many bytes of them follow. */
QByteArray WaveFile::header(qint64 bytes)
{
    constexpr quint32 formSize = 16;
    constexpr quint16 plainSamples = 1;
    constexpr quint16 bitsInSample = 16;
    const auto size = static_cast<quint32>(bytes);
    return "RIFF" + littleEndian(static_cast<quint32>(size + waveHeaderSize - 8)) + "WAVEfmt " +
           littleEndian(formSize) + littleEndian(plainSamples) +
           littleEndian(quint16{pcm::channels}) + littleEndian(quint32{pcm::sampleRate}) +
           littleEndian(static_cast<quint32>(pcm::sampleRate * pcm::bytesInFrame)) +
           littleEndian(static_cast<quint16>(pcm::bytesInFrame)) + littleEndian(bitsInSample) +
           "data" + littleEndian(size);
}

bool WaveFile::begin(const QString &path)
{
    const QFileInfo info(path);
    m_target = info.exists() ? info.canonicalFilePath() : path;
    if (m_target.isEmpty() || (isTaken(m_target) && !QFileInfo(m_target).isFile()))
        return false;
    return createHiddenBeside(m_file, m_target, Leftovers::temporarySuffix) &&
           m_file.write(header(0)) == waveHeaderSize;
}

bool WaveFile::add(const qint16 *samples, qsizetype frames)
{
    const qint64 bytes = frames * pcm::bytesInFrame;
    if (m_bytes + bytes > std::numeric_limits<quint32>::max() - waveHeaderSize)
        return false;
    m_bytes += bytes;
    if constexpr (Q_BYTE_ORDER == Q_LITTLE_ENDIAN)
        return m_file.write(reinterpret_cast<const char *>(samples), bytes) == bytes;
    QByteArray swapped(bytes, Qt::Uninitialized);
    qToLittleEndian<qint16>(samples, frames * pcm::channels, swapped.data());
    return m_file.write(swapped) == bytes;
}

bool WaveFile::finish()
{
    if (!m_file.isOpen() || !m_file.seek(0) || m_file.write(header(m_bytes)) != waveHeaderSize)
        return false;
    if (QFileInfo::exists(m_target))
        m_file.setPermissions(QFile::permissions(m_target) | QFile::WriteOwner);
    return flushToMedium(m_file) && replaceOnMedium(m_file, m_target);
}
