// The dialog that prepares or repairs a memory, driven by mouse and keyboard on real folders.
#include "devindex/brackettranslator.h"
#include "devindex/mountedcard.h"
#include "library/settings.h"
#include "support/logcapture.h"
#include "support/userdriver.h"
#include "windows/indexdialog.h"
#include "windows/nocopyrightdialog.h"
#include "windows/songslistdialog.h"

#include <QCheckBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QSettings>
#include <QTest>

#include <memory>

namespace
{

const QString missingText = QStringLiteral("Ottimizza memoria: Il percorso selezionato non esiste");
const QString noFolderText =
    QStringLiteral("Ottimizza memoria: Il percorso selezionato non è una cartella");
const QString successText = QStringLiteral("Ottimizza memoria: Operazione completata con successo");
const QString errorsText =
    QStringLiteral("Ottimizza memoria: Durante l'operazione si sono verificati alcuni errori.\n"
                   "Consultare il report per maggiori informazioni.");
const QString failureText =
    QStringLiteral("Ottimizza memoria: Operazione non riuscita.\nAssicurarsi che il disco abbia "
                   "sufficiente spazio libero e che non sia protetto da scrittura.");
const QString reportFrame = QStringLiteral("Ottimizzazione memoria in corso...\n"
                                           "%1Operazione completata");

} // namespace

class TestIndexDialog : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void opensReadyForAnUpdate();
    void opensWithTheFolderOfLastTime();
    void showsTheTextsOfTheForm();
    void everySlotHasItsWidget();
    void nothingIsCutOff();
    void browsingKeepsTheFolder();
    void browsingStartsInHome();
    void cancelledBrowsingChangesNothing();
    void browsingIsASlotOfTheDialog();

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

    void keyboardStartsOnTheWholeMemory_data();
    void keyboardStartsOnTheWholeMemory();
    void shiftCountsOnTheKeyboardToo();
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

private:
    template <typename Widget>
    Widget *child(const char *name) const
    {
        auto *const found = m_dialog->findChild<Widget *>(QString::fromLatin1(name));
        if (found == nullptr)
            qFatal("The dialog has no %s", name);
        return found;
    }
    QString text(const char *label) const { return child<QLabel>(label)->text(); }
    QString report() const { return child<QPlainTextEdit>("plainTextReport")->toPlainText(); }
    void type(const QString &path) { child<QLineEdit>("lineEditPath")->setText(path); }
    void start(Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void open();

    std::unique_ptr<MountedCard> m_card;
    std::unique_ptr<IndexDialog> m_dialog;
    std::unique_ptr<UserDriver> m_user;
};

/** Every test starts with the dialog open, a card with two songs in its field. */
void TestIndexDialog::init()
{
    QSettings(settings::organisation, settings::application).clear();
    m_card = std::make_unique<MountedCard>();
    m_card->writeOnCard(QStringLiteral("pop/a.mid"), MountedCard::midi("A"));
    m_card->writeOnCard(QStringLiteral("pop/b.mid"), MountedCard::midi("B"));
    m_user = std::make_unique<UserDriver>();
    m_user->pressInMessageBoxes(QMessageBox::Ok);
    open();
    type(m_card->root());
}

void TestIndexDialog::cleanup()
{
    m_dialog.reset();
    m_user.reset();
    m_card.reset();
}

void TestIndexDialog::open()
{
    m_dialog = std::make_unique<IndexDialog>();
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_dialog.get()));
}

void TestIndexDialog::start(Qt::KeyboardModifiers modifiers)
{
    QTest::mouseClick(child<QPushButton>("pushButtonStart"), Qt::LeftButton, modifiers);
}

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

void TestIndexDialog::keyboardStartsOnTheWholeMemory_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::newRow("space") << int(Qt::Key_Space) << int(Qt::NoModifier);
    QTest::newRow("return") << int(Qt::Key_Return) << int(Qt::NoModifier);
    QTest::newRow("enter") << int(Qt::Key_Enter) << int(Qt::KeypadModifier);
}

void TestIndexDialog::keyboardStartsOnTheWholeMemory()
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

void TestIndexDialog::releaseStartsNothing()
{
    QTest::mouseRelease(child<QPushButton>("pushButtonStart"), Qt::LeftButton);
    QVERIFY(m_user->messages().isEmpty());
    QVERIFY(!m_card->hasIndex());
}

void TestIndexDialog::disabledButtonStartsNothing()
{
    auto *const button = child<QPushButton>("pushButtonStart");
    button->setEnabled(false);
    QTest::mouseClick(button, Qt::LeftButton);
    QTest::mouseDClick(button, Qt::LeftButton);
    QVERIFY(m_user->messages().isEmpty());
    QVERIFY(!m_card->hasIndex());
}

void TestIndexDialog::updateKeepsTheIdsAndRebuildDoesNot()
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

void TestIndexDialog::finishedRunShowsCountProgressAndReport()
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

void TestIndexDialog::errorsOfASuccessfulRunAreReported()
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

void TestIndexDialog::errorsAreForgottenByTheNextRun()
{
    const QString deep = QStringLiteral("folder01/folder02/folder03/folder04/song1.mid");
    m_card->writeOnCard(deep, MountedCard::midi("DEEP"));
    start();
    QVERIFY(QFile::remove(m_card->path(deep)));
    start();
    QCOMPARE(m_user->messages(), QStringList({errorsText, successText}));
    QCOMPARE(report(), reportFrame.arg(QString()));
}

void TestIndexDialog::memoryWithoutSongsFails()
{
    QVERIFY(QDir(m_card->path(QStringLiteral("pop"))).removeRecursively());
    start();
    QCOMPARE(m_user->messages(), QStringList(failureText));
    QCOMPARE(child<QProgressBar>("progressBar")->maximum(), 100);
    QCOMPARE(child<QProgressBar>("progressBar")->value(), 0);
    QCOMPARE(report(), reportFrame.arg(QString()));
    QCOMPARE(text("labelFileFound"), QStringLiteral("0"));
}

void TestIndexDialog::onlyAFailedRunTakesTheBarBack()
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

void TestIndexDialog::onlyItsButtonsAreShutWhileItWorks()
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

void TestIndexDialog::inputDuringTheRunIsForTheNextOne()
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

void TestIndexDialog::browsingIsASlotOfTheDialog()
{
    QVERIFY(m_dialog->metaObject()->indexOfSlot("browseDir()") >= 0);
    QVERIFY(SongsListDialog::staticMetaObject.indexOfSlot("browseDir()") >= 0);
    const QString folder = m_card->path(QStringLiteral("pop"));
    m_user->pick({folder});
    QVERIFY(QMetaObject::invokeMethod(m_dialog.get(), "browseDir"));
    QCOMPARE(child<QLineEdit>("lineEditPath")->text(), folder);
}

void TestIndexDialog::doesNotCloseWhileItWorks()
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

void TestIndexDialog::closesByItsButtonAndByEscape()
{
    QTest::mouseClick(child<QPushButton>("pushButtonClose"), Qt::LeftButton);
    QVERIFY(!m_dialog->isVisible());
    open();
    QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
    QVERIFY(!m_dialog->isVisible());
}

void TestIndexDialog::followsTheLanguage()
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
    TestIndexDialog test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_indexdialog.moc"
