// The transfer onto a memory: which folders are refused, room, copy, index, and what the user is
// told; with answers handed in, and once through the real windows.
#include "devindex/copyingprogress.h"
#include "devindex/index.h"
#include "devindex/mountedcard.h"
#include "devindex/transfer.h"
#include "library/answer.h"
#include "support/faults.h"
#include "support/logcapture.h"
#include "support/userdriver.h"
#include "windows/nocopyrightdialog.h"
#include "windows/progresswindow.h"
#include "windows/transferdialogs.h"

#include <QLabel>
#include <QTest>
#include <QTextEdit>

#include <memory>

namespace
{

const QString systemDiskText =
    QStringLiteral("Trasferimento: Non è possibile copiare i file sul disco di sistema");
const QString rootFolderText =
    QStringLiteral("Trasferimento: Non è possibile copiare i file sulla cartella principale, "
                   "creare o selezionare una sottocartella");
const QString reservedText = QStringLiteral(
    "Trasferimento: Non è possibile utilizzare le cartelle BRIDGE, SFX e PLAYLIST perchè sono "
    "riservate per funzionalità specifiche di Kavena, selezionare un'altra cartella");
const QString successText =
    QStringLiteral("Trasferimento: Tutti i file sono stati copiati correttamente");
const QString failureText =
    QStringLiteral("Trasferimento: Non è stato possibile copiare uno o più file");

QString countsText(int copied, int skipped, int failed)
{
    return QStringLiteral("Trasferimento: Song copiate: %1\nSong saltate: %2\n"
                          "Song non copiate (errori): %3")
        .arg(copied)
        .arg(skipped)
        .arg(failed);
}

/** Answers as it was told, and keeps what was asked and said. */
class ScriptedQuestions : public TransferUser
{
public:
    QString chooseFolder(const QString &title, const QString &startFolder) override
    {
        chooserTitle = title;
        chooserStart = startFolder;
        return folder;
    }
    Answer askReplace(const QString &target) override
    {
        replaceAsked.append(target);
        return replaceAnswer;
    }
    Answer askRename(const QString &path, const QString &message) override
    {
        renameAsked.append(path + QStringLiteral(": ") + message);
        return renameAnswer;
    }
    bool askAnyway(const QString &title, const QString &question) override
    {
        roomAsked.append(title + QStringLiteral(": ") + question);
        return anyway;
    }
    void warn(const QString &title, const QString &text) override
    {
        warnings.append(title + QStringLiteral(": ") + text);
    }
    void inform(const QString &title, const QString &text) override
    {
        successes.append(title + QStringLiteral(": ") + text);
    }
    void showFailure(const QString &title, const QString &text) override
    {
        failures.append(title + QStringLiteral(": ") + text);
        if (onEnd)
            onEnd();
    }
    void tellCounts(const QString &title, const QString &text, const QStringList &failed,
                    const QStringList &skipped) override
    {
        skippedNames = skipped;
        saidBeforeCounts = successes + failures;
        counts.append(title + QStringLiteral(": ") + text);
        failedNames = failed;
    }

    bool saidNothing() const
    {
        return warnings.isEmpty() && successes.isEmpty() && failures.isEmpty() && counts.isEmpty();
    }

    QString folder;
    Answer replaceAnswer = Answer::No;
    Answer renameAnswer = Answer::No;
    bool anyway = false;
    QString chooserTitle;
    QString chooserStart;
    QStringList replaceAsked;
    QStringList renameAsked;
    QStringList roomAsked;
    QStringList warnings;
    QStringList successes;
    QStringList failures;
    QStringList counts;
    QStringList failedNames;
    QStringList skippedNames;
    QStringList saidBeforeCounts;
    std::function<void()> onEnd;
};

/** What one progress was, after it is gone. */
struct OpenedProgress {
    QString title;
    QString label;
    int maximumAtFirst = -1;
    QList<int> maxima;
    QList<int> values;
    QList<int> updates;
    bool closed = false;
};

} // namespace

