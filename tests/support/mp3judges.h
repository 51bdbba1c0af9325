// Judges of MP3 files: lame for the audio, id3v2 and mutagen for the tag.
#pragma once

#include "support/samplesongs.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTest>

namespace mp3judges
{

struct ToolResult {
    bool ok = false;
    QByteArray output;
};

inline ToolResult run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    process.closeWriteChannel();
    const bool ok = process.waitForStarted() && process.waitForFinished(60000) &&
                    process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    return {ok, process.readAllStandardOutput()};
}

/** Everything behind the ID3v2 tag. */
inline QByteArray audioOf(const QByteArray &mp3)
{
    if (!mp3.startsWith("ID3"))
        return mp3;
    qsizetype size = 0;
    for (int i = 6; i < 10; ++i)
        size = size * 128 + (mp3.at(i) & 0x7F);
    return mp3.mid(10 + size);
}

/** The lines of `id3v2 -l` that describe frames: "TIT2 (...): text" becomes "TIT2: text". */
inline QStringList framesSeenById3v2(const QByteArray &output)
{
    QStringList frames;
    for (const QByteArray &line : output.split('\n')) {
        const qsizetype colon = line.indexOf("): ");
        if (line.mid(4, 2) == " (" && colon > 0)
            frames.append(QString::fromUtf8(line.left(4) + ": " + line.mid(colon + 3)));
    }
    return frames;
}

/** What id3v2 reads in a file, as "TIT2: text"; nothing when it fails. */
inline QStringList id3v2Frames(const QString &path)
{
    const ToolResult listed = run(QStringLiteral("id3v2"), {QStringLiteral("-l"), path});
    return listed.ok ? framesSeenById3v2(listed.output) : QStringList();
}

/** What mutagen reads in a file: texts, kinds and check sums of pictures. */
struct MutagenTag {
    int version = 0; ///< 2, 3 or 4; 0 when it reads no tag
    int unread = 0;  ///< frames of unknown names
    QMap<QString, QString> frames;
};

inline MutagenTag mutagenTag(const QString &path)
{
    // Debian's Python, where its packages lie; another one may come first in the path.
    const ToolResult read =
        run(QStringLiteral("/usr/bin/python3"), {QFINDTESTDATA("tools/read_tag.py"), path});
    MutagenTag tag;
    if (!read.ok)
        return tag;
    const QJsonObject object = QJsonDocument::fromJson(read.output).object();
    tag.version = object.value(QStringLiteral("version")).toInt();
    tag.unread = object.value(QStringLiteral("unread")).toInt();
    const QJsonObject frames = object.value(QStringLiteral("frames")).toObject();
    for (auto frame = frames.begin(); frame != frames.end(); ++frame)
        tag.frames.insert(frame.key(), frame.value().toString());
    return tag;
}

inline bool hasMutagen()
{
    return run(QStringLiteral("/usr/bin/python3"),
               {QStringLiteral("-c"), QStringLiteral("import mutagen")})
        .ok;
}

/** The samples that lame decodes from a file; nothing when it fails. */
inline QByteArray decoded(const QString &path)
{
    const QString wave = path + QStringLiteral(".wav");
    const bool ok = run(QStringLiteral("lame"),
                        {QStringLiteral("--quiet"), QStringLiteral("--decode"), path, wave})
                        .ok;
    const QByteArray samples = ok ? samplesongs::readFile(wave) : QByteArray();
    QFile::remove(wave);
    return samples;
}

} // namespace mp3judges
