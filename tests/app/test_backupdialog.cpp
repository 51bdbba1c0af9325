// The dialog that offers a backup.
#include "library/librarybackup.h"
#include "support/apptest.h"
#include "support/backupdriver.h"
#include "support/germantexts.h"
#include "support/songfolder.h"
#include "support/userdriver.h"
#include "windows/backupdialog.h"

#include <QLabel>
#include <QTest>

using namespace backupdriver;

namespace
{

QLineEdit *directoryEdit(const QDialog &dialog)
{
    return dialog.findChild<QLineEdit *>(QStringLiteral("directoryLineEdit"));
}

} // namespace

class TestBackupDialog : public AppFixture
{
    Q_OBJECT

private slots:
    void init() { AppFixture::init(); }
    void cleanup() { AppFixture::cleanup(); }

    void dialogRecommendsABackup();
    void dialogStartsWithoutAFolder();
    void chosenFolderIsShownAndEnablesTheBackup();
    void cancelledChooserChangesNothing();
    void typingDoesNotChooseAFolder();
    void buttonsGiveTheChoices_data();
    void buttonsGiveTheChoices();
    void closingAndEscapeCancel();
    void dialogFollowsALanguageChange();
};

void TestBackupDialog::dialogRecommendsABackup()
{
    const BackupDialog dialog;
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Backup"));
    QCOMPARE(
        dialog.findChild<QLabel *>(QStringLiteral("backupLabel"))->text(),
        QStringLiteral("Si consiglia di effettuare un backup della libreria prima di procedere "
                       "con l'aggiornamento.\nSelezionare una cartella di destinazione per il "
                       "backup oppure premere 'Prosegui senza backup'."));
    QCOMPARE(button(dialog, "browsePushButton")->text(), QStringLiteral("Sfoglia..."));
    QCOMPARE(button(dialog, "abortPushButton")->text(), QStringLiteral("Annulla"));
    QCOMPARE(button(dialog, "exitPushButton")->text(), QStringLiteral("Prosegui senza backup"));
    QCOMPARE(button(dialog, "doBackupPushButton")->text(), QStringLiteral("Esegui backup"));
}

void TestBackupDialog::dialogStartsWithoutAFolder()
{
    const BackupDialog dialog;
    QVERIFY(dialog.directory().isEmpty());
    QVERIFY(directoryEdit(dialog)->text().isEmpty());
    QVERIFY(!button(dialog, "doBackupPushButton")->isEnabled());
}

void TestBackupDialog::chosenFolderIsShownAndEnablesTheBackup()
{
    BackupDialog dialog;
    dialog.show();
    UserDriver user;
    user.pick({m_work->path()});
    QTest::mouseClick(button(dialog, "browsePushButton"), Qt::LeftButton);
    QVERIFY(user.allPicked());
    QCOMPARE(dialog.directory(), m_work->path());
    QCOMPARE(directoryEdit(dialog)->text(), m_work->path());
    QVERIFY(button(dialog, "doBackupPushButton")->isEnabled());
}

void TestBackupDialog::cancelledChooserChangesNothing()
{
    BackupDialog dialog;
    dialog.show();
    QString caption;
    QString start;
    ModalAnswers user;
    user.add([&](QWidget *window) {
        auto *const chooser = qobject_cast<QFileDialog *>(window);
        if (chooser == nullptr)
            return false;
        caption = chooser->windowTitle();
        start = chooser->directory().path();
        chooser->reject();
        return true;
    });
    QTest::mouseClick(button(dialog, "browsePushButton"), Qt::LeftButton);
    QCOMPARE(caption, QStringLiteral("Scegli cartella"));
    QCOMPARE(start, QStringLiteral("/home"));
    QVERIFY(dialog.directory().isEmpty());
    QVERIFY(directoryEdit(dialog)->text().isEmpty());
    QVERIFY(!button(dialog, "doBackupPushButton")->isEnabled());
}

void TestBackupDialog::typingDoesNotChooseAFolder()
{
    BackupDialog dialog;
    dialog.show();
    QTest::keyClicks(directoryEdit(dialog), m_work->path());
    QVERIFY(dialog.directory().isEmpty());
    QVERIFY(!button(dialog, "doBackupPushButton")->isEnabled());
}

void TestBackupDialog::buttonsGiveTheChoices_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("result");
    QTest::addColumn<LibraryBackup::Wish>("wish");
    QTest::newRow("cancel") << QByteArray("abortPushButton") << 0 << LibraryBackup::Wish::Cancel;
    QTest::newRow("backup") << QByteArray("doBackupPushButton") << 1 << LibraryBackup::Wish::Backup;
    QTest::newRow("no backup") << QByteArray("exitPushButton") << 2
                               << LibraryBackup::Wish::NoBackup;
}

void TestBackupDialog::buttonsGiveTheChoices()
{
    QFETCH(QByteArray, name);
    QFETCH(int, result);
    BackupDialog dialog;
    button(dialog, "doBackupPushButton")->setEnabled(true);
    QTimer::singleShot(
        0, &dialog, [&] { QTest::mouseClick(button(dialog, name.constData()), Qt::LeftButton); });
    QCOMPARE(dialog.exec(), result);
    QTEST(dialog.wish(), "wish");
}

void TestBackupDialog::closingAndEscapeCancel()
{
    BackupDialog closed;
    QTimer::singleShot(0, &closed, [&] { closed.close(); });
    QCOMPARE(closed.exec(), 0);

    BackupDialog escaped;
    QTimer::singleShot(0, &escaped, [&] { QTest::keyClick(&escaped, Qt::Key_Escape); });
    QCOMPARE(escaped.exec(), 0);
}

void TestBackupDialog::dialogFollowsALanguageChange()
{
    BackupDialog dialog;
    dialog.show();
    UserDriver user;
    user.pick({m_work->path()});
    QTest::mouseClick(button(dialog, "browsePushButton"), Qt::LeftButton);
    const GermanTexts german;
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Sicherung"));
    QVERIFY(dialog.findChild<QLabel *>(QStringLiteral("backupLabel"))
                ->text()
                .startsWith(QStringLiteral("Wir empfehlen")));
    QCOMPARE(directoryEdit(dialog)->text(), m_work->path());
    QVERIFY(button(dialog, "doBackupPushButton")->isEnabled());
}

int main(int argc, char *argv[])
{
    return runAppTest<TestBackupDialog>(argc, argv);
}

#include "test_backupdialog.moc"