class TestTransfer : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void cancellingTheChooserDoesNothing();
    void chooserStartsInTheMountDirectory();
    void systemDiskIsRefused_data();
    void systemDiskIsRefused();
    void rootOfACardMeansItsSongsFolder_data();
    void rootOfACardMeansItsSongsFolder();
    void songsFolderThatCannotBeMadeIsReported();
    void pulledCardIsNotMadeAnew();
    void reservedFoldersAreRefused_data();
    void reservedFoldersAreRefused();
    void onlyTheLastFolderNameIsReserved_data();
    void onlyTheLastFolderNameIsReserved();

    void bannerStandsInTheLog();
    void progressesAreTitledAndClosed();
    void copiedSongsAreInTheIndex();
    void secondTransferAddsToTheIndex();
    void karaokePicturesArriveWithTheirSong();
    void longNamesAreShortenedAfterAsking();
    void transferIntoTheSongsOwnFolderCopiesNothing();
    void keptFilesAreNoFailure();
    void stoppedCopyStillUpdatesTheIndex();
    void failedFileIsReportedAndTheOthersAreIndexed();
    void damagedIndexIsReported();
    void cardPulledDuringTheCopyIsReported();
    void fullCardIsReportedAndKeepsItsIndex();
    void indexThatDoesNotFitIsReportedAndLeavesNone();

    void countsAreToldAfterTheOutcome();
    void countsSayWhatAStopLeftOut();
    void countsSayThatTheIndexWasNotUpdated();

    void missingRoomIsAskedAbout_data();
    void missingRoomIsAskedAbout();
    void filesThatFitAreNotAskedAbout();
    void freeSpaceOfTheDiskIsHeldAgainstTheFiles();

    void indexIsUpdatedForAnyFolderOfAMemory();
    void missingMemoryHasNoIndexToUpdate();

    void realWindowsDoTheWholeJob();
    void namesOfFailedSongsAreShownOnRequest();
    void namesOfSkippedSongsAreShownOnRequest();
    void roomQuestionsDefaultIsNo();

private:
    OpenProgress openProgress();
    Transfer::Outcome transfer(const QStringList &files);
    QStringList someSongs(int count = 3) const;

    std::unique_ptr<MountedCard> m_card;
    std::unique_ptr<ScriptedQuestions> m_questions;
    QList<std::shared_ptr<OpenedProgress>> m_opened;
    std::function<void(CopyingProgress &, int)> m_onUpdate;
    qint64 m_freeBytes = 1000000000;
};

/** A progress that writes down what it is told, to be read when it is closed. */
class NotedProgress : public CopyingProgress
{
public:
    explicit NotedProgress(std::shared_ptr<OpenedProgress> notes)
        : m_notes(std::move(notes))
    {
    }
    ~NotedProgress() override
    {
        m_notes->values = values;
        m_notes->updates = updates;
        m_notes->closed = true;
    }
    void setMaximum(int steps) override { m_notes->maxima.append(steps); }

private:
    const std::shared_ptr<OpenedProgress> m_notes;
};

void TestTransfer::init()
{
    m_card = std::make_unique<MountedCard>();
    m_questions = std::make_unique<ScriptedQuestions>();
    m_questions->folder = m_card->path(QStringLiteral("pop"));
    QVERIFY(QDir().mkdir(m_questions->folder));
    m_opened.clear();
    m_onUpdate = {};
    m_freeBytes = 1000000000;
}

void TestTransfer::cleanup()
{
    m_questions.reset();
    m_card.reset();
}

OpenProgress TestTransfer::openProgress()
{
    return [this](const QString &title, const QString &label, int maximum) {
        auto notes = std::make_shared<OpenedProgress>();
        notes->title = title;
        notes->label = label;
        notes->maximumAtFirst = maximum;
        m_opened.append(notes);
        auto progress = std::make_unique<NotedProgress>(notes);
        if (m_onUpdate) {
            CopyingProgress *const raw = progress.get();
            progress->onUpdate = [this, raw](int done) { m_onUpdate(*raw, done); };
        }
        return std::unique_ptr<Progress>(std::move(progress));
    };
}

Transfer::Outcome TestTransfer::transfer(const QStringList &files)
{
    Transfer job(*m_questions, openProgress(), [this](const QString &) { return m_freeBytes; });
    return job.transferFiles(files);
}

QStringList TestTransfer::someSongs(int count) const
{
    QStringList files;
    for (int i = 0; i < count; ++i) {
        files.append(m_card->writeMusic(QStringLiteral("song%1.mid").arg(i),
                                        MountedCard::midi("SONG " + QByteArray::number(i))));
    }
    return files;
}

