// The window that optimises a memory: how it opens, and the folder it takes.
#include "library/settings.h"
#include "support/logcapture.h"
#include "support/mountedcard.h"
#include "support/openindexdialog.h"
#include "support/userdriver.h"
#include "windows/indexdialog.h"

#include <QCheckBox>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSettings>
#include <QTest>

using namespace openindexdialog;

class TestIndexDialog : public IndexDialogFixture
{
    Q_OBJECT

private slots:
    void init() { IndexDialogFixture::init(); }
    void cleanup() { IndexDialogFixture::cleanup(); }

    void opensReadyForAnUpdate();
    void opensWithTheFolderOfLastTime();
    void showsTheTextsOfTheForm();
    void everySlotHasItsWidget();
    void nothingIsCutOff();
    void browsingKeepsTheFolder();
    void browsingStartsInHome();
    void cancelledBrowsingChangesNothing();

    void pathOutsideTheMountDirectoriesDoesNotExist_data();
    void pathOutsideTheMountDirectoriesDoesNotExist();
    void fileIsNoFolder_data();
    void fileIsNoFolder();
    void anyFolderMeansItsMemory_data();
    void anyFolderMeansItsMemory();
    void doubledSlashInFrontOfTheMemoryIsTheMemory();
    void shiftTakesTheFolderItself_data();
    void shiftTakesTheFolderItself();
    void shiftTakesAFolderOfTheComputer();
    void onlyShiftAloneTakesTheFolderItself();
    void shiftWithoutFolderDoesNotExist();

    void shiftCountsOnTheKeyboardToo();
};

void TestIndexDialog::opensReadyForAnUpdate()
{
    QVERIFY(child<QRadioButton>("radioButtonUpdate")->isChecked());
    QVERIFY(!child<QRadioButton>("radioButtonRebuild")->isChecked());
    QVERIFY(!child<QCheckBox>("checkBoxChkdsk")->isChecked());
    QVERIFY(!child<QCheckBox>("checkBoxChkdsk")->isEnabled());
    QVERIFY(child<QPushButton>("pushButtonStart")->isEnabled());
    QVERIFY(child<QPushButton>("pushButtonClose")->isEnabled());
    QVERIFY(child<QPlainTextEdit>("plainTextReport")->isReadOnly());
    QCOMPARE(report(), QString());
}

void TestIndexDialog::opensWithTheFolderOfLastTime()
{
    IndexDialog first;
    QCOMPARE(first.findChild<QLineEdit *>(QStringLiteral("lineEditPath"))->text(), QString());
    QSettings(settings::organisation, settings::application)
        .setValue(QStringLiteral("mediaroot"), m_card->root());
    IndexDialog second;
    QCOMPARE(second.findChild<QLineEdit *>(QStringLiteral("lineEditPath"))->text(), m_card->root());
}

void TestIndexDialog::showsTheTextsOfTheForm()
{
    QCOMPARE(m_dialog->windowTitle(), QStringLiteral("Dialog"));
    QCOMPARE(text("labelInfoPath"),
             QStringLiteral("Seleziona la cartella principale della Compact Flash o della Penna "
                            "USB che vuoi ottimizzare per Kavena:"));
    QCOMPARE(child<QPushButton>("pushButtonBrowse")->text(), QStringLiteral("Sfoglia"));
    QCOMPARE(text("labelInfoPath_2"), QStringLiteral("Seleziona l'azione che vuoi eseguire:"));
    QCOMPARE(child<QRadioButton>("radioButtonUpdate")->text(),
             QStringLiteral("Ho inserito o eliminato alcune song, aggiorna database"));
    QCOMPARE(child<QRadioButton>("radioButtonRebuild")->text(),
             QStringLiteral("Ho problemi con gli archivi, ricostruisci database"));
    QCOMPARE(child<QCheckBox>("checkBoxChkdsk")->text(),
             QStringLiteral("Controlla struttura memoria"));
    QCOMPARE(text("labelFileFoundDescr"), QStringLiteral("File found:"));
    QCOMPARE(text("labelReport"), QStringLiteral("Report:"));
    QCOMPARE(child<QPushButton>("pushButtonStart")->text(), QStringLiteral("Inizia"));
    QCOMPARE(child<QPushButton>("pushButtonClose")->text(), QStringLiteral("Chiudi"));
}

