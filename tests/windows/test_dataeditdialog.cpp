// The dialog for one song's data, driven as a user does.
#include "formats/songnames.h"
#include "support/modalanswers.h"
#include "windows/dataeditdialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTranslator>

namespace
{

const QString titleBox = QStringLiteral("checkBoxToAllTitle");
const QString artistBox = QStringLiteral("checkBoxToAllArtist");
const QString genreBox = QStringLiteral("checkBoxToAllGenre");
const QString authorBox = QStringLiteral("checkBoxToAllAuthor");

SongInfo someSong()
{
    SongInfo info;
    info.title = QStringLiteral("La mia canzone");
    info.artist = QStringLiteral("Trio Lescano");
    info.genre = QStringLiteral("SWING");
    info.author = QStringLiteral("D. Olivieri");
    info.length = 125;
    info.userBpm = 96;
    info.key = QStringLiteral("A-");
    info.fileName = QStringLiteral("/music/Song.Name.mid");
    info.format = QStringLiteral("MIDI");
    return info;
}

/** A dialog on screen, filled with someSong() and short lists to choose from. */
class OpenDialog
{
public:
    OpenDialog()
        : OpenDialog(someSong())
    {
    }

    explicit OpenDialog(const SongInfo &info)
    {
        dialog.setArtistsCombo({QStringLiteral("Adriano"), QStringLiteral("Zelda")});
        dialog.setGenresCombo({QStringLiteral("POP"), QStringLiteral("JAZZ")});
        dialog.setKeysCombo({QStringLiteral("C"), QStringLiteral("A-"), QStringLiteral("Bb")});
        dialog.setOtherInfo(info);
        dialog.show();
    }

    QLineEdit *edit(const char *name) const { return child<QLineEdit>(name); }
    QComboBox *combo(const char *name) const { return child<QComboBox>(name); }
    QCheckBox *box(const QString &name) const { return dialog.findChild<QCheckBox *>(name); }

    template <typename Widget>
    Widget *child(const char *name) const
    {
        return dialog.findChild<Widget *>(QString::fromLatin1(name));
    }

    void click(const char *name) const
    {
        QTest::mouseClick(child<QAbstractButton>(name), Qt::LeftButton);
    }

    void type(const char *name, const QString &text) const
    {
        edit(name)->setFocus();
        edit(name)->selectAll();
        QTest::keyClicks(edit(name), text);
    }

    SongInfo result(SongInfo info = SongInfo()) const
    {
        dialog.getInfo(info);
        return info;
    }

    bool flag(const QString &boxName) const
    {
        if (boxName == titleBox)
            return dialog.isApplyToAllFname();
        if (boxName == artistBox)
            return dialog.isApplyToAllArtist();
        return boxName == genreBox ? dialog.isApplyToAllGenre() : dialog.isApplyToAllAuthor();
    }

    DataEditDialog dialog;
};

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

class TestDataEditDialog : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void showsTheTextsOfTheForm();
    void showsTheSong();
    void lengthIsShownInMinutesAndSecondsAndSavedBack_data();
    void lengthIsShownInMinutesAndSecondsAndSavedBack();
    void emptyNumbersCountAsZero();
    void hugeLengthDoesNotOverflow();
    void numbersTakeOnlyDigits();
    void numbersKeepTheirPatterns();
    void artistAndGenreNeedNotBeInTheirLists();
    void listsAreReplacedInTheirOrder();
    void typedNameIsNotCompletedByItself();
    void letterCaseStaysAsEntered_data();
    void letterCaseStaysAsEntered();
    void keyIsSelectedByItsExactText_data();
    void keyIsSelectedByItsExactText();
    void textsAreTrimmedAndOtherFieldsKept();
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

void TestDataEditDialog::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral("connectSlotsByName|QObject::connect")));
}

void TestDataEditDialog::showsTheTextsOfTheForm()
{
    const OpenDialog open;
    QCOMPARE(open.dialog.windowTitle(), QStringLiteral("Modifica dati song"));
    QVERIFY(open.dialog.isModal());
    const QList<QPair<const char *, QString>> texts = {
        {"labelModificadati", QStringLiteral("Modifica i dati della Song:")},
        {"fileNameCaptionLabel", QStringLiteral("Percorso file:")},
        {"formatCaptionLabel", QStringLiteral("Formato:")},
        {"titleCaptionLabel", QStringLiteral("Titolo Song:")},
        {"artistCaptionLabel", QStringLiteral("Interprete:")},
        {"genreCaptionLabel", QStringLiteral("Genere Musicale:")},
        {"authorCaptionLabel", QStringLiteral("Autore:")},
        {"lengthCaptionLabel", QStringLiteral("Durata:")},
        {"minutesLabel", QStringLiteral("mm")},
        {"secondsLabel", QStringLiteral("ss")},
        {"keyCaptionLabel", QStringLiteral("Tonalità:")},
        {"bpmCaptionLabel", QStringLiteral("BPM:")}};
    for (const auto &[name, text] : texts)
        QCOMPARE(open.child<QLabel>(name)->text(), text);
    for (const QString &name : {titleBox, artistBox, genreBox, authorBox})
        QCOMPARE(open.box(name)->text(), QStringLiteral("Applica a tutti"));
    QCOMPARE(open.child<QRadioButton>("radioButtonTitle1")->text(),
             QStringLiteral("Usa il titolo"));
    QCOMPARE(open.child<QRadioButton>("radioButtonTitle2")->text(),
             QStringLiteral("Usa il filename"));
    QCOMPARE(open.child<QPushButton>("exitPushButton")->text(), QStringLiteral("Annulla"));
    QCOMPARE(open.child<QPushButton>("savePushButton")->text(), QStringLiteral("Salva"));
}

