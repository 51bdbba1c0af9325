// The dialog that saves a memory's song list, driven by mouse and keyboard on real folders.
#include "devindex/brackettranslator.h"
#include "devindex/index.h"
#include "devindex/mountedcard.h"
#include "library/settings.h"
#include "support/userdriver.h"
#include "windows/songslistdialog.h"

#include <QComboBox>
#include <QLabel>
#include <QProgressBar>
#include <QSettings>
#include <QStandardPaths>
#include <QTest>
#include <QTimer>

#include <memory>

namespace
{

const QString pathMissing = QStringLiteral("Salva lista song: Il percorso selezionato non esiste");
const QString destMissing =
    QStringLiteral("Salva lista song: Il percorso di destinazione non esiste");
const QString notPrepared = QStringLiteral(
    "Salva lista song: Impossibile proseguire, la memoria non è preparata per Kavena");
const QString fileError = QStringLiteral("Salva lista song: Errore durante la creazione del file");
const QString done = QStringLiteral("Salva lista song: Operazione completata");

QByteArray song(const QByteArray &title, const QByteArray &artist, const QByteArray &genre)
{
    using namespace songbytes;
    return midiFile({track(metaEvent(3, title) + kravoEvent(2, artist) + kravoEvent(1, genre) +
                           markerEvent(1, "Intro") + notes())});
}

} // namespace

class TestSongsListDialog : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void opensWithItsDefaults();
    void opensWithTheFolderOfLastTime();
    void unwritableWorkingFolderMeansTheDocuments();
    void showsTheTextsOfTheForm();
    void nothingIsCutOff();
    void browsingKeepsTheFolder();
    void cancelledBrowsingChangesNothing();
    void choosersAreTitled();
    void chosenFileGetsItsSuffix_data();
    void chosenFileGetsItsSuffix();

    void missingFolderEndsItAtOnce_data();
    void missingFolderEndsItAtOnce();
    void missingDestinationEndsItAtOnce_data();
    void missingDestinationEndsItAtOnce();
    void incompleteIndexIsNotPrepared_data();
    void incompleteIndexIsNotPrepared();
    void damagedIndexIsAnError();
    void fileThatCannotBeMadeIsAnError_data();
    void fileThatCannotBeMadeIsAnError();

    void savesInTheChosenOrder_data();
    void savesInTheChosenOrder();
    void emptyIndexGivesTheHeaderOnly();
    void relativeNameIsWrittenToTheWorkingFolder();
    void finishedRunShowsItsProgress();
    void keyboardSaves();

    void doesNotCloseWhileItWorks();
    void closesByItsButtonAndByEscape();
    void followsTheLanguage();

private:
    template <typename Widget>
    Widget *child(const char *name) const
    {
        auto *const found = m_dialog->findChild<Widget *>(QString::fromLatin1(name));
        if (found == nullptr)
            qFatal("The dialog has no %s", name);
        return found;
    }
    void click(const char *button)
    {
        QTest::mouseClick(child<QPushButton>(button), Qt::LeftButton);
    }
    void typePath(const QString &path) { child<QLineEdit>("lineEditPath")->setText(path); }
    void typeFile(const QString &path) { child<QLineEdit>("lineEditFile")->setText(path); }
    QString listPath() const { return m_card->music() + QStringLiteral("/list.csv"); }
    QByteArray list() const;
    void makeIndex() const;
    void open();

    std::unique_ptr<MountedCard> m_card;
    std::unique_ptr<SongsListDialog> m_dialog;
    std::unique_ptr<UserDriver> m_user;
    QString m_workingFolder;
};