void TestIndexDialog::everySlotHasItsWidget()
{
    QStringList warnings;
    static QStringList *collected = nullptr;
    collected = &warnings;
    const QtMessageHandler previous =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &line) {
            if (line.contains(QLatin1String("connectSlotsByName")))
                collected->append(line);
        });
    const IndexDialog dialog;
    qInstallMessageHandler(previous);
    QCOMPARE(warnings, QStringList());
}

void TestIndexDialog::nothingIsCutOff()
{
    const QList<QWidget *> widgets = m_dialog->findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (widget->parentWidget() != m_dialog.get() || !widget->isVisible())
            continue;
        QVERIFY2(m_dialog->rect().contains(widget->geometry()), qPrintable(widget->objectName()));
        const bool squeezed = widget->width() < widget->minimumSizeHint().width() ||
                              widget->height() < widget->minimumSizeHint().height();
        const bool mayElide = widget->objectName() == QLatin1String("labelCurrPath");
        QVERIFY2(!squeezed || mayElide, qPrintable(widget->objectName()));
    }
}

void TestIndexDialog::browsingKeepsTheFolder()
{
    const QString folder = m_card->path(QStringLiteral("pop"));
    m_user->pick({folder});
    QTest::mouseClick(child<QPushButton>("pushButtonBrowse"), Qt::LeftButton);
    QVERIFY(m_user->allPicked());
    QCOMPARE(child<QLineEdit>("lineEditPath")->text(), folder);
    QCOMPARE(QSettings(settings::organisation, settings::application)
                 .value(QStringLiteral("mediaroot"))
                 .toString(),
             folder);
}

void TestIndexDialog::browsingStartsInHome()
{
    QString chooser;
    m_user.reset(); // it would cancel the chooser before anybody looks
    ModalAnswers user;
    user.add([&chooser](QWidget *window) {
        auto *const dialog = qobject_cast<QFileDialog *>(window);
        if (dialog == nullptr)
            return false;
        chooser = dialog->windowTitle() + QStringLiteral(": ") + dialog->directory().path();
        dialog->reject();
        return true;
    });
    QTest::mouseClick(child<QPushButton>("pushButtonBrowse"), Qt::LeftButton);
    QCOMPARE(chooser, QStringLiteral("Scegli cartella: /home"));
}

void TestIndexDialog::cancelledBrowsingChangesNothing()
{
    QTest::mouseClick(child<QPushButton>("pushButtonBrowse"), Qt::LeftButton);
    QCOMPARE(child<QLineEdit>("lineEditPath")->text(), m_card->root());
    QVERIFY(
        !QSettings(settings::organisation, settings::application).contains(settings::mediaRoot));
}

void TestIndexDialog::pathOutsideTheMountDirectoriesDoesNotExist_data()
{
    QTest::addColumn<QString>("path"); // %1 stands for the mount directory
    QTest::newRow("nothing chosen") << "";
    QTest::newRow("folder of the computer") << "%1/../music";
    QTest::newRow("the system disk") << "/";
    QTest::newRow("the mount directory") << "%1";
    QTest::newRow("a way out of the mount directory") << "%1/../music";
    QTest::newRow("slashes for a memory's name") << "%1//";
    QTest::newRow("a memory that was pulled") << "%1/PULLED/songs";
    QTest::newRow("a memory that was never there") << "/Volumes/NEVER/songs";
}

void TestIndexDialog::pathOutsideTheMountDirectoriesDoesNotExist()
{
    QFETCH(QString, path);
    type(path.replace(QStringLiteral("%1"), m_card->mountDirectory()));
    start();
    QCOMPARE(m_user->messages(), QStringList(missingText));
    QCOMPARE(report(), QString());
    QVERIFY(child<QPushButton>("pushButtonStart")->isEnabled());
    QVERIFY(!m_card->hasIndex());
}

void TestIndexDialog::fileIsNoFolder_data()
{
    QTest::addColumn<QString>("path"); // %1 stands for the mount directory
    QTest::addColumn<bool>("shift");
    QTest::newRow("in a memory's place") << "%1/file" << false;
    QTest::newRow("in a memory") << "%1/CARD/pop/a.mid" << true;
    QTest::newRow("on the computer") << "%1/../file" << true;
}

