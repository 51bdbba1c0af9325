// The boxes of the dialog in which a song is edited, its buttons, and how it looks.
#include "formats/songnames.h"
#include "support/modalanswers.h"
#include "support/openeditdialog.h"
#include "windows/dataeditdialog.h"

#include <QLabel>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <QTranslator>

using namespace openeditdialog;

namespace
{

/** Puts "X-" in front of every text and so tells which texts follow the language. */
class PrefixTranslator : public QTranslator
{
public:
    QString translate(const char *, const char *source, const char *, int) const override
    {
        return QStringLiteral("X-") + QString::fromUtf8(source);
    }
    bool isEmpty() const override { return false; }
};

} // namespace

class TestDataEditDialogBoxes : public EditDialogFixture
{
    Q_OBJECT

private slots:
    void init() { EditDialogFixture::init(); }

    void fileNameBecomesTheTitle_data();
    void fileNameBecomesTheTitle();
    void useTitleBringsTheTitleBack();
    void disabledTitleBoxCannotBeClicked();
    void confirmedBoxSetsItsFlag_data();
    void confirmedBoxSetsItsFlag();
    void declinedBoxIsUncheckedAgain_data();
    void declinedBoxIsUncheckedAgain();
    void escapeDeclines();
    void noButtonAnswersForTheUser();
    void uncheckingClearsTheFlagWithoutAQuestion();
    void useTitleAfterConfirmingClearsTheFlag();
    void nextSongStartsWithoutChoices();
    void buttonsEndTheDialog_data();
    void buttonsEndTheDialog();
    void returnInAFieldSaves();
    void languageChangeKeepsWhatWasEntered();
    void nothingIsCutOff();
    void longPathIsElided();
    void tabGoesThroughTheFieldsInReadingOrder();
};

void TestDataEditDialogBoxes::fileNameBecomesTheTitle_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("title");
    QTest::newRow("two dots") << "/music/Song.Name.mid"
                              << "Song.Name";
    QTest::newRow("no dot") << "/music/song"
                            << "song";
    QTest::newRow("dot in the folder only") << "/music.d/song"
                                            << "song";
    QTest::newRow("extension only") << "/music/.mid"
                                    << "";
    QTest::newRow("no folder") << "song.mid"
                               << "song";
    QTest::newRow("no name") << ""
                             << "";
}

void TestDataEditDialogBoxes::fileNameBecomesTheTitle()
{
    QFETCH(QString, path);
    SongInfo info = someSong();
    info.fileName = path;
    const OpenDialog open(info);
    open.click("radioButtonTitle2");
    QTEST(open.edit("titleLineEdit")->text(), "title");
    QVERIFY(open.box(titleBox)->isEnabled());
    QTEST(songnames::titleFromFileName(path), "title");
}

void TestDataEditDialogBoxes::useTitleBringsTheTitleBack()
{
    const OpenDialog open;
    open.click("radioButtonTitle2");
    open.type("titleLineEdit", QStringLiteral("something else"));
    open.click("radioButtonTitle1");
    QCOMPARE(open.edit("titleLineEdit")->text(), QStringLiteral("La mia canzone"));
    QVERIFY(!open.box(titleBox)->isEnabled());
}

void TestDataEditDialogBoxes::disabledTitleBoxCannotBeClicked()
{
    const OpenDialog open;
    QTest::mouseClick(open.dialog.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      open.box(titleBox)->mapTo(&open.dialog, QPoint(8, 8)));
    QVERIFY(!open.box(titleBox)->isChecked());
    QVERIFY(!open.dialog.isApplyToAllFname());
}

void TestDataEditDialogBoxes::confirmedBoxSetsItsFlag_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("question");
    QTest::newRow("title") << titleBox
                           << "ATTENZIONE: Il titolo di tutte le song della lista verrà "
                              "sovrascritto non il nome del file, sei sicuro?";
    QTest::newRow("artist") << artistBox
                            << "ATTENZIONE: L'interprete inserito verrà applicato a tutte le song "
                               "della lista, sei sicuro?";
    QTest::newRow("genre") << genreBox
                           << "ATTENZIONE: Il genere inserito verrà applicato a tutte le song "
                              "della lista, sei sicuro?";
    QTest::newRow("author") << authorBox
                            << "ATTENZIONE: L'autore inserito verrà applicato a tutte le song "
                               "della lista, sei sicuro?";
}

