// Songs are measured and get what their music says, through the main window.
#include "devindex/songhead.h"
#include "support/fillfixture.h"
#include "windows/progresswindow.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QProgressDialog>

using namespace fillfixture;

class TestFillFromMusicRun : public FillFixture
{
    Q_OBJECT

private slots:
    void init() { FillFixture::init(); }
    void cleanup() { FillFixture::cleanup(); }

    void nothingIsWrittenBeforeTheButton();
    void tickedValuesAreWrittenAndTheListFollows();
    void undoTakesItBack();
    void titleStandsInFrontOfManyMarkers();
    void songsThatLackNothingAreMeasuredWhenTheyAreAskedFor();
    void songsThatCannotBeMeasuredSaySo();
    void songThatChangedOrWentIsNamedAndTheOthersAreWritten();
    void measuringCanBeStopped();
    void writingCanBeStopped();
    void fileThatTheListHoldsTwiceIsMeasuredOnce();
    void windowAnswersWhileThousandsAreMeasured();
};

void TestFillFromMusicRun::nothingIsWrittenBeforeTheButton()
{
    const QByteArray before = samplesongs::readFile(m_minute);
    fill([&](FillFromMusicDialog *dialog) { press(dialog, "cancelPushButton"); });
    QCOMPARE(samplesongs::readFile(m_minute), before);
}

void TestFillFromMusicRun::tickedValuesAreWrittenAndTheListFollows()
{
    fill([&](FillFromMusicDialog *dialog) {
        clickBox(dialog, rowIn(dialog, m_tune), tempoColumn);
        press(dialog, "applyPushButton");
        QVERIFY(!dialog->isVisible());
    });
    const SongInfo now = infoOf(m_minute);
    QCOMPARE(now.length, 60);
    QCOMPARE(now.userBpm, 90);
    QCOMPARE(now.title, QStringLiteral("minute"));
    QCOMPARE(now.markers,
             QList<Marker>({{1, QStringLiteral("Intro")}, {3, QStringLiteral("Verse")}}));
    QCOMPARE(infoOf(m_tune).userBpm, 0);
    UserSongsRelTableModel &model = *m_window->model();
    const auto cell = [&](const QString &path, songcolumns::Column column) {
        return model.index(rowOf(path), model.columnNumber(column)).data().toString();
    };
    QCOMPARE(cell(m_minute, songcolumns::Length), QStringLiteral("01:00"));
    QCOMPARE(cell(m_minute, songcolumns::UserBpm), QStringLiteral("90"));
    QCOMPARE(cell(m_tune, songcolumns::UserBpm), QStringLiteral("0"));
    QCOMPARE(model.status(rowOf(m_minute)), int{Database::StatusEdited});
    QCOMPARE(m_answers->messages(), QStringList());
}

void TestFillFromMusicRun::undoTakesItBack()
{
    const QByteArray first = samplesongs::readFile(m_minute);
    const QByteArray second = samplesongs::readFile(m_tune);
    fill([&](FillFromMusicDialog *dialog) { press(dialog, "applyPushButton"); });
    QVERIFY(samplesongs::readFile(m_minute) != first);
    takeLastBack();
    QCOMPARE(samplesongs::readFile(m_minute), first);
    QCOMPARE(samplesongs::readFile(m_tune), second);
    QCOMPARE(m_window->model()->status(rowOf(m_minute)), int{Database::StatusNew});
}

void TestFillFromMusicRun::titleStandsInFrontOfManyMarkers()
{
    QByteArray marks;
    for (int i = 0; i < 90; ++i)
        marks += after(4 * quarter, text(6, QByteArray(100, 'm')));
    const QString path = m_songs->write(
        QStringLiteral("many.mid"),
        songbytes::midiFile({songbytes::track(metaEvent(3, "The title") + kravoEvent(2, "Someone") +
                                              kravoEvent(1, "Polka") + keyOfD + marks)}));
    list({path});
    fill([&](FillFromMusicDialog *dialog) { press(dialog, "applyPushButton"); });
    QCOMPARE(infoOf(path).markers.size(), 90);
    SongInfoIndex entry;
    QVERIFY(readSongHead(samplesongs::readFile(path).left(songHeadSize), path, entry));
    QCOMPARE(entry.title, QStringLiteral("THE TITLE"));
    QCOMPARE(entry.artist, QStringLiteral("SOMEONE"));
    QCOMPARE(entry.genre, QStringLiteral("POLKA"));
}

