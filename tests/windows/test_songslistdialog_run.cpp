// The window that writes the list of songs: its runs.
#include "support/brackettranslator.h"
#include "support/mountedcard.h"
#include "support/opensongslist.h"
#include "support/userdriver.h"

#include <QComboBox>
#include <QProgressBar>
#include <QTest>
#include <QTimer>

using namespace opensongslist;

namespace
{

const QString pathMissing = QStringLiteral("Salva lista song: Il percorso selezionato non esiste");
const QString destMissing =
    QStringLiteral("Salva lista song: Il percorso di destinazione non esiste");
const QString notPrepared = QStringLiteral(
    "Salva lista song: Impossibile proseguire, la memoria non è preparata per Kavena");
const QString fileError = QStringLiteral("Salva lista song: Errore durante la creazione del file");
const QString done = QStringLiteral("Salva lista song: Operazione completata");

} // namespace

class TestSongsListDialogRun : public SongsListFixture
{
    Q_OBJECT

private slots:
    void init() { SongsListFixture::init(); }
    void cleanup() { SongsListFixture::cleanup(); }

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
};

void TestSongsListDialogRun::missingFolderEndsItAtOnce_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("nothing chosen") << "";
    QTest::newRow("gone") << "%1/gone";
    QTest::newRow("a file") << "%1/3.mid";
}

void TestSongsListDialogRun::missingFolderEndsItAtOnce()
{
    QFETCH(QString, path);
    makeIndex();
    typePath(path.replace(QStringLiteral("%1"), m_card->root()));
    typeFile(m_card->music() + QStringLiteral("/gone/list.csv"));
    click("pushButtonSave");
    QCOMPARE(m_user->messages(), QStringList(pathMissing)); // and not a second warning
    QVERIFY(child<QPushButton>("pushButtonSave")->isEnabled());
}

void TestSongsListDialogRun::missingDestinationEndsItAtOnce_data()
{
    QTest::addColumn<QString>("file"); // %1 stands for the music folder
    QTest::newRow("no name") << "";
    QTest::newRow("folder gone") << "%1/gone/list.csv";
    QTest::newRow("file in the folder's place") << "%1/file/list.csv";
}

void TestSongsListDialogRun::missingDestinationEndsItAtOnce()
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

void TestSongsListDialogRun::incompleteIndexIsNotPrepared_data()
{
    QTest::addColumn<QString>("missing");
    QTest::newRow("no index at all") << "";
    for (const char *const name :
         {"index.idx", "ordfile.idx", "title.idx", "artist.idx", "genre.idx", "atitle.idx",
          "aartist.idx", "agenre.idx", "title3.idx", "artist3.idx", "genre3.idx", "atitle3.idx",
          "aartist3.idx", "agenre3.idx", "fsinfos.idx"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestSongsListDialogRun::incompleteIndexIsNotPrepared()
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

void TestSongsListDialogRun::damagedIndexIsAnError()
{
    m_card->isLeftBroken();
    makeIndex();
    m_card->writeOnCard(QStringLiteral("index.idx"), "half a record");
    click("pushButtonSave");
    QCOMPARE(m_user->messages(), QStringList(fileError));
    QCOMPARE(list(), QByteArray("(no file)"));
}

void TestSongsListDialogRun::fileThatCannotBeMadeIsAnError_data()
{
    QTest::addColumn<QString>("file"); // %1 stands for a folder
    QTest::newRow("a folder in its place") << "%1";
    QTest::newRow("a folder, slash at the end") << "%1/";
}

void TestSongsListDialogRun::fileThatCannotBeMadeIsAnError()
{
    QFETCH(QString, file);
    makeIndex();
    typeFile(file.replace(QStringLiteral("%1"), m_card->path(QStringLiteral("pop"))));
    click("pushButtonSave");
    QCOMPARE(m_user->messages(), QStringList(fileError));
    QVERIFY(child<QPushButton>("pushButtonSave")->isEnabled());
}

void TestSongsListDialogRun::savesInTheChosenOrder_data()
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

void TestSongsListDialogRun::savesInTheChosenOrder()
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

void TestSongsListDialogRun::emptyIndexGivesTheHeaderOnly()
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

void TestSongsListDialogRun::relativeNameIsWrittenToTheWorkingFolder()
{
    makeIndex();
    typeFile(QStringLiteral("list.csv"));
    click("pushButtonSave");
    QCOMPARE(m_user->messages(), QStringList(done));
    QVERIFY(list().startsWith("TITOLO;"));
}

void TestSongsListDialogRun::finishedRunShowsItsProgress()
{
    makeIndex();
    click("pushButtonSave");
    QCOMPARE(child<QProgressBar>("progressBar")->maximum(), 4);
    QCOMPARE(child<QProgressBar>("progressBar")->value(), 4);
    for (const char *const button : {"pushButtonSave", "pushButtonClose", "pushButtonBrowse"})
        QVERIFY(child<QPushButton>(button)->isEnabled());
}

void TestSongsListDialogRun::keyboardSaves()
{
    makeIndex();
    QTest::keyClick(child<QLineEdit>("lineEditFile"), Qt::Key_Return);
    QCOMPARE(m_user->messages(), QStringList(done));
    child<QPushButton>("pushButtonSave")->setFocus();
    QTest::keyClick(child<QPushButton>("pushButtonSave"), Qt::Key_Space);
    QCOMPARE(m_user->messages(), QStringList({done, done}));
}

void TestSongsListDialogRun::doesNotCloseWhileItWorks()
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

void TestSongsListDialogRun::closesByItsButtonAndByEscape()
{
    click("pushButtonClose");
    QVERIFY(!m_dialog->isVisible());
    open();
    QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
    QVERIFY(!m_dialog->isVisible());
}

void TestSongsListDialogRun::followsTheLanguage()
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
    TestSongsListDialogRun test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_songslistdialog_run.moc"