void TestIndexDialog::fileIsNoFolder()
{
    QFETCH(QString, path);
    QFETCH(bool, shift);
    for (const char *file : {"/file", "/../file"})
        m_card->write(m_card->mountDirectory() + QString::fromLatin1(file), "no folder");
    type(path.replace(QStringLiteral("%1"), m_card->mountDirectory()));
    start(shift ? Qt::ShiftModifier : Qt::NoModifier);
    QCOMPARE(m_user->messages(), QStringList(noFolderText));
    QCOMPARE(report(), QString());
    QVERIFY(!m_card->hasIndex());
}

void TestIndexDialog::anyFolderMeansItsMemory_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("root") << "";
    QTest::newRow("root and slash") << "/";
    QTest::newRow("deep folder") << "/music/pop";
    QTest::newRow("doubled slashes") << "//music//pop/";
    QTest::newRow("way back out") << "/../../music";
}

void TestIndexDialog::anyFolderMeansItsMemory()
{
    QFETCH(QString, folder);
    m_card->writeOnCard(QStringLiteral("music/pop/c.mid"), MountedCard::midi("C"));
    type(m_card->root() + folder);
    start();
    QCOMPARE(m_user->messages(), QStringList(successText));
    QCOMPARE(m_card->indexedPaths(),
             QStringList({QStringLiteral("/music/pop/c.mid"), QStringLiteral("/pop/a.mid"),
                          QStringLiteral("/pop/b.mid")}));
}

void TestIndexDialog::doubledSlashInFrontOfTheMemoryIsTheMemory()
{
    type(m_card->mountDirectory() + QStringLiteral("//CARD/pop"));
    start();
    QCOMPARE(m_user->messages(), QStringList(successText));
    QCOMPARE(m_card->indexedPaths(),
             QStringList({QStringLiteral("/pop/a.mid"), QStringLiteral("/pop/b.mid")}));
}

void TestIndexDialog::shiftTakesTheFolderItself_data()
{
    QTest::addColumn<QString>("end");
    QTest::newRow("plain") << "";
    QTest::newRow("slash at the end") << "/";
}

void TestIndexDialog::shiftTakesTheFolderItself()
{
    QFETCH(QString, end);
    type(m_card->path(QStringLiteral("pop")) + end);
    start(Qt::ShiftModifier);
    QCOMPARE(m_user->messages(), QStringList(successText));
    QVERIFY(!m_card->hasIndex());
    QVERIFY(QFileInfo::exists(m_card->path(QStringLiteral("pop/fsinfos.idx"))));
}

void TestIndexDialog::shiftTakesAFolderOfTheComputer()
{
    m_card->writeMusic(QStringLiteral("c.mid"), MountedCard::midi("C"));
    type(m_card->music());
    start(Qt::ShiftModifier);
    QCOMPARE(m_user->messages(), QStringList(successText));
    QVERIFY(QFileInfo::exists(m_card->music() + QStringLiteral("/index.idx")));
}

void TestIndexDialog::onlyShiftAloneTakesTheFolderItself()
{
    type(m_card->path(QStringLiteral("pop")));
    start(Qt::ShiftModifier | Qt::ControlModifier);
    QCOMPARE(m_user->messages(), QStringList(successText));
    QVERIFY(m_card->hasIndex());
    QVERIFY(!QFileInfo::exists(m_card->path(QStringLiteral("pop/index.idx"))));
}

void TestIndexDialog::shiftWithoutFolderDoesNotExist()
{
    type(QString());
    start(Qt::ShiftModifier);
    type(m_card->path(QStringLiteral("gone")));
    start(Qt::ShiftModifier);
    QCOMPARE(m_user->messages(), QStringList({missingText, missingText}));
}

void TestIndexDialog::shiftCountsOnTheKeyboardToo()
{
    type(m_card->path(QStringLiteral("pop")));
    QTest::keyClick(child<QPushButton>("pushButtonStart"), Qt::Key_Space, Qt::ShiftModifier);
    QCOMPARE(m_user->messages(), QStringList(successText));
    QVERIFY(!m_card->hasIndex());
    QVERIFY(QFileInfo::exists(m_card->path(QStringLiteral("pop/fsinfos.idx"))));
}

int main(int argc, char **argv)
{
    const QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(config.path()));
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication app(argc, argv);
    // Tests open and close windows one by one.
    QApplication::setQuitOnLastWindowClosed(false);
    TestIndexDialog test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_indexdialog.moc"
