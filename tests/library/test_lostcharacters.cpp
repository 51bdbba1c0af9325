// Characters that the player cannot show: told while they are typed, and in the preview.
#include "library/answer.h"
#include "library/lostcharacters.h"
#include "library/songeditor.h"
#include "library/synchronisation.h"
#include "support/librarytable.h"
#include "support/recordedprogress.h"
#include "support/songbytes.h"
#include "windows/changepreviewdialog.h"
#include "windows/dataeditdialog.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTranslator>
#include <QTreeWidget>

namespace
{

/** A dialog on screen that shows a song without foreign characters. */
class OpenDialog
{
public:
    OpenDialog()
    {
        SongInfo info;
        info.title = QStringLiteral("Città");
        info.fileName = QStringLiteral("/music/Ťitle.mid");
        dialog.setOtherInfo(info);
        dialog.show();
    }

    template <typename Widget>
    Widget *child(const char *name) const
    {
        return dialog.findChild<Widget *>(QString::fromLatin1(name));
    }
    QString warning() const { return child<QLabel>("lostCharactersLabel")->text(); }
    void type(const char *name, const QString &text) const
    {
        auto *const widget = child<QWidget>(name);
        const auto *const combo = qobject_cast<QComboBox *>(widget);
        QLineEdit *const field =
            combo == nullptr ? qobject_cast<QLineEdit *>(widget) : combo->lineEdit();
        field->setFocus();
        field->selectAll();
        field->insert(text);
    }

    DataEditDialog dialog;
};

QString warningOf(const QString &characters)
{
    return QStringLiteral("Il player mostrerà \"?\" al posto di: ") + characters;
}

QByteArray mp3(const QByteArray &frames)
{
    return songbytes::id3Tag(frames) + QByteArray("\xFF\xFB\x90\x64", 4) + QByteArray(300, 'a');
}

QByteArray midi()
{
    return songbytes::midiFile({songbytes::track(songbytes::notes())});
}

std::optional<ChangePreview> previewOf(LibraryTable &library)
{
    ProgressRecord progress;
    return ChangePreview::compute(library.database, library.model(), recordedBy(progress));
}

/** "Field: new value [lost characters]" for each change of texts. */
QStringList textChanges(const ChangePreview::Song &song)
{
    const QMap<ChangePreview::Field, QString> names = {
        {ChangePreview::Field::Title, QStringLiteral("title")},
        {ChangePreview::Field::Artist, QStringLiteral("artist")},
        {ChangePreview::Field::Genre, QStringLiteral("genre")},
        {ChangePreview::Field::Author, QStringLiteral("author")}};
    QStringList lines;
    for (const ChangePreview::Change &change : song.changes) {
        if (names.contains(change.field))
            lines.append(QStringLiteral("%1: %2 [%3]")
                             .arg(names.value(change.field), change.after, change.lost));
    }
    return lines;
}

} // namespace

class TestLostCharacters : public QObject
{
    Q_OBJECT

private slots:
    void charactersAreListed_data();
    void charactersAreListed();
    void dialogTellsThemWhileTheyAreTyped_data();
    void dialogTellsThemWhileTheyAreTyped();
    void dialogTellsAllFieldsAtOnce();
    void fileNameAsTitleIsTold();
    void nextSongStartsWithoutWarning();
    void nothingMovesWhenTheWarningComes();
    void longWarningDoesNotWidenTheDialog();
    void warningFollowsTheLanguage();
    void previewTellsThem();
    void previewTellsOnlyWhatIsWritten();
    void previewWindowShowsThem();
    void synchronisingReportsThem();
    void editForAllSongsReportsThem();
};

void TestLostCharacters::charactersAreListed_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("list");
    QTest::newRow("none") << QStringLiteral("Città") << QString();
    QTest::newRow("one") << QStringLiteral("Dvořák") << QStringLiteral("ř");
    QTest::newRow("each once") << QStringLiteral("Łódź Ł") << QStringLiteral("Ł, ź");
    QTest::newRow("accent of its own") << QStringLiteral("e\u0301") << QStringLiteral("U+0301");
    QTest::newRow("without a picture") << QStringLiteral("a\u200Bb") << QStringLiteral("U+200B");
    QTest::newRow("space") << QStringLiteral("a\u2003b") << QStringLiteral("U+2003");
    QTest::newRow("two units") << QStringLiteral("\U0001F3B5") << QStringLiteral("\U0001F3B5");
    QTest::newRow("half a character") << QString(QChar(0xD83C)) << QStringLiteral("U+D83C");
}

void TestLostCharacters::charactersAreListed()
{
    QFETCH(QString, text);
    QFETCH(QString, list);
    QCOMPARE(lostCharacters(text), list);
}

void TestLostCharacters::dialogTellsThemWhileTheyAreTyped_data()
{
    QTest::addColumn<QString>("field");
    for (const char *field : {"titleLineEdit", "artistComboBox", "genreComboBox", "authorLineEdit"})
        QTest::newRow(field) << QString::fromLatin1(field);
}