void TestTransfer::cancellingTheChooserDoesNothing()
{
    const QStringList files = someSongs();
    m_questions->folder.clear();
    const LogCapture log;
    QCOMPARE(transfer(files), Transfer::Outcome::NotStarted);
    QVERIFY(m_questions->saidNothing());
    QVERIFY(m_questions->roomAsked.isEmpty());
    QVERIFY(m_opened.isEmpty());
    QVERIFY(LogCapture::lines().isEmpty());
    QVERIFY(!m_card->hasIndex());
}

void TestTransfer::chooserStartsInTheMountDirectory()
{
    if (QFileInfo::exists(QStringLiteral("/Volumes")))
        QSKIP("This machine mounts under /Volumes");
    m_questions->folder.clear();
    transfer({});
    QCOMPARE(m_questions->chooserTitle, QStringLiteral("Scegli cartella"));
    QCOMPARE(m_questions->chooserStart, m_card->mountDirectory());
}

void TestTransfer::systemDiskIsRefused_data()
{
    QTest::addColumn<QString>("folder"); // %1 stands for the mount directory
    QTest::newRow("home") << "/home";
    QTest::newRow("temporary files") << "/tmp";
    QTest::newRow("the mount directory itself") << "%1";
    QTest::newRow("the mount directory and a slash") << "%1/";
    QTest::newRow("a way out of it") << "%1/CARD/../../music";
    QTest::newRow("the other mount directory") << "/Volumes/";
}

void TestTransfer::systemDiskIsRefused()
{
    QFETCH(QString, folder);
    m_questions->folder = folder.replace(QStringLiteral("%1"), m_card->mountDirectory());
    QCOMPARE(transfer(someSongs()), Transfer::Outcome::NotStarted);
    QCOMPARE(m_questions->warnings, QStringList(systemDiskText));
    QVERIFY(m_opened.isEmpty());
}

void TestTransfer::rootOfACardMeansItsSongsFolder_data()
{
    QTest::addColumn<QString>("slash");
    QTest::addColumn<bool>("songsExists");
    QTest::newRow("made") << "" << false;
    QTest::newRow("made, slash at the end") << "/" << false;
    QTest::newRow("there already") << "" << true;
}

void TestTransfer::rootOfACardMeansItsSongsFolder()
{
    QFETCH(QString, slash);
    QFETCH(bool, songsExists);
    if (songsExists)
        m_card->writeOnCard(QStringLiteral("songs/old.mid"), MountedCard::midi("OLD"));
    m_questions->folder = m_card->root() + slash;
    QCOMPARE(transfer(someSongs(1)), Transfer::Outcome::Complete);
    QCOMPARE(m_questions->successes, QStringList(successText));
    QCOMPARE(m_card->read(QStringLiteral("songs/song0.mid")), MountedCard::midi("SONG 0"));
    QVERIFY(!QFileInfo::exists(m_card->path(QStringLiteral("song0.mid"))));
    QVERIFY(m_card->indexedPaths().contains(QStringLiteral("/songs/song0.mid")));
    QCOMPARE(m_card->indexedPaths().contains(QStringLiteral("/songs/old.mid")), songsExists);
}

void TestTransfer::songsFolderThatCannotBeMadeIsReported()
{
    m_card->writeOnCard(QStringLiteral("songs"), "a file in the folder's place");
    m_questions->folder = m_card->root();
    QCOMPARE(transfer(someSongs()), Transfer::Outcome::NotStarted);
    QCOMPARE(m_questions->warnings, QStringList(rootFolderText));
    QVERIFY(m_opened.isEmpty());
    QVERIFY(!m_card->hasIndex());
}

void TestTransfer::pulledCardIsNotMadeAnew()
{
    m_questions->folder = m_card->mountDirectory() + QStringLiteral("/PULLED");
    QCOMPARE(transfer(someSongs()), Transfer::Outcome::NotStarted);
    QCOMPARE(m_questions->warnings, QStringList(rootFolderText));
    QVERIFY(!QFileInfo::exists(m_questions->folder));
}

