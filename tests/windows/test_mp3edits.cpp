// MP3 files edited through the dialog and through "apply to all": what was not changed stays.
#include "library/songeditor.h"
#include "support/librarytable.h"
#include "support/recordedprogress.h"
#include "support/songbytes.h"
#include "windows/dataeditdialog.h"

#include <QComboBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>

using songbytes::bigEndian;
using songbytes::id3Frame;
using songbytes::id3Tag;

namespace
{

const QByteArray audio = QByteArray("\xFF\xFB\x90\x64", 4) + QByteArray(300, 'a');
const QByteArray mark = id3Frame("MEDT", QByteArray(3, '\0'));

/** Frames as people have them, of which no item can be said in the player's form. */
QByteArray foreignFrames()
{
    const QByteArray title("\1\xFF\xFE\x42\0\xE8\0", 7); // "Bè" in UTF-16
    return "TIT2" + bigEndian(7, 4) + QByteArray(2, '\0') + title +
           id3Frame("TPE1", QByteArray("One\0Two", 7)) + id3Frame("TCOM", QByteArray("A\0B", 3)) +
           id3Frame("TBPM", "128.00") + id3Frame("TKEY", "F#m") + id3Frame("TLEN", "215999");
}

QByteArray foreignMp3(const QByteArray &newFrames = QByteArray())
{
    return id3Tag(newFrames + foreignFrames()) + audio;
}

/** Runs the editor on a row with the real dialog, which is driven by the function and saved. */
bool editRow(LibraryTable &library, int row, const std::function<void(DataEditDialog &)> &drive,
             bool genreToAll = false)
{
    ProgressRecord progress;
    DataEditDialog dialog;
    SongEditor editor(
        library.model(),
        [&](const SongInfo &info) {
            QTimer::singleShot(0, &dialog, [&] {
                drive(dialog);
                dialog.findChild<QPushButton *>(QStringLiteral("savePushButton"))->click();
            });
            std::optional<SongEdit> edit = editInDialog(dialog, library.database, info);
            if (edit)
                edit->genreToAll = genreToAll;
            return edit;
        },
        [] { return false; }, recordedBy(progress));
    return editor.edit(row);
}

QComboBox *combo(const DataEditDialog &dialog, const char *name)
{
    return dialog.findChild<QComboBox *>(QString::fromLatin1(name));
}

} // namespace

class TestMp3Edits : public QObject
{
    Q_OBJECT

private slots:
    void genreAloneIsWritten();
    void genreForAllSongsIsWrittenAlone();
    void keyIsReplacedByAChosenOne_data();
    void keyIsReplacedByAChosenOne();
    void unknownKeyOfOtherFormatsIsStoredAsNone();
};

void TestMp3Edits::genreAloneIsWritten()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mp3"), foreignMp3()));
    QVERIFY(editRow(library, 0, [](DataEditDialog &dialog) {
        QCOMPARE(combo(dialog, "keyComboBox")->currentIndex(), -1);
        combo(dialog, "genreComboBox")->setEditText(QStringLiteral("Pop"));
    }));
    QCOMPARE(library.bytes(QStringLiteral("a.mp3")), foreignMp3(mark + id3Frame("TCON", "Pop")));
}

void TestMp3Edits::genreForAllSongsIsWrittenAlone()
{
    LibraryTable library(QList<catalogue::Row>{});
    for (const char *name : {"a.mp3", "b.mp3", "c.mp3"})
        QVERIFY(library.add(QString::fromLatin1(name), foreignMp3()));
    const auto drive = [](DataEditDialog &dialog) {
        combo(dialog, "genreComboBox")->setEditText(QStringLiteral("Pop"));
    };
    QVERIFY(editRow(library, 1, drive, true));
    for (const char *name : {"a.mp3", "b.mp3", "c.mp3"})
        QCOMPARE(library.bytes(QString::fromLatin1(name)),
                 foreignMp3(mark + id3Frame("TCON", "Pop")));
}

void TestMp3Edits::keyIsReplacedByAChosenOne_data()
{
    QTest::addColumn<QString>("chosen");
    QTest::newRow("a key") << QStringLiteral("F#-");
    QTest::newRow("no key") << QString();
}

void TestMp3Edits::keyIsReplacedByAChosenOne()
{
    QFETCH(QString, chosen);
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mp3"), foreignMp3()));
    QVERIFY(editRow(library, 0, [&](DataEditDialog &dialog) {
        QComboBox *const keys = combo(dialog, "keyComboBox");
        keys->setCurrentIndex(keys->findText(chosen));
    }));
    QByteArray frames = foreignFrames();
    frames.replace(id3Frame("TKEY", "F#m"), QByteArray());
    const QByteArray key = chosen.isEmpty() ? QByteArray() : id3Frame("TKEY", chosen.toLatin1());
    QCOMPARE(library.bytes(QStringLiteral("a.mp3")), id3Tag(mark + key + frames) + audio);
}

void TestMp3Edits::unknownKeyOfOtherFormatsIsStoredAsNone()
{
    LibraryTable library(QList<catalogue::Row>{});
    for (const QString &format : {QStringLiteral("MIDI"), QStringLiteral("MP3")}) {
        SongInfo info;
        info.format = format;
        info.key = QStringLiteral("F#m");
        DataEditDialog dialog;
        QTimer::singleShot(0, &dialog, [&dialog] {
            dialog.findChild<QPushButton *>(QStringLiteral("savePushButton"))->click();
        });
        const std::optional<SongEdit> edit = editInDialog(dialog, library.database, info);
        QVERIFY(edit.has_value());
        QCOMPARE(edit->info.key,
                 format == QLatin1String("MP3") ? QStringLiteral("F#m") : QString());
    }
}

QTEST_MAIN(TestMp3Edits)
#include "test_mp3edits.moc"