void TestLostCharacters::dialogTellsThemWhileTheyAreTyped()
{
    QFETCH(QString, field);
    const QByteArray name = field.toLatin1();
    const OpenDialog open;
    QCOMPARE(open.warning(), QString());
    open.type(name.constData(), QStringLiteral("Dvo"));
    QCOMPARE(open.warning(), QString());
    open.type(name.constData(), QStringLiteral("Dvoř"));
    QCOMPARE(open.warning(), warningOf(QStringLiteral("ř")));
    open.type(name.constData(), QStringLiteral("Dvořák’s"));
    QCOMPARE(open.warning(), warningOf(QStringLiteral("ř, ’")));
    open.type(name.constData(), QStringLiteral("Dvorák"));
    QCOMPARE(open.warning(), QString());
}

void TestLostCharacters::dialogTellsAllFieldsAtOnce()
{
    const OpenDialog open;
    open.type("authorLineEdit", QStringLiteral("Żź"));
    open.type("titleLineEdit", QStringLiteral("źŁ"));
    QCOMPARE(open.warning(), warningOf(QStringLiteral("ź, Ł, Ż")));
}

void TestLostCharacters::fileNameAsTitleIsTold()
{
    const OpenDialog open;
    open.child<QAbstractButton>("radioButtonTitle2")->click();
    QCOMPARE(open.warning(), warningOf(QStringLiteral("Ť")));
    open.child<QAbstractButton>("radioButtonTitle1")->click();
    QCOMPARE(open.warning(), QString());
}

void TestLostCharacters::nextSongStartsWithoutWarning()
{
    OpenDialog open;
    open.type("artistComboBox", QStringLiteral("Ł"));
    QVERIFY(!open.warning().isEmpty());
    open.dialog.setOtherInfo(SongInfo());
    QCOMPARE(open.warning(), QString());
}

void TestLostCharacters::nothingMovesWhenTheWarningComes()
{
    const OpenDialog open;
    const auto places = [&open] {
        QList<QRect> all{open.dialog.geometry()};
        for (const QWidget *widget : open.dialog.findChildren<QWidget *>())
            all.append(QRect(widget->mapTo(&open.dialog, QPoint()), widget->size()));
        return all;
    };
    const QList<QRect> before = places();
    open.type("titleLineEdit", QStringLiteral("Ł"));
    QVERIFY(!open.warning().isEmpty());
    QTest::qWait(50);
    QCOMPARE(places(), before);
    const auto *const label = open.child<QLabel>("lostCharactersLabel");
    QVERIFY(label->isVisible());
    QVERIFY(label->height() >= label->fontMetrics().height());
}

void TestLostCharacters::longWarningDoesNotWidenTheDialog()
{
    const OpenDialog open;
    const QSize before = open.dialog.size();
    QString greek;
    for (char16_t letter = 0x391; letter < 0x3FF; ++letter)
        greek.append(QChar(letter));
    open.type("titleLineEdit", greek);
    QTest::qWait(50);
    QCOMPARE(open.dialog.size(), before);
    QVERIFY(open.dialog.minimumSizeHint().width() <= before.width());
}

void TestLostCharacters::warningFollowsTheLanguage()
{
    const OpenDialog open;
    open.type("titleLineEdit", QStringLiteral("Ł"));
    class Marked : public QTranslator
    {
    public:
        QString translate(const char *, const char *source, const char *, int) const override
        {
            return QStringLiteral("X-") + QString::fromUtf8(source);
        }
        bool isEmpty() const override { return false; }
    } translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QTRY_COMPARE(open.warning(), QStringLiteral("X-") + warningOf(QStringLiteral("Ł")));
    QCoreApplication::removeTranslator(&translator);
}

void TestLostCharacters::previewTellsThem()
{
    catalogue::Row row;
    row.filename = QStringLiteral("SONG");
    row.title = QStringLiteral("RŮŽE – 1");
    row.artist = QStringLiteral("DVOŘÁK A");
    row.altartist = QStringLiteral("A DVOŘÁK’S");
    row.genre = QStringLiteral("SWING");
    row.author = QStringLiteral("Ł");
    LibraryTable library({row});
    QVERIFY(library.isGood());
    QVERIFY(library.add(QStringLiteral("song.mid"), midi()));
    QVERIFY(library.add(QStringLiteral("song.mp3"), mp3(QByteArray())));
    QVERIFY(library.add(QStringLiteral("song.mf3"), samplesongs::mfxBytes("_MF3", midi(), {})));
    const auto preview = previewOf(library);
    QVERIFY(preview.has_value());
    QCOMPARE(preview->changed.size(), 3);
    for (const ChangePreview::Song &song : preview->changed)
        QCOMPARE(textChanges(song),
                 QStringList({QStringLiteral("title: R??E ? 1 [Ů, Ž, –]"),
                              QStringLiteral("artist: A DVO?ÁK?S [Ř, ’]"),
                              QStringLiteral("genre: SWING []"), QStringLiteral("author: ? [Ł]")}));
}

