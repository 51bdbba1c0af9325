// What songs are offered of their music, and how it is chosen, through the main window.
#include "support/fillfixture.h"
#include "support/germantexts.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>

using namespace fillfixture;

class TestFillFromMusic : public FillFixture
{
    Q_OBJECT

private slots:
    void init() { FillFixture::init(); }
    void cleanup() { FillFixture::cleanup(); }

    void nothingIsMeasuredInAnEmptyList();
    void onlyRowsThatTheListShowsAreMeasured();
    void oldAndNewValuesStandSideBySide();
    void whatTheSongSaysIsReplacedOnlyWhenTicked();
    void guessesAreMarkedAndTickedTogether();
    void boxOfTheSongTicksWhatItLacks();
    void spaceTicksTheSelectedCells();
    void buttonsTickAllAndNone();
    void languageCanBeSwitchedWhileItIsOpen();
};

void TestFillFromMusic::nothingIsMeasuredInAnEmptyList()
{
    const WindowUnderTest empty;
    QVERIFY(!empty.action("actionFillFromMusic")->isEnabled());
    QVERIFY(m_window->action("actionFillFromMusic")->isEnabled());
}

void TestFillFromMusic::onlyRowsThatTheListShowsAreMeasured()
{
    m_window->child<QLineEdit>("filterLineEdit")->setText(QStringLiteral("tune"));
    QTRY_VERIFY(m_window->table()->isRowHidden(rowOf(m_minute)));
    fill([&](FillFromMusicDialog *dialog) {
        QCOMPARE(dialog->model().rowCount(), 1);
        QCOMPARE(textAt(dialog, 0, fileColumn), QStringLiteral("tune.mid"));
    });
}

void TestFillFromMusic::oldAndNewValuesStandSideBySide()
{
    fill([&](FillFromMusicDialog *dialog) {
        const int row = rowIn(dialog, m_minute);
        QCOMPARE(textAt(dialog, row, MusicOffersModel::beforeColumn(0)), QString());
        QCOMPARE(textAt(dialog, row, lengthColumn), QStringLiteral("01:00"));
        QCOMPARE(textAt(dialog, row, tempoColumn), QStringLiteral("90"));
        QCOMPARE(textAt(dialog, row, MusicOffersModel::beforeColumn(2)), QStringLiteral("D"));
        QCOMPARE(boxAt(dialog, row, keyColumn), -1); // the same
        QCOMPARE(textAt(dialog, row, markersColumn), QStringLiteral("2: 1 Intro, 3 Verse"));
        for (const int column : {fileColumn, lengthColumn, tempoColumn, markersColumn})
            QCOMPARE(boxAt(dialog, row, column), int{Qt::Checked});
        QVERIFY(dialog->model().index(row, lengthColumn).data(Qt::BackgroundRole).isValid());
        QCOMPARE(part<QLabel>(dialog, "summaryLabel")->text(), QStringLiteral("2 song cambiano"));
    });
}

void TestFillFromMusic::whatTheSongSaysIsReplacedOnlyWhenTicked()
{
    const QString wrong = m_songs->write(QStringLiteral("wrong.mid"),
                                         minute(kravoEvent(4, "200") + kravoEvent(5, "77")));
    list({wrong});
    fill([&](FillFromMusicDialog *dialog) {
        QCOMPARE(textAt(dialog, 0, MusicOffersModel::beforeColumn(0)), QStringLiteral("03:20"));
        QCOMPARE(textAt(dialog, 0, lengthColumn), QStringLiteral("01:00"));
        QCOMPARE(boxAt(dialog, 0, lengthColumn), int{Qt::Unchecked});
        QCOMPARE(boxAt(dialog, 0, tempoColumn), int{Qt::Unchecked});
        QCOMPARE(boxAt(dialog, 0, markersColumn), int{Qt::Checked});
        clickBox(dialog, 0, tempoColumn);
        QCOMPARE(boxAt(dialog, 0, tempoColumn), int{Qt::Checked});
        press(dialog, "applyPushButton");
    });
    QCOMPARE(infoOf(wrong).length, 200);
    QCOMPARE(infoOf(wrong).userBpm, 90);
    QCOMPARE(infoOf(wrong).markers.size(), 2);
}