/** Every test starts with the dialog open, a card with four songs and a file in its fields. */
void TestSongsListDialog::init()
{
    QSettings(settings::organisation, settings::application).clear();
    m_card = std::make_unique<MountedCard>();
    m_workingFolder = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_card->music()));
    m_card->writeOnCard(QStringLiteral("pop/1.mid"), song("Delta", "Zoe", "Rock"));
    m_card->writeOnCard(QStringLiteral("pop/2.mid"), song("Alfa", "Zoe", "Ballad"));
    m_card->writeOnCard(QStringLiteral("3.mid"), song("Charlie", "Anna", "Rock"));
    m_card->writeOnCard(QStringLiteral("4.mid"), song("Bravo", "Anna", "Waltz"));
    m_user = std::make_unique<UserDriver>();
    m_user->pressInMessageBoxes(QMessageBox::Ok);
    open();
    typePath(m_card->root());
    typeFile(listPath());
}

void TestSongsListDialog::cleanup()
{
    QVERIFY(QDir::setCurrent(m_workingFolder));
    m_dialog.reset();
    m_user.reset();
    m_card.reset();
}

void TestSongsListDialog::open()
{
    m_dialog = std::make_unique<SongsListDialog>();
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_dialog.get()));
}

QByteArray TestSongsListDialog::list() const
{
    QFile file(listPath());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

void TestSongsListDialog::makeIndex() const
{
    Index index;
    QVERIFY(index.createIndex(m_card->root()));
}

void TestSongsListDialog::opensWithItsDefaults()
{
    open();
    QCOMPARE(child<QLineEdit>("lineEditPath")->text(), QString());
    QCOMPARE(child<QLineEdit>("lineEditFile")->text(), QStringLiteral("SongsList.csv"));
    const auto *const combo = child<QComboBox>("comboBoxSort");
    QCOMPARE(combo->currentIndex(), 0);
    QCOMPARE(combo->count(), 3);
    QCOMPARE(combo->itemText(0), QStringLiteral("Titolo"));
    QCOMPARE(combo->itemText(1), QStringLiteral("Artista"));
    QCOMPARE(combo->itemText(2), QStringLiteral("Genere"));
}

void TestSongsListDialog::opensWithTheFolderOfLastTime()
{
    QSettings(settings::organisation, settings::application)
        .setValue(QStringLiteral("mediaroot"), m_card->root());
    open();
    QCOMPARE(child<QLineEdit>("lineEditPath")->text(), m_card->root());
}

void TestSongsListDialog::unwritableWorkingFolderMeansTheDocuments()
{
    // A working folder that was removed takes no file, whoever the user is.
    const QString gone = m_card->music() + QStringLiteral("/gone");
    QVERIFY(QDir().mkdir(gone));
    QVERIFY(QDir::setCurrent(gone));
    QVERIFY(QDir(m_card->music()).rmdir(QStringLiteral("gone")));
    open();
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QVERIFY(QDir::isAbsolutePath(documents));
    QCOMPARE(child<QLineEdit>("lineEditFile")->text(),
             documents + QStringLiteral("/SongsList.csv"));
}

void TestSongsListDialog::showsTheTextsOfTheForm()
{
    QCOMPARE(m_dialog->windowTitle(), QStringLiteral("Salva lista song"));
    QCOMPARE(child<QLabel>("labelPath")->text(), QStringLiteral("CF/USB:"));
    QCOMPARE(child<QLabel>("labelFile")->text(), QStringLiteral("File:"));
    QCOMPARE(child<QLabel>("labelSort")->text(), QStringLiteral("Ordina per:"));
    QCOMPARE(child<QPushButton>("pushButtonBrowse")->text(), QStringLiteral("Browse"));
    QCOMPARE(child<QPushButton>("pushButtonSave")->text(), QStringLiteral("Salva"));
    QCOMPARE(child<QPushButton>("pushButtonClose")->text(), QStringLiteral("Exit"));
}

void TestSongsListDialog::nothingIsCutOff()
{
    const QList<QWidget *> widgets =
        m_dialog->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(widgets.size() >= 10);
    for (const QWidget *widget : widgets) {
        QVERIFY2(m_dialog->rect().contains(widget->geometry()), qPrintable(widget->objectName()));
        QVERIFY2(widget->width() >= widget->minimumSizeHint().width() &&
                     widget->height() >= widget->minimumSizeHint().height(),
                 qPrintable(widget->objectName()));
    }
}

void TestSongsListDialog::browsingKeepsTheFolder()
{
    const QString folder = m_card->path(QStringLiteral("pop"));
    m_user->pick({folder});
    click("pushButtonBrowse");
    QVERIFY(m_user->allPicked());
    QCOMPARE(child<QLineEdit>("lineEditPath")->text(), folder);
    QCOMPARE(QSettings(settings::organisation, settings::application)
                 .value(QStringLiteral("mediaroot"))
                 .toString(),
             folder);
}

void TestSongsListDialog::cancelledBrowsingChangesNothing()
{
    click("pushButtonBrowse");
    click("pushButtonBrowseFile");
    QCOMPARE(child<QLineEdit>("lineEditPath")->text(), m_card->root());
    QCOMPARE(child<QLineEdit>("lineEditFile")->text(), listPath());
    QVERIFY(
        !QSettings(settings::organisation, settings::application).contains(settings::mediaRoot));
}

void TestSongsListDialog::choosersAreTitled()
{
    m_user.reset(); // it would cancel the choosers before anybody looks
    QStringList seen;
    ModalAnswers user;
    user.add([&seen](QWidget *window) {
        auto *const dialog = qobject_cast<QFileDialog *>(window);
        if (dialog == nullptr)
            return false;
        seen.append(dialog->windowTitle());
        seen.append(dialog->acceptMode() == QFileDialog::AcceptSave
                        ? dialog->nameFilters().join(QLatin1Char('|'))
                        : dialog->directory().path());
        dialog->reject();
        return true;
    });
    click("pushButtonBrowse");
    click("pushButtonBrowseFile");
    QCOMPARE(seen,
             QStringList({QStringLiteral("Scegli cartella"), QStringLiteral("/home"),
                          QStringLiteral("Scegli nome del file"), QStringLiteral("File (*.csv)")}));
}

void TestSongsListDialog::chosenFileGetsItsSuffix_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("file");
    QTest::newRow("without suffix") << "/songs"
                                    << "/songs.csv";
    QTest::newRow("with suffix") << "/songs.csv"
                                 << "/songs.csv";
    QTest::newRow("with a suffix of the user's own") << "/songs.txt"
                                                     << "/songs.txt";
}