void TestDataEditDialogBoxes::confirmedBoxSetsItsFlag()
{
    QFETCH(QString, box);
    QFETCH(QString, question);
    const OpenDialog open;
    open.click("radioButtonTitle2");
    ModalAnswers answers;
    answers.pressInMessageBoxes(QMessageBox::Yes);
    open.box(box)->click();
    QCOMPARE(answers.messages(), QStringList(question));
    QVERIFY(open.box(box)->isChecked());
    for (const QString &name : {titleBox, artistBox, genreBox, authorBox})
        QCOMPARE(open.flag(name), name == box);
}

void TestDataEditDialogBoxes::declinedBoxIsUncheckedAgain_data()
{
    confirmedBoxSetsItsFlag_data();
}

void TestDataEditDialogBoxes::declinedBoxIsUncheckedAgain()
{
    QFETCH(QString, box);
    QFETCH(QString, question);
    const OpenDialog open;
    open.click("radioButtonTitle2");
    ModalAnswers answers;
    answers.pressInMessageBoxes(QMessageBox::No);
    open.box(box)->click();
    QCOMPARE(answers.messages(), QStringList(question));
    QVERIFY(!open.box(box)->isChecked());
    QVERIFY(!open.flag(box));
}

void TestDataEditDialogBoxes::escapeDeclines()
{
    const OpenDialog open;
    ModalAnswers answers;
    answers.add([](QWidget *window) {
        if (qobject_cast<QMessageBox *>(window) == nullptr)
            return false;
        QTest::keyClick(window, Qt::Key_Escape);
        return true;
    });
    open.box(artistBox)->click();
    QVERIFY(!open.box(artistBox)->isChecked());
    QVERIFY(!open.dialog.isApplyToAllArtist());
}

void TestDataEditDialogBoxes::noButtonAnswersForTheUser()
{
    const OpenDialog open;
    ModalAnswers answers;
    int keysPressed = 0;
    QStringList defaults;
    answers.add([&](QWidget *window) {
        auto *const box = qobject_cast<QMessageBox *>(window);
        if (box == nullptr)
            return false;
        for (const auto *button : box->findChildren<QPushButton *>()) {
            if (button->isDefault() || button->autoDefault())
                defaults.append(button->text());
        }
        const auto keys = {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space};
        if (keysPressed < static_cast<int>(keys.size())) {
            QWidget *const focus = box->focusWidget();
            QTest::keyClick(focus == nullptr ? box : focus, *(keys.begin() + keysPressed++));
            return true;
        }
        QTest::mouseClick(box->button(QMessageBox::No), Qt::LeftButton);
        return true;
    });
    open.box(genreBox)->click();
    QCOMPARE(keysPressed, 3);
    QCOMPARE(defaults, QStringList());
    QVERIFY(!open.dialog.isApplyToAllGenre());
}

void TestDataEditDialogBoxes::uncheckingClearsTheFlagWithoutAQuestion()
{
    const OpenDialog open;
    ModalAnswers answers;
    answers.pressInMessageBoxes(QMessageBox::Yes);
    open.box(authorBox)->click();
    QVERIFY(open.dialog.isApplyToAllAuthor());
    open.box(authorBox)->click();
    QVERIFY(!open.dialog.isApplyToAllAuthor());
    QCOMPARE(answers.messages().size(), 1);
}

void TestDataEditDialogBoxes::useTitleAfterConfirmingClearsTheFlag()
{
    const OpenDialog open;
    open.click("radioButtonTitle2");
    ModalAnswers answers;
    answers.pressInMessageBoxes(QMessageBox::Yes);
    open.box(titleBox)->click();
    QVERIFY(open.dialog.isApplyToAllFname());
    open.click("radioButtonTitle1");
    QVERIFY(!open.dialog.isApplyToAllFname());
    QVERIFY(!open.box(titleBox)->isChecked());

    // Choosing the file name again does not bring the confirmation back.
    open.click("radioButtonTitle2");
    QVERIFY(!open.box(titleBox)->isChecked());
    QVERIFY(!open.dialog.isApplyToAllFname());
}