void TestDataEditDialog::showsTheSong()
{
    const OpenDialog open;
    QCOMPARE(open.child<QLabel>("fileNameLabel")->text(), QStringLiteral("/music/Song.Name.mid"));
    QCOMPARE(open.child<QLabel>("formatLabel")->text(), QStringLiteral("MIDI"));
    QCOMPARE(open.edit("titleLineEdit")->text(), QStringLiteral("La mia canzone"));
    QCOMPARE(open.combo("artistComboBox")->currentText(), QStringLiteral("Trio Lescano"));
    QCOMPARE(open.combo("genreComboBox")->currentText(), QStringLiteral("SWING"));
    QCOMPARE(open.edit("authorLineEdit")->text(), QStringLiteral("D. Olivieri"));
    QCOMPARE(open.edit("lenMmLineEdit")->text(), QStringLiteral("2"));
    QCOMPARE(open.edit("lenSsLineEdit")->text(), QStringLiteral("5"));
    QCOMPARE(open.combo("keyComboBox")->currentText(), QStringLiteral("A-"));
    QCOMPARE(open.edit("bpmLineEdit")->text(), QStringLiteral("96"));
    QVERIFY(open.child<QRadioButton>("radioButtonTitle1")->isChecked());
    QVERIFY(!open.child<QRadioButton>("radioButtonTitle2")->isChecked());
    QVERIFY(!open.box(titleBox)->isEnabled());
    for (const QString &name : {titleBox, artistBox, genreBox, authorBox}) {
        QVERIFY(!open.box(name)->isChecked());
        QVERIFY(!open.flag(name));
    }
}

void TestDataEditDialog::lengthIsShownInMinutesAndSecondsAndSavedBack_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("minutes");
    QTest::addColumn<QString>("seconds");
    QTest::newRow("2:05") << 125 << "2"
                          << "5";
    QTest::newRow("unknown") << 0 << "0"
                             << "0";
    QTest::newRow("under a minute") << 59 << "0"
                                    << "59";
    QTest::newRow("more minutes than can be typed") << 6001 << "100"
                                                    << "1";
}

void TestDataEditDialog::lengthIsShownInMinutesAndSecondsAndSavedBack()
{
    QFETCH(int, length);
    SongInfo info = someSong();
    info.length = length;
    const OpenDialog open(info);
    QTEST(open.edit("lenMmLineEdit")->text(), "minutes");
    QTEST(open.edit("lenSsLineEdit")->text(), "seconds");
    QCOMPARE(open.result().length, length);
}

void TestDataEditDialog::emptyNumbersCountAsZero()
{
    const OpenDialog open;
    for (const char *name : {"lenMmLineEdit", "lenSsLineEdit", "bpmLineEdit"}) {
        open.edit(name)->selectAll();
        QTest::keyClick(open.edit(name), Qt::Key_Delete);
        QCOMPARE(open.edit(name)->text(), QString());
    }
    const SongInfo info = open.result(someSong());
    QCOMPARE(info.length, 0);
    QCOMPARE(info.userBpm, 0);
}

void TestDataEditDialog::hugeLengthDoesNotOverflow()
{
    SongInfo info = someSong();
    info.length = std::numeric_limits<qint32>::max();
    const OpenDialog open(info);
    QCOMPARE(open.result().length, info.length);
    open.type("lenSsLineEdit", QStringLiteral("99"));
    QCOMPARE(open.result().length, info.length);
}

void TestDataEditDialog::numbersTakeOnlyDigits()
{
    const OpenDialog open;
    open.type("bpmLineEdit", QStringLiteral("1x2 -3.45"));
    open.type("lenMmLineEdit", QStringLiteral("-1a234"));
    open.type("lenSsLineEdit", QStringLiteral("5:678"));
    QCOMPARE(open.edit("bpmLineEdit")->text(), QStringLiteral("123"));
    QCOMPARE(open.edit("lenMmLineEdit")->text(), QStringLiteral("12"));
    QCOMPARE(open.edit("lenSsLineEdit")->text(), QStringLiteral("56"));
    const SongInfo info = open.result();
    QCOMPARE(info.userBpm, 123);
    QCOMPARE(info.length, 12 * 60 + 56);
}

