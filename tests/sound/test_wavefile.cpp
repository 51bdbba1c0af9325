// Sound in a WAV file, judged by its bytes.
#include "sound/wavefile.h"
#include "support/samplesongs.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using samplesongs::readFile;
using samplesongs::writeFile;

class TestWaveFile : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void theHeaderTellsTheForm();
    void theNameAppearsWithTheWholeFile();
    void unfinishedFileLeavesTheOldOne();
    void linkStaysAndItsTargetIsReplaced();
    void folderInItsPlaceIsRefused();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    QStringList files() const
    {
        return QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    QScopedPointer<QTemporaryDir> m_folder;
};

void TestWaveFile::init()
{
    m_folder.reset(new QTemporaryDir);
}

void TestWaveFile::theHeaderTellsTheForm()
{
    WaveFile file;
    QVERIFY(file.begin(path(QStringLiteral("a.wav"))));
    const qint16 samples[] = {1, -1, 256, 0x1234};
    QVERIFY(file.add(samples, 2));
    QVERIFY(file.finish());
    QCOMPARE(readFile(path(QStringLiteral("a.wav"))).toHex(' '),
             QByteArray("52 49 46 46 2c 00 00 00 57 41 56 45 66 6d 74 20 10 00 00 00 01 00 02 00 "
                        "44 ac 00 00 10 b1 02 00 04 00 10 00 64 61 74 61 08 00 00 00 "
                        "01 00 ff ff 00 01 34 12"));
}

void TestWaveFile::theNameAppearsWithTheWholeFile()
{
    WaveFile file;
    QVERIFY(file.begin(path(QStringLiteral("a.wav"))));
    QVERIFY(!files().contains(QStringLiteral("a.wav")));
    QVERIFY(file.finish());
    QCOMPARE(files(), QStringList{QStringLiteral("a.wav")});
}

void TestWaveFile::unfinishedFileLeavesTheOldOne()
{
    QVERIFY(writeFile(path(QStringLiteral("a.wav")), "old"));
    {
        WaveFile file;
        QVERIFY(file.begin(path(QStringLiteral("a.wav"))));
        const qint16 samples[] = {1, 2};
        QVERIFY(file.add(samples, 1));
    }
    QCOMPARE(readFile(path(QStringLiteral("a.wav"))), "old");
    QCOMPARE(files(), QStringList{QStringLiteral("a.wav")});
}

void TestWaveFile::linkStaysAndItsTargetIsReplaced()
{
    QVERIFY(writeFile(path(QStringLiteral("a.wav")), "old"));
    QVERIFY(QFile::link(path(QStringLiteral("a.wav")), path(QStringLiteral("link.wav"))));
    WaveFile file;
    QVERIFY(file.begin(path(QStringLiteral("link.wav"))));
    QVERIFY(file.finish());
    QVERIFY(QFileInfo(path(QStringLiteral("link.wav"))).isSymLink());
    QCOMPARE(readFile(path(QStringLiteral("a.wav"))).size(), 44);
}

void TestWaveFile::folderInItsPlaceIsRefused()
{
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("a.wav")));
    QVERIFY(!WaveFile().begin(path(QStringLiteral("a.wav"))));
    QVERIFY(!WaveFile().begin(path(QStringLiteral("missing/b.wav"))));
}

QTEST_APPLESS_MAIN(TestWaveFile)
#include "test_wavefile.moc"
