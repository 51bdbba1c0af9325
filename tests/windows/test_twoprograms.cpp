// Two programs on one memory: one writes, the other is told and leaves everything as it is. The
// programs are this test, started once more.
#include "devindex/transfer.h"
#include "library/answer.h"
#include "storage/memorylock.h"
#include "support/copyingprogress.h"
#include "support/mountedcard.h"
#include "support/userdriver.h"
#include "windows/indexdialog.h"
#include "windows/nocopyrightdialog.h"

#include <QApplication>
#include <QDirIterator>
#include <QMap>
#include <QPlainTextEdit>
#include <QProcess>
#include <QRadioButton>
#include <QTest>

#include <cstdio>
#include <memory>

namespace
{

const QString lockName = QStringLiteral(".kavena-lock");
const QString holderText =
    QStringLiteral("Un altro programma sta scrivendo su questa memoria: test_twoprograms (processo "
                   "%1 sul computer ");

void say(const QString &line)
{
    std::puts(qPrintable(line));
    std::fflush(stdout);
}

/** Chooses the folder it was given, replaces what is there and says each message as a line. */
class TellingUser : public TransferUser
{
public:
    explicit TellingUser(QString folder)
        : m_folder(std::move(folder))
    {
    }
    QString chooseFolder(const QString &, const QString &) override { return m_folder; }
    Answer askReplace(const QString &) override { return Answer::YesToAll; }
    Answer askRename(const QString &, const QString &) override { return Answer::NoToAll; }
    bool askAnyway(const QString &, const QString &) override { return true; }
    void warn(const QString &, const QString &text) override
    {
        say(QStringLiteral("warned ") + QString(text).replace(QLatin1Char('\n'), QLatin1Char(' ')));
    }
    void inform(const QString &, const QString &) override {}
    void showFailure(const QString &, const QString &text) override
    {
        say(QStringLiteral("failed ") + text);
    }
    void tellCounts(const QString &, const QString &, const QStringList &failed,
                    const QStringList &) override
    {
        for (const QString &line : failed)
            say(QStringLiteral("not copied ") + line);
    }

private:
    const QString m_folder;
};

/**
 * The child's part: transfers the songs, or updates the index ("index"). With "pause" it waits
 * after the first song for a line.
 */
int transferSongs(const QStringList &arguments)
{
    const bool pauses = arguments.at(2) == QLatin1String("pause");
    const QString folder = arguments.at(3);
    TellingUser user(folder);
    const OpenProgress openProgress = [pauses](const QString &, const QString &, int) {
        auto progress = std::make_unique<CopyingProgress>();
        progress->onUpdate = [pauses](int done) {
            if (done != 1 || !pauses)
                return;
            say(QStringLiteral("paused"));
            std::getchar();
        };
        return std::unique_ptr<Progress>(std::move(progress));
    };
    Transfer transfer(user, openProgress);
    if (arguments.at(2) == QLatin1String("index")) {
        say(transfer.updateKavenaIndex(folder) ? QStringLiteral("updated")
                                               : QStringLiteral("not updated"));
        return 0;
    }
    switch (transfer.transferFiles(arguments.mid(4))) {
    case Transfer::Outcome::Complete:
        say(QStringLiteral("complete"));
        break;
    case Transfer::Outcome::Incomplete:
        say(QStringLiteral("incomplete"));
        break;
    case Transfer::Outcome::NotStarted:
        say(QStringLiteral("not started"));
        break;
    }
    return 0;
}

/** A program that transfers songs; it sees the same mount directories as the test. */
class Program
{
public:
    Program(const QString &mode, const QString &folder, const QStringList &songs)
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QCoreApplication::applicationFilePath(),
                        QStringList({QStringLiteral("--transfer"), mode, folder}) + songs);
    }

    bool hasPaused() { return m_process.waitForReadyRead() && m_process.readLine() == "paused\n"; }
    void goOn() { m_process.write("\n"); }
    qint64 number() const { return m_process.processId(); }
    void kill()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    /** What it said from now on until its end. */
    QStringList saidUntilItsEnd()
    {
        if (!m_process.waitForFinished())
            return {QStringLiteral("does not end")};
        return QString::fromUtf8(m_process.readAllStandardOutput())
            .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

private:
    QProcess m_process;
};

} // namespace

