// The window that shows what synchronising would change.
#include "support/librarytable.h"
#include "support/recordedprogress.h"
#include "support/songbytes.h"
#include "support/userdriver.h"
#include "windows/changepreviewdialog.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QScrollBar>
#include <QTest>
#include <QTextDocument>
#include <QTreeWidget>

namespace
{

using Field = ChangePreview::Field;

ChangePreview somePreview()
{
    ChangePreview preview;
    preview.songs = 7;
    preview.unknown = 3;
    preview.unreadable = 1;
    preview.changed = {
        {QStringLiteral("/music/song.mid"),
         QStringLiteral("La song"),
         true,
         {{Field::Title, QStringLiteral("La song"), QStringLiteral("LA SONG NUOVA")},
          {Field::Markers, QString(), QStringLiteral("1 Intro, 19 Verse1")}}},
        {QStringLiteral("/music/<b>.mp3"),
         QString(),
         false,
         {{Field::Genre, QString(), QStringLiteral("SWING")}}},
    };
    return preview;
}

QStringList texts(const QTreeWidgetItem *item)
{
    return {item->text(0), item->text(1), item->text(2)};
}

} // namespace

class TestChangePreviewDialog : public QObject
{
    Q_OBJECT

private slots:
    void showsSongsWithOldAndNewValues();
    void toolTipsShowTextsToTheLetter();
    void saysWhichSongsAreAskedAbout();
    void countsSongs();
    void toolTipsTakeNoTextForMarkUp();
    void buttonsAndKeysDecide_data();
    void buttonsAndKeysDecide();
    void nothingIsCutOff();
    void tenThousandSongsAreShownAndScroll();

    void emptyLibraryNeedsNoConfirmation();
    void stoppedPreviewDeclines();
    void confirmTellsTheAnswer_data();
    void confirmTellsTheAnswer();
};

void TestChangePreviewDialog::showsSongsWithOldAndNewValues()
{
    ChangePreviewDialog dialog(somePreview(), false);
    dialog.show();
    const auto *const tree = child<QTreeWidget>(&dialog, "changesTreeWidget");
    QCOMPARE(tree->topLevelItemCount(), 2);
    const QTreeWidgetItem *const song = tree->topLevelItem(0);
    QCOMPARE(song->text(0), QStringLiteral("La song – song.mid"));
    QVERIFY(song->isExpanded());
    QCOMPARE(song->childCount(), 2);
    QCOMPARE(texts(song->child(0)),
             QStringList({QStringLiteral("Titolo"), QStringLiteral("La song"),
                          QStringLiteral("LA SONG NUOVA")}));
    QCOMPARE(texts(song->child(1)),
             QStringList({QStringLiteral("Marker"), QStringLiteral("(vuoto)"),
                          QStringLiteral("1 Intro, 19 Verse1")}));
    // A song without a title goes by its file.
    QCOMPARE(tree->topLevelItem(1)->text(0), QStringLiteral("<b>.mp3"));
}

void TestChangePreviewDialog::toolTipsShowTextsToTheLetter()
{
    ChangePreview preview = somePreview();
    preview.changed[0].fileName = QStringLiteral("/music/<i>song</i>.mid");
    preview.changed[0].changes[0].before = QStringLiteral("<b>La</b> song");
    const ChangePreviewDialog dialog(preview, false);
    const QTreeWidgetItem *const song =
        child<QTreeWidget>(&dialog, "changesTreeWidget")->topLevelItem(0);
    const auto read = [](const QString &toolTip) {
        QTextDocument shown;
        if (Qt::mightBeRichText(toolTip))
            shown.setHtml(toolTip);
        else
            shown.setPlainText(toolTip);
        return shown.toPlainText();
    };
    QCOMPARE(read(song->toolTip(0)), preview.changed[0].fileName);
    QCOMPARE(read(song->child(0)->toolTip(1)), preview.changed[0].changes[0].before);
    QCOMPARE(song->child(1)->toolTip(1), QString()); // nothing to show
}

void TestChangePreviewDialog::saysWhichSongsAreAskedAbout()
{
    ChangePreviewDialog dialog(somePreview(), true);
    const auto *const tree = child<QTreeWidget>(&dialog, "changesTreeWidget");
    QCOMPARE(tree->topLevelItem(0)->text(0), QStringLiteral("La song – song.mid"));
    QCOMPARE(tree->topLevelItem(1)->text(0), QStringLiteral("<b>.mp3 (verrà chiesta conferma)"));
}

void TestChangePreviewDialog::countsSongs()
{
    ChangePreviewDialog dialog(somePreview(), false);
    QCOMPARE(child<QLabel>(&dialog, "countsLabel")->text(),
             QStringLiteral("Song che verrebbero modificate: 2 di 7\n"
                            "Song non presenti nel database: 3\n"
                            "Song non leggibili: 1"));
}

