// Why nothing could be written: only causes that can be proved are named.
#include "storage/writeproblem.h"
#include "support/faults.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <sys/stat.h>

using Medium = WriteProblem::Medium;

namespace
{

constexpr qint64 plenty = 1000000000;

Medium stick(const QByteArray &fileSystem = "vfat")
{
    return {true, false, true, plenty, fileSystem};
}

const QString unknownText = QStringLiteral("non può essere scritto");
const QString nameText = QStringLiteral("la memoria non ammette questo nome");

} // namespace

class TestWriteProblem : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_folder.reset(); }

    void provedCausesAreNamed_data();
    void provedCausesAreNamed();
    void foldersTellAboutThemselves();
    void reasonStandsBehindTheSongsName_data();
    void reasonStandsBehindTheSongsName();
    void namesThatFatForbids_data();
    void namesThatFatForbids();
    void forbiddenNamesAreNamedOnlyWhereTheyAreForbidden();
    void nameIsTooLong_data();
    void nameIsTooLong();
    void missingSourceComesFirst();
    void unreadableSourceIsNamed_data();
    void unreadableSourceIsNamed();
    void folderUnderTheNameIsNamed();

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_song;
    QString m_target;
};

void TestWriteProblem::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_song = m_folder->filePath(QStringLiteral("song.mid"));
    m_target = m_folder->filePath(QStringLiteral("card/song.mid"));
    QVERIFY(QDir().mkdir(m_folder->filePath(QStringLiteral("card"))));
    QFile song(m_song);
    QVERIFY(song.open(QIODevice::WriteOnly) && song.write(QByteArray(1000, 's')) == 1000);
}

void TestWriteProblem::provedCausesAreNamed_data()
{
    QTest::addColumn<Medium>("medium");
    QTest::addColumn<qint64>("bytes");
    QTest::addColumn<int>("kind");
    QTest::newRow("nothing is wrong") << stick() << plenty << int(WriteProblem::Unknown);
    QTest::newRow("gone") << Medium() << qint64(1) << int(WriteProblem::Gone);
    Medium medium = stick();
    medium.readOnly = true;
    medium.available = 0;
    medium.permitted = false;
    QTest::newRow("read-only before all else")
        << medium << qint64(1) << int(WriteProblem::ReadOnly);
    medium = stick();
    medium.available = 999;
    QTest::newRow("one byte short") << medium << qint64(1000) << int(WriteProblem::Full);
    QTest::newRow("just fits") << medium << qint64(999) << int(WriteProblem::Unknown);
    medium.available = -1;
    QTest::newRow("room unknown") << medium << plenty << int(WriteProblem::Unknown);
    medium.permitted = false;
    QTest::newRow("not permitted") << medium << plenty << int(WriteProblem::NotPermitted);
}

void TestWriteProblem::provedCausesAreNamed()
{
    QFETCH(Medium, medium);
    QFETCH(qint64, bytes);
    QFETCH(int, kind);
    QCOMPARE(int(WriteProblem::find(medium, bytes)), kind);
}

void TestWriteProblem::foldersTellAboutThemselves()
{
    const Medium there = Medium::of(m_folder->path());
    QVERIFY(there.exists && there.permitted && !there.readOnly && there.available > 0);
    QVERIFY(!there.fileSystem.isEmpty());
    QVERIFY(!Medium::of(m_folder->filePath(QStringLiteral("missing"))).exists);
    QVERIFY(!Medium::of(m_song).exists);
    QCOMPARE(int(WriteProblem::find(there)), int(WriteProblem::Unknown));
}

void TestWriteProblem::reasonStandsBehindTheSongsName_data()
{
    QTest::addColumn<Medium>("medium");
    QTest::addColumn<QString>("reason");
    QTest::newRow("gone") << Medium() << "la cartella non c'è più (la memoria è stata estratta?)";
    Medium medium = stick();
    medium.readOnly = true;
    QTest::newRow("read-only") << medium << "la memoria è protetta da scrittura";
    medium = stick();
    medium.available = 999;
    QTest::newRow("full") << medium << "la memoria è piena";
    medium.available = 1000;
    QTest::newRow("room") << medium << unknownText;
    medium.permitted = false;
    QTest::newRow("not permitted") << medium << "manca il permesso di scrivere";
    QTest::newRow("no cause to be seen") << stick() << unknownText;
}

void TestWriteProblem::reasonStandsBehindTheSongsName()
{
    QFETCH(Medium, medium);
    QFETCH(QString, reason);
    QCOMPARE(WriteProblem::whyNotCopied(m_song, m_target, medium), reason);
}

