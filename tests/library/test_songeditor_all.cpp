// Edits for all songs.
#include "library/songeditor.h"
#include "support/editfixture.h"
#include "support/librarytable.h"
#include "support/logcapture.h"

#include <QTest>
#include <QTimer>

using namespace editfixture;

class TestSongEditorAll : public QObject
{
    Q_OBJECT

private slots:
    void withoutAFlagOtherSongsStay();
    void flagAppliesItsFieldToAllOthers_data();
    void flagAppliesItsFieldToAllOthers();
    void titleToAllGivesEachSongItsFileName();
    void allFlagsTogether();
    void bulkProgressCountsOnlyWrittenRows();
    void bulkEditCannotBeStopped();
    void pendingEventsRunBetweenFiles();
    void bulkEditOfASortedTableReachesEveryRow();
    void bulkEditReachesEveryRowOfATableThatIsSortedMeanwhile();
    void rowIsFoundAgainWhenTheTableIsSortedDuringTheSave();
    void bulkEditLeavesOutTheEditedSongWhenTheTableIsSortedDuringItsSave();
    void whatKilledProgramsLeftIsRemovedBesideEachSong();
};

void TestSongEditorAll::withoutAFlagOtherSongsStay()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mid"), fullMidi("A")));
    QVERIFY(library.add(QStringLiteral("b.mid"), fullMidi("B")));
    Editing editing(library);
    editing.changeTo([](SongEdit &edit) { edit.info.artist = QStringLiteral("Adriano"); });
    QVERIFY(editing.editor.edit(0));
    QCOMPARE(editing.progress.opened, 0);
    QCOMPARE(library.bytes(QStringLiteral("b.mid")), fullMidi("B"));
    QCOMPARE(library.statuses(), QList<int>({isEdited, isNew}));
}

void TestSongEditorAll::flagAppliesItsFieldToAllOthers_data()
{
    QTest::addColumn<QString>("flag");
    QTest::newRow("artist") << "artist";
    QTest::newRow("genre") << "genre";
    QTest::newRow("author") << "author";
}

void TestSongEditorAll::flagAppliesItsFieldToAllOthers()
{
    QFETCH(QString, flag);
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mid"), fullMidi("A")));
    QVERIFY(library.add(QStringLiteral("b.mid"), fullMidi("B")));
    QVERIFY(library.add(QStringLiteral("c.mid"), fullMidi("C")));
    Editing editing(library);
    editing.changeTo([&flag](SongEdit &edit) {
        edit.info.title = QStringLiteral("new title");
        edit.info.artist = QStringLiteral("new artist");
        edit.info.genre = QStringLiteral("new genre");
        edit.info.author = QStringLiteral("new author");
        edit.info.length = 33;
        edit.artistToAll = flag == QStringLiteral("artist");
        edit.genreToAll = flag == QStringLiteral("genre");
        edit.authorToAll = flag == QStringLiteral("author");
    });
    QVERIFY(editing.editor.edit(1));

    const auto expected = [&flag](const char *field, const QString &name) {
        const QString word = QString::fromLatin1(field);
        return (flag == word ? QStringLiteral("new ") : name + QLatin1Char(' ')) + word;
    };
    for (const auto &[file, name] : {qMakePair(QStringLiteral("a.mid"), QStringLiteral("A")),
                                     qMakePair(QStringLiteral("c.mid"), QStringLiteral("C"))}) {
        const SongInfo song = library.song(file);
        QCOMPARE(song.title, name + QStringLiteral(" title"));
        QCOMPARE(song.artist, expected("artist", name));
        QCOMPARE(song.genre, expected("genre", name));
        QCOMPARE(song.author, expected("author", name));
        QCOMPARE(song.length, 100);
        QCOMPARE(song.userBpm, 120);
        QCOMPARE(song.markers.size(), 1);
    }
    QCOMPARE(library.cell(2, flag.toLatin1().constData()), QStringLiteral("new ") + flag);
    QCOMPARE(library.statuses(), QList<int>({isEdited, isEdited, isEdited}));
}

void TestSongEditorAll::titleToAllGivesEachSongItsFileName()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mid"), fullMidi("A")));
    QVERIFY(library.add(QStringLiteral("Song.Name.mid"), fullMidi("B")));
    QVERIFY(library.add(QStringLiteral("noextension"), fullMidi("C")));
    Editing editing(library);
    editing.changeTo([](SongEdit &edit) {
        edit.info.title = QStringLiteral("my own");
        edit.titleToAll = true;
    });
    QVERIFY(editing.editor.edit(0));
    QCOMPARE(library.song(QStringLiteral("a.mid")).title, QStringLiteral("my own"));
    QCOMPARE(library.song(QStringLiteral("Song.Name.mid")).title, QStringLiteral("Song.Name"));
    QCOMPARE(library.song(QStringLiteral("noextension")).title, QStringLiteral("noextension"));
    QCOMPARE(library.song(QStringLiteral("Song.Name.mid")).artist, QStringLiteral("B artist"));
}

