// What the status bar tells about the list and about the last import.
#include "library/unreadablefile.h"
#include "support/apptest.h"
#include "support/catalogue.h"
#include "support/interfacelanguage.h"
#include "support/shorttext.h"
#include "support/songfolder.h"
#include "support/userdriver.h"
#include "support/windowundertest.h"
#include "windows/backupdialog.h"
#include "windows/statebuttons.h"
#include "windows/translation.h"
#include "windows/unreadablefilesdialog.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressDialog>
#include <QTextDocument>
#include <QTreeWidget>

namespace
{

QToolButton *stateButton(const WindowUnderTest &window, int status)
{
    return window.child<QToolButton>(qPrintable(s("stateToolButton%1").arg(status)));
}

/** What is read from left to right, with single blanks. */
QString summary(const WindowUnderTest &window)
{
    QStringList texts{window.child<QLabel>("summaryLabel")->text()};
    for (int status = Database::StatusNew; status <= Database::StatusNotSynced; ++status)
        texts << stateButton(window, status)->text();
    return texts.join(QLatin1Char(' ')).simplified();
}

QPushButton *unreadableButton(const WindowUnderTest &window)
{
    return window.child<QPushButton>("unreadablePushButton");
}

/** Presses the button and returns the lines of the list that opens, as "name: reason". */
QStringList listedFiles(const WindowUnderTest &window)
{
    QStringList lines;
    ModalAnswers user;
    user.add([&](QWidget *modal) {
        if (qobject_cast<UnreadableFilesDialog *>(modal) == nullptr)
            return false;
        const auto *const list = child<QTreeWidget>(modal, "filesTreeWidget");
        for (int i = 0; i < list->topLevelItemCount(); ++i)
            lines << list->topLevelItem(i)->text(0) + s(": ") + list->topLevelItem(i)->text(1);
        auto *const buttons = child<QDialogButtonBox>(modal, "buttonBox");
        QTest::mouseClick(buttons->button(QDialogButtonBox::Close), Qt::LeftButton);
        return true;
    });
    unreadableButton(window)->click();
    return lines;
}

} // namespace

Q_DECLARE_METATYPE(UnreadableFile::Reason)

class TestStatusSummary : public AppFixture
{
    Q_OBJECT

private slots:
    void init() { AppFixture::init(); }
    void cleanup()
    {
        AppFixture::cleanup();
        backToItalian();
    }

    void emptyListIsCounted();
    void songsAreCountedByStatus();
    void unknownStatusCountsAsNew();
    void workflowsAreFollowed();
    void filteredSongsAreCounted();
    void signsStandOnTheColoursOfTheRows();
    void numbersStandAloneWithoutRoomForWords();
    void numbersFollowTheLanguage();
    void onlyTheButtonsWantTheFocus();

    void unreadableFilesAreListed();
    void listIsThatOfTheLastImport();
    void listShowsTheWholePath();
    void listWaitsForAWorkflow();
    void listFollowsTheLanguage();
};

void TestStatusSummary::emptyListIsCounted()
{
    const WindowUnderTest window;
    QCOMPARE(summary(window),
             s("0 song nuove: 0 sincronizzate: 0 modificate: 0 non sincronizzate: 0"));
    QVERIFY(!unreadableButton(window)->isVisible());
}

void TestStatusSummary::songsAreCountedByStatus()
{
    const WindowUnderTest window;
    for (int i = 0; i < 10; ++i)
        QVERIFY(window.model()->addSong(SongInfo()));
    window.model()->setStatus(0, Database::StatusSynced);
    window.model()->setStatus(4, Database::StatusSynced);
    window.model()->setStatus(5, Database::StatusSynced);
    window.model()->setStatus(6, Database::StatusEdited);
    window.model()->setStatus(8, Database::StatusNotSynced);
    window.model()->setStatus(9, Database::StatusNotSynced);
    QTRY_COMPARE(summary(window),
                 s("10 song nuove: 4 sincronizzate: 3 modificate: 1 non sincronizzate: 2"));
    QVERIFY(window.model()->removeRow(9));
    QTRY_COMPARE(summary(window),
                 s("9 song nuove: 4 sincronizzate: 3 modificate: 1 non sincronizzate: 1"));
}