void TestChangePreviewDialog::toolTipsTakeNoTextForMarkUp()
{
    ChangePreview preview = somePreview();
    preview.changed[1].changes[0].after = QStringLiteral("<img src='x.png'>");
    const ChangePreviewDialog dialog(preview, false);
    const auto *const tree = child<QTreeWidget>(&dialog, "changesTreeWidget");
    const QTreeWidgetItem *const song = tree->topLevelItem(1);
    QVERIFY(song->toolTip(0).contains(QStringLiteral("/music/&lt;b&gt;.mp3")));
    QVERIFY(song->child(0)->toolTip(2).contains(QStringLiteral("&lt;img src='x.png'&gt;")));
    QCOMPARE(song->child(0)->toolTip(1), QString()); // the value is empty
}

void TestChangePreviewDialog::buttonsAndKeysDecide_data()
{
    QTest::addColumn<QString>("button"); // or the key, where it is empty
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("result");
    const int yes = QDialog::Accepted;
    const int no = QDialog::Rejected;
    QTest::newRow("synchronise") << "synchronisePushButton" << 0 << yes;
    QTest::newRow("cancel") << "cancelPushButton" << 0 << no;
    QTest::newRow("return") << "" << int{Qt::Key_Return} << yes;
    QTest::newRow("escape") << "" << int{Qt::Key_Escape} << no;
}

void TestChangePreviewDialog::buttonsAndKeysDecide()
{
    QFETCH(QString, button);
    QFETCH(int, key);
    QFETCH(int, result);
    ChangePreviewDialog dialog(somePreview(), false);
    ModalAnswers user;
    user.add([&](QWidget *window) {
        if (button.isEmpty())
            QTest::keyClick(window, static_cast<Qt::Key>(key));
        else
            QTest::mouseClick(window->findChild<QPushButton *>(button), Qt::LeftButton);
        return true;
    });
    QCOMPARE(dialog.exec(), result);
}

void TestChangePreviewDialog::nothingIsCutOff()
{
    ChangePreviewDialog dialog(somePreview(), true);
    for (const QSize &size : {dialog.size(), dialog.minimumSize()}) {
        dialog.resize(size);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        const QList<QWidget *> widgets =
            dialog.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        QVERIFY(widgets.size() >= 6);
        for (const QWidget *widget : widgets) {
            QVERIFY2(dialog.rect().contains(widget->geometry()), qPrintable(widget->objectName()));
            QVERIFY2(widget->width() >= widget->minimumSizeHint().width() &&
                         widget->height() >= widget->minimumSizeHint().height(),
                     qPrintable(widget->objectName()));
        }
    }
}

void TestChangePreviewDialog::tenThousandSongsAreShownAndScroll()
{
    ChangePreview preview;
    preview.songs = 10000;
    for (int i = 0; i < preview.songs; ++i) {
        ChangePreview::Song song{
            QStringLiteral("/music/%1.mid").arg(i), QStringLiteral("Song %1").arg(i), true, {}};
        for (int field = 0; field < 8; ++field)
            song.changes.append({static_cast<Field>(field), QStringLiteral("old"),
                                 QStringLiteral("new %1").arg(field)});
        preview.changed.append(song);
    }
    QElapsedTimer time;
    time.start();
    ChangePreviewDialog dialog(preview, false);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    qInfo("10,000 songs with 8 changes each are shown after %lld ms", time.elapsed());
    QVERIFY(time.elapsed() < 5000);
    auto *const tree = child<QTreeWidget>(&dialog, "changesTreeWidget");
    QVERIFY(tree->verticalScrollBar()->maximum() > 80000);
    tree->scrollToBottom();
    QCOMPARE(tree->itemAt(tree->viewport()->rect().bottomLeft() - QPoint(-60, 10))->parent(),
             tree->topLevelItem(9999));
}

void TestChangePreviewDialog::emptyLibraryNeedsNoConfirmation()
{
    LibraryTable library(QList<catalogue::Row>{});
    ProgressRecord progress;
    QVERIFY(ChangePreviewDialog::confirm(library.database, library.model(), false,
                                         recordedBy(progress), nullptr));
    QCOMPARE(progress.opened, 0);
}

void TestChangePreviewDialog::stoppedPreviewDeclines()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mid"), songbytes::midiFile({songbytes::track({})})));
    ProgressRecord progress;
    progress.canceled = true;
    QVERIFY(!ChangePreviewDialog::confirm(library.database, library.model(), false,
                                          recordedBy(progress), nullptr));
}

void TestChangePreviewDialog::confirmTellsTheAnswer_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("answer");
    QTest::newRow("yes") << "synchronisePushButton" << true;
    QTest::newRow("no") << "cancelPushButton" << false;
}

/** Also where nothing would change: the rows still get their colours. */
void TestChangePreviewDialog::confirmTellsTheAnswer()
{
    QFETCH(QString, button);
    QFETCH(bool, answer);
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mid"), songbytes::midiFile({songbytes::track({})})));
    ProgressRecord progress;
    bool progressWasOpen = true;
    ModalAnswers user;
    user.add([&](QWidget *window) {
        progressWasOpen = progress.isOpen;
        QTest::mouseClick(child<QPushButton>(window, qPrintable(button)), Qt::LeftButton);
        return true;
    });
    QCOMPARE(ChangePreviewDialog::confirm(library.database, library.model(), false,
                                          recordedBy(progress), nullptr),
             answer);
    QVERIFY(!progressWasOpen);
}

QTEST_MAIN(TestChangePreviewDialog)
#include "test_changepreviewdialog.moc"
