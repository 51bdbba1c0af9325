// The window that writes the list of songs: how it opens, and what it is told.
#include "library/settings.h"
#include "support/brackettranslator.h"
#include "support/mountedcard.h"
#include "support/opensongslist.h"
#include "support/userdriver.h"

#include <QComboBox>
#include <QLabel>
#include <QSettings>
#include <QStandardPaths>
#include <QTest>

using namespace opensongslist;

class TestSongsListDialog : public SongsListFixture
{
    Q_OBJECT

private slots:
    void init() { SongsListFixture::init(); }
    void cleanup() { SongsListFixture::cleanup(); }

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
};

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