void TestStatusSummary::unknownStatusCountsAsNew()
{
    const WindowUnderTest window;
    QVERIFY(window.model()->addSong(SongInfo()) && window.model()->addSong(SongInfo()));
    const int column = window.model()->colIdxStatus();
    QVERIFY(window.model()->setData(window.model()->index(0, column), 7));
    QVERIFY(window.model()->setData(window.model()->index(1, column), -1));
    QTRY_COMPARE(summary(window),
                 s("2 song nuove: 2 sincronizzate: 0 modificate: 0 non sincronizzate: 0"));
}

void TestStatusSummary::workflowsAreFollowed()
{
    catalogue::Row row;
    row.filename = s("KNOWN");
    row.title = s("KNOWN TITLE");
    QVERIFY(catalogue::write(catalogue::overrideFile, {row}));
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.midi(s("known.mid"), "A"), songs.midi(s("b.mid"), "B")});
    window.importUserLibrary();
    QTRY_COMPARE(summary(window),
                 s("2 song nuove: 2 sincronizzate: 0 modificate: 0 non sincronizzate: 0"));
    ModalAnswers user;
    user.click<BackupDialog>(s("exitPushButton"));
    QTest::mouseClick(window.updateButton(), Qt::LeftButton);
    QTRY_COMPARE(summary(window),
                 s("2 song nuove: 0 sincronizzate: 1 modificate: 0 non sincronizzate: 1"));
}

void TestStatusSummary::filteredSongsAreCounted()
{
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.midi(s("a.mid"), "A"), songs.midi(s("b.mid"), "B")});
    window.importUserLibrary();
    window.child<QLineEdit>("filterLineEdit")->setText(s("a.mid"));
    QCOMPARE(summary(window),
             s("2 song mostrate: 1 nuove: 2 sincronizzate: 0 modificate: 0 non sincronizzate: 0"));
    window.child<QLineEdit>("filterLineEdit")->clear();
    QCOMPARE(summary(window),
             s("2 song nuove: 2 sincronizzate: 0 modificate: 0 non sincronizzate: 0"));
}

void TestStatusSummary::signsStandOnTheColoursOfTheRows()
{
    const WindowUnderTest window;
    for (int status = Database::StatusNew; status <= Database::StatusNotSynced; ++status) {
        const QImage sign = stateButton(window, status)->icon().pixmap(QSize(16, 16)).toImage();
        QCOMPARE(sign.pixelColor(0, 0), UserSongsRelTableModel::statusColour(status, 0));
    }
}

void TestStatusSummary::numbersStandAloneWithoutRoomForWords()
{
    const WindowUnderTest window;
    QVERIFY(window.model()->addSong(SongInfo()));
    QTRY_COMPARE(stateButton(window, 0)->text(), s("nuove: 1"));
    auto *const buttons = window.findChild<StateButtons *>();
    buttons->resize(buttons->minimumSizeHint());
    QCOMPARE(summary(window), s("1 song 1 0 0 0"));
    QCOMPARE(stateButton(window, 3)->accessibleName(), s("non sincronizzate: 0"));
    QVERIFY(stateButton(window, 3)->toolTip().startsWith(s("Non sincronizzata: ")));
    buttons->resize(buttons->sizeHint());
    QCOMPARE(stateButton(window, 0)->text(), s("nuove: 1"));
}

void TestStatusSummary::numbersFollowTheLanguage()
{
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.midi(s("a.mid"), "A"), songs.bad(s("x.mid"))});
    window.importUserLibrary();
    window.action("actionGerman")->trigger();
    QCoreApplication::processEvents();
    QCOMPARE(summary(window),
             s("1 Song neu: 1 synchronisiert: 0 bearbeitet: 0 nicht synchronisiert: 0"));
    QCOMPARE(unreadableButton(window)->text(), s("1 Datei nicht lesbar..."));
    window.action("actionEnglish")->trigger();
    QCoreApplication::processEvents();
    QCOMPARE(summary(window), s("1 song new: 1 synchronized: 0 edited: 0 not synchronized: 0"));
    window.setSelectedFiles({songs.bad(s("x.mid")), songs.bad(s("y.mid"))});
    window.importUserLibrary();
    QTRY_COMPARE(summary(window),
                 s("0 songs new: 0 synchronized: 0 edited: 0 not synchronized: 0"));
    QCOMPARE(unreadableButton(window)->text(), s("2 unreadable files..."));
}

