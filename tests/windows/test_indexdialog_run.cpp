// The window that optimises a memory: its runs.
#include "support/brackettranslator.h"
#include "support/logcapture.h"
#include "support/mountedcard.h"
#include "support/openindexdialog.h"
#include "support/userdriver.h"
#include "windows/nocopyrightdialog.h"
#include "windows/songslistdialog.h"

#include <QProgressBar>
#include <QRadioButton>
#include <QTest>

using namespace openindexdialog;

class TestIndexDialogRun : public IndexDialogFixture
{
    Q_OBJECT

private slots:
    void init() { IndexDialogFixture::init(); }
    void cleanup() { IndexDialogFixture::cleanup(); }

    void browsingIsASlotOfTheDialog();

    void keyboardStartsOnTheWholeMemory_data();
    void keyboardStartsOnTheWholeMemory();
    void releaseStartsNothing();
    void disabledButtonStartsNothing();

    void updateKeepsTheIdsAndRebuildDoesNot();
    void finishedRunShowsCountProgressAndReport();
    void errorsOfASuccessfulRunAreReported();
    void errorsAreForgottenByTheNextRun();
    void memoryWithoutSongsFails();
    void onlyAFailedRunTakesTheBarBack();
    void onlyItsButtonsAreShutWhileItWorks();
    void inputDuringTheRunIsForTheNextOne();

    void doesNotCloseWhileItWorks();
    void closesByItsButtonAndByEscape();
    void followsTheLanguage();
};

void TestIndexDialogRun::keyboardStartsOnTheWholeMemory_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::newRow("space") << int(Qt::Key_Space) << int(Qt::NoModifier);
    QTest::newRow("return") << int(Qt::Key_Return) << int(Qt::NoModifier);
    QTest::newRow("enter") << int(Qt::Key_Enter) << int(Qt::KeypadModifier);
}

void TestIndexDialogRun::keyboardStartsOnTheWholeMemory()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    type(m_card->path(QStringLiteral("pop")));
    auto *const button = child<QPushButton>("pushButtonStart");
    button->setFocus();
    QTest::keyClick(button, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(m_user->messages(), QStringList(successText));
    QCOMPARE(m_card->indexedPaths().size(), 2);
}

void TestIndexDialogRun::releaseStartsNothing()
{
    QTest::mouseRelease(child<QPushButton>("pushButtonStart"), Qt::LeftButton);
    QVERIFY(m_user->messages().isEmpty());
    QVERIFY(!m_card->hasIndex());
}

void TestIndexDialogRun::disabledButtonStartsNothing()
{
    auto *const button = child<QPushButton>("pushButtonStart");
    button->setEnabled(false);
    QTest::mouseClick(button, Qt::LeftButton);
    QTest::mouseDClick(button, Qt::LeftButton);
    QVERIFY(m_user->messages().isEmpty());
    QVERIFY(!m_card->hasIndex());
}

void TestIndexDialogRun::updateKeepsTheIdsAndRebuildDoesNot()
{
    start();
    QCOMPARE(m_card->indexedIds(), QList<quint32>({0, 1}));
    QVERIFY(QFile::remove(m_card->path(QStringLiteral("pop/a.mid"))));
    start();
    QCOMPARE(m_card->indexedPaths(), QStringList(QStringLiteral("/pop/b.mid")));
    QCOMPARE(m_card->indexedIds(), QList<quint32>({1}));

    QTest::mouseClick(child<QRadioButton>("radioButtonRebuild"), Qt::LeftButton, {}, QPoint(8, 8));
    QVERIFY(child<QRadioButton>("radioButtonRebuild")->isChecked());
    start();
    QCOMPARE(m_card->indexedPaths(), QStringList(QStringLiteral("/pop/b.mid")));
    QCOMPARE(m_card->indexedIds(), QList<quint32>({0}));
    QCOMPARE(m_user->messages(), QStringList({successText, successText, successText}));
}

void TestIndexDialogRun::finishedRunShowsCountProgressAndReport()
{
    start();
    QCOMPARE(text("labelFileFound"), QStringLiteral("2"));
    QCOMPARE(child<QProgressBar>("progressBar")->maximum(), 100);
    QCOMPARE(child<QProgressBar>("progressBar")->value(), 100);
    QCOMPARE(text("labelCurrPath"), QString());
    QCOMPARE(report(), reportFrame.arg(QString()));
    QVERIFY(child<QPushButton>("pushButtonStart")->isEnabled());
    QVERIFY(child<QPushButton>("pushButtonClose")->isEnabled());
    QVERIFY(child<QLineEdit>("lineEditPath")->isEnabled());
}

