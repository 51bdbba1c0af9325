// Editing, hiding and deleting songs: questions answered, progress recorded, files on disk.
#include "library/songeditor.h"
#include "support/faults.h"
#include "support/librarytable.h"
#include "support/logcapture.h"
#include "support/modalanswers.h"
#include "support/recordedprogress.h"
#include "support/songbytes.h"
#include "windows/dataeditdialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>

namespace
{

constexpr int isNew = Database::StatusNew;
constexpr int isEdited = Database::StatusEdited;

/** A MIDI file that holds one of each: title, artist, genre, author and a marker. */
QByteArray fullMidi(const QByteArray &name)
{
    using namespace songbytes;
    return midiFile(
        {track(metaEvent(0x03, name + " title") + kravoEvent(2, name + " artist") +
               kravoEvent(1, name + " genre") + kravoEvent(3, name + " author") +
               kravoEvent(4, "100") + kravoEvent(5, "120") + markerEvent(7, "Coda") + notes())});
}

/** An editor with every question answered from here. */
struct Editing {
    explicit Editing(LibraryTable &library)
        : editor(
              library.model(),
              [this](const SongInfo &info) {
                  shown.append(info);
                  return answer ? answer(info) : std::nullopt;
              },
              [this] {
                  ++deleteQuestions;
                  return deleteAnswer;
              },
              recordedBy(progress))
    {
    }

    /** Answers with the shown song, changed by the function. */
    void changeTo(std::function<void(SongEdit &)> change)
    {
        answer = [change](const SongInfo &info) {
            SongEdit edit;
            edit.info = info;
            change(edit);
            return std::optional<SongEdit>(edit);
        };
    }

    std::function<std::optional<SongEdit>(const SongInfo &)> answer; ///< unset: cancelled
    QList<SongInfo> shown;
    bool deleteAnswer = false;
    int deleteQuestions = 0;
    ProgressRecord progress;
    SongEditor editor;
};

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
    void removedRowLeavesTheFile();
    void removingARowThatDoesNotExistChangesNothing();
    void deletingAsksFirst();
    void deletedFileAndItsRowAreGone();
    void deletingWithoutARowDoesNotAsk();
    void rowGoesAlsoWhenTheFileCannotBeDeleted();
    void fileThatVanishedBeforeIsReportedAsGone();
    void dialogOffersTheCatalogueAndReturnsTheEdit();
    void dialogReturnsTheConfirmedFlags();
    void cancelledDialogReturnsNothing();
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

void TestSongEditor::withoutAFlagOtherSongsStay()
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

void TestSongEditor::flagAppliesItsFieldToAllOthers_data()
{
    QTest::addColumn<QString>("flag");
    QTest::newRow("artist") << "artist";
    QTest::newRow("genre") << "genre";
    QTest::newRow("author") << "author";
}

void TestSongEditor::flagAppliesItsFieldToAllOthers()
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

void TestSongEditor::titleToAllGivesEachSongItsFileName()
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

void TestSongEditor::allFlagsTogether()
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

void TestSongEditor::bulkProgressCountsOnlyWrittenRows()
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

void TestSongEditor::bulkEditCannotBeStopped()
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

void TestSongEditor::pendingEventsRunBetweenFiles()
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

void TestSongEditor::bulkEditOfASortedTableReachesEveryRow()
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
void TestSongEditor::bulkEditReachesEveryRowOfATableThatIsSortedMeanwhile()
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
void TestSongEditor::rowIsFoundAgainWhenTheTableIsSortedDuringTheSave()
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

void TestSongEditor::bulkEditLeavesOutTheEditedSongWhenTheTableIsSortedDuringItsSave()
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

void TestSongEditor::whatKilledProgramsLeftIsRemovedBesideEachSong()
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

void TestSongEditor::removedRowLeavesTheFile()
{
    LibraryTable library(QList<catalogue::Row>{});
    for (const char *name : {"a.mid", "b.mid", "c.mid"})
        QVERIFY(library.add(QString::fromLatin1(name), fullMidi(name)));
    Editing editing(library);
    editing.editor.removeFromList(1);
    QCOMPARE(library.model().goodRowCount(), 2);
    QCOMPARE(library.model().shortName(0), QStringLiteral("a.mid"));
    QCOMPARE(library.model().shortName(1), QStringLiteral("c.mid"));
    QVERIFY(QFile::exists(library.path(QStringLiteral("b.mid"))));
    QCOMPARE(editing.deleteQuestions, 0);
}

void TestSongEditor::removingARowThatDoesNotExistChangesNothing()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mid"), fullMidi("A")));
    Editing editing(library);
    editing.editor.removeFromList(-1);
    editing.editor.removeFromList(1);
    QCOMPARE(library.model().goodRowCount(), 1);
}