void TestDataEditDialogBoxes::nextSongStartsWithoutChoices()
{
    OpenDialog open;
    ModalAnswers answers;
    answers.pressInMessageBoxes(QMessageBox::Yes);
    open.click("radioButtonTitle2");
    for (const QString &name : {titleBox, artistBox, genreBox, authorBox}) {
        open.box(name)->click();
        QVERIFY(open.flag(name));
    }
    open.edit("bpmLineEdit")->setFocus();
    open.dialog.setOtherInfo(someSong());
    QCOMPARE(open.dialog.focusWidget(), open.edit("titleLineEdit"));
    for (const QString &name : {titleBox, artistBox, genreBox, authorBox}) {
        QVERIFY(!open.box(name)->isChecked());
        QVERIFY(!open.flag(name));
    }
    QVERIFY(!open.box(titleBox)->isEnabled());
    QVERIFY(open.child<QRadioButton>("radioButtonTitle1")->isChecked());
    QVERIFY(!open.child<QRadioButton>("radioButtonTitle2")->isChecked());
}

void TestDataEditDialogBoxes::buttonsEndTheDialog_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("result");
    QTest::newRow("cancel") << "exitPushButton" << 0;
    QTest::newRow("save") << "savePushButton" << 1;
    QTest::newRow("escape") << "" << 0;
}

void TestDataEditDialogBoxes::buttonsEndTheDialog()
{
    QFETCH(QString, button);
    DataEditDialog dialog;
    dialog.setOtherInfo(someSong());
    QTimer::singleShot(0, &dialog, [&] {
        if (button.isEmpty())
            QTest::keyClick(&dialog, Qt::Key_Escape);
        else
            QTest::mouseClick(dialog.findChild<QPushButton *>(button), Qt::LeftButton);
    });
    QTEST(dialog.exec(), "result");
}

void TestDataEditDialogBoxes::returnInAFieldSaves()
{
    for (const char *name : {"titleLineEdit", "bpmLineEdit", "lenMmLineEdit"}) {
        const OpenDialog open;
        const QSignalSpy accepted(&open.dialog, &QDialog::accepted);
        QTest::keyClick(open.edit(name), Qt::Key_Return);
        QCOMPARE(accepted.count(), 1);
    }
    const OpenDialog open;
    const QSignalSpy accepted(&open.dialog, &QDialog::accepted);
    QTest::keyClick(open.combo("artistComboBox"), Qt::Key_Return);
    QCOMPARE(accepted.count(), 1);
}

void TestDataEditDialogBoxes::languageChangeKeepsWhatWasEntered()
{
    const OpenDialog open;
    open.click("radioButtonTitle2");
    open.type("titleLineEdit", QStringLiteral("typed title"));
    open.type("authorLineEdit", QStringLiteral("typed author"));
    open.type("bpmLineEdit", QStringLiteral("77"));
    open.combo("artistComboBox")->setEditText(QStringLiteral("typed artist"));
    open.combo("keyComboBox")->setCurrentIndex(1);
    {
        ModalAnswers answers;
        answers.pressInMessageBoxes(QMessageBox::Yes);
        open.box(titleBox)->click();
    }

    PrefixTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QCoreApplication::processEvents();
    QCOMPARE(open.dialog.windowTitle(), QStringLiteral("X-Modifica dati song"));
    QCOMPARE(open.child<QLabel>("labelModificadati")->text(),
             QStringLiteral("X-Modifica i dati della Song:"));
    QCOMPARE(open.child<QLabel>("fileNameLabel")->text(), QStringLiteral("/music/Song.Name.mid"));
    QCOMPARE(open.child<QLabel>("formatLabel")->text(), QStringLiteral("MIDI"));
    QCOMPARE(open.combo("artistComboBox")->count(), 2);
    QCOMPARE(open.combo("keyComboBox")->count(), 4);
    QVERIFY(open.child<QRadioButton>("radioButtonTitle2")->isChecked());
    QVERIFY(open.box(titleBox)->isEnabled());
    QVERIFY(open.dialog.isApplyToAllFname());

    const SongInfo info = open.result();
    QCOMPARE(info.title, QStringLiteral("typed title"));
    QCOMPARE(info.author, QStringLiteral("typed author"));
    QCOMPARE(info.artist, QStringLiteral("typed artist"));
    QCOMPARE(info.genre, QStringLiteral("SWING"));
    QCOMPARE(info.key, QStringLiteral("C"));
    QCOMPARE(info.userBpm, 77);

    // The questions follow the language too.
    ModalAnswers answers;
    answers.pressInMessageBoxes(QMessageBox::No);
    open.box(genreBox)->click();
    QCOMPARE(answers.messages(),
             QStringList(QStringLiteral("X-ATTENZIONE: X-Il genere inserito verrà applicato a "
                                        "tutte le song della lista, sei sicuro?")));
    QCoreApplication::removeTranslator(&translator);
    QCoreApplication::processEvents();
    QCOMPARE(open.dialog.windowTitle(), QStringLiteral("Modifica dati song"));
}