void TestDataEditDialog::numbersKeepTheirPatterns()
{
    const OpenDialog open;
    const auto pattern = [&open](const char *name) {
        const auto *const validator =
            qobject_cast<const QRegularExpressionValidator *>(open.edit(name)->validator());
        return validator == nullptr ? QString() : validator->regularExpression().pattern();
    };
    QCOMPARE(pattern("bpmLineEdit"), QStringLiteral("^[0-9]{3}"));
    QCOMPARE(pattern("lenMmLineEdit"), QStringLiteral("^[0-9]{2}"));
    QCOMPARE(pattern("lenSsLineEdit"), QStringLiteral("^[0-9]{2}"));
}

void TestDataEditDialog::artistAndGenreNeedNotBeInTheirLists()
{
    const OpenDialog open;
    QCOMPARE(open.result().artist, QStringLiteral("Trio Lescano"));
    QCOMPARE(open.result().genre, QStringLiteral("SWING"));

    SongInfo listed = someSong();
    listed.artist = QStringLiteral("Zelda");
    listed.genre.clear();
    const OpenDialog second(listed);
    QCOMPARE(second.combo("artistComboBox")->currentIndex(), 1);
    QCOMPARE(second.result().artist, QStringLiteral("Zelda"));
    QCOMPARE(second.result().genre, QString());
}

void TestDataEditDialog::listsAreReplacedInTheirOrder()
{
    OpenDialog open;
    const QStringList names = {QStringLiteral("Zz"), QStringLiteral("Aa"), QStringLiteral("Mm")};
    open.dialog.setArtistsCombo(names);
    open.dialog.setGenresCombo(names);
    open.dialog.setKeysCombo(names);
    const auto items = [&open](const char *name) {
        QStringList list;
        for (int i = 0; i < open.combo(name)->count(); ++i)
            list.append(open.combo(name)->itemText(i));
        return list;
    };
    QCOMPARE(items("artistComboBox"), names);
    QCOMPARE(items("genreComboBox"), names);
    QCOMPARE(items("keyComboBox"), QStringList(QString()) + names);
}

void TestDataEditDialog::typedNameIsNotCompletedByItself()
{
    OpenDialog open;
    QVERIFY(QTest::qWaitForWindowActive(&open.dialog));
    QLineEdit *const field = open.combo("artistComboBox")->lineEdit();
    field->setFocus();
    QVERIFY(field->hasFocus());
    field->selectAll();
    QTest::keyClicks(field, QStringLiteral("zel"));
    QCOMPARE(open.result().artist, QStringLiteral("zel"));
    QTest::keyClicks(field, QStringLiteral("da"));
    QCOMPARE(open.result().artist, QStringLiteral("zelda"));
    QCOMPARE(open.combo("artistComboBox")->count(), 2);
}

void TestDataEditDialog::letterCaseStaysAsEntered_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("left by Tab") << int(Qt::Key_Tab);
    QTest::newRow("ended by Return") << int(Qt::Key_Return);
}

void TestDataEditDialog::letterCaseStaysAsEntered()
{
    // Both names stand in the lists too, spelt otherwise.
    QFETCH(int, key);
    SongInfo info = someSong();
    info.genre = QStringLiteral("Jazz");
    OpenDialog open(info);
    QVERIFY(QTest::qWaitForWindowActive(&open.dialog));
    QLineEdit *const artist = open.combo("artistComboBox")->lineEdit();
    artist->setFocus();
    artist->selectAll();
    QTest::keyClicks(artist, QStringLiteral("ZELDA"));
    QTest::keyClick(artist, static_cast<Qt::Key>(key));
    QCOMPARE(open.result().artist, QStringLiteral("ZELDA"));

    QLineEdit *const genre = open.combo("genreComboBox")->lineEdit();
    genre->setFocus();
    QTest::keyClick(genre, static_cast<Qt::Key>(key));
    QCOMPARE(open.result().genre, QStringLiteral("Jazz"));
}

void TestDataEditDialog::keyIsSelectedByItsExactText_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("item");
    QTest::addColumn<QString>("saved");
    QTest::newRow("listed") << "Bb" << 3 << "Bb";
    QTest::newRow("none") << "" << 0 << "";
    QTest::newRow("other case") << "bb" << -1 << "";
    QTest::newRow("with a blank") << "A -" << -1 << "";
    QTest::newRow("unknown") << "H" << -1 << "";
}