void TestTransfer::reservedFoldersAreRefused_data()
{
    QTest::addColumn<QString>("name");
    for (const char *const name : {"playlist", "PLAYLIST", "Bridge", "SFX", "sfx", "sfx/",
                                   "deep/in/bridge//", "pop/../playlist"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestTransfer::reservedFoldersAreRefused()
{
    QFETCH(QString, name);
    m_questions->folder = m_card->path(name);
    QVERIFY(QDir().mkpath(m_questions->folder));
    QCOMPARE(transfer(someSongs()), Transfer::Outcome::NotStarted);
    QCOMPARE(m_questions->warnings, QStringList(reservedText));
    QVERIFY(m_opened.isEmpty());
    QVERIFY(QDir(m_questions->folder).isEmpty());
}

void TestTransfer::onlyTheLastFolderNameIsReserved_data()
{
    QTest::addColumn<QString>("name");
    for (const char *const name : {"sfx2", "my sfx", "playlist/pop"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestTransfer::onlyTheLastFolderNameIsReserved()
{
    QFETCH(QString, name);
    m_questions->folder = m_card->path(name);
    QVERIFY(QDir().mkpath(m_questions->folder));
    transfer({});
    QVERIFY(m_questions->warnings.isEmpty());
    QCOMPARE(m_opened.first()->title, QStringLiteral("Trasferimento"));
}

void TestTransfer::bannerStandsInTheLog()
{
    const QStringList files = someSongs(1);
    const LogCapture log;
    QCOMPARE(transfer(files), Transfer::Outcome::Complete);
    const QString line = QString(44, QLatin1Char('=')) + QLatin1Char(' ');
    QCOMPARE(LogCapture::lines().mid(0, 4),
             QStringList({line, QStringLiteral("          TRASFERIMENTO FILE "), line,
                          QStringLiteral("Copying file: \"%1\" to: \"%2/song0.mid\" ")
                              .arg(files.first(), m_questions->folder)}));
}

void TestTransfer::progressesAreTitledAndClosed()
{
    QCOMPARE(transfer(someSongs(3)), Transfer::Outcome::Complete);
    QCOMPARE(m_opened.size(), 2);
    const OpenedProgress &copy = *m_opened.at(0);
    QCOMPARE(copy.title, QStringLiteral("Trasferimento"));
    QCOMPARE(copy.label, QStringLiteral("Trasferimento file..."));
    QCOMPARE(copy.maximumAtFirst, 3);
    QCOMPARE(copy.updates, QList<int>({1, 2, 3}));
    QVERIFY(copy.closed);

    const OpenedProgress &index = *m_opened.at(1);
    QCOMPARE(index.title, QStringLiteral("Aggiornamento"));
    QCOMPARE(index.label, QStringLiteral("Aggiornamento database..."));
    QVERIFY(index.closed);
    // Three songs found, three read, then the index files in hundredths.
    QCOMPARE(index.maxima, QList<int>({3, 100}));
    QCOMPARE(index.values.mid(0, 7), QList<int>({0, 1, 2, 3, 1, 2, 3}));
    QCOMPARE(index.values.last(), 100);
}

void TestTransfer::copiedSongsAreInTheIndex()
{
    QCOMPARE(transfer(someSongs(3)), Transfer::Outcome::Complete);
    QCOMPARE(m_questions->successes, QStringList(successText));
    QVERIFY(m_questions->warnings.isEmpty() && m_questions->failures.isEmpty());
    QCOMPARE(m_card->indexedPaths(),
             QStringList({QStringLiteral("/pop/song0.mid"), QStringLiteral("/pop/song1.mid"),
                          QStringLiteral("/pop/song2.mid")}));
    QVERIFY(m_card->hasIndex());
}

void TestTransfer::secondTransferAddsToTheIndex()
{
    QCOMPARE(transfer(someSongs(2)), Transfer::Outcome::Complete);
    const QList<quint32> firstIds = m_card->indexedIds();
    m_questions->replaceAnswer = Answer::NoToAll;
    QCOMPARE(transfer(someSongs(3)), Transfer::Outcome::Complete);
    QCOMPARE(m_questions->replaceAsked.size(), 1);
    const QList<quint32> ids = m_card->indexedIds();
    QCOMPARE(ids.mid(0, 2), firstIds);
    QCOMPARE(ids.size(), 3);
    QCOMPARE(ids.last(), firstIds.last() + 1);
}

void TestTransfer::karaokePicturesArriveWithTheirSong()
{
    const QString song = m_card->writeMusic(QStringLiteral("hit.mp3"), "ID3 music");
    m_card->writeMusic(QStringLiteral("hit.cdg"), "pictures");
    QCOMPARE(transfer({song}), Transfer::Outcome::Complete);
    QCOMPARE(m_card->read(QStringLiteral("pop/hit.mp3")), QByteArray("ID3 music"));
    QCOMPARE(m_card->read(QStringLiteral("pop/hit.cdg")), QByteArray("pictures"));
    QCOMPARE(m_card->indexedPaths(), QStringList(QStringLiteral("/pop/hit.mp3")));
}

void TestTransfer::longNamesAreShortenedAfterAsking()
{
    const QString song =
        m_card->writeMusic(QStringLiteral("My Long Song.mid"), MountedCard::midi("LONG"));
    m_questions->renameAnswer = Answer::Yes;
    QCOMPARE(transfer({song}), Transfer::Outcome::Complete);
    QCOMPARE(m_questions->renameAsked.size(), 1);
    QVERIFY(m_questions->renameAsked.first().startsWith(
        m_card->path(QStringLiteral("pop/My Long Song.mid: verrà rinominato: "))));
    QCOMPARE(m_card->indexedPaths(), QStringList(QStringLiteral("/pop/MyLong-1.mid")));
}

void TestTransfer::transferIntoTheSongsOwnFolderCopiesNothing()
{
    const QString song =
        m_card->writeOnCard(QStringLiteral("pop/here.mid"), MountedCard::midi("HERE"));
    m_freeBytes = 0;
    QCOMPARE(transfer({song}), Transfer::Outcome::Complete);
    QCOMPARE(m_questions->successes, QStringList(successText));
    QVERIFY(m_questions->replaceAsked.isEmpty());
    QVERIFY(m_questions->roomAsked.isEmpty());
    QVERIFY(m_opened.first()->updates.isEmpty());
    QCOMPARE(m_card->read(QStringLiteral("pop/here.mid")), MountedCard::midi("HERE"));
}

void TestTransfer::keptFilesAreNoFailure()
{
    m_card->writeOnCard(QStringLiteral("pop/song0.mid"), MountedCard::midi("KEPT 0"));
    m_card->writeOnCard(QStringLiteral("pop/song1.mid"), MountedCard::midi("KEPT 1"));
    m_questions->replaceAnswer = Answer::NoToAll;
    QCOMPARE(transfer(someSongs(3)), Transfer::Outcome::Complete);
    QCOMPARE(m_questions->replaceAsked, QStringList(m_card->path(QStringLiteral("pop/song0.mid"))));
    QCOMPARE(m_card->read(QStringLiteral("pop/song0.mid")), MountedCard::midi("KEPT 0"));
    QCOMPARE(m_card->read(QStringLiteral("pop/song1.mid")), MountedCard::midi("KEPT 1"));
    QCOMPARE(m_card->read(QStringLiteral("pop/song2.mid")), MountedCard::midi("SONG 2"));
    QCOMPARE(m_opened.first()->updates, QList<int>({3}));
}

void TestTransfer::stoppedCopyStillUpdatesTheIndex()
{
    m_onUpdate = [](CopyingProgress &progress, int done) { progress.canceled = done == 2; };
    QCOMPARE(transfer(someSongs(4)), Transfer::Outcome::Incomplete);
    QCOMPARE(m_questions->failures, QStringList(failureText));
    QVERIFY(m_questions->successes.isEmpty());
    QCOMPARE(m_card->indexedPaths(),
             QStringList({QStringLiteral("/pop/song0.mid"), QStringLiteral("/pop/song1.mid")}));
}

void TestTransfer::failedFileIsReportedAndTheOthersAreIndexed()
{
    QStringList files = someSongs(2);
    files.insert(1, m_card->music() + QStringLiteral("/gone.mid"));
    bool progressesClosed = false;
    m_questions->onEnd = [&] {
        progressesClosed = m_opened.size() == 2 && m_opened.at(0)->closed && m_opened.at(1)->closed;
    };
    QCOMPARE(transfer(files), Transfer::Outcome::Incomplete);
    QCOMPARE(m_questions->failures, QStringList(failureText));
    QVERIFY(progressesClosed);
    QCOMPARE(m_card->indexedPaths().size(), 2);
}

void TestTransfer::damagedIndexIsReported()
{
    QCOMPARE(transfer(someSongs(2)), Transfer::Outcome::Complete);
    m_card->isLeftBroken();
    m_card->writeOnCard(QStringLiteral("index.idx"), "half a record");
    m_questions->replaceAnswer = Answer::NoToAll;
    QCOMPARE(transfer(someSongs(3)), Transfer::Outcome::Incomplete);
    QCOMPARE(m_questions->failures, QStringList(failureText));
    QCOMPARE(m_card->read(QStringLiteral("index.idx")), QByteArray("half a record"));
}

void TestTransfer::cardPulledDuringTheCopyIsReported()
{
    m_onUpdate = [this](CopyingProgress &, int done) {
        if (done == 1)
            QVERIFY(QDir(m_card->root()).removeRecursively());
    };
    QCOMPARE(transfer(someSongs(3)), Transfer::Outcome::Incomplete);
    QCOMPARE(m_questions->failures, QStringList(failureText));
    QCOMPARE(m_opened.size(), 1); // no memory, no index to update
    QCOMPARE(m_opened.first()->updates, QList<int>({1, 2, 3}));
    QVERIFY(!QFileInfo::exists(m_card->root()));
}

void TestTransfer::fullCardIsReportedAndKeepsItsIndex()
{
    QCOMPARE(transfer(someSongs(2)), Transfer::Outcome::Complete);
    const QByteArray index = m_card->read(QStringLiteral("index.idx"));
    const QString big = m_card->writeMusic(QStringLiteral("big.mid"), QByteArray(5000, 'x'));
    {
        const faults::FileSizeLimit limit(1000);
        QCOMPARE(transfer({big}), Transfer::Outcome::Incomplete);
    }
    QCOMPARE(m_questions->failures, QStringList(failureText));
    QVERIFY(!QFileInfo::exists(m_card->path(QStringLiteral("pop/big.mid"))));
    QCOMPARE(m_card->read(QStringLiteral("index.idx")), index);
    QVERIFY(m_card->hasIndex());
}

void TestTransfer::indexThatDoesNotFitIsReportedAndLeavesNone()
{
    const QStringList songs = someSongs(4);
    {
        // Room for each song and for the alpha files of 256 bytes, not for 4 records of 64 bytes.
        const faults::FileSizeLimit limit(200);
        QCOMPARE(transfer(songs), Transfer::Outcome::Incomplete);
    }
    QCOMPARE(m_questions->failures, QStringList(failureText));
    QCOMPARE(QDir(m_card->path(QStringLiteral("pop"))).entryList(QDir::Files).size(), 4);
    QCOMPARE(QDir(m_card->root()).entryList({QStringLiteral("*.idx")}, QDir::Files), QStringList());
}

void TestTransfer::countsAreToldAfterTheOutcome()
{
    m_card->writeOnCard(QStringLiteral("pop/song1.mid"), MountedCard::midi("OLD"));
    QStringList files = someSongs(3);
    files.insert(1, m_card->music() + QStringLiteral("/gone.mid"));
    files.append(m_card->path(QStringLiteral("pop/song1.mid"))); // lies there already
    QCOMPARE(transfer(files), Transfer::Outcome::Incomplete);
    QCOMPARE(m_questions->replaceAsked.size(), 1);
    QCOMPARE(m_questions->counts, QStringList(countsText(3, 1, 1)));
    QCOMPARE(m_questions->failedNames,
             QStringList(QStringLiteral("gone.mid: il file non c'è più")));
    QCOMPARE(m_questions->skippedNames, QStringList(QStringLiteral("song1.mid")));
    QCOMPARE(m_questions->saidBeforeCounts, QStringList(failureText));

    QCOMPARE(transfer(files.mid(3)), Transfer::Outcome::Complete);
    QCOMPARE(m_questions->counts.last(), countsText(1, 1, 0));
    QVERIFY(m_questions->failedNames.isEmpty());
    QCOMPARE(m_questions->saidBeforeCounts, QStringList({successText, failureText}));
}

void TestTransfer::countsSayWhatAStopLeftOut()
{
    m_onUpdate = [](CopyingProgress &progress, int done) { progress.canceled = done == 2; };
    QCOMPARE(transfer(someSongs(5)), Transfer::Outcome::Incomplete);
    QCOMPARE(m_questions->counts,
             QStringList(countsText(2, 0, 0) +
                         QStringLiteral("\nSong non più copiate dopo l'interruzione: 3")));
}

void TestTransfer::countsSayThatTheIndexWasNotUpdated()
{
    // A folder in the place of an index file: it can be neither loaded nor replaced.
    QVERIFY(QDir().mkpath(m_card->path(QStringLiteral("index.idx/folder"))));
    QCOMPARE(transfer(someSongs(1)), Transfer::Outcome::Incomplete);
    QCOMPARE(m_questions->counts,
             QStringList(countsText(1, 0, 0) +
                         QStringLiteral("\nIl database della memoria non è stato aggiornato.")));
}

void TestTransfer::missingRoomIsAskedAbout_data()
{
    QTest::addColumn<bool>("anyway");
    QTest::newRow("no") << false;
    QTest::newRow("yes") << true;
}

void TestTransfer::missingRoomIsAskedAbout()
{
    QFETCH(bool, anyway);
    QLocale::setDefault(QLocale::c());
    // Three songs take three clusters of 32 KiB; two and a half are free.
    m_freeBytes = 5 * 16 * 1024;
    m_questions->anyway = anyway;
    const LogCapture log;
    QCOMPARE(transfer(someSongs(3)),
             anyway ? Transfer::Outcome::Complete : Transfer::Outcome::NotStarted);
    QCOMPARE(m_questions->roomAsked,
             QStringList(QStringLiteral(
                 "Trasferimento: Lo spazio libero nella memoria non è sufficiente: mancano "
                 "16.4 kB.\nSi vuole procedere comunque con la copia?")));
    QCOMPARE(QDir(m_questions->folder).entryList(QDir::Files).size(), anyway ? 3 : 0);
    QCOMPARE(m_card->hasIndex(), anyway);
    QCOMPARE(m_questions->saidNothing(), !anyway);
    QCOMPARE(LogCapture::lines().isEmpty(), !anyway);
}

void TestTransfer::filesThatFitAreNotAskedAbout()
{
    m_freeBytes = 3 * 32 * 1024;
    QCOMPARE(transfer(someSongs(3)), Transfer::Outcome::Complete);
    QVERIFY(m_questions->roomAsked.isEmpty());
    // Replacing them needs no room at all.
    m_freeBytes = 0;
    m_questions->replaceAnswer = Answer::YesToAll;
    QCOMPARE(transfer(someSongs(3)), Transfer::Outcome::Complete);
    QVERIFY(m_questions->roomAsked.isEmpty());
    // A file system that does not tell is tried.
    m_freeBytes = -1;
    QCOMPARE(transfer(someSongs(4)), Transfer::Outcome::Complete);
    QVERIFY(m_questions->roomAsked.isEmpty());
}

void TestTransfer::freeSpaceOfTheDiskIsHeldAgainstTheFiles()
{
    const QString song = m_card->writeMusic(QStringLiteral("huge.mp3"), "");
    if (!QFile::resize(song, qint64(1) << 43))
        QSKIP("This file system holds no sparse file of 8 TiB");
    Transfer job(*m_questions, openProgress());
    QCOMPARE(job.transferFiles({song}), Transfer::Outcome::NotStarted);
    QCOMPARE(m_questions->roomAsked.size(), 1);
    QVERIFY(QDir(m_questions->folder).isEmpty());
}

void TestTransfer::indexIsUpdatedForAnyFolderOfAMemory()
{
    m_card->writeOnCard(QStringLiteral("a/b/deep.mid"), MountedCard::midi("DEEP"));
    Transfer job(*m_questions, openProgress());
    QVERIFY(job.updateKavenaIndex(m_card->path(QStringLiteral("a/b"))));
    QCOMPARE(m_card->indexedPaths(), QStringList(QStringLiteral("/a/b/deep.mid")));
    QVERIFY(m_opened.first()->closed);
}

void TestTransfer::missingMemoryHasNoIndexToUpdate()
{
    Transfer job(*m_questions, openProgress());
    QVERIFY(!job.updateKavenaIndex(m_card->mountDirectory() + QStringLiteral("/GONE/songs")));
    QVERIFY(!job.updateKavenaIndex(QStringLiteral("/Volumes/GONE")));
    QVERIFY(m_opened.isEmpty());
}

void TestTransfer::realWindowsDoTheWholeJob()
{
    QWidget window;
    window.show();
    m_card->writeOnCard(QStringLiteral("pop/song1.mid"), MountedCard::midi("OLD"));
    UserDriver user;
    user.pick({m_card->path(QStringLiteral("pop"))});
    user.click<NoCopyrightDialog>(QStringLiteral("yesPushButton"));
    user.pressInMessageBoxes(QMessageBox::Ok);

    TransferDialogs dialogs(&window);
    Transfer job(dialogs, [&window](const QString &title, const QString &label, int maximum) {
        return std::make_unique<ProgressWindow>(title, label, maximum, &window);
    });
    QCOMPARE(job.transferFiles(someSongs(3)), Transfer::Outcome::Complete);
    QVERIFY(user.allPicked());
    QCOMPARE(user.messages(), QStringList({successText, countsText(3, 0, 0)}));
    QCOMPARE(m_card->read(QStringLiteral("pop/song1.mid")), MountedCard::midi("SONG 1"));
    QCOMPARE(m_card->indexedPaths().size(), 3);
    QVERIFY(QApplication::activeModalWidget() == nullptr);

    // A chooser that is cancelled, a folder that is refused, a file that fails.
    QCOMPARE(job.transferFiles(someSongs(3)), Transfer::Outcome::NotStarted);
    user.pick({m_card->music()});
    QCOMPARE(job.transferFiles(someSongs(3)), Transfer::Outcome::NotStarted);
    user.pick({m_card->path(QStringLiteral("pop"))});
    QCOMPARE(job.transferFiles({m_card->music() + QStringLiteral("/gone.mid")}),
             Transfer::Outcome::Incomplete);
    QCOMPARE(user.messages(), QStringList({successText, countsText(3, 0, 0), systemDiskText,
                                           failureText, countsText(0, 0, 1)}));
}

void TestTransfer::namesOfFailedSongsAreShownOnRequest()
{
    TransferDialogs dialogs(nullptr);
    const QString text = QStringLiteral("Song non copiate (errori): 2");
    const QStringList failed = {QStringLiteral("<b>a.mid"), QStringLiteral("b.mid")};
    for (const QStringList &names : {QStringList(), failed}) {
        ModalAnswers user;
        QString shownText;
        bool offersNames = false;
        bool namesAtFirst = false;
        QString shownNames;
        user.add([&](QWidget *window) {
            auto *const box = qobject_cast<QMessageBox *>(window);
            auto *const list = box->findChild<QTextEdit *>();
            shownText = box->text();
            QAbstractButton *request = nullptr;
            for (QAbstractButton *const button : box->buttons()) {
                if (box->buttonRole(button) == QMessageBox::ActionRole)
                    request = button;
            }
            offersNames = request != nullptr;
            if (offersNames) {
                namesAtFirst = list->isVisible();
                QTest::mouseClick(request, Qt::LeftButton);
                shownNames = list->isVisible() ? list->toPlainText() : QString();
            }
            QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
            return true;
        });
        dialogs.tellCounts(QStringLiteral("Trasferimento"), text, names, {});
        QCOMPARE(shownText, text);
        QCOMPARE(offersNames, !names.isEmpty());
        QVERIFY(!namesAtFirst);
        QCOMPARE(shownNames, names.join(QLatin1Char('\n')));
    }
}

void TestTransfer::namesOfSkippedSongsAreShownOnRequest()
{
    TransferDialogs dialogs(nullptr);
    ModalAnswers user;
    QString details;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    user.add([&](QWidget *window) {
        auto *const box = qobject_cast<QMessageBox *>(window);
        details = box->detailedText();
        icon = box->icon();
        QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
        return true;
    });
    dialogs.tellCounts(QStringLiteral("Trasferimento"), QStringLiteral("text"), {},
                       {QStringLiteral("a.mid"), QStringLiteral("%1.mid")});
    QCOMPARE(details, QStringLiteral("a.mid: esisteva già e non è stata sostituita\n"
                                     "%1.mid: esisteva già e non è stata sostituita"));
    QCOMPARE(icon, QMessageBox::Information);
    dialogs.tellCounts(QStringLiteral("Trasferimento"), QStringLiteral("text"),
                       {QStringLiteral("b.mid: la memoria è piena")}, {QStringLiteral("a.mid")});
    QCOMPARE(details, QStringLiteral("b.mid: la memoria è piena\n"
                                     "a.mid: esisteva già e non è stata sostituita"));
    QCOMPARE(icon, QMessageBox::Warning);
}

void TestTransfer::roomQuestionsDefaultIsNo()
{
    TransferDialogs dialogs(nullptr);
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
        ModalAnswers user;
        QString shown;
        user.add([&shown, key](QWidget *window) {
            shown = window->windowTitle();
            QTest::keyClick(window, key);
            return true;
        });
        QVERIFY(!dialogs.askAnyway(QStringLiteral("Trasferimento"), QStringLiteral("mancano")));
        QCOMPARE(shown, QStringLiteral("Trasferimento"));
    }
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Yes);
    QVERIFY(dialogs.askAnyway(QStringLiteral("Trasferimento"), QStringLiteral("mancano")));
}

int main(int argc, char **argv)
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication app(argc, argv);
    TestTransfer test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_transfer.moc"
