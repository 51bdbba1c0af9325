// The player's memory through the real main window: import, transfer, update, rebuild and export.
#include "support/memorychecker.h"
#include "support/songbytes.h"
#include "support/wholejob.h"
#include "windows/indexdialog.h"
#include "windows/songslistdialog.h"

#include <QComboBox>
#include <QDateTime>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>

namespace
{

const QStringList indexFiles = {
    QStringLiteral("index.idx"),    QStringLiteral("ordfile.idx"), QStringLiteral("title.idx"),
    QStringLiteral("artist.idx"),   QStringLiteral("genre.idx"),   QStringLiteral("atitle.idx"),
    QStringLiteral("aartist.idx"),  QStringLiteral("agenre.idx"),  QStringLiteral("title3.idx"),
    QStringLiteral("artist3.idx"),  QStringLiteral("genre3.idx"),  QStringLiteral("atitle3.idx"),
    QStringLiteral("aartist3.idx"), QStringLiteral("agenre3.idx"), QStringLiteral("fsinfos.idx")};

quint32 bigEndian32(const QByteArray &bytes, qsizetype offset)
{
    quint32 value = 0;
    for (qsizetype i = 0; i < 4; ++i)
        value = value << 8 | static_cast<quint8>(bytes[offset + i]);
    return value;
}

QByteArray cutAtZero(const QByteArray &field)
{
    const qsizetype end = field.indexOf('\0');
    return end < 0 ? field : field.left(end);
}

/** Path and identifier of each record of "index.idx", read from its bytes. */
QMap<QByteArray, quint32> idsByPath(const QString &card)
{
    const QByteArray bytes = samplesongs::readFile(card + QStringLiteral("/index.idx"));
    QMap<QByteArray, quint32> ids;
    for (qsizetype at = 0; at + 64 <= bytes.size(); at += 64)
        ids.insert(cutAtZero(bytes.mid(at + 4, 46)), bigEndian32(bytes, at));
    return ids;
}

/** Title of each identifier, from the 32-byte records of "title.idx". */
QMap<quint32, QByteArray> titlesById(const QString &card)
{
    const QByteArray bytes = samplesongs::readFile(card + QStringLiteral("/title.idx"));
    QMap<quint32, QByteArray> titles;
    for (qsizetype at = 0; at + 32 <= bytes.size(); at += 32)
        titles.insert(bigEndian32(bytes, at), cutAtZero(bytes.mid(at + 4, 26)));
    return titles;
}

/** Puts another song into the file, at another second: the index knows no finer times. */
void rewrite(const QString &path, const QByteArray &title)
{
    QVERIFY(samplesongs::writeFile(
        path, songbytes::midiFile({songbytes::track(songbytes::metaEvent(3, title))})));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(QDateTime::currentDateTime().addDays(-3),
                             QFileDevice::FileModificationTime));
}

} // namespace

class TestEndToEnd : public WholeJob
{
    Q_OBJECT

private slots:
    void initTestCase() { start(); }
    void cleanup() { MemoryChecker::judgeLeftBehind(m_card, m_judgedWith); }
    void importsFortySongsAndSkipsTenBrokenFiles();
    void transferToTheRootLandsInSongsAndBuildsTheIndex();
    void secondTransferWithNoToAllKeepsWhatIsThere();
    void removedAndTouchedFilesAreFollowed();
    void playlistIsPointedAtTheSameSongs();
    void rebuildsTheMemory();
    void exportsTheSongListSortedThreeWays();

private:
    void makeBrokenFiles();
    QString makeLater(int number) const;

    QStringList m_judgedWith; ///< what the judge of the memory lets pass
    QStringList m_broken;
};

void TestEndToEnd::makeBrokenFiles()
{
    const QByteArray noTrack = songbytes::midiFile({});
    const QByteArray format2 = songbytes::midiFile({songbytes::track({})}, 2);
    const QList<QPair<QString, QByteArray>> files = {
        {QStringLiteral("empty.mid"), QByteArray()},
        {QStringLiteral("text.kar"), QByteArray("only words, no music")},
        {QStringLiteral("magiconly.mid"), QByteArray("MThd")},
        {QStringLiteral("notrack.mid"), noTrack},
        {QStringLiteral("format2.mid"), format2},
        {QStringLiteral("shorthead.mf5"), QByteArray("_MF5").leftJustified(800, '\0')},
        {QStringLiteral("hugesize.mf3"),
         QByteArray("_MF3").leftJustified(512, '\0') + QByteArray(64, '\xFF')},
        {QStringLiteral("nomidi.mf4"), QByteArray("_MF4").leftJustified(512, '\0') +
                                           songbytes::littleEndian(5000, 4) +
                                           QByteArray(300, '\x55')},
        {QStringLiteral("nosync.mp3"), QByteArray("\xFF\xE0").leftJustified(4000, 'x')},
        {QStringLiteral("hugetag.mp3"),
         QByteArray("ID3\x03\x00\x00\x7F\x7F\x7F\x7F", 10) + QByteArray(4000, '\0')}};
    for (const auto &[name, bytes] : files) {
        m_broken << path("music/") + name;
        QVERIFY(samplesongs::writeFile(m_broken.last(), bytes));
    }
    QCOMPARE(m_broken.size(), 10);
}