void TestWriteProblem::namesThatFatForbids_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");
    const QString characters =
        QStringLiteral("la memoria non ammette questi caratteri nel nome: %1");
    for (const char *const character : {"\"", "*", ":", "<", ">", "?", "\\", "|"}) {
        QTest::newRow(character) << QStringLiteral("so%1ng.mid").arg(QLatin1String(character))
                                 << characters.arg(QLatin1String(character));
    }
    QTest::newRow("several, each once") << "a?b:c?.mid" << characters.arg(QStringLiteral("? :"));
    QTest::newRow("tab") << "a\tb.mid" << nameText;
    QTest::newRow("lowest character") << QString(QChar(1)) + QStringLiteral(".mid") << nameText;
    QTest::newRow("dot at the end") << "song.mid." << nameText;
    QTest::newRow("blank at the end") << "song.mid " << nameText;
    for (const char *const name :
         {"CON.mid", "con.mid", "Nul", "aux.tar.mid", "PRN.mp3", "com1.mid", "LPT9.mid"})
        QTest::newRow(name) << QString::fromLatin1(name) << nameText;
    for (const char *const name : {"song.mid", "CONGA.mid", "com.mid", "com0.mid", "lpt10.mid",
                                   "my con.mid", " song.mid", ".song.mid", "a+b,c;d=[e].mid"})
        QTest::newRow(name) << QString::fromLatin1(name) << unknownText;
}

void TestWriteProblem::namesThatFatForbids()
{
    QFETCH(QString, name);
    QFETCH(QString, reason);
    const QString target = m_folder->filePath(QStringLiteral("card/") + name);
    for (const char *const fileSystem : {"vfat", "exfat", "msdos", "fuseblk", "VFAT"})
        QCOMPARE(WriteProblem::whyNotCopied(m_song, target, stick(fileSystem)), reason);
}

void TestWriteProblem::forbiddenNamesAreNamedOnlyWhereTheyAreForbidden()
{
    const QString target = m_folder->filePath(QStringLiteral("card/a?b.mid"));
    for (const char *const fileSystem : {"ext4", "btrfs", "tmpfs", "apfs", ""})
        QCOMPARE(WriteProblem::whyNotCopied(m_song, target, stick(fileSystem)), unknownText);
}

void TestWriteProblem::nameIsTooLong_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("fileSystem");
    QTest::addColumn<bool>("tooLong");
    QTest::newRow("255 letters") << QString(255, QLatin1Char('n')) << QByteArray("vfat") << false;
    QTest::newRow("256 letters") << QString(256, QLatin1Char('n')) << QByteArray("vfat") << true;
    QTest::newRow("200 letters of two bytes on FAT")
        << QString(200, QChar(0xE8)) << QByteArray("vfat") << false;
    QTest::newRow("200 letters of two bytes elsewhere")
        << QString(200, QChar(0xE8)) << QByteArray("ext4") << true;
    QTest::newRow("255 bytes") << QString(255, QLatin1Char('n')) << QByteArray("ext4") << false;
}

void TestWriteProblem::nameIsTooLong()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, fileSystem);
    QFETCH(bool, tooLong);
    const QString target = m_folder->filePath(QStringLiteral("card/") + name);
    QCOMPARE(WriteProblem::whyNotCopied(m_song, target, stick(fileSystem)),
             tooLong ? QStringLiteral("il nome è troppo lungo") : unknownText);
}

void TestWriteProblem::missingSourceComesFirst()
{
    QVERIFY(QFile::remove(m_song));
    QCOMPARE(WriteProblem::whyNotCopied(m_song, m_target, Medium()),
             QStringLiteral("il file non c'è più"));
}

void TestWriteProblem::unreadableSourceIsNamed_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("pipe") << "pipe";
    QTest::newRow("folder") << "folder";
    QTest::newRow("another user's") << "forbidden";
}

void TestWriteProblem::unreadableSourceIsNamed()
{
    QFETCH(QString, kind);
    const QByteArray path = QFile::encodeName(m_song);
    QString reason;
    if (kind == QLatin1String("forbidden")) {
        if (!faults::canBecomeAnotherUser())
            QSKIP("Only root can become another user");
        QCOMPARE(::chmod(path.constData(), 0600), 0);
        QCOMPARE(::chmod(QFile::encodeName(m_folder->path()).constData(), 0755), 0);
        const faults::AnotherUser nobody;
        reason = WriteProblem::whyNotCopied(m_song, m_target, stick());
    } else {
        QVERIFY(QFile::remove(m_song));
        if (kind == QLatin1String("pipe"))
            QCOMPARE(::mkfifo(path.constData(), 0600), 0);
        else
            QVERIFY(QDir().mkdir(m_song));
        reason = WriteProblem::whyNotCopied(m_song, m_target, stick());
    }
    QCOMPARE(reason, QStringLiteral("il file non può essere letto"));
}

void TestWriteProblem::folderUnderTheNameIsNamed()
{
    QVERIFY(QDir().mkdir(m_target));
    QCOMPARE(WriteProblem::whyNotCopied(m_song, m_target, stick()),
             QStringLiteral("una cartella ha già questo nome"));
}

QTEST_GUILESS_MAIN(TestWriteProblem)
#include "test_writeproblem.moc"
