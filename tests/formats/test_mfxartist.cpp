// The artist in an MFX header and the catalogue's: when it stays, to the byte.
#include "formats/metasong.h"
#include "support/samplesongs.h"
#include "support/songbytes.h"

#include <QTemporaryDir>
#include <QTest>

namespace
{

constexpr qsizetype artistPos = 218;
constexpr qsizetype artistSize = 32;

/** An MFX file whose artist field holds these bytes, padded with zeros. */
QByteArray mfxFile(const QByteArray &artist)
{
    const QByteArray midi = songbytes::midiFile({songbytes::track(songbytes::notes())});
    QByteArray file = samplesongs::mfxBytes("_MF3", midi, {});
    return file.replace(artistPos, artistSize, artist.leftJustified(artistSize, '\0'));
}

} // namespace

class TestMfxArtist : public QObject
{
    Q_OBJECT

private slots:
    void artistEqualToTheAlternativeOneIsKept_data();
    void artistEqualToTheAlternativeOneIsKept();
    void otherDashIsReplaced_data();
    void otherDashIsReplaced();

private:
    /** The artist field after a merge with the catalogue's artists; empty when that failed. */
    QByteArray merged(const QByteArray &field, const QString &artist, const QString &altArtist)
    {
        const QString path = m_dir.filePath(QStringLiteral("song.mf3"));
        MetaSong song;
        if (!samplesongs::writeFile(path, mfxFile(field)) || !song.importFile(path))
            return {};
        SongInfo info;
        song.getSongInfo(info);
        info.artist = artist;
        info.altArtist = altArtist;
        song.setSongInfo(info, false);
        if (!song.saveToFile(path))
            return {};
        return samplesongs::readFile(path).mid(artistPos, artistSize);
    }

    QTemporaryDir m_dir;
};

void TestMfxArtist::artistEqualToTheAlternativeOneIsKept_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("altArtist");
    // The bytes around the dash tell a kept field from one that was written again.
    QTest::newRow("dash") << QByteArray(" -\0rest", 7) << QStringLiteral("-");
    QTest::newRow("two dashes") << QByteArray("-- \0rest", 8) << QStringLiteral("--");
    QTest::newRow("name") << QByteArray("Bob\0rest", 8) << QStringLiteral("Bob");
}

void TestMfxArtist::artistEqualToTheAlternativeOneIsKept()
{
    QFETCH(QByteArray, field);
    QFETCH(QString, altArtist);
    for (const QString &artist : {QString(), QStringLiteral("Someone"), altArtist})
        QCOMPARE(merged(field, artist, altArtist), field.leftJustified(artistSize, '\0'));
}

void TestMfxArtist::otherDashIsReplaced_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("altArtist");
    QTest::newRow("by a name") << QByteArray("-") << QStringLiteral("Bob");
    QTest::newRow("by the other dash") << QByteArray("-") << QStringLiteral("--");
    QTest::newRow("by nothing") << QByteArray("--") << QString();
}

void TestMfxArtist::otherDashIsReplaced()
{
    QFETCH(QByteArray, field);
    QFETCH(QString, altArtist);
    for (const QString &artist : {QStringLiteral("Someone"), QString::fromLatin1(field)})
        QCOMPARE(merged(field, artist, altArtist),
                 altArtist.toLatin1().leftJustified(artistSize, '\0'));
}

QTEST_APPLESS_MAIN(TestMfxArtist)
#include "test_mfxartist.moc"
