// Real judges of MIDI files: what midicsv reads in them.
#pragma once

#include <QByteArray>
#include <QList>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTest>

namespace midicsv
{

/** One line of midicsv: track, time, record type, the rest. */
struct Record {
    QByteArray track;
    qint64 time = 0;
    QByteArray type;
    QByteArray rest;

    bool operator==(const Record &other) const
    {
        return track == other.track && time == other.time && type == other.type &&
               rest == other.rest;
    }
    QByteArray line() const
    {
        return track + ", " + QByteArray::number(time) + ", " + type + ", " + rest;
    }
};

using Records = QList<Record>;

/** What midicsv prints of a file; nothing when it fails or complains. */
inline Records recordsOf(const QString &path)
{
    QProcess process;
    process.start(QStringLiteral("midicsv"), {path});
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0 || !process.readAllStandardError().isEmpty())
        return {};
    Records records;
    for (const QByteArray &line : process.readAllStandardOutput().split('\n')) {
        const QList<QByteArray> fields = line.split(',');
        if (fields.size() < 3)
            continue;
        qsizetype restPos = fields.at(0).size() + fields.at(1).size() + fields.at(2).size() + 3;
        records.append({fields.at(0).trimmed(), fields.at(1).trimmed().toLongLong(),
                        fields.at(2).trimmed(), line.mid(restPos).trimmed()});
    }
    return records;
}

/** The text between the quotes, midicsv's escapes undone. */
inline QString textOf(const QByteArray &quoted)
{
    QByteArray text;
    for (qsizetype i = 1; i < quoted.size() - 1; ++i) {
        if (quoted.at(i) == '\\' && quoted.at(i + 1) != '\\') {
            text += static_cast<char>(quoted.mid(i + 1, 3).toInt(nullptr, 8));
            i += 3;
            continue;
        }
        text += quoted.at(i);
        if (quoted.at(i) == '"' || quoted.at(i) == '\\')
            ++i; // both are doubled
    }
    return QString::fromLatin1(text).trimmed();
}

/** Our name of a key signature as midicsv prints it. */
inline QString keyName(const QByteArray &signature)
{
    static const QStringList majors =
        QStringLiteral("Cb Gb Db Ab Eb Bb F C G D A E B F# C#").split(QLatin1Char(' '));
    static const QStringList minors =
        QStringLiteral("Ab- Eb- Bb- F- C- G- D- A- E- B- F#- C#- G#- D#- A#-")
            .split(QLatin1Char(' '));
    const qsizetype comma = signature.indexOf(',');
    const int sharps = signature.left(comma).toInt();
    return signature.endsWith("\"minor\"") ? minors.value(sharps + 7) : majors.value(sharps + 7);
}

/** The first record of a type, wherever it stands. */
inline QByteArray firstOf(const Records &records, const QByteArray &type, bool &found)
{
    for (const Record &record : records) {
        if (record.type == type) {
            found = true;
            return record.rest;
        }
    }
    found = false;
    return QByteArray();
}

/** The maker's event as midicsv prints it: its type, its length, its bytes. */
inline Record kravoRecord(int subType, const QByteArray &payload)
{
    QByteArray rest =
        "75, " + QByteArray::number(payload.size() + 1) + ", " + QByteArray::number(subType);
    for (const char byte : payload)
        rest += ", " + QByteArray::number(static_cast<quint8>(byte));
    return {"1", 0, "Unknown_meta_event", rest};
}

/**
 * The records with the first track's metadata at delta time 0 replaced by the head: what has to be
 * read after a song was saved. Without a head it is the music alone.
 */
inline Records withHead(const Records &original, const Records &head = {})
{
    Records expected;
    qint64 timeBefore = 0;
    for (const Record &record : original) {
        const bool ours = record.type == "Title_t" || record.type == "Key_signature" ||
                          (record.type == "Unknown_meta_event" && record.rest.startsWith("75,"));
        const bool atDeltaZero = record.time == timeBefore;
        timeBefore = record.time;
        if (record.track == "1" && ours && atDeltaZero)
            continue;
        expected.append(record);
        if (record.track == "1" && record.type == "Start_track")
            expected += head;
    }
    return expected;
}

inline void compareRecords(const Records &found, const Records &expected)
{
    for (qsizetype i = 0; i < qMin(found.size(), expected.size()); ++i)
        QCOMPARE(found.at(i).line(), expected.at(i).line());
    QCOMPARE(found.size(), expected.size());
}

} // namespace midicsv
