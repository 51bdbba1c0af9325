// The user's own songs through the real main window: synchronisation, editing, change of language.
#include "library/database.h"
#include "support/wholejob.h"
#include "windows/backupdialog.h"
#include "windows/dataeditdialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QSettings>

namespace
{

// The columns of the library table.
constexpr int columnTitle = 2;
constexpr int columnArtist = 3;
constexpr int columnShortName = 10;
constexpr int columnStatus = 11;

} // namespace

class TestEndToEndLibrary : public WholeJob
{
    Q_OBJECT

private slots:
    void initTestCase() { start(); }
    void synchronisesWithABackup();
    void editsOneSongAndGivesItsArtistToAll();
    void switchesToEnglishAndBack();

private:
    QString cell(int row, int column) const;
    int rowOf(const QString &shortName) const;
};

QString TestEndToEndLibrary::cell(int row, int column) const
{
    return child<QTableView>(m_window.get(), "userLibraryTableView")
        ->model()
        ->index(row, column)
        .data()
        .toString();
}

int TestEndToEndLibrary::rowOf(const QString &shortName) const
{
    for (int row = 0; row < rows(); ++row) {
        if (cell(row, columnShortName) == shortName)
            return row;
    }
    return -1;
}

void TestEndToEndLibrary::synchronisesWithABackup()
{
    import(m_songs);
    const QString backups = path("backups");
    QVERIFY(QDir().mkpath(backups));
    QList<QByteArray> before;
    for (const QString &song : std::as_const(m_songs))
        before << samplesongs::readFile(song);

    UserDriver user;
    user.add([&](QWidget *window) {
        if (qobject_cast<BackupDialog *>(window) == nullptr)
            return false;
        auto *const start = child<QPushButton>(window, "doBackupPushButton");
        if (start->isEnabled()) {
            clickLater(start);
        } else if (nextStep(window) == 0) {
            user.pick({backups});
            clickLater(child<QPushButton>(window, "browsePushButton"));
        }
        return true;
    });
    user.pressInMessageBoxes(QMessageBox::Ok);
    clickWhenEnabled(QStringLiteral("updateDataToolButton"));

    QCOMPARE(user.messages(), QStringList{QStringLiteral("Backup: Backup eseguito correttamente")});
    const QStringList made = QDir(backups).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    QCOMPARE(made.size(), 1);
    QVERIFY(made[0].startsWith(QStringLiteral("backup_kravo_")));
    for (int i = 0; i < m_songs.size(); ++i) {
        const QString copy = backups + QLatin1Char('/') + made[0] + QLatin1Char('/') +
                             QFileInfo(m_songs[i]).fileName();
        QCOMPARE(samplesongs::readFile(copy), before[i]);
    }
    // The catalogue knows the carol by its title, and nothing of the game music.
    const int known = rowOf(QStringLiteral("ABC3.mid"));
    const int unknown = rowOf(QStringLiteral("SONG00.MID"));
    QVERIFY(known >= 0 && unknown >= 0);
    QCOMPARE(cell(known, columnStatus).toInt(), int(Database::StatusSynced));
    QCOMPARE(cell(known, columnTitle), QStringLiteral("GREENSLEEVES"));
    QVERIFY(samplesongs::readFile(m_songs[37]).contains("GREENSLEEVES"));
    QCOMPARE(cell(unknown, columnStatus).toInt(), int(Database::StatusNotSynced));
    QCOMPARE(samplesongs::readFile(m_songs[0]), before[0]);
    QVERIFY(!child<QToolButton>(m_window.get(), "updateDataToolButton")->isEnabled());
}

void TestEndToEndLibrary::editsOneSongAndGivesItsArtistToAll()
{
    UserDriver user;
    user.add([](QWidget *window) {
        if (qobject_cast<DataEditDialog *>(window) == nullptr)
            return false;
        switch (nextStep(window)) {
        case 0:
            child<QLineEdit>(window, "titleLineEdit")->setText(QStringLiteral("Perché no"));
            child<QComboBox>(window, "artistComboBox")->setEditText(QStringLiteral("Gli Amici"));
            clickLater(child<QCheckBox>(window, "checkBoxToAllArtist"));
            break;
        case 1:
            clickLater(child<QPushButton>(window, "savePushButton"));
            break;
        }
        return true;
    });
    user.pressInMessageBoxes(QMessageBox::Yes);
    auto *const view = child<QTableView>(m_window.get(), "userLibraryTableView");
    emit view->doubleClicked(view->model()->index(5, columnTitle));

    QCOMPARE(user.messages().size(), 1);
    QVERIFY(user.messages()[0].startsWith(QStringLiteral("ATTENZIONE: L'interprete inserito")));
    QCOMPARE(cell(5, columnTitle), QStringLiteral("Perché no"));
    for (int row = 0; row < rows(); ++row) {
        QCOMPARE(cell(row, columnArtist), QStringLiteral("Gli Amici"));
        QCOMPARE(cell(row, columnStatus).toInt(), int(Database::StatusEdited));
    }
    QVERIFY(cell(6, columnTitle) != QStringLiteral("Perché no"));
    for (const QString &song : std::as_const(m_songs)) {
        if (!song.contains(QStringLiteral(".mf"), Qt::CaseInsensitive))
            QVERIFY2(samplesongs::readFile(song).contains("Gli Amici"), qPrintable(song));
    }
}

void TestEndToEndLibrary::switchesToEnglishAndBack()
{
    const auto *view = child<QTableView>(m_window.get(), "userLibraryTableView");
    const auto heading = [view] {
        return view->model()->headerData(columnTitle, Qt::Horizontal).toString();
    };
    trigger("actionEnglish");
    QTRY_COMPARE(heading(), QStringLiteral("Title"));
    QCOMPARE(m_window->windowTitle(), QStringLiteral("RB27 Utility"));
    trigger("actionGerman");
    QTRY_COMPARE(heading(), QStringLiteral("Titel"));
    const QSettings settings(QStringLiteral("kavena_pc"), QStringLiteral("kravo"));
    QCOMPARE(settings.value(QStringLiteral("language")).toString(), QStringLiteral("de"));
}

int main(int argc, char **argv)
{
    qputenv("LC_ALL", "C.UTF-8");
    return runAppTest<TestEndToEndLibrary>(argc, argv);
}

#include "test_endtoend_library.moc"
