// Names of the files of many songs through the main window.
#include "library/userhistory.h"
#include "support/severalfixture.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>

using namespace severalfixture;

class TestSeveralToolsRename : public SeveralFixture
{
    Q_OBJECT

private slots:
    void init() { SeveralFixture::init(); }
    void cleanup() { SeveralFixture::cleanup(); }

    void filesAreRenamedAndTheListAndTheSelectionFollow();
    void listFollowsNamesThatAreTakenBack();
    void listFollowsNamesThatAnEarlierRunGave();
    void tickedFilesAloneAreRenamed();
    void nameThatWasTakenSinceIsTold();
};

void TestSeveralToolsRename::filesAreRenamedAndTheListAndTheSelectionFollow()
{
    m_songs->write(QStringLiteral("Verdi - Aida.cdg"), "pictures");
    rename([&](RenameSeveralDialog *dialog) {
        auto *const combo = part<QComboBox>(dialog, "patternComboBox");
        combo->lineEdit()->selectAll();
        QTest::keyClicks(combo->lineEdit(), QStringLiteral("%title"));
        auto *const tree = part<QTreeWidget>(dialog, "songsTreeWidget");
        QTRY_COMPARE(tree->topLevelItem(0)->text(1), QStringLiteral("one.mid"));
        QCOMPARE(tree->topLevelItem(1)->text(1), QStringLiteral("two.mp3"));
        QVERIFY(QFile::exists(m_volare));
        press(dialog, "applyPushButton");
        QVERIFY(!dialog->isVisible());
    });
    const QString renamed = m_songs->filePath(QStringLiteral("one.mid"));
    QVERIFY(QFile::exists(renamed));
    QVERIFY(!QFile::exists(m_volare));
    QVERIFY(QFile::exists(m_songs->filePath(QStringLiteral("two.cdg"))));
    const int row = rowOf(renamed);
    QVERIFY(row >= 0);
    QCOMPARE(m_window->model()->shortName(row), QStringLiteral("one.mid"));
    // The next import reads the selected files.
    m_window->importUserLibrary();
    QCOMPARE(m_window->model()->goodRowCount(), 3);
    QVERIFY(rowOf(renamed) >= 0);
}

void TestSeveralToolsRename::listFollowsNamesThatAreTakenBack()
{
    rename([&](RenameSeveralDialog *dialog) {
        part<QComboBox>(dialog, "patternComboBox")->setEditText(QStringLiteral("%title"));
        auto *const tree = part<QTreeWidget>(dialog, "songsTreeWidget");
        QTRY_COMPARE(tree->topLevelItem(0)->text(1), QStringLiteral("one.mid"));
        press(dialog, "applyPushButton");
    });
    QVERIFY(rowOf(m_volare) < 0);
    takeLastBack();
    QVERIFY(QFile::exists(m_volare));
    QVERIFY(rowOf(m_volare) >= 0);
    m_window->importUserLibrary();
    QCOMPARE(m_window->model()->goodRowCount(), 3);
}

void TestSeveralToolsRename::listFollowsNamesThatAnEarlierRunGave()
{
    const QString renamed = m_songs->filePath(QStringLiteral("one.mid"));
    {
        UserHistory history([](const QString &) { return false; }, {});
        const auto earlier = history.recorder(HistoryJob::Kind::Rename);
        QVERIFY(earlier->keepRenamed(m_volare, renamed));
        QVERIFY(QFile::rename(m_volare, renamed));
        earlier->written(m_volare, {}, {});
    }
    m_window->setSelectedFiles({renamed, m_aida, m_other});
    m_window->importUserLibrary();
    takeLastBack();
    QVERIFY(QFile::exists(m_volare));
    QVERIFY(rowOf(renamed) < 0);
    const int row = rowOf(m_volare);
    QVERIFY(row >= 0);
    QCOMPARE(m_window->model()->shortName(row), QStringLiteral("Mina - Volare.mid"));
    m_window->importUserLibrary(); // backup and transfer follow, too
    QCOMPARE(m_window->model()->goodRowCount(), 3);
}

void TestSeveralToolsRename::tickedFilesAloneAreRenamed()
{
    rename([&](RenameSeveralDialog *dialog) {
        auto *const combo = part<QComboBox>(dialog, "patternComboBox");
        combo->setEditText(QStringLiteral("%title"));
        auto *const tree = part<QTreeWidget>(dialog, "songsTreeWidget");
        QTRY_COMPARE(tree->topLevelItem(0)->text(1), QStringLiteral("one.mid"));
        tree->topLevelItem(0)->setCheckState(0, Qt::Unchecked);
        press(dialog, "applyPushButton");
    });
    QVERIFY(QFile::exists(m_volare));
    QVERIFY(QFile::exists(m_songs->filePath(QStringLiteral("three.mid"))));
}

void TestSeveralToolsRename::nameThatWasTakenSinceIsTold()
{
    bool told = false;
    m_answers->add([&](QWidget *window) {
        auto *const list = qobject_cast<QDialog *>(window);
        if (list == nullptr || qobject_cast<RenameSeveralDialog *>(window) != nullptr ||
            qobject_cast<QProgressDialog *>(window) != nullptr)
            return false;
        told = true;
        list->accept();
        return true;
    });
    rename([&](RenameSeveralDialog *dialog) {
        auto *const combo = part<QComboBox>(dialog, "patternComboBox");
        combo->setEditText(QStringLiteral("%title"));
        auto *const tree = part<QTreeWidget>(dialog, "songsTreeWidget");
        QTRY_COMPARE(tree->topLevelItem(0)->text(1), QStringLiteral("one.mid"));
        m_songs->write(QStringLiteral("one.mid"), "somebody else's");
        press(dialog, "applyPushButton");
    });
    QVERIFY(told);
    QVERIFY(QFile::exists(m_volare));
    QCOMPARE(samplesongs::readFile(m_songs->filePath(QStringLiteral("one.mid"))),
             QByteArray("somebody else's"));
    QVERIFY(rowOf(m_volare) >= 0);
    QVERIFY(rowOf(m_other) < 0);
}

int main(int argc, char *argv[])
{
    return runAppTest<TestSeveralToolsRename>(argc, argv);
}
#include "test_severaltools_rename.moc"