class TestTwoPrograms : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_card.reset(); }

    void secondTransferIsToldAndLeavesEverything();
    void transferOfAKilledProgramBlocksNobody();
    void transfersAtOnceLeaveAnIndexOfAllSongs();
    void memoryDialogIsToldAndLeavesTheIndex_data();
    void memoryDialogIsToldAndLeavesTheIndex();
    void indexUpdateIsToldAndLeavesTheIndex();
    void memoryDialogHoldsTheMemoryUntilItTellsTheOutcome();
    void transferHoldsTheMemoryUntilItTellsTheOutcome();

private:
    QStringList songs(const QString &name, int count) const;
    QMap<QString, QByteArray> everything() const;

    std::unique_ptr<MountedCard> m_card;
    QString m_pop;
};

void TestTwoPrograms::init()
{
    m_card = std::make_unique<MountedCard>();
    m_pop = m_card->path(QStringLiteral("pop"));
    QVERIFY(QDir().mkdir(m_pop));
}

QStringList TestTwoPrograms::songs(const QString &name, int count) const
{
    QStringList files;
    for (int i = 0; i < count; ++i) {
        const QString file = name + QString::number(i) + QStringLiteral(".mid");
        files.append(m_card->writeMusic(file, MountedCard::midi(file.toUtf8())));
    }
    return files;
}