void TestDataEditDialogBoxes::nothingIsCutOff()
{
    OpenDialog open;
    open.dialog.resize(open.dialog.minimumSizeHint());
    QCoreApplication::processEvents();
    for (const QWidget *widget : open.dialog.findChildren<QWidget *>()) {
        const auto *const label = qobject_cast<const QLabel *>(widget);
        if (label == nullptr && qobject_cast<const QAbstractButton *>(widget) == nullptr)
            continue;
        if (!widget->isVisible() || widget->objectName() == QStringLiteral("fileNameLabel"))
            continue;
        QVERIFY2(widget->width() >= widget->sizeHint().width() &&
                     widget->height() >= widget->sizeHint().height(),
                 qPrintable(widget->objectName()));
    }
}

void TestDataEditDialogBoxes::longPathIsElided()
{
    SongInfo info = someSong();
    info.fileName = QStringLiteral("/") + QString(400, QLatin1Char('w')) + QStringLiteral("/a.mid");
    const OpenDialog open(info);
    QCoreApplication::processEvents();
    const auto *const label = open.child<QLabel>("fileNameLabel");
    QCOMPARE(label->text(), info.fileName);
    QVERIFY(open.dialog.width() <= 800);
    QVERIFY(
        open.dialog.rect().contains(QRect(label->mapTo(&open.dialog, QPoint()), label->size())));
    QVERIFY(open.dialog.minimumSizeHint().width() <= 800);
}

void TestDataEditDialogBoxes::tabGoesThroughTheFieldsInReadingOrder()
{
    OpenDialog open;
    QVERIFY(QTest::qWaitForWindowActive(&open.dialog));
    open.click("radioButtonTitle2");
    open.edit("titleLineEdit")->setFocus();
    QStringList visited;
    do {
        visited.append(open.dialog.focusWidget()->objectName());
        QTest::keyClick(open.dialog.focusWidget(), Qt::Key_Tab);
    } while (open.dialog.focusWidget() != open.edit("titleLineEdit") && visited.size() < 30);
    const QStringList expected = {QStringLiteral("titleLineEdit"),
                                  QStringLiteral("radioButtonTitle2"),
                                  titleBox,
                                  QStringLiteral("artistComboBox"),
                                  artistBox,
                                  QStringLiteral("genreComboBox"),
                                  genreBox,
                                  QStringLiteral("authorLineEdit"),
                                  authorBox,
                                  QStringLiteral("lenMmLineEdit"),
                                  QStringLiteral("lenSsLineEdit"),
                                  QStringLiteral("keyComboBox"),
                                  QStringLiteral("bpmLineEdit"),
                                  QStringLiteral("playButton"),
                                  QStringLiteral("volumeSlider"),
                                  QStringLiteral("soundFontButton"),
                                  QStringLiteral("exitPushButton"),
                                  QStringLiteral("savePushButton")};
    QCOMPARE(visited, expected);
}

QTEST_MAIN(TestDataEditDialogBoxes)

#include "test_dataeditdialog_boxes.moc"