/** One of the songs that the user gets later. */
QString TestEndToEnd::makeLater(int number) const
{
    const QString file = path("music/") + QStringLiteral("LATER%1.mid").arg(number);
    return samplesongs::makeMidi(file, abcTune("Later " + QByteArray::number(number))) ? file
                                                                                       : QString();
}

void TestEndToEnd::importsFortySongsAndSkipsTenBrokenFiles()
{
    makeBrokenFiles();
    QList<QByteArray> before;
    for (const QString &file : m_songs + m_broken)
        before << samplesongs::readFile(file);
    QStringList mixed;
    for (int i = 0; i < 40; ++i) {
        mixed << m_songs[i];
        if (i % 4 == 0)
            mixed << m_broken[i / 4];
    }
    import(mixed);
    QCOMPARE(rows(), 40);
    int i = 0;
    for (const QString &file : m_songs + m_broken)
        QCOMPARE(samplesongs::readFile(file), before[i++]);
}

void TestEndToEnd::transferToTheRootLandsInSongsAndBuildsTheIndex()
{
    import(m_songs);
    QCOMPARE(rows(), 40);
    transfer(m_card);

    QCOMPARE(QDir(m_card + QStringLiteral("/songs")).entryList(QDir::Files).size(), 40);
    for (const QString &name : indexFiles)
        QVERIFY2(QFile::exists(m_card + QLatin1Char('/') + name), qPrintable(name));
    QVERIFY(QFile::exists(m_card + QStringLiteral("/sfx")));
    QVERIFY(QFile::exists(m_card + QStringLiteral("/bridge")));

    const QMap<QByteArray, quint32> ids = idsByPath(m_card);
    QCOMPARE(ids.size(), 40);
    QVERIFY(ids.contains("/songs/SONG00.MID"));
    QVERIFY(ids.contains("/songs/Alongn-1.mid"));
    QVERIFY(ids.contains("/songs/Alongn-2.mid"));
    const QList<QByteArray> titles = titlesById(m_card).values();
    QVERIFY(titles.contains("GREENSLEEVES"));
    QVERIFY(titles.contains("CITT\xC0 2"));
}

void TestEndToEnd::secondTransferWithNoToAllKeepsWhatIsThere()
{
    const QMap<QByteArray, quint32> before = idsByPath(m_card);
    const QString kept = m_card + QStringLiteral("/songs/SONG05.MID");
    rewrite(kept, "My own take");
    const QByteArray mine = samplesongs::readFile(kept);

    import(m_songs.mid(0, 28));
    transfer(m_card + QStringLiteral("/songs"));

    QCOMPARE(samplesongs::readFile(kept), mine);
    QCOMPARE(idsByPath(m_card), before);
    QCOMPARE(titlesById(m_card).value(before.value("/songs/SONG05.MID")),
             QByteArray("MY OWN TAKE"));
}

void TestEndToEnd::removedAndTouchedFilesAreFollowed()
{
    const QMap<QByteArray, quint32> before = idsByPath(m_card);
    const quint32 highest = *std::max_element(before.cbegin(), before.cend());
    for (const char *gone : {"/songs/SONG03.MID", "/songs/SONG07.MID"})
        QVERIFY(QFile::remove(m_card + QString::fromLatin1(gone)));
    rewrite(m_card + QStringLiteral("/songs/SONG09.MID"), "Touched");

    QStringList later;
    for (int number = 0; number < 5; ++number)
        later << makeLater(number);
    import(later);
    transfer(m_card);

    const QMap<QByteArray, quint32> after = idsByPath(m_card);
    QCOMPARE(after.size(), before.size() - 2 + 5);
    for (auto song = after.cbegin(); song != after.cend(); ++song) {
        if (before.contains(song.key()))
            QCOMPARE(song.value(), before.value(song.key()));
        else
            QVERIFY(song.value() > highest && song.value() <= highest + 5);
    }
    QVERIFY(!after.contains("/songs/SONG03.MID"));
    QCOMPARE(titlesById(m_card).value(after.value("/songs/SONG09.MID")), QByteArray("TOUCHED"));
    // Record numbers are closed up: the order file holds each of 0 to n - 1 once.
    const QByteArray order = samplesongs::readFile(m_card + QStringLiteral("/ordfile.idx"));
    QCOMPARE(order.size(), 2 * after.size());
    QSet<int> numbers;
    for (qsizetype at = 0; at < order.size(); at += 2)
        numbers.insert(static_cast<quint8>(order[at]) + 256 * static_cast<quint8>(order[at + 1]));
    QCOMPARE(numbers.size(), after.size());
    QCOMPARE(*std::max_element(numbers.cbegin(), numbers.cend()),
             static_cast<int>(after.size()) - 1);
}