void TestSongEditorAll::allFlagsTogether()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mid"), fullMidi("A")));
    QVERIFY(library.add(QStringLiteral("b.mid"), fullMidi("B")));
    Editing editing(library);
    editing.changeTo([](SongEdit &edit) {
        edit.info.artist = QStringLiteral("Adriano");
        edit.info.genre.clear();
        edit.info.author = QStringLiteral("Conte");
        edit.titleToAll = edit.artistToAll = edit.genreToAll = edit.authorToAll = true;
    });
    QVERIFY(editing.editor.edit(0));
    const SongInfo song = library.song(QStringLiteral("b.mid"));
    QCOMPARE(song.title, QStringLiteral("b"));
    QCOMPARE(song.artist, QStringLiteral("Adriano"));
    QCOMPARE(song.genre, QString());
    QCOMPARE(song.author, QStringLiteral("Conte"));
}

void TestSongEditorAll::bulkProgressCountsOnlyWrittenRows()
{
    LibraryTable library(QList<catalogue::Row>{});
    for (const char *name : {"a.mid", "b.mid", "c.mid", "d.mid", "e.mid"})
        QVERIFY(library.add(QString::fromLatin1(name), fullMidi(name)));
    QVERIFY(QFile::remove(library.path(QStringLiteral("c.mid"))));
    Editing editing(library);
    editing.changeTo([](SongEdit &edit) { edit.genreToAll = true; });
    QVERIFY(editing.editor.edit(1));
    QCOMPARE(editing.progress.opened, 1);
    QCOMPARE(editing.progress.title, QStringLiteral("Aggiornamento file"));
    QCOMPARE(editing.progress.label, QStringLiteral("Aggiorno la libreria..."));
    QCOMPARE(editing.progress.maximum, 5);
    QCOMPARE(editing.progress.updates, QList<int>({1, 4, 5}));
    QVERIFY(!editing.progress.isOpen);
    QCOMPARE(library.statuses(), QList<int>({isEdited, isEdited, isNew, isEdited, isEdited}));
    QCOMPARE(library.cell(2, "genre"), QStringLiteral("c.mid genre"));
    QVERIFY(!QFile::exists(library.path(QStringLiteral("c.mid"))));
}

void TestSongEditorAll::bulkEditCannotBeStopped()
{
    LibraryTable library(QList<catalogue::Row>{});
    for (const char *name : {"a.mid", "b.mid", "c.mid"})
        QVERIFY(library.add(QString::fromLatin1(name), fullMidi(name)));
    Editing editing(library);
    editing.progress.canceled = true;
    editing.changeTo([](SongEdit &edit) {
        edit.info.author = QStringLiteral("Conte");
        edit.authorToAll = true;
    });
    QVERIFY(editing.editor.edit(0));
    QCOMPARE(library.song(QStringLiteral("b.mid")).author, QStringLiteral("Conte"));
    QCOMPARE(library.song(QStringLiteral("c.mid")).author, QStringLiteral("Conte"));
}

void TestSongEditorAll::pendingEventsRunBetweenFiles()
{
    LibraryTable library(QList<catalogue::Row>{});
    for (const char *name : {"a.mid", "b.mid", "c.mid"})
        QVERIFY(library.add(QString::fromLatin1(name), fullMidi(name)));
    Editing editing(library);
    editing.changeTo([](SongEdit &edit) { edit.authorToAll = true; });
    QList<int> eventsRunBefore;
    int eventsRun = 0;
    editing.progress.onUpdate = [&](int) {
        eventsRunBefore.append(eventsRun);
        QMetaObject::invokeMethod(
            this, [&eventsRun] { ++eventsRun; }, Qt::QueuedConnection);
    };
    QVERIFY(editing.editor.edit(0));
    QCOMPARE(eventsRunBefore, QList<int>({0, 1}));
}

void TestSongEditorAll::bulkEditOfASortedTableReachesEveryRow()
{
    LibraryTable library(QList<catalogue::Row>{});
    for (const char *name : {"d.mid", "b.mid", "a.mid", "c.mid"})
        QVERIFY(library.add(QString::fromLatin1(name), fullMidi(name)));
    library.model().sort(library.model().fieldIndex(QStringLiteral("artist")), Qt::DescendingOrder);
    const int edited = 2;
    const QString editedName = library.model().shortName(edited);
    Editing editing(library);
    editing.changeTo([](SongEdit &edit) {
        edit.info.artist = QStringLiteral("A");
        edit.artistToAll = true;
    });
    QVERIFY(editing.editor.edit(edited));
    QCOMPARE(library.statuses(), QList<int>({isEdited, isEdited, isEdited, isEdited}));
    QCOMPARE(library.model().shortName(edited), editedName);
    for (int row = 0; row < 4; ++row)
        QCOMPARE(library.song(library.model().shortName(row)).artist, QStringLiteral("A"));
}

