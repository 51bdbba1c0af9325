// The edit of a song in its dialog.
#include "library/songeditor.h"
#include "support/editfixture.h"
#include "support/librarytable.h"
#include "support/modalanswers.h"
#include "windows/dataeditdialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

using namespace editfixture;

class TestEditInSongDialog : public QObject
{
    Q_OBJECT

private slots:
    void dialogOffersTheCatalogueAndReturnsTheEdit();
    void dialogReturnsTheConfirmedFlags();
    void cancelledDialogReturnsNothing();
};

void TestEditInSongDialog::dialogOffersTheCatalogueAndReturnsTheEdit()
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

void TestEditInSongDialog::dialogReturnsTheConfirmedFlags()
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

void TestEditInSongDialog::cancelledDialogReturnsNothing()
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

QTEST_MAIN(TestEditInSongDialog)

#include "test_editinsongdialog.moc"