void TestFillFromMusicRun::songsThatLackNothingAreMeasuredWhenTheyAreAskedFor()
{
    const QString full = m_songs->filePath(QStringLiteral("full.mp3"));
    QVERIFY(samplesongs::makeMp3(full, {QStringLiteral("Full"), {}, {}}, 3));
    MetaSong song;
    QVERIFY(song.importFile(full));
    SongInfo info = infoOf(full);
    info.length = 99;
    song.setSongInfo(info, true);
    QVERIFY(song.saveToFile(full));
    list({m_minute, full});
    fill([&](FillFromMusicDialog *dialog) {
        QCOMPARE(dialog->model().rowCount(), 1);
        auto *const others = part<QCheckBox>(dialog, "othersCheckBox");
        QTest::mouseClick(others, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
        QTRY_COMPARE(dialog->model().rowCount(), 2);
        const int row = rowIn(dialog, full);
        QCOMPARE(textAt(dialog, row, lengthColumn), QStringLiteral("00:03"));
        QCOMPARE(boxAt(dialog, row, lengthColumn), int{Qt::Unchecked});
        QCOMPARE(boxAt(dialog, row, fileColumn), -1); // it lacks nothing
        clickBox(dialog, row, lengthColumn);
        QTest::mouseClick(others, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
        QVERIFY(rowIn(dialog, full) >= 0); // what is ticked stays in sight
        press(dialog, "applyPushButton");
    });
    QCOMPARE(infoOf(full).length, 3);
    QCOMPARE(infoOf(full).title, QStringLiteral("Full"));
}

void TestFillFromMusicRun::songsThatCannotBeMeasuredSaySo()
{
    const QString endless =
        m_songs->write(QStringLiteral("endless.mid"),
                       songbytes::midiFile({songbytes::track(keyOfD + kravoEvent(5, "60") +
                                                             bpm(60) + pause(14400 * quarter))}));
    list({endless});
    fill([&](FillFromMusicDialog *dialog) {
        QCOMPARE(textAt(dialog, 0, lengthColumn), QStringLiteral("non misurabile"));
        QCOMPARE(boxAt(dialog, 0, lengthColumn), -1);
        QCOMPARE(boxAt(dialog, 0, fileColumn), -1);
        QVERIFY(!part<QPushButton>(dialog, "applyPushButton")->isEnabled());
        QVERIFY(part<QLabel>(dialog, "summaryLabel")
                    ->text()
                    .endsWith(QStringLiteral("1 non misurabili per intero")));
    });
}

void TestFillFromMusicRun::songThatChangedOrWentIsNamedAndTheOthersAreWritten()
{
    const QString gone = m_songs->write(QStringLiteral("gone.mid"), minute());
    list({m_minute, m_tune, gone});
    const QByteArray other = minute(metaEvent(3, "other") + kravoEvent(4, "5"));
    fill([&](FillFromMusicDialog *dialog) {
        QVERIFY(QFile::remove(gone));
        QVERIFY(samplesongs::writeFile(m_minute, other));
        press(dialog, "applyPushButton");
    });
    QCOMPARE(m_answers->messages().size(), 1);
    QVERIFY(!QFile::exists(gone));
    QCOMPARE(samplesongs::readFile(m_minute), other);
    QVERIFY(infoOf(m_tune).length > 0);
    QVERIFY(m_window->model()->saveFailure(rowOf(gone)) != SaveFailure::None);
    QVERIFY(m_window->model()->saveFailure(rowOf(m_minute)) != SaveFailure::None);
    QCOMPARE(m_window->model()->saveFailure(rowOf(m_tune)), SaveFailure::None);
}

void TestFillFromMusicRun::measuringCanBeStopped()
{
    // Each takes longer than the progress lets pass between two steps, on fast computers too.
    constexpr int count = 30;
    const QByteArray song =
        songbytes::midiFile({songbytes::track(note(0, 60, quarter).repeated(300000))});
    QStringList paths;
    for (int i = 0; i < count; ++i)
        paths << m_songs->write(QStringLiteral("%1.mid").arg(i), song);
    list(paths);
    m_answers->add([&](QWidget *window) {
        auto *const progress = qobject_cast<QProgressDialog *>(window);
        if (progress == nullptr || progress->value() == 0)
            return false;
        progress->cancel();
        return true;
    });
    fill([&](FillFromMusicDialog *dialog) {
        const int left = count - dialog->model().rowCount();
        QVERIFY2(left > 0, "the measuring was not stopped");
        const QString text = part<QLabel>(dialog, "summaryLabel")->text();
        QVERIFY2(text.endsWith(QStringLiteral("interrotto: %1 non misurate").arg(left)),
                 qPrintable(text));
    });
    for (const QString &path : std::as_const(paths))
        QVERIFY(samplesongs::readFile(path) == song);
}

void TestFillFromMusicRun::writingCanBeStopped()
{
    QStringList paths;
    for (int i = 0; i < 60; ++i)
        paths << m_songs->write(QStringLiteral("%1.mid").arg(i), minute());
    list(paths);
    fill([&](FillFromMusicDialog *dialog) {
        QCOMPARE(dialog->model().changed(), 60);
        m_answers->add([&](QWidget *window) {
            auto *const progress = qobject_cast<QProgressDialog *>(window);
            if (progress == nullptr)
                return false;
            progress->cancel();
            return true;
        });
        press(dialog, "applyPushButton");
    });
    int written = 0;
    for (const QString &path : std::as_const(paths)) {
        const int length = infoOf(path).length;
        QVERIFY(length == 60 || samplesongs::readFile(path) == minute());
        written += length == 60 ? 1 : 0;
    }
    QVERIFY2(written < 60, "the work was not stopped");
}

void TestFillFromMusicRun::fileThatTheListHoldsTwiceIsMeasuredOnce()
{
    SongInfo again = infoOf(m_minute);
    QVERIFY(m_window->model()->addSong(again));
    fill([&](FillFromMusicDialog *dialog) {
        QCOMPARE(dialog->model().rowCount(), 2);
        press(dialog, "applyPushButton");
    });
    QCOMPARE(infoOf(m_minute).markers.size(), 2);
}

void TestFillFromMusicRun::windowAnswersWhileThousandsAreMeasured()
{
    constexpr int count = 3000;
    QStringList paths;
    for (int i = 0; i < count; ++i)
        paths << m_songs->write(QStringLiteral("%1.mid").arg(i), minute());
    list(paths);
    QCOMPARE(m_window->model()->goodRowCount(), count);
    qint64 longest = 0;
    int answers = 0;
    QElapsedTimer sinceLast;
    QTimer heart;
    connect(&heart, &QTimer::timeout, this, [&] {
        longest = sinceLast.isValid() ? std::max(longest, sinceLast.elapsed()) : 0;
        ++answers;
        sinceLast.start();
    });
    heart.start(1);
    fill([&](FillFromMusicDialog *dialog) {
        QCOMPARE(dialog->model().changed(), count);
        press(dialog, "nonePushButton");
        QCoreApplication::processEvents();
        press(dialog, "allPushButton");
        QCoreApplication::processEvents();
        clickBox(dialog, count - 1, lengthColumn);
        QCoreApplication::processEvents();
    });
    heart.stop();
    qInfo("the longest wait for an answer: %lld ms", longest);
    QVERIFY(answers > 5);
    // About 50 on a quiet computer; one that runs two sanitizers at once is much slower.
    QVERIFY2(longest < 3000, qPrintable(QString::number(longest)));
}

int main(int argc, char *argv[])
{
    return runAppTest<TestFillFromMusicRun>(argc, argv);
}
#include "test_fillfrommusic_run.moc"
