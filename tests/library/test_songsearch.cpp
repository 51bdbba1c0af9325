// The songs among files and folders.
#include "library/songsearch.h"
#include "support/shorttext.h"
#include "support/songfolder.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

#include <sys/stat.h>

namespace
{

/** A progress that nobody stops. */
OpenProgress noProgress()
{
    return [](const QString &, const QString &, int) { return std::unique_ptr<Progress>(); };
}

QStringList found(const QStringList &paths)
{
    return SongSearch(noProgress()).search(paths).value_or(QStringList{s("stopped")});
}

} // namespace

class TestSongSearch : public QObject
{
    Q_OBJECT

private slots:
    void foldersComeFirstAndSorted();
    void searchEndsInLinkedFolders();
    void songThatIsNamedTwiceIsFoundOnce();
    void treeOf900LevelsIsSearchedInSeconds();
    void searchThatTakesLongCanBeStopped();
};

void TestSongSearch::foldersComeFirstAndSorted()
{
    const SongFolder songs;
    QVERIFY(QDir(songs.path()).mkpath(s("b/inner")));
    QVERIFY(QDir(songs.path()).mkpath(s("a")));
    for (const char *name : {"z.mid", "y.txt", "b/2.mid", "b/1.MP3", "b/inner/3.mf3", "a/.4.mid"})
        songs.bad(s(name));
    QCOMPARE(found({songs.path()}),
             (QStringList{songs.filePath(s("b/inner/3.mf3")), songs.filePath(s("b/1.MP3")),
                          songs.filePath(s("b/2.mid")), songs.filePath(s("z.mid"))}));
    QCOMPARE(found({songs.filePath(s("missing")), songs.filePath(s("y.txt"))}),
             (QStringList{songs.filePath(s("missing")), songs.filePath(s("y.txt"))}));
}

void TestSongSearch::searchEndsInLinkedFolders()
{
    const SongFolder songs;
    QVERIFY(QDir(songs.path()).mkdir(s("sub")));
    QVERIFY(QFile::link(songs.path(), songs.filePath(s("sub/back"))));
    QVERIFY(QFile::link(s("/nowhere"), songs.filePath(s("sub/broken"))));
    songs.bad(s("sub/a.mid"));
    QCOMPARE(found({songs.path(), songs.filePath(s("sub"))}),
             QStringList{songs.filePath(s("sub/a.mid"))});
}

void TestSongSearch::songThatIsNamedTwiceIsFoundOnce()
{
    const SongFolder songs;
    const QString song = songs.bad(s("a.mid"));
    QCOMPARE(found({song, songs.path(), song}), QStringList{song});
}

/** Following the whole path for links at each level would take several seconds. */
void TestSongSearch::treeOf900LevelsIsSearchedInSeconds()
{
    const SongFolder songs;
    QString deepest = songs.path();
    for (int level = 0; level < 900; ++level) {
        deepest += QLatin1String("/d");
        QVERIFY(::mkdir(QFile::encodeName(deepest).constData(), 0700) == 0);
    }
    QFile song(deepest + QLatin1String("/song.mid"));
    QVERIFY(song.open(QFile::WriteOnly));
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(found({songs.path()}), QStringList{song.fileName()});
    const qint64 elapsed = timer.elapsed();
    QVERIFY2(elapsed < 4000, qPrintable(QString::number(elapsed)));
}

void TestSongSearch::searchThatTakesLongCanBeStopped()
{
    /** Says "cancelled" from the third question on. */
    class Stopping : public Progress
    {
    public:
        explicit Stopping(int &asked)
            : m_asked(asked)
        {
        }
        void setMaximum(int) override {}
        void setValue(int) override {}
        void updateProgress(int) override {}
        bool wasCanceled() const override { return ++m_asked > 2; }

    private:
        int &m_asked;
    };
    const SongFolder songs;
    for (int i = 0; i < 20; ++i)
        QVERIFY(QDir(songs.path()).mkpath(s("%1/deeper").arg(i)));
    // Something that keeps the interface busy between two folders, as a slow disk does.
    QTimer slow;
    connect(&slow, &QTimer::timeout, &slow, [] { QTest::qSleep(60); });
    slow.start(0);
    int opened = 0;
    int asked = 0;
    SongSearch search([&](const QString &, const QString &, int maximum) {
        opened += maximum == 0 ? 1 : 100;
        return std::make_unique<Stopping>(asked);
    });
    QVERIFY(!search.search({songs.path()}).has_value());
    QCOMPARE(opened, 1);
    QCOMPARE(asked, 3);
}

QTEST_GUILESS_MAIN(TestSongSearch)
#include "test_songsearch.moc"