void TestIndexDialogRun::errorsOfASuccessfulRunAreReported()
{
    // 46 characters below the root: one more than the index can hold.
    const QString deep = QStringLiteral("folder01/folder02/folder03/folder04/song1.mid");
    QCOMPARE(deep.size(), 45);
    m_card->writeOnCard(deep, MountedCard::midi("DEEP"));
    start();
    QCOMPARE(m_user->messages(), QStringList(errorsText));
    QCOMPARE(
        report(),
        reportFrame.arg(
            QStringLiteral("File non importato, path troppo lungo: %1\n").arg(m_card->path(deep))));
    QCOMPARE(m_card->indexedPaths().size(), 2);
}

void TestIndexDialogRun::errorsAreForgottenByTheNextRun()
{
    const QString deep = QStringLiteral("folder01/folder02/folder03/folder04/song1.mid");
    m_card->writeOnCard(deep, MountedCard::midi("DEEP"));
    start();
    QVERIFY(QFile::remove(m_card->path(deep)));
    start();
    QCOMPARE(m_user->messages(), QStringList({errorsText, successText}));
    QCOMPARE(report(), reportFrame.arg(QString()));
}

void TestIndexDialogRun::memoryWithoutSongsFails()
{
    QVERIFY(QDir(m_card->path(QStringLiteral("pop"))).removeRecursively());
    start();
    QCOMPARE(m_user->messages(), QStringList(failureText));
    QCOMPARE(child<QProgressBar>("progressBar")->maximum(), 100);
    QCOMPARE(child<QProgressBar>("progressBar")->value(), 0);
    QCOMPARE(report(), reportFrame.arg(QString()));
    QCOMPARE(text("labelFileFound"), QStringLiteral("0"));
}

void TestIndexDialogRun::onlyAFailedRunTakesTheBarBack()
{
    m_card->isLeftBroken();
    const auto *const bar = child<QProgressBar>("progressBar");
    start();
    QVERIFY(QDir(m_card->path(QStringLiteral("pop"))).removeRecursively());
    start(); // an update without songs tells no number of steps
    QCOMPARE(m_user->messages().last(), successText);
    QCOMPARE(bar->maximum(), 0);

    child<QRadioButton>("radioButtonRebuild")->setChecked(true);
    start();
    QCOMPARE(m_user->messages().last(), failureText);
    QCOMPARE(bar->maximum(), 100);
    QCOMPARE(bar->value(), 0);
}

void TestIndexDialogRun::onlyItsButtonsAreShutWhileItWorks()
{
    QStringList shut;
    m_user.reset();
    ModalAnswers user;
    user.add([&](QWidget *window) {
        if (qobject_cast<QMessageBox *>(window) == nullptr)
            return false;
        for (const char *const name :
             {"pushButtonStart", "pushButtonClose", "pushButtonBrowse", "comboBoxMemory",
              "lineEditPath", "radioButtonUpdate", "radioButtonRebuild", "plainTextReport"}) {
            if (!child<QWidget>(name)->isEnabled())
                shut << QString::fromLatin1(name);
        }
        return window->close();
    });
    start();
    QCOMPARE(shut,
             QStringList({QStringLiteral("pushButtonStart"), QStringLiteral("pushButtonClose"),
                          // its chooser would hold up the run for as long as it is open
                          QStringLiteral("pushButtonBrowse")}));
}

void TestIndexDialogRun::inputDuringTheRunIsForTheNextOne()
{
    // The question about a long name stands in the middle of the run.
    m_card->writeOnCard(QStringLiteral("pop/A Long Song.mid"), MountedCard::midi("LONG"));
    m_user->add([&](QWidget *window) {
        auto *const question = qobject_cast<NoCopyrightDialog *>(window);
        if (question == nullptr)
            return false;
        type(m_card->music());
        child<QRadioButton>("radioButtonRebuild")->setChecked(true);
        QTest::mouseClick(question->findChild<QPushButton *>(QStringLiteral("yesPushButton")),
                          Qt::LeftButton);
        return true;
    });
    start();
    QCOMPARE(m_user->messages(), QStringList(successText));
    QCOMPARE(m_card->indexedPaths().size(), 3);
    QVERIFY(!QFileInfo::exists(m_card->music() + QStringLiteral("/index.idx")));
}