void TestFillFromMusic::guessesAreMarkedAndTickedTogether()
{
    fill([&](FillFromMusicDialog *dialog) {
        const int row = rowIn(dialog, m_tune);
        QCOMPARE(textAt(dialog, row, keyColumn), QStringLiteral("C (stimata)"));
        QCOMPARE(boxAt(dialog, row, keyColumn), int{Qt::Unchecked});
        QCOMPARE(boxAt(dialog, row, fileColumn), int{Qt::PartiallyChecked});
        auto *const guesses = part<QCheckBox>(dialog, "guessesCheckBox");
        QVERIFY(!guesses->isChecked());
        QTest::mouseClick(guesses, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
        QCOMPARE(boxAt(dialog, row, keyColumn), int{Qt::Checked});
        QCOMPARE(boxAt(dialog, row, fileColumn), int{Qt::Checked});
        clickBox(dialog, row, keyColumn);
        QVERIFY(!guesses->isChecked());
        press(dialog, "applyPushButton");
    });
    QCOMPARE(infoOf(m_tune).key, QString());
    QVERIFY(infoOf(m_tune).length > 0);
}

void TestFillFromMusic::boxOfTheSongTicksWhatItLacks()
{
    fill([&](FillFromMusicDialog *dialog) {
        const int row = rowIn(dialog, m_tune);
        clickBox(dialog, row, fileColumn);
        QCOMPARE(boxAt(dialog, row, keyColumn), int{Qt::Checked});
        QCOMPARE(boxAt(dialog, row, fileColumn), int{Qt::Checked});
        clickBox(dialog, row, fileColumn);
        for (const int column : {fileColumn, lengthColumn, tempoColumn, keyColumn})
            QCOMPARE(boxAt(dialog, row, column), int{Qt::Unchecked});
        QCOMPARE(part<QLabel>(dialog, "summaryLabel")->text(), QStringLiteral("1 song cambiano"));
    });
}

void TestFillFromMusic::spaceTicksTheSelectedCells()
{
    fill([&](FillFromMusicDialog *dialog) {
        dialog->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(dialog));
        QTableView *const view = table(dialog);
        view->setFocus();
        for (const int row : {0, 1})
            view->selectionModel()->select(view->model()->index(row, lengthColumn),
                                           QItemSelectionModel::Select);
        QTest::keyClick(view, Qt::Key_Space);
        QTRY_COMPARE(boxAt(dialog, 0, lengthColumn), int{Qt::Unchecked});
        QCOMPARE(boxAt(dialog, 1, lengthColumn), int{Qt::Unchecked});
        QCOMPARE(boxAt(dialog, 0, tempoColumn), int{Qt::Checked});
        QTest::keyClick(view, Qt::Key_Space);
        QTRY_COMPARE(boxAt(dialog, 1, lengthColumn), int{Qt::Checked});
    });
}

void TestFillFromMusic::buttonsTickAllAndNone()
{
    fill([&](FillFromMusicDialog *dialog) {
        press(dialog, "nonePushButton");
        QCOMPARE(dialog->model().changed(), 0);
        QVERIFY(!part<QPushButton>(dialog, "applyPushButton")->isEnabled());
        press(dialog, "allPushButton");
        QCOMPARE(dialog->model().changed(), 2);
        QCOMPARE(boxAt(dialog, rowIn(dialog, m_tune), keyColumn), int{Qt::Unchecked});
    });
}

void TestFillFromMusic::languageCanBeSwitchedWhileItIsOpen()
{
    fill([&](FillFromMusicDialog *dialog) {
        const auto header = [&] {
            return dialog->model()
                .headerData(lengthColumn, Qt::Horizontal, Qt::DisplayRole)
                .toString();
        };
        QCOMPARE(header(), QStringLiteral("Durata dopo"));
        {
            const GermanTexts german;
            QTRY_COMPARE(header(), QStringLiteral("Dauer neu"));
            QTRY_COMPARE(dialog->windowTitle(), QStringLiteral("Aus der Musik ergänzen"));
            QCOMPARE(textAt(dialog, rowIn(dialog, m_tune), keyColumn),
                     QStringLiteral("C (geschätzt)"));
            QCOMPARE(part<QLabel>(dialog, "summaryLabel")->text(),
                     QStringLiteral("2 Songs ändern sich"));
        }
        press(dialog, "applyPushButton");
    });
    QCOMPARE(infoOf(m_minute).length, 60);
}

int main(int argc, char *argv[])
{
    return runAppTest<TestFillFromMusic>(argc, argv);
}
#include "test_fillfrommusic.moc"