void TestDataEditDialog::keyIsSelectedByItsExactText()
{
    QFETCH(QString, key);
    SongInfo info = someSong();
    info.key = key;
    const OpenDialog open(info);
    QTEST(open.combo("keyComboBox")->currentIndex(), "item");
    QTEST(open.result(info).key, "saved");
}

void TestDataEditDialog::textsAreTrimmedAndOtherFieldsKept()
{
    const OpenDialog open;
    open.type("titleLineEdit", QStringLiteral("  Azzurro "));
    open.type("authorLineEdit", QStringLiteral(" Conte\t"));
    open.combo("artistComboBox")->setEditText(QStringLiteral(" Adriano "));
    open.combo("genreComboBox")->setEditText(QStringLiteral(" POP "));

    SongInfo info;
    info.fileName = QStringLiteral("/other.mid");
    info.shortName = QStringLiteral("other.mid");
    info.altArtist = QStringLiteral("alt");
    info.isKravo = true;
    info.format = QStringLiteral("MF3");
    info.mfxLongName = QStringLiteral("LONG");
    info.mfxFlags = 5;
    info.markers.append(Marker{3, QStringLiteral("Intro")});
    open.dialog.getInfo(info);

    QCOMPARE(info.title, QStringLiteral("Azzurro"));
    QCOMPARE(info.author, QStringLiteral("Conte"));
    QCOMPARE(info.artist, QStringLiteral("Adriano"));
    QCOMPARE(info.genre, QStringLiteral("POP"));
    QCOMPARE(info.key, QStringLiteral("A-"));
    QCOMPARE(info.length, 125);
    QCOMPARE(info.userBpm, 96);
    QCOMPARE(info.fileName, QStringLiteral("/other.mid"));
    QCOMPARE(info.shortName, QStringLiteral("other.mid"));
    QCOMPARE(info.altArtist, QStringLiteral("alt"));
    QVERIFY(info.isKravo);
    QCOMPARE(info.format, QStringLiteral("MF3"));
    QCOMPARE(info.mfxLongName, QStringLiteral("LONG"));
    QCOMPARE(info.mfxFlags, quint8{5});
    QCOMPARE(info.markers.size(), 1);
}

void TestDataEditDialog::fileNameBecomesTheTitle_data()
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

void TestDataEditDialog::fileNameBecomesTheTitle()
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

void TestDataEditDialog::useTitleBringsTheTitleBack()
{
    const OpenDialog open;
    open.click("radioButtonTitle2");
    open.type("titleLineEdit", QStringLiteral("something else"));
    open.click("radioButtonTitle1");
    QCOMPARE(open.edit("titleLineEdit")->text(), QStringLiteral("La mia canzone"));
    QVERIFY(!open.box(titleBox)->isEnabled());
}

void TestDataEditDialog::disabledTitleBoxCannotBeClicked()
{
    const OpenDialog open;
    QTest::mouseClick(open.dialog.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      open.box(titleBox)->mapTo(&open.dialog, QPoint(8, 8)));
    QVERIFY(!open.box(titleBox)->isChecked());
    QVERIFY(!open.dialog.isApplyToAllFname());
}

void TestDataEditDialog::confirmedBoxSetsItsFlag_data()
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

void TestDataEditDialog::confirmedBoxSetsItsFlag()
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

void TestDataEditDialog::declinedBoxIsUncheckedAgain_data()
{
    confirmedBoxSetsItsFlag_data();
}

void TestDataEditDialog::declinedBoxIsUncheckedAgain()
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

void TestDataEditDialog::escapeDeclines()
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

void TestDataEditDialog::noButtonAnswersForTheUser()
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

void TestDataEditDialog::uncheckingClearsTheFlagWithoutAQuestion()
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

void TestDataEditDialog::useTitleAfterConfirmingClearsTheFlag()
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

void TestDataEditDialog::nextSongStartsWithoutChoices()
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

void TestDataEditDialog::buttonsEndTheDialog_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("result");
    QTest::newRow("cancel") << "exitPushButton" << 0;
    QTest::newRow("save") << "savePushButton" << 1;
    QTest::newRow("escape") << "" << 0;
}

void TestDataEditDialog::buttonsEndTheDialog()
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

void TestDataEditDialog::returnInAFieldSaves()
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

void TestDataEditDialog::languageChangeKeepsWhatWasEntered()
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

void TestDataEditDialog::nothingIsCutOff()
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

void TestDataEditDialog::longPathIsElided()
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

void TestDataEditDialog::tabGoesThroughTheFieldsInReadingOrder()
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
                                  QStringLiteral("exitPushButton"),
                                  QStringLiteral("savePushButton")};
    QCOMPARE(visited, expected);
}

QTEST_MAIN(TestDataEditDialog)
#include "test_dataeditdialog.moc"