void TestIndexDialogRun::browsingIsASlotOfTheDialog()
{
    QVERIFY(m_dialog->metaObject()->indexOfSlot("browseDir()") >= 0);
    QVERIFY(SongsListDialog::staticMetaObject.indexOfSlot("browseDir()") >= 0);
    const QString folder = m_card->path(QStringLiteral("pop"));
    m_user->pick({folder});
    QVERIFY(QMetaObject::invokeMethod(m_dialog.get(), "browseDir"));
    QCOMPARE(child<QLineEdit>("lineEditPath")->text(), folder);
}

void TestIndexDialogRun::doesNotCloseWhileItWorks()
{
    // The question about a long name stands in the middle of the run.
    m_card->writeOnCard(QStringLiteral("pop/A Long Song.mid"), MountedCard::midi("LONG"));
    bool looked = false;
    m_user->add([&](QWidget *window) {
        auto *const question = qobject_cast<NoCopyrightDialog *>(window);
        if (question == nullptr)
            return false;
        for (const char *const button : {"pushButtonStart", "pushButtonClose", "pushButtonBrowse"})
            looked = looked || child<QPushButton>(button)->isEnabled();
        start(); // no second run, although the event filter sees the press
        QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
        m_dialog->close();
        m_dialog->reject();
        looked = !looked && m_dialog->isVisible();
        QTest::mouseClick(question->findChild<QPushButton *>(QStringLiteral("yesPushButton")),
                          Qt::LeftButton);
        return true;
    });
    start();
    QVERIFY(looked);
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(m_user->messages(), QStringList(successText));
    QCOMPARE(report(), reportFrame.arg(QString()));
    QVERIFY(m_card->indexedPaths().contains(QStringLiteral("/pop/ALongS-1.mid")));
    QVERIFY(m_dialog->close());
}

void TestIndexDialogRun::closesByItsButtonAndByEscape()
{
    QTest::mouseClick(child<QPushButton>("pushButtonClose"), Qt::LeftButton);
    QVERIFY(!m_dialog->isVisible());
    open();
    QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
    QVERIFY(!m_dialog->isVisible());
}

void TestIndexDialogRun::followsTheLanguage()
{
    const QString deep = QStringLiteral("folder01/folder02/folder03/folder04/song1.mid");
    m_card->writeOnCard(deep, MountedCard::midi("DEEP"));
    start();
    const QString message =
        QStringLiteral("File non importato, path troppo lungo: ") + m_card->path(deep);

    BracketTranslator brackets;
    QVERIFY(QCoreApplication::installTranslator(&brackets));
    QCoreApplication::sendPostedEvents();
    QCOMPARE(m_dialog->windowTitle(), QStringLiteral("<Dialog>"));
    QCOMPARE(text("labelReport"), QStringLiteral("<Report:>"));
    QCOMPARE(child<QPushButton>("pushButtonStart")->text(), QStringLiteral("<Inizia>"));
    QCOMPARE(child<QRadioButton>("radioButtonUpdate")->text(),
             QStringLiteral("<Ho inserito o eliminato alcune song, aggiorna database>"));
    // What the run has left stays: the count, and a message in the words in which it came.
    QCOMPARE(text("labelFileFound"), QStringLiteral("3"));
    QCOMPARE(report(), QStringLiteral("<Ottimizzazione memoria in corso...>\n%1\n"
                                      "<Operazione completata>")
                           .arg(message));
    QVERIFY(child<QRadioButton>("radioButtonUpdate")->isChecked());

    QVERIFY(QCoreApplication::removeTranslator(&brackets));
    QCoreApplication::sendPostedEvents();
    QCOMPARE(m_dialog->windowTitle(), QStringLiteral("Dialog"));
    QCOMPARE(report(), reportFrame.arg(message + QLatin1Char('\n')));
}

int main(int argc, char **argv)
{
    const QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(config.path()));
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication app(argc, argv);
    // Tests open and close windows one by one.
    QApplication::setQuitOnLastWindowClosed(false);
    TestIndexDialogRun test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_indexdialog_run.moc"
