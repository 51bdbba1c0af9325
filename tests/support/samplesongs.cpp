#include "support/samplesongs.h"

#include "formats/lzhuff.h"
#include "support/songbytes.h"

#include <QDir>
#include <QFile>
#include <QProcess>

#include <cmath>

namespace
{

constexpr int sampleRate = 22050;

/** A plucked C major scale, one note each quarter of a second, as 16-bit mono samples. */
QByteArray scaleSamples(int seconds)
{
    constexpr double tones[] = {261.63, 293.66, 329.63, 349.23, 392.00, 440.00, 493.88, 523.25};
    QByteArray samples;
    samples.reserve(2 * sampleRate * seconds);
    for (int i = 0; i < sampleRate * seconds; ++i) {
        const int note = i * 4 / sampleRate;
        const double inNote = static_cast<double>(i * 4 % sampleRate) / sampleRate / 4;
        const double angle = 2 * 3.14159265358979 * tones[note % 8] * i / sampleRate;
        const auto value = static_cast<int>(12000 * std::exp(-12 * inNote) * std::sin(angle));
        samples.append(songbytes::littleEndian(static_cast<quint32>(value) & 0xFFFF, 2));
    }
    return samples;
}

bool runTool(const QString &program, const QStringList &arguments, const QByteArray &input)
{
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    if (!process.waitForStarted())
        return false;
    process.write(input);
    process.closeWriteChannel();
    return process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit &&
           process.exitCode() == 0;
}

void putText(QByteArray &header, int offset, const QString &text, int size)
{
    header.replace(offset, size, text.toLatin1().leftJustified(size, '\0', true));
}

} // namespace

namespace samplesongs
{

QStringList installedMidiFiles()
{
    const QDir folder(QStringLiteral("/usr/share/games/openttd/baseset/openmsx"));
    QStringList files;
    for (const QString &name : folder.entryList({QStringLiteral("*.mid")}, QDir::Files, QDir::Name))
        files.append(folder.filePath(name));
    return files;
}

bool makeMp3(const QString &path, const Tags &tags, int seconds)
{
    QStringList arguments{QStringLiteral("--quiet"),      QStringLiteral("-r"),
                          QStringLiteral("-m"),           QStringLiteral("m"),
                          QStringLiteral("-s"),           QStringLiteral("22.05"),
                          QStringLiteral("--id3v2-only"), QStringLiteral("--id3v2-latin1")};
    const auto tag = [&arguments](const char *option, const QString &value) {
        if (!value.isEmpty())
            arguments << QString::fromLatin1(option) << value;
    };
    tag("--tt", tags.title);
    tag("--ta", tags.artist);
    tag("--tg", tags.genre);
    arguments << QStringLiteral("-") << path;
    return runTool(QStringLiteral("lame"), arguments, scaleSamples(seconds));
}

bool makeMidi(const QString &path, const QByteArray &abc)
{
    const QString source = path + QStringLiteral(".abc");
    if (!writeFile(source, abc))
        return false;
    const bool made =
        runTool(QStringLiteral("abc2midi"), {source, QStringLiteral("-o"), path}, QByteArray());
    QFile::remove(source);
    return made && QFile::exists(path);
}

QByteArray mfxBytes(const QByteArray &magic, const QByteArray &midi, const Tags &tags)
{
    QByteArray payload = midi;
    if (magic == "_MF4")
        payload.insert(payload.indexOf("MTrk") + 8, QByteArray("\xFF\x00\xFF", 3));
    QByteArray stream;
    LzHuff().compress(payload, stream);

    QByteArray header(magic == "_MF5" ? 1024 : 512, '\0');
    header.replace(0, 4, magic);
    header.replace(4, 4,
                   songbytes::littleEndian(static_cast<quint32>(header.size() + stream.size()), 4));
    header.replace(12, 4, songbytes::littleEndian(static_cast<quint32>(payload.size()), 4));
    header.replace(38, 2, songbytes::littleEndian(120, 2));
    putText(header, 122, tags.title, 32);
    putText(header, 218, tags.artist, 32);
    putText(header, 250, tags.genre, 32);
    return header + stream;
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

} // namespace samplesongs