void TestSongsListDialog::chosenFileGetsItsSuffix()
{
    QFETCH(QString, typed);
    QFETCH(QString, file);
    m_user->pick({m_card->music() + typed});
    click("pushButtonBrowseFile");
    QVERIFY(m_user->allPicked());
    QCOMPARE(child<QLineEdit>("lineEditFile")->text(), m_card->music() + file);
}

void TestSongsListDialog::missingFolderEndsItAtOnce_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("nothing chosen") << "";
    QTest::newRow("gone") << "%1/gone";
    QTest::newRow("a file") << "%1/3.mid";
}

void TestSongsListDialog::missingFolderEndsItAtOnce()
{
    QFETCH(QString, path);
    makeIndex();
    typePath(path.replace(QStringLiteral("%1"), m_card->root()));
    typeFile(m_card->music() + QStringLiteral("/gone/list.csv"));
    click("pushButtonSave");
    QCOMPARE(m_user->messages(), QStringList(pathMissing)); // and not a second warning
    QVERIFY(child<QPushButton>("pushButtonSave")->isEnabled());
}

void TestSongsListDialog::missingDestinationEndsItAtOnce_data()
{
    QTest::addColumn<QString>("file"); // %1 stands for the music folder
    QTest::newRow("no name") << "";
    QTest::newRow("folder gone") << "%1/gone/list.csv";
    QTest::newRow("file in the folder's place") << "%1/file/list.csv";
}