void TestSongEditor::deletingAsksFirst()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mid"), fullMidi("A")));
    Editing editing(library);
    editing.deleteAnswer = false;
    QCOMPARE(editing.editor.deleteFile(0), QString());
    QCOMPARE(editing.deleteQuestions, 1);
    QCOMPARE(library.model().goodRowCount(), 1);
    QCOMPARE(library.bytes(QStringLiteral("a.mid")), fullMidi("A"));
}

void TestSongEditor::deletedFileAndItsRowAreGone()
{
    LibraryTable library(QList<catalogue::Row>{});
    for (const char *name : {"a.mid", "b.mid", "c.mid"})
        QVERIFY(library.add(QString::fromLatin1(name), fullMidi(name)));
    Editing editing(library);
    editing.deleteAnswer = true;
    QCOMPARE(editing.editor.deleteFile(0), library.path(QStringLiteral("a.mid")));
    QVERIFY(!QFile::exists(library.path(QStringLiteral("a.mid"))));
    QCOMPARE(library.model().goodRowCount(), 2);
    QCOMPARE(library.model().shortName(0), QStringLiteral("b.mid"));
    QVERIFY(QFile::exists(library.path(QStringLiteral("b.mid"))));
}

void TestSongEditor::deletingWithoutARowDoesNotAsk()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mid"), fullMidi("A")));
    Editing editing(library);
    editing.deleteAnswer = true;
    QCOMPARE(editing.editor.deleteFile(-1), QString());
    QCOMPARE(editing.editor.deleteFile(7), QString());
    QCOMPARE(editing.deleteQuestions, 0);
    QCOMPARE(library.model().goodRowCount(), 1);
    QVERIFY(QFile::exists(library.path(QStringLiteral("a.mid"))));
}

void TestSongEditor::rowGoesAlsoWhenTheFileCannotBeDeleted()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mid"), fullMidi("A")));
    const QString path = library.path(QStringLiteral("a.mid"));
    QVERIFY(QFile::remove(path));
    QVERIFY(QDir().mkpath(path + QStringLiteral("/inside")));
    Editing editing(library);
    editing.deleteAnswer = true;
    QCOMPARE(editing.editor.deleteFile(0), QString());
    QCOMPARE(library.model().goodRowCount(), 0);
    QVERIFY(QFileInfo(path).isDir());
}

void TestSongEditor::fileThatVanishedBeforeIsReportedAsGone()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mid"), fullMidi("A")));
    const QString path = library.path(QStringLiteral("a.mid"));
    QVERIFY(QFile::remove(path));
    Editing editing(library);
    editing.deleteAnswer = true;
    QCOMPARE(editing.editor.deleteFile(0), path);
    QCOMPARE(library.model().goodRowCount(), 0);
}