// The progress window hides when it is cancelled, and the edit goes on: the header is free then.
void TestSongEditorAll::bulkEditReachesEveryRowOfATableThatIsSortedMeanwhile()
{
    LibraryTable library(QList<catalogue::Row>{});
    const QStringList names =
        QStringLiteral("a.mid b.mid c.mid d.mid e.mid").split(QLatin1Char(' '));
    for (const QString &name : names)
        QVERIFY(library.add(name, fullMidi(name.toLatin1())));
    Editing editing(library);
    editing.changeTo([](SongEdit &edit) {
        edit.info.title = QStringLiteral("My own title");
        edit.titleToAll = true;
    });
    editing.progress.onUpdate = [&library](int done) {
        const auto order = done % 2 == 0 ? Qt::AscendingOrder : Qt::DescendingOrder;
        library.model().sort(library.model().fieldIndex(QStringLiteral("shortname")), order);
    };
    QVERIFY(editing.editor.edit(1));

    QStringList titles;
    for (const QString &name : names)
        titles.append(library.song(name).title);
    QCOMPARE(titles, QStringList({QStringLiteral("a"), QStringLiteral("My own title"),
                                  QStringLiteral("c"), QStringLiteral("d"), QStringLiteral("e")}));
    for (int row = 0; row < names.size(); ++row)
        QCOMPARE(library.cell(row, "title"), library.song(library.cell(row, "shortname")).title);
    QCOMPARE(library.statuses(), QList<int>(5, isEdited));
}

// Events run while the disk is at work.
void TestSongEditorAll::rowIsFoundAgainWhenTheTableIsSortedDuringTheSave()
{
    LibraryTable library(QList<catalogue::Row>{});
    for (const char *name : {"a.mid", "b.mid", "c.mid"})
        QVERIFY(library.add(QString::fromLatin1(name), fullMidi(name)));
    Editing editing(library);
    editing.changeTo([&library](SongEdit &edit) {
        edit.info.title = QStringLiteral("My own title");
        QTimer::singleShot(0, &library.model(), [&library] {
            const int column = library.model().fieldIndex(QStringLiteral("shortname"));
            library.model().sort(column, Qt::DescendingOrder);
        });
    });
    QVERIFY(editing.editor.edit(0));
    QCOMPARE(library.cell(2, "shortname"), QStringLiteral("a.mid"));
    QCOMPARE(library.cell(2, "title"), QStringLiteral("My own title"));
    QCOMPARE(library.statuses(), QList<int>({isNew, isNew, isEdited}));
}

void TestSongEditorAll::bulkEditLeavesOutTheEditedSongWhenTheTableIsSortedDuringItsSave()
{
    LibraryTable library(QList<catalogue::Row>{});
    for (const char *name : {"a.mid", "b.mid", "c.mid"})
        QVERIFY(library.add(QString::fromLatin1(name), fullMidi(name)));
    Editing editing(library);
    editing.changeTo([&library](SongEdit &edit) {
        edit.info.title = QStringLiteral("My own title");
        edit.titleToAll = true;
        QTimer::singleShot(0, &library.model(), [&library] {
            const int column = library.model().fieldIndex(QStringLiteral("shortname"));
            library.model().sort(column, Qt::DescendingOrder);
        });
    });
    QVERIFY(editing.editor.edit(0));
    QCOMPARE(library.cell(2, "shortname"), QStringLiteral("a.mid"));
    QCOMPARE(library.song(QStringLiteral("a.mid")).title, QStringLiteral("My own title"));
    QCOMPARE(library.song(QStringLiteral("b.mid")).title, QStringLiteral("b"));
    QCOMPARE(library.song(QStringLiteral("c.mid")).title, QStringLiteral("c"));
}

void TestSongEditorAll::whatKilledProgramsLeftIsRemovedBesideEachSong()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(QDir(library.path()).mkdir(QStringLiteral("below")));
    QVERIFY(library.add(QStringLiteral("a.mid"), fullMidi("A")));
    QVERIFY(library.add(QStringLiteral("below/b.mid"), fullMidi("B")));
    const QString left = library.path(QStringLiteral(".a.mid.kavena-part"));
    const QString below = library.path(QStringLiteral("below/.b.mid.kavena-part"));
    QVERIFY(samplesongs::writeFile(left, "half") && samplesongs::writeFile(below, "half"));
    Editing editing(library);
    editing.changeTo([](SongEdit &edit) { edit.info.genre = QStringLiteral("Rock"); });
    const LogCapture log;
    QVERIFY(editing.editor.edit(0));
    QVERIFY(!QFileInfo::exists(left));
    QVERIFY(QFileInfo::exists(below));

    editing.changeTo([](SongEdit &edit) { edit.genreToAll = true; });
    QVERIFY(editing.editor.edit(0));
    QVERIFY(!QFileInfo::exists(below));
}

QTEST_MAIN(TestSongEditorAll)

#include "test_songeditor_all.moc"