void TestEndToEnd::playlistIsPointedAtTheSameSongs()
{
    const QMap<QByteArray, quint32> before = idsByPath(m_card);
    const QList<QByteArray> wanted = {"/songs/SONG20.MID", "/songs/SOUND1.mp3", "/songs/PACK2.mf5"};
    QByteArray playlist;
    for (const QByteArray &path : wanted) {
        QVERIFY(before.contains(path));
        playlist += songbytes::bigEndian(before.value(path), 4) + QByteArray(28, 'p');
    }
    QVERIFY(QDir().mkpath(m_card + QStringLiteral("/playlist")));
    QVERIFY(samplesongs::writeFile(m_card + QStringLiteral("/playlist/playlist.dat"),
                                   QByteArray("\x01\x00", 2) + QByteArray(30, ' ')));
    const QString file = m_card + QStringLiteral("/playlist/play0001.dat");
    QVERIFY(samplesongs::writeFile(file, playlist));

    import({makeLater(5)});
    transfer(m_card);

    const QMap<QByteArray, quint32> after = idsByPath(m_card);
    const QByteArray pointed = samplesongs::readFile(file);
    QCOMPARE(pointed.size(), playlist.size());
    for (int i = 0; i < wanted.size(); ++i) {
        QCOMPARE(bigEndian32(pointed, 32 * i), after.value(wanted[i]));
        QCOMPARE(pointed.mid(32 * i + 4, 28), QByteArray(28, 'p'));
    }
    QVERIFY(after.value(wanted[0]) != before.value(wanted[0]));
}

void TestEndToEnd::rebuildsTheMemory()
{
    // The player has not taken away the playlist's path file, so a rebuild leaves its old ids.
    m_judgedWith = QStringList{QStringLiteral("--allow-lost-songs")};
    QVERIFY(QFile::remove(m_card + QStringLiteral("/title.idx")));
    const qsizetype songs = idsByPath(m_card).size();

    UserDriver user;
    user.add([this](QWidget *window) {
        if (qobject_cast<IndexDialog *>(window) == nullptr)
            return false;
        auto *const start = child<QPushButton>(window, "pushButtonStart");
        if (!start->isEnabled())
            return true;
        if (nextStep(window) == 0) {
            child<QLineEdit>(window, "lineEditPath")->setText(m_card + QStringLiteral("/songs"));
            child<QRadioButton>(window, "radioButtonRebuild")->click();
            clickLater(start);
        } else if (!child<QPlainTextEdit>(window, "plainTextReport")->toPlainText().isEmpty()) {
            clickLater(child<QPushButton>(window, "pushButtonClose"));
        }
        return true;
    });
    user.pressInMessageBoxes(QMessageBox::Ok);
    trigger("optimizeMemory");

    QCOMPARE(user.messages(),
             QStringList{QStringLiteral("Ottimizza memoria: Operazione completata con successo")});
    QCOMPARE(idsByPath(m_card).size(), songs);
    QCOMPARE(titlesById(m_card).size(), songs);
}

void TestEndToEnd::exportsTheSongListSortedThreeWays()
{
    const auto fileFor = [this](int mode) { return path("list%1.csv").arg(mode); };
    UserDriver user;
    user.add([&](QWidget *window) {
        if (qobject_cast<SongsListDialog *>(window) == nullptr)
            return false;
        auto *const save = child<QPushButton>(window, "pushButtonSave");
        if (!save->isEnabled())
            return true;
        const int mode = nextStep(window);
        if (mode < 3) {
            child<QLineEdit>(window, "lineEditPath")->setText(m_card);
            child<QLineEdit>(window, "lineEditFile")->setText(fileFor(mode));
            child<QComboBox>(window, "comboBoxSort")->setCurrentIndex(mode);
            clickLater(save);
        } else {
            clickLater(child<QPushButton>(window, "pushButtonClose"));
        }
        return true;
    });
    user.pressInMessageBoxes(QMessageBox::Ok);
    trigger("actionSongsList");

    QCOMPARE(user.messages().size(), 3);
    const qsizetype songs = idsByPath(m_card).size();
    for (int mode = 0; mode < 3; ++mode) {
        QStringList lines = QString::fromUtf8(samplesongs::readFile(fileFor(mode)))
                                .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        QCOMPARE(lines.takeFirst(), QStringLiteral("TITOLO;ARTISTA;GENERE;FILE;"));
        QCOMPARE(lines.size(), songs);
        QStringList keys;
        for (const QString &line : std::as_const(lines))
            keys << line.split(QLatin1Char(';'))[mode];
        QVERIFY(std::is_sorted(keys.cbegin(), keys.cend(), [](const auto &a, const auto &b) {
            return QString::compare(a, b, Qt::CaseInsensitive) < 0;
        }));
    }
}

int main(int argc, char **argv)
{
    qputenv("LC_ALL", "C.UTF-8");
    return runAppTest<TestEndToEnd>(argc, argv);
}

#include "test_endtoend.moc"