void TestSongsListDialog::missingDestinationEndsItAtOnce()
{
    QFETCH(QString, file);
    makeIndex();
    m_card->writeMusic(QStringLiteral("file"), "no folder");
    typeFile(file.replace(QStringLiteral("%1"), m_card->music()));
    click("pushButtonSave");
    QCOMPARE(m_user->messages(), QStringList(destMissing));
    QCOMPARE(QDir(m_card->music()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList(QStringLiteral("file")));
}

void TestSongsListDialog::incompleteIndexIsNotPrepared_data()
{
    QTest::addColumn<QString>("missing");
    QTest::newRow("no index at all") << "";
    for (const char *const name :
         {"index.idx", "ordfile.idx", "title.idx", "artist.idx", "genre.idx", "atitle.idx",
          "aartist.idx", "agenre.idx", "title3.idx", "artist3.idx", "genre3.idx", "atitle3.idx",
          "aartist3.idx", "agenre3.idx", "fsinfos.idx"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestSongsListDialog::incompleteIndexIsNotPrepared()
{
    QFETCH(QString, missing);
    if (!missing.isEmpty()) {
        makeIndex();
        QVERIFY(QFile::remove(m_card->path(missing)));
    }
    click("pushButtonSave");
    QCOMPARE(m_user->messages(), QStringList(notPrepared));
    QCOMPARE(list(), QByteArray("(no file)"));
    QVERIFY(child<QPushButton>("pushButtonSave")->isEnabled());
    QVERIFY(child<QPushButton>("pushButtonClose")->isEnabled());
}

void TestSongsListDialog::damagedIndexIsAnError()
{
    m_card->isLeftBroken();
    makeIndex();
    m_card->writeOnCard(QStringLiteral("index.idx"), "half a record");
    click("pushButtonSave");
    QCOMPARE(m_user->messages(), QStringList(fileError));
    QCOMPARE(list(), QByteArray("(no file)"));
}

void TestSongsListDialog::fileThatCannotBeMadeIsAnError_data()
{
    QTest::addColumn<QString>("file"); // %1 stands for a folder
    QTest::newRow("a folder in its place") << "%1";
    QTest::newRow("a folder, slash at the end") << "%1/";
}

void TestSongsListDialog::fileThatCannotBeMadeIsAnError()
{
    QFETCH(QString, file);
    makeIndex();
    typeFile(file.replace(QStringLiteral("%1"), m_card->path(QStringLiteral("pop"))));
    click("pushButtonSave");
    QCOMPARE(m_user->messages(), QStringList(fileError));
    QVERIFY(child<QPushButton>("pushButtonSave")->isEnabled());
}

void TestSongsListDialog::savesInTheChosenOrder_data()
{
    QTest::addColumn<int>("order");
    QTest::addColumn<QByteArray>("lines");
    const QByteArray header = "TITOLO;ARTISTA;GENERE;FILE;\n";
    const QByteArray alfa = "ALFA;ZOE;BALLAD;/pop/2.mid;\n";
    const QByteArray bravo = "BRAVO;ANNA;WALTZ;/4.mid;\n";
    const QByteArray charlie = "CHARLIE;ANNA;ROCK;/3.mid;\n";
    const QByteArray delta = "DELTA;ZOE;ROCK;/pop/1.mid;\n";
    QTest::newRow("title") << 0 << header + alfa + bravo + charlie + delta;
    QTest::newRow("artist, then title") << 1 << header + bravo + charlie + alfa + delta;
    QTest::newRow("genre, then title") << 2 << header + alfa + charlie + delta + bravo;
}

void TestSongsListDialog::savesInTheChosenOrder()
{
    QFETCH(int, order);
    QFETCH(QByteArray, lines);
    makeIndex();
    auto *const combo = child<QComboBox>("comboBoxSort");
    combo->setFocus();
    for (int i = 0; i < order; ++i)
        QTest::keyClick(combo, Qt::Key_Down);
    click("pushButtonSave");
    QCOMPARE(m_user->messages(), QStringList(done));
    QCOMPARE(list(), lines);
}

void TestSongsListDialog::emptyIndexGivesTheHeaderOnly()
{
    m_card->isLeftBroken();
    makeIndex();
    const QStringList files =
        QDir(m_card->root()).entryList({QStringLiteral("*.idx")}, QDir::Files);
    QCOMPARE(files.size(), 15);
    for (const QString &name : files)
        m_card->writeOnCard(name, "");
    click("pushButtonSave");
    QCOMPARE(m_user->messages(), QStringList(done));
    QCOMPARE(list(), QByteArray("TITOLO;ARTISTA;GENERE;FILE;\n"));
    QVERIFY(child<QProgressBar>("progressBar")->maximum() > 0); // not "busy" for ever
}

void TestSongsListDialog::relativeNameIsWrittenToTheWorkingFolder()
{
    makeIndex();
    typeFile(QStringLiteral("list.csv"));
    click("pushButtonSave");
    QCOMPARE(m_user->messages(), QStringList(done));
    QVERIFY(list().startsWith("TITOLO;"));
}

void TestSongsListDialog::finishedRunShowsItsProgress()
{
    makeIndex();
    click("pushButtonSave");
    QCOMPARE(child<QProgressBar>("progressBar")->maximum(), 4);
    QCOMPARE(child<QProgressBar>("progressBar")->value(), 4);
    for (const char *const button : {"pushButtonSave", "pushButtonClose", "pushButtonBrowse"})
        QVERIFY(child<QPushButton>(button)->isEnabled());
}

void TestSongsListDialog::keyboardSaves()
{
    makeIndex();
    QTest::keyClick(child<QLineEdit>("lineEditFile"), Qt::Key_Return);
    QCOMPARE(m_user->messages(), QStringList(done));
    child<QPushButton>("pushButtonSave")->setFocus();
    QTest::keyClick(child<QPushButton>("pushButtonSave"), Qt::Key_Space);
    QCOMPARE(m_user->messages(), QStringList({done, done}));
}

void TestSongsListDialog::doesNotCloseWhileItWorks()
{
    makeIndex();
    bool looked = false;
    // Fires when the run lets events through, which it does at its first song.
    QTimer::singleShot(0, m_dialog.get(), [&] {
        QVERIFY(qobject_cast<QMessageBox *>(QApplication::activeModalWidget()) == nullptr);
        QVERIFY(!child<QPushButton>("pushButtonSave")->isEnabled());
        QVERIFY(!child<QPushButton>("pushButtonClose")->isEnabled());
        QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
        m_dialog->close();
        QVERIFY(m_dialog->isVisible());
        QVERIFY(m_user->messages().isEmpty());
        looked = true;
    });
    click("pushButtonSave");
    QVERIFY(looked);
    QCOMPARE(m_user->messages(), QStringList(done));
    QVERIFY(m_dialog->close());
}

void TestSongsListDialog::closesByItsButtonAndByEscape()
{
    click("pushButtonClose");
    QVERIFY(!m_dialog->isVisible());
    open();
    QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
    QVERIFY(!m_dialog->isVisible());
}

void TestSongsListDialog::followsTheLanguage()
{
    auto *const combo = child<QComboBox>("comboBoxSort");
    combo->setCurrentIndex(2);
    BracketTranslator brackets;
    QVERIFY(QCoreApplication::installTranslator(&brackets));
    QCoreApplication::sendPostedEvents();
    QCOMPARE(m_dialog->windowTitle(), QStringLiteral("<Salva lista song>"));
    QCOMPARE(combo->count(), 3);
    QCOMPARE(combo->itemText(0), QStringLiteral("<Titolo>"));
    QCOMPARE(combo->itemText(1), QStringLiteral("<Artista>"));
    QCOMPARE(combo->currentText(), QStringLiteral("<Genere>"));
    QCOMPARE(child<QPushButton>("pushButtonClose")->text(), QStringLiteral("<Exit>"));
    // What the user entered is no text of ours.
    QCOMPARE(child<QLineEdit>("lineEditFile")->text(), listPath());
    QVERIFY(QCoreApplication::removeTranslator(&brackets));
    QCoreApplication::sendPostedEvents();
    QCOMPARE(combo->currentText(), QStringLiteral("Genere"));
}

int main(int argc, char **argv)
{
    const QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(config.path()));
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication app(argc, argv);
    // Tests open and close windows one by one.
    QApplication::setQuitOnLastWindowClosed(false);
    TestSongsListDialog test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_songslistdialog.moc"
