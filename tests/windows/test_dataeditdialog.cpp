// The dialog in which a song is edited: its fields.
#include "support/openeditdialog.h"

#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>

using namespace openeditdialog;

class TestDataEditDialog : public EditDialogFixture
{
    Q_OBJECT

private slots:
    void init() { EditDialogFixture::init(); }

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
};

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

QTEST_MAIN(TestDataEditDialog)

#include "test_dataeditdialog.moc"
