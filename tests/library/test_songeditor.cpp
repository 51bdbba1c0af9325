// The edit of one song.
#include "library/songeditor.h"
#include "support/editfixture.h"
#include "support/faults.h"
#include "support/librarytable.h"
#include "support/logcapture.h"
#include "support/songbytes.h"

#include <QTest>

using namespace editfixture;

namespace
{

/** Where the line stands in the log; negative when it was not written. */
int position(const QString &line)
{
    return static_cast<int>(LogCapture::lines().indexOf(line));
}

} // namespace

class TestSongEditor : public QObject
{
    Q_OBJECT

private slots:
    void rowThatDoesNotExistIsIgnored();
    void unreadableFileIsNotShown();
    void cancellingWritesNothing();
    void acceptedSongIsWrittenAndTurnsYellow();
    void stepsOfAnEditAreLogged();
    void emptiedItemsAreRemovedFromTheFile();
    void mp3AndMfxAreWrittenToo();
    void failedSaveIsLoggedAndTheRowShowsTheFile();
    void fileThatCannotBeReadAgainKeepsItsTexts();
};

void TestSongEditor::rowThatDoesNotExistIsIgnored()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mid"), fullMidi("A")));
    Editing editing(library);
    const LogCapture log;
    QVERIFY(!editing.editor.edit(-1));
    QCOMPARE(LogCapture::lines(), QStringList());
    QVERIFY(!editing.editor.edit(5));
    QVERIFY(editing.shown.isEmpty());
    QCOMPARE(library.statuses(), QList<int>({isNew}));
}

void TestSongEditor::unreadableFileIsNotShown()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("gone.mid"), fullMidi("A")));
    QVERIFY(library.add(QStringLiteral("folder.mid"), fullMidi("B")));
    QVERIFY(QFile::remove(library.path(QStringLiteral("gone.mid"))));
    QVERIFY(QFile::remove(library.path(QStringLiteral("folder.mid"))));
    QVERIFY(QDir().mkdir(library.path(QStringLiteral("folder.mid"))));
    Editing editing(library);
    QVERIFY(!editing.editor.edit(0));
    QVERIFY(!editing.editor.edit(1));
    QVERIFY(editing.shown.isEmpty());
    QCOMPARE(library.statuses(), QList<int>({isNew, isNew}));
    QCOMPARE(library.cell(0, "title"), QStringLiteral("A title"));
}

void TestSongEditor::cancellingWritesNothing()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mid"), fullMidi("A")));
    Editing editing(library);
    const LogCapture log;
    QVERIFY(!editing.editor.edit(0));
    QCOMPARE(editing.shown.size(), 1);
    QCOMPARE(library.bytes(QStringLiteral("a.mid")), fullMidi("A"));
    QCOMPARE(library.statuses(), QList<int>({isNew}));
    QCOMPARE(editing.progress.opened, 0);
    const int rejected = position(QStringLiteral("Rejected! "));
    QVERIFY(rejected >= 0);
    QCOMPARE(LogCapture::lines().mid(rejected + 1, 1),
             QStringList(
                 QStringLiteral("Dump Info song ---------------------------------------------- ")));
}

void TestSongEditor::acceptedSongIsWrittenAndTurnsYellow()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mid"), fullMidi("A")));
    QVERIFY(library.add(QStringLiteral("b.mid"), fullMidi("B")));
    Editing editing(library);
    editing.changeTo([](SongEdit &edit) {
        edit.info.title = QStringLiteral("Azzurro");
        edit.info.artist = QStringLiteral("Adriano");
        edit.info.genre = QStringLiteral("POP");
        edit.info.author = QStringLiteral("Conte");
        edit.info.length = 125;
        edit.info.userBpm = 99;
        edit.info.key = QStringLiteral("F#-");
    });
    QVERIFY(editing.editor.edit(1));

    QCOMPARE(editing.shown.size(), 1);
    QCOMPARE(editing.shown.first().fileName, library.path(QStringLiteral("b.mid")));
    QCOMPARE(editing.shown.first().title, QStringLiteral("B title"));
    QCOMPARE(editing.shown.first().format, QStringLiteral("MIDI"));

    const SongInfo song = library.song(QStringLiteral("b.mid"));
    QCOMPARE(song.title, QStringLiteral("Azzurro"));
    QCOMPARE(song.artist, QStringLiteral("Adriano"));
    QCOMPARE(song.genre, QStringLiteral("POP"));
    QCOMPARE(song.author, QStringLiteral("Conte"));
    QCOMPARE(song.length, 125);
    QCOMPARE(song.userBpm, 99);
    QCOMPARE(song.key, QStringLiteral("F#-"));
    QCOMPARE(song.markers.size(), 1);
    QVERIFY(library.bytes(QStringLiteral("b.mid")).contains(songbytes::notes()));

    QCOMPARE(library.cell(1, "title"), QStringLiteral("Azzurro"));
    QCOMPARE(library.cell(1, "length"), QStringLiteral("02:05"));
    QCOMPARE(library.cell(1, "key"), QStringLiteral("F#-"));
    QCOMPARE(library.statuses(), QList<int>({isNew, isEdited}));
    QCOMPARE(library.bytes(QStringLiteral("a.mid")), fullMidi("A"));
}