void TestStatusSummary::onlyTheButtonsWantTheFocus()
{
    const WindowUnderTest window;
    QCOMPARE(window.child<QLabel>("summaryLabel")->focusPolicy(), Qt::NoFocus);
    QVERIFY(unreadableButton(window)->focusPolicy() & Qt::TabFocus);
    QVERIFY(stateButton(window, 0)->focusPolicy() & Qt::TabFocus);
}

// ---------------------------------------------------------------- unreadable files

void TestStatusSummary::unreadableFilesAreListed()
{
    using namespace songbytes;
    const SongFolder songs;
    const QStringList files{songs.midi(s("good.mid"), "A"),
                            songs.bad(s("text.mid")),
                            songs.write(s("empty.kar"), QByteArray()),
                            songs.write(s("torn.mid"), "MThd" + bigEndian(6, 4)),
                            songs.write(s("torn.mf3"), "_MF3" + QByteArray(508, '\0')),
                            songs.filePath(s("gone.mp3"))};
    WindowUnderTest window;
    window.setSelectedFiles(files);
    window.importUserLibrary();
    QVERIFY(unreadableButton(window)->isVisible());
    QCOMPARE(unreadableButton(window)->text(), s("5 file non leggibili..."));
    QCOMPARE(
        listedFiles(window),
        (QStringList{s("text.mid: Formato non riconosciuto"), s("empty.kar: Il file è vuoto"),
                     s("torn.mid: Il file è danneggiato"), s("torn.mf3: Il file è danneggiato"),
                     s("gone.mp3: Il file non esiste")}));
}

void TestStatusSummary::listIsThatOfTheLastImport()
{
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.bad(s("first.mid"))});
    window.importUserLibrary();
    window.setSelectedFiles({songs.bad(s("second.mid")), songs.midi(s("a.mid"), "A")});
    window.importUserLibrary();
    QCOMPARE(listedFiles(window), QStringList{s("second.mid: Formato non riconosciuto")});
    window.setSelectedFiles({songs.midi(s("a.mid"), "A")});
    window.importUserLibrary();
    QVERIFY(!unreadableButton(window)->isVisible());
}

void TestStatusSummary::listShowsTheWholePath()
{
    const UnreadableFilesDialog dialog({{s("/music/<b>x</b>.mid"), UnreadableFile::Reason::Empty}});
    const auto *const list = child<QTreeWidget>(&dialog, "filesTreeWidget");
    QTextDocument tip;
    tip.setHtml(list->topLevelItem(0)->toolTip(1));
    QCOMPARE(tip.toPlainText(), s("/music/<b>x</b>.mid"));
}

void TestStatusSummary::listWaitsForAWorkflow()
{
    const SongFolder songs;
    QStringList files{songs.bad(s("bad.mid"))};
    for (int i = 0; i < 500; ++i)
        files << songs.midi(s("%1.mid").arg(i), "A");
    WindowUnderTest window;
    window.setSelectedFiles(files);
    window.importUserLibrary();
    int tries = 0;
    int lists = 0;
    ModalAnswers user;
    user.add([&](QWidget *modal) {
        if (qobject_cast<QProgressDialog *>(modal) == nullptr) {
            ++lists;
            return modal->close();
        }
        ++tries;
        unreadableButton(window)->click();
        return true;
    });
    window.importUserLibrary();
    QVERIFY(tries > 0);
    QCOMPARE(lists, 0);
}

void TestStatusSummary::listFollowsTheLanguage()
{
    translation::use(languages::german);
    const UnreadableFilesDialog dialog({{s("/a.mid"), UnreadableFile::Reason::UnknownFormat}});
    QCOMPARE(dialog.windowTitle(), s("Nicht lesbare Dateien"));
    const auto *const list = child<QTreeWidget>(&dialog, "filesTreeWidget");
    QCOMPARE(list->headerItem()->text(1), s("Grund"));
    QCOMPARE(list->topLevelItem(0)->text(1), s("Format nicht erkannt"));
    QCOMPARE(child<QDialogButtonBox>(&dialog, "buttonBox")->button(QDialogButtonBox::Close)->text(),
             s("S&chließen"));
}

int main(int argc, char *argv[])
{
    return runAppTest<TestStatusSummary>(argc, argv);
}

#include "test_statussummary.moc"