void TestSongEditor::dialogOffersTheCatalogueAndReturnsTheEdit()
{
    catalogue::Row row;
    row.filename = QStringLiteral("X");
    row.title = QStringLiteral("X");
    row.altartist = QStringLiteral("JOHN DOE");
    row.genre = QStringLiteral("SWING");
    LibraryTable library({row});
    QVERIFY(library.isGood());
    SongInfo info;
    info.title = QStringLiteral("Mine");
    info.key = QStringLiteral("Bb");
    info.shortName = QStringLiteral("a.mid");

    DataEditDialog dialog;
    QTimer::singleShot(0, &dialog, [&dialog] {
        const auto combo = [&dialog](const char *name) {
            return dialog.findChild<QComboBox *>(QString::fromLatin1(name));
        };
        QCOMPARE(combo("artistComboBox")->count(), 1);
        QCOMPARE(combo("artistComboBox")->itemText(0), QStringLiteral("JOHN DOE"));
        QCOMPARE(combo("genreComboBox")->itemText(0), QStringLiteral("SWING"));
        QCOMPARE(combo("keyComboBox")->count(), 31);
        QCOMPARE(combo("keyComboBox")->currentText(), QStringLiteral("Bb"));
        dialog.findChild<QLineEdit *>(QStringLiteral("authorLineEdit"))
            ->setText(QStringLiteral("Conte"));
        QTest::mouseClick(dialog.findChild<QPushButton *>(QStringLiteral("savePushButton")),
                          Qt::LeftButton);
    });
    const std::optional<SongEdit> edit = editInDialog(dialog, library.database, info);
    QVERIFY(edit.has_value());
    QCOMPARE(edit->info.title, QStringLiteral("Mine"));
    QCOMPARE(edit->info.author, QStringLiteral("Conte"));
    QCOMPARE(edit->info.key, QStringLiteral("Bb"));
    QCOMPARE(edit->info.shortName, QStringLiteral("a.mid"));
    QVERIFY(!edit->titleToAll && !edit->artistToAll && !edit->genreToAll && !edit->authorToAll);
}

void TestSongEditor::dialogReturnsTheConfirmedFlags()
{
    LibraryTable library(QList<catalogue::Row>{});
    DataEditDialog dialog;
    ModalAnswers answers;
    answers.pressInMessageBoxes(QMessageBox::Yes);
    QTimer::singleShot(0, &dialog, [&dialog] {
        dialog.findChild<QRadioButton *>(QStringLiteral("radioButtonTitle2"))->click();
        dialog.findChild<QCheckBox *>(QStringLiteral("checkBoxToAllTitle"))->click();
        dialog.findChild<QCheckBox *>(QStringLiteral("checkBoxToAllGenre"))->click();
        dialog.findChild<QPushButton *>(QStringLiteral("savePushButton"))->click();
    });
    const std::optional<SongEdit> edit = editInDialog(dialog, library.database, SongInfo());
    QVERIFY(edit.has_value());
    QVERIFY(edit->titleToAll && edit->genreToAll);
    QVERIFY(!edit->artistToAll && !edit->authorToAll);

    QTimer::singleShot(0, &dialog, [&dialog] {
        dialog.findChild<QCheckBox *>(QStringLiteral("checkBoxToAllArtist"))->click();
        dialog.findChild<QCheckBox *>(QStringLiteral("checkBoxToAllAuthor"))->click();
        dialog.findChild<QPushButton *>(QStringLiteral("savePushButton"))->click();
    });
    const std::optional<SongEdit> next = editInDialog(dialog, library.database, SongInfo());
    QVERIFY(next.has_value());
    QVERIFY(next->artistToAll && next->authorToAll);
    QVERIFY(!next->titleToAll && !next->genreToAll);
}

void TestSongEditor::cancelledDialogReturnsNothing()
{
    LibraryTable library(QList<catalogue::Row>{});
    DataEditDialog dialog;
    QTimer::singleShot(0, &dialog, [&dialog] {
        dialog.findChild<QPushButton *>(QStringLiteral("exitPushButton"))->click();
    });
    QVERIFY(!editInDialog(dialog, library.database, SongInfo()).has_value());
    QTimer::singleShot(0, &dialog, &QDialog::close);
    QVERIFY(!editInDialog(dialog, library.database, SongInfo()).has_value());
}

QTEST_MAIN(TestSongEditor)
#include "test_songeditor.moc"