void TestSongEditor::stepsOfAnEditAreLogged()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mid"), fullMidi("A")));
    Editing editing(library);
    editing.changeTo([](SongEdit &edit) { edit.info.title = QStringLiteral("Azzurro"); });
    const LogCapture log;
    QVERIFY(editing.editor.edit(0));

    const QString path = library.path(QStringLiteral("a.mid"));
    const QList<int> positions = {
        position(QStringLiteral("File name:  \"%1\" ").arg(path)),
        position(QStringLiteral("[MainWindow] Manual modifing row:  0 ")),
        position(QStringLiteral("Accepted ")),
        position(QStringLiteral("Title      : \"Azzurro\" ")),
        position(QStringLiteral("[MetaSong] setSongInfo, manual:  true ")),
        position(QStringLiteral("Saving to file:  \"%1\" ").arg(path)),
        position(QStringLiteral("Ok "))};
    QVERIFY2(positions.first() >= 0, qPrintable(LogCapture::lines().join(QLatin1Char('\n'))));
    for (int i = 1; i < positions.size(); ++i)
        QVERIFY2(positions.at(i) > positions.at(i - 1), qPrintable(QString::number(i)));
    QVERIFY(!LogCapture::contains(QStringLiteral("Error! ")));
}

void TestSongEditor::emptiedItemsAreRemovedFromTheFile()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mid"), fullMidi("A")));
    Editing editing(library);
    editing.changeTo([](SongEdit &edit) {
        edit.info.title.clear();
        edit.info.genre.clear();
        edit.info.length = 0;
        edit.info.userBpm = 0;
        edit.info.key.clear();
    });
    QVERIFY(editing.editor.edit(0));
    const SongInfo song = library.song(QStringLiteral("a.mid"));
    QCOMPARE(song.title, QString());
    QCOMPARE(song.genre, QString());
    QCOMPARE(song.length, 0);
    QCOMPARE(song.userBpm, 0);
    QCOMPARE(song.author, QStringLiteral("A author"));
    QCOMPARE(library.cell(0, "title"), QString());
    QCOMPARE(library.cell(0, "length"), QStringLiteral("00:00"));
}

void TestSongEditor::mp3AndMfxAreWrittenToo()
{
    LibraryTable library(QList<catalogue::Row>{});
    const QByteArray audio = QByteArray("\xFF\xFB\x90\x64", 4) + QByteArray(300, 'a');
    QVERIFY(library.add(QStringLiteral("a.mp3"), songbytes::id3Tag(QByteArray()) + audio));
    QVERIFY(library.add(QStringLiteral("b.mf4"),
                        samplesongs::mfxBytes("_MF4", fullMidi("B"), samplesongs::Tags())));
    Editing editing(library);
    editing.changeTo([](SongEdit &edit) {
        edit.info.title = QStringLiteral("Azzurro");
        edit.info.userBpm = 88;
    });
    QVERIFY(editing.editor.edit(0));
    QVERIFY(editing.editor.edit(1));
    QCOMPARE(library.statuses(), QList<int>({isEdited, isEdited}));
    QCOMPARE(library.song(QStringLiteral("a.mp3")).title, QStringLiteral("Azzurro"));
    QCOMPARE(library.song(QStringLiteral("a.mp3")).userBpm, 88);
    QVERIFY(library.bytes(QStringLiteral("a.mp3")).endsWith(audio));
    QCOMPARE(library.song(QStringLiteral("b.mf4")).title, QStringLiteral("Azzurro"));
    QCOMPARE(library.song(QStringLiteral("b.mf4")).userBpm, 88);
    QCOMPARE(library.song(QStringLiteral("b.mf4")).markers.size(), 1);
}

void TestSongEditor::failedSaveIsLoggedAndTheRowShowsTheFile()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mid"), fullMidi("A")));
    Editing editing(library);
    editing.changeTo([](SongEdit &edit) { edit.info.title = QString(100, QLatin1Char('x')); });
    const LogCapture log;
    {
        const faults::FileSizeLimit full(static_cast<quint64>(fullMidi("A").size()));
        QVERIFY(editing.editor.edit(0));
    }
    QVERIFY(LogCapture::contains(QStringLiteral("Error! ")));
    QVERIFY(!LogCapture::contains(QStringLiteral("Ok ")));
    QCOMPARE(library.bytes(QStringLiteral("a.mid")), fullMidi("A"));
    QCOMPARE(library.cell(0, "title"), QStringLiteral("A title"));
    QCOMPARE(library.statuses(), QList<int>({isEdited}));
}

void TestSongEditor::fileThatCannotBeReadAgainKeepsItsTexts()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mid"), fullMidi("A")));
    const QString path = library.path(QStringLiteral("a.mid"));
    Editing editing(library);
    editing.answer = [&path](const SongInfo &info) {
        QFile::remove(path);
        QDir().mkdir(path);
        return std::optional<SongEdit>(SongEdit{info, false, false, false, false});
    };
    const LogCapture log;
    QVERIFY(editing.editor.edit(0));
    QVERIFY(LogCapture::contains(QStringLiteral("Error! ")));
    QCOMPARE(library.cell(0, "title"), QStringLiteral("A title"));
    QCOMPARE(library.cell(0, "length"), QStringLiteral("01:40"));
    QCOMPARE(library.statuses(), QList<int>({isEdited}));
}

QTEST_MAIN(TestSongEditor)

#include "test_songeditor.moc"