void TestLostCharacters::previewTellsOnlyWhatIsWritten()
{
    catalogue::Row row;
    row.filename = QStringLiteral("SONG");
    row.title = QString(31, QLatin1Char('T')) + QStringLiteral("ŁŻ");
    row.artist = QStringLiteral("DOE?");
    row.genre = QStringLiteral("Ł");
    LibraryTable library({row});
    QVERIFY(library.isGood());
    // The genre stands in the file, where it stays; of the title 32 characters are written.
    QVERIFY(library.add(
        QStringLiteral("song.mf3"),
        samplesongs::mfxBytes("_MF3", midi(), {QString(), QString(), QStringLiteral("Pop")})));
    const auto preview = previewOf(library);
    QVERIFY(preview.has_value());
    QCOMPARE(preview->changed.size(), 1);
    QCOMPARE(textChanges(preview->changed.first()),
             QStringList({QStringLiteral("title: ") + QString(31, QLatin1Char('T')) +
                              QStringLiteral("? [Ł]"),
                          QStringLiteral("artist: DOE? []")}));
}

void TestLostCharacters::previewWindowShowsThem()
{
    ChangePreview preview;
    preview.songs = 1;
    preview.changed = {{QStringLiteral("/music/song.mid"),
                        QString(),
                        true,
                        {{ChangePreview::Field::Artist, QString(), QStringLiteral("DVO?ÁK"),
                          QStringLiteral("Ř")}}}};
    const ChangePreviewDialog dialog(preview, false);
    const auto *const tree = dialog.findChild<QTreeWidget *>(QStringLiteral("changesTreeWidget"));
    QCOMPARE(tree->topLevelItem(0)->child(0)->text(2),
             QStringLiteral("DVO?ÁK (\"?\" al posto di: Ř)"));
}

void TestLostCharacters::synchronisingReportsThem()
{
    catalogue::Row row;
    row.filename = QStringLiteral("A");
    row.title = QStringLiteral("RŮŽE");
    row.artist = QStringLiteral("DVOŘÁK");
    catalogue::Row plain;
    plain.filename = QStringLiteral("B");
    plain.title = QStringLiteral("AZZURRO");
    LibraryTable library({row, plain});
    QVERIFY(library.isGood());
    QVERIFY(library.add(QStringLiteral("a.mid"), midi()));
    QVERIFY(library.add(QStringLiteral("b.mid"), midi()));
    ProgressRecord progress;
    Synchronisation run(
        library.database, library.model(), [] { return true; },
        [](const QString &) { return Answer::Yes; }, recordedBy(progress));
    QVERIFY(run.run(false));
    QCOMPARE(run.report().findings().size(), 1);
    const SongFinding finding = run.report().findings().first();
    QCOMPARE(finding.kind, SongFinding::Kind::LostCharacters);
    QCOMPARE(finding.path, library.path(QStringLiteral("a.mid")));
    QCOMPARE(RunReport::text(finding), QStringLiteral("\"?\" al posto di: Ů, Ž, Ř"));
    QCOMPARE(run.report().summary(),
             QStringLiteral("In 1 song ci sono caratteri che il player mostra come \"?\"."));
    QVERIFY(library.song(QStringLiteral("a.mid")).title == QStringLiteral("R??E"));
}

void TestLostCharacters::editForAllSongsReportsThem()
{
    LibraryTable library(QList<catalogue::Row>{});
    for (const char *name : {"a.mid", "b.mp3", "c.mf3"}) {
        const QByteArray bytes = QByteArray(name).endsWith("mid") ? midi()
                                 : QByteArray(name).endsWith("mp3")
                                     ? mp3(QByteArray())
                                     : samplesongs::mfxBytes("_MF3", midi(), {});
        QVERIFY(library.add(QString::fromLatin1(name), bytes));
    }
    for (const bool toAll : {false, true}) {
        ProgressRecord progress;
        SongEditor editor(
            library.model(),
            [toAll](const SongInfo &info) {
                SongEdit edit;
                edit.info = info;
                edit.info.artist = QStringLiteral("Dvořák");
                edit.artistToAll = toAll;
                return std::optional<SongEdit>(edit);
            },
            [] { return false; }, recordedBy(progress));
        QVERIFY(editor.edit(1));
        QStringList told;
        for (const SongFinding &finding : editor.report().findings())
            told.append(QFileInfo(finding.path).fileName() + QStringLiteral(": ") +
                        RunReport::text(finding));
        told.sort();
        // Of a single song the dialog has told it while it was typed.
        const QString lost = QStringLiteral(": \"?\" al posto di: ř");
        QCOMPARE(told, toAll ? QStringList({QStringLiteral("a.mid") + lost,
                                            QStringLiteral("b.mp3") + lost,
                                            QStringLiteral("c.mf3") + lost})
                             : QStringList());
        QCOMPARE(library.song(QStringLiteral("b.mp3")).artist, QStringLiteral("Dvo?ák"));
    }
}

QTEST_MAIN(TestLostCharacters)
#include "test_lostcharacters.moc"