/** The bytes of every file on the card but the lock, by path. */
QMap<QString, QByteArray> TestTwoPrograms::everything() const
{
    QMap<QString, QByteArray> found;
    QDirIterator files(m_card->root(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next().mid(m_card->root().size() + 1);
        if (path != lockName)
            found.insert(path, m_card->read(path));
    }
    return found;
}

void TestTwoPrograms::secondTransferIsToldAndLeavesEverything()
{
    Program first(QStringLiteral("pause"), m_pop, songs(QStringLiteral("a"), 3));
    QVERIFY(first.hasPaused());
    const auto before = everything();
    // The first song has its bytes, but not its name yet.
    QCOMPARE(before.size(), 1);
    QVERIFY(before.firstKey().startsWith(QStringLiteral("pop/.a0.mid.")));

    // Into the root: "songs" would have to be made there.
    Program second(QStringLiteral("run"), m_card->root(), songs(QStringLiteral("b"), 3));
    const QStringList said = second.saidUntilItsEnd();
    QCOMPARE(said.size(), 2);
    QVERIFY2(said.first().startsWith(QStringLiteral("warned ") + holderText.arg(first.number())),
             qPrintable(said.first()));
    QCOMPARE(said.last(), QStringLiteral("not started"));
    QCOMPARE(everything(), before);
    QVERIFY(!QFileInfo::exists(m_card->path(QStringLiteral("songs"))));

    first.goOn();
    QCOMPARE(first.saidUntilItsEnd(), QStringList(QStringLiteral("complete")));
    QCOMPARE(m_card->indexedPaths(),
             QStringList({QStringLiteral("/pop/a0.mid"), QStringLiteral("/pop/a1.mid"),
                          QStringLiteral("/pop/a2.mid")}));
    QVERIFY(!QFileInfo::exists(m_card->path(lockName)));
}

void TestTwoPrograms::transferOfAKilledProgramBlocksNobody()
{
    Program first(QStringLiteral("pause"), m_pop, songs(QStringLiteral("a"), 3));
    QVERIFY(first.hasPaused());
    first.kill();
    QVERIFY(QFileInfo::exists(m_card->path(lockName)));
    Program second(QStringLiteral("run"), m_pop, songs(QStringLiteral("b"), 2));
    QCOMPARE(second.saidUntilItsEnd(), QStringList(QStringLiteral("complete")));
    QVERIFY(!QFileInfo::exists(m_card->path(lockName)));
    QCOMPARE(m_card->indexedPaths(),
             QStringList({QStringLiteral("/pop/b0.mid"), QStringLiteral("/pop/b1.mid")}));
    QCOMPARE(everything().keys().filter(QStringLiteral("kavena")), QStringList());
}

void TestTwoPrograms::transfersAtOnceLeaveAnIndexOfAllSongs()
{
    int refused = 0;
    for (int round = 0; round < 10; ++round) {
        const QStringList all = songs(QStringLiteral("r%1-").arg(round), 12);
        Program first(QStringLiteral("run"), m_pop, all.mid(0, 8));
        Program second(QStringLiteral("run"), m_pop, all.mid(4, 8));
        const QStringList firstSaid = first.saidUntilItsEnd();
        const QStringList secondSaid = second.saidUntilItsEnd();
        int completed = 0;
        for (const QStringList &said : {firstSaid, secondSaid}) {
            if (said == QStringList(QStringLiteral("complete"))) {
                ++completed;
            } else {
                QCOMPARE(said.size(), 2);
                QVERIFY2(said.first().startsWith(QStringLiteral("warned Un altro programma")),
                         qPrintable(said.first()));
                QCOMPARE(said.last(), QStringLiteral("not started"));
                ++refused;
            }
        }
        QVERIFY(completed > 0);
        QVERIFY(!QFileInfo::exists(m_card->path(lockName)));
        const QString found = MemoryChecker::faultsAt(m_card->root());
        QVERIFY2(found.isEmpty(), qPrintable(found));
        QStringList indexed = m_card->indexedPaths();
        QStringList onCard;
        for (const QString &path : everything().keys().filter(QStringLiteral("pop/")))
            onCard.append(QLatin1Char('/') + path);
        indexed.sort();
        QCOMPARE(indexed, onCard);
        if (firstSaid == QStringList(QStringLiteral("complete")))
            QVERIFY(indexed.contains(QStringLiteral("/pop/r%1-0.mid").arg(round)));
        if (secondSaid == QStringList(QStringLiteral("complete")))
            QVERIFY(indexed.contains(QStringLiteral("/pop/r%1-11.mid").arg(round)));
    }
    qInfo("%d of 20 transfers were refused", refused);
}

void TestTwoPrograms::memoryDialogIsToldAndLeavesTheIndex_data()
{
    QTest::addColumn<bool>("rebuild");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("update") << false << Qt::KeyboardModifiers(Qt::NoModifier);
    QTest::newRow("rebuild") << true << Qt::KeyboardModifiers(Qt::NoModifier);
    QTest::newRow("rebuild of a folder in it") << true << Qt::KeyboardModifiers(Qt::ShiftModifier);
}

void TestTwoPrograms::memoryDialogIsToldAndLeavesTheIndex()
{
    QFETCH(bool, rebuild);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    Program first(QStringLiteral("pause"), m_pop, songs(QStringLiteral("a"), 3));
    QVERIFY(first.hasPaused());
    const auto before = everything();

    UserDriver user;
    user.pressInMessageBoxes(QMessageBox::Ok);
    IndexDialog dialog;
    dialog.show();
    child<QLineEdit>(&dialog, "lineEditPath")->setText(m_pop);
    child<QRadioButton>(&dialog, rebuild ? "radioButtonRebuild" : "radioButtonUpdate")
        ->setChecked(true);
    auto *const start = child<QPushButton>(&dialog, "pushButtonStart");
    QTest::mouseClick(start, Qt::LeftButton, modifiers);
    QCOMPARE(user.messages().size(), 1);
    QVERIFY2(user.messages().first().startsWith(QStringLiteral("Ottimizza memoria: ") +
                                                holderText.arg(first.number())),
             qPrintable(user.messages().first()));
    QVERIFY(start->isEnabled());
    QVERIFY(child<QPlainTextEdit>(&dialog, "plainTextReport")->toPlainText().isEmpty());
    QCOMPARE(everything(), before);
    dialog.reject();
    QVERIFY(dialog.isHidden());

    first.goOn();
    QCOMPARE(first.saidUntilItsEnd(), QStringList(QStringLiteral("complete")));
}

void TestTwoPrograms::indexUpdateIsToldAndLeavesTheIndex()
{
    Program first(QStringLiteral("pause"), m_pop, songs(QStringLiteral("a"), 3));
    QVERIFY(first.hasPaused());
    const auto before = everything();
    Program second(QStringLiteral("index"), m_pop, {});
    const QStringList said = second.saidUntilItsEnd();
    QCOMPARE(said.size(), 2);
    QVERIFY(said.first().startsWith(QStringLiteral("warned ") + holderText.arg(first.number())));
    QCOMPARE(said.last(), QStringLiteral("not updated"));
    QCOMPARE(everything(), before);
    first.goOn();
    QCOMPARE(first.saidUntilItsEnd(), QStringList(QStringLiteral("complete")));
}

void TestTwoPrograms::memoryDialogHoldsTheMemoryUntilItTellsTheOutcome()
{
    // A name that is too long: the question about it is open while the index is being made.
    m_card->writeOnCard(QStringLiteral("pop/A Long Name.mid"), MountedCard::midi("A"));
    UserDriver user;
    QStringList seen;
    user.add([&](QWidget *window) {
        const bool locked = !MemoryLock(m_card->root()).take();
        const bool isOutcome = qobject_cast<QMessageBox *>(window) != nullptr;
        seen.append((isOutcome ? QStringLiteral("outcome ") : QStringLiteral("question ")) +
                    (locked ? QStringLiteral("locked") : QStringLiteral("free")));
        return false;
    });
    user.pressInMessageBoxes(QMessageBox::Ok);
    user.click<NoCopyrightDialog>(QStringLiteral("yesPushButton"));
    IndexDialog dialog;
    dialog.show();
    child<QLineEdit>(&dialog, "lineEditPath")->setText(m_pop);
    QTest::mouseClick(child<QPushButton>(&dialog, "pushButtonStart"), Qt::LeftButton);
    seen.removeDuplicates();
    QCOMPARE(seen,
             QStringList({QStringLiteral("question locked"), QStringLiteral("outcome free")}));
    QVERIFY(m_card->hasIndex());
    QVERIFY(!QFileInfo::exists(m_card->path(lockName)));
}

void TestTwoPrograms::transferHoldsTheMemoryUntilItTellsTheOutcome()
{
    class LookingUser : public TellingUser
    {
    public:
        explicit LookingUser(const MountedCard &card)
            : TellingUser(card.path(QStringLiteral("pop")))
            , m_root(card.root())
        {
        }
        void look(const QString &when)
        {
            const bool locked = !MemoryLock(m_root).take();
            seen.append(when + (locked ? QStringLiteral(" locked") : QStringLiteral(" free")));
        }
        Answer askReplace(const QString &target) override
        {
            look(QStringLiteral("replace"));
            return TellingUser::askReplace(target);
        }
        Answer askRename(const QString &path, const QString &message) override
        {
            look(QStringLiteral("rename"));
            return TellingUser::askRename(path, message);
        }
        void inform(const QString &, const QString &) override { look(QStringLiteral("outcome")); }
        QStringList seen;

    private:
        const QString m_root;
    };
    m_card->writeOnCard(QStringLiteral("pop/A Long Name0.mid"), "old");
    LookingUser user(*m_card);
    const OpenProgress openProgress = [](const QString &, const QString &, int) {
        return std::make_unique<CopyingProgress>();
    };
    QCOMPARE(Transfer(user, openProgress).transferFiles(songs(QStringLiteral("A Long Name"), 1)),
             Transfer::Outcome::Complete);
    QCOMPARE(user.seen,
             QStringList({QStringLiteral("replace locked"), QStringLiteral("rename locked"),
                          QStringLiteral("outcome free")}));
    QVERIFY(!QFileInfo::exists(m_card->path(lockName)));
}

int main(int argc, char **argv)
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication app(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.value(1) == QLatin1String("--transfer"))
        return transferSongs(arguments);
    TestTwoPrograms test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_twoprograms.moc"
