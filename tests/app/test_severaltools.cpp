// Data of many songs through the main window.
#include "library/userhistory.h"
#include "support/severalfixture.h"
#include "windows/progresswindow.h"
#include "windows/severalsongsmodel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QProgressDialog>
#include <QStackedWidget>
#include <QTreeWidget>

using namespace severalfixture;

namespace
{

SongInfo infoOf(const QString &path)
{
    MetaSong song;
    SongInfo info;
    if (song.importFile(path))
        song.getSongInfo(info);
    return info;
}

const SeveralSongsModel &modelOf(const EditSeveralDialog *dialog)
{
    return dialog->model();
}

/** The cell of the field's new value. */
QString after(const EditSeveralDialog *dialog, int row, songfields::Field field)
{
    const auto number = static_cast<int>(songfields::all().indexOf(field));
    const SeveralSongsModel &model = modelOf(dialog);
    return model.index(row, SeveralSongsModel::afterColumn(number)).data().toString();
}

/** Puts a pattern into the field of the first step, as a user types it. */
void typePattern(const EditSeveralDialog *dialog, const QString &pattern)
{
    auto *const combo = part<QComboBox>(dialog, "patternComboBox");
    combo->lineEdit()->selectAll();
    QTest::keyClicks(combo->lineEdit(), pattern);
    QTRY_VERIFY(combo->currentText() == pattern);
    QTest::qWait(0); // what was typed is shown when no more keys wait
}

} // namespace

class TestSeveralTools : public SeveralFixture
{
    Q_OBJECT

private slots:
    void init() { SeveralFixture::init(); }
    void cleanup() { SeveralFixture::cleanup(); }

    void nothingCanBeEditedInAnEmptyList();
    void shortcutOpensTheWindow();
    void oldAndNewValuesStandSideBySide();
    void nothingIsWrittenBeforeTheButton();
    void tickedSongsAreWrittenAndTheListFollows();
    void onlyRowsThatTheListShowsAreOffered();
    void stepsAreAddedMovedAndRemoved();
    void eachKindOfStepWorks();
    void badStepIsNamedAndNothingCanBeApplied();
    void songsThatDoNotFitAreListed();
    void spaceTicksTheSelectedSongs();
    void songThatCannotBeSavedIsNamedAndMarked();
    void stoppingLeavesTheOtherSongs();
    void historyTakesTheEditBack();
    void thousandsOfSongsAreShownWhileTyping();
};

void TestSeveralTools::nothingCanBeEditedInAnEmptyList()
{
    const WindowUnderTest empty;
    QVERIFY(!empty.action("actionEditSeveral")->isEnabled());
    QVERIFY(!empty.action("actionRenameSeveral")->isEnabled());
    QVERIFY(m_window->action("actionEditSeveral")->isEnabled());
    QVERIFY(m_window->action("actionRenameSeveral")->isEnabled());
}

void TestSeveralTools::shortcutOpensTheWindow()
{
    bool opened = false;
    QTimer::singleShot(0, m_window.get(), [&] {
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        QTimer::singleShot(0, m_window.get(), [&] {
            auto *const dialog = QApplication::activeModalWidget();
            opened = qobject_cast<EditSeveralDialog *>(dialog) != nullptr;
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        QTest::keyClick(m_window.get(), Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
    });
    QTRY_VERIFY(opened);
}

void TestSeveralTools::oldAndNewValuesStandSideBySide()
{
    edit([&](EditSeveralDialog *dialog) {
        typePattern(dialog, QStringLiteral("%artist - %title"));
        QTRY_COMPARE(after(dialog, 0, songfields::Field::Title), QStringLiteral("Volare"));
        const SeveralSongsModel &model = modelOf(dialog);
        QCOMPARE(model.index(0, SeveralSongsModel::beforeColumn(0)).data().toString(),
                 QStringLiteral("one"));
        const QModelIndex changed = model.index(0, SeveralSongsModel::afterColumn(0));
        QVERIFY(changed.data(Qt::FontRole).value<QFont>().bold());
        QVERIFY(changed.data(Qt::BackgroundRole).isValid());
        const QModelIndex unchanged = model.index(2, SeveralSongsModel::afterColumn(0));
        QVERIFY(!unchanged.data(Qt::BackgroundRole).isValid());
        auto *const table = part<QTableView>(dialog, "songsTableView");
        QVERIFY(!table->isColumnHidden(SeveralSongsModel::afterColumn(0)));
        QVERIFY(table->isColumnHidden(SeveralSongsModel::afterColumn(2))); // no genre changes
        QVERIFY(part<QLabel>(dialog, "exampleLabel")->text().contains(QLatin1String("Volare")));
    });
}

void TestSeveralTools::nothingIsWrittenBeforeTheButton()
{
    const QByteArray before = samplesongs::readFile(m_volare);
    edit([&](EditSeveralDialog *dialog) {
        typePattern(dialog, QStringLiteral("%title - %artist"));
        QTRY_COMPARE(after(dialog, 0, songfields::Field::Title), QStringLiteral("Mina"));
        press(dialog, "cancelPushButton");
    });
    QCOMPARE(samplesongs::readFile(m_volare), before);
    QCOMPARE(m_window->model()->title(rowOf(m_volare)), QStringLiteral("one"));
}

void TestSeveralTools::tickedSongsAreWrittenAndTheListFollows()
{
    const QByteArray aida = samplesongs::readFile(m_aida);
    edit([&](EditSeveralDialog *dialog) {
        typePattern(dialog, QStringLiteral("%artist - %title"));
        QTRY_COMPARE(after(dialog, 1, songfields::Field::Title), QStringLiteral("Aida"));
        auto *const table = part<QTableView>(dialog, "songsTableView");
        QVERIFY(table->model()->setData(table->model()->index(1, 0), Qt::Unchecked,
                                        Qt::CheckStateRole));
        press(dialog, "applyPushButton");
        QVERIFY(!dialog->isVisible());
    });
    QCOMPARE(infoOf(m_volare).title, QStringLiteral("Volare"));
    QCOMPARE(infoOf(m_volare).artist, QStringLiteral("Mina"));
    QCOMPARE(samplesongs::readFile(m_aida), aida);
    QCOMPARE(m_window->model()->title(rowOf(m_volare)), QStringLiteral("Volare"));
    QCOMPARE(m_window->model()->status(rowOf(m_volare)), int{Database::StatusEdited});
    QCOMPARE(m_window->model()->status(rowOf(m_aida)), int{Database::StatusNew});
    QCOMPARE(m_window->model()->status(rowOf(m_other)), int{Database::StatusNew});
    QCOMPARE(m_answers->messages(), QStringList());
}

void TestSeveralTools::onlyRowsThatTheListShowsAreOffered()
{
    auto *const filter = m_window->child<QLineEdit>("filterLineEdit");
    filter->setText(QStringLiteral("Aida"));
    QTRY_VERIFY(m_window->table()->isRowHidden(rowOf(m_volare)));
    edit([&](EditSeveralDialog *dialog) {
        QCOMPARE(modelOf(dialog).rowCount(), 1);
        QCOMPARE(modelOf(dialog).index(0, 0).data().toString(), QStringLiteral("Verdi - Aida.mp3"));
    });
    rename([&](RenameSeveralDialog *dialog) {
        QCOMPARE(part<QTreeWidget>(dialog, "songsTreeWidget")->topLevelItemCount(), 1);
    });
}

void TestSeveralTools::stepsAreAddedMovedAndRemoved()
{
    edit([&](EditSeveralDialog *dialog) {
        auto *const steps = part<QListWidget>(dialog, "stepsListWidget");
        const QList<QAction *> kinds =
            part<QPushButton>(dialog, "addPushButton")->menu()->actions();
        QCOMPARE(kinds.size(), EditStepForm::kinds);
        kinds.at(static_cast<int>(EditStepForm::Kind::LetterCase))->trigger();
        QCOMPARE(steps->count(), 2);
        auto *const forms = part<QStackedWidget>(dialog, "formsStackedWidget");
        part<QComboBox>(forms->currentWidget(), "kindComboBox")->setCurrentIndex(1);
        QTRY_COMPARE(after(dialog, 0, songfields::Field::Title), QStringLiteral("VOLARE"));
        QTest::mouseClick(part<QToolButton>(dialog, "upToolButton"), Qt::LeftButton);
        QCOMPARE(steps->currentRow(), 0);
        QTRY_COMPARE(after(dialog, 0, songfields::Field::Title), QStringLiteral("Volare"));
        QCOMPARE(after(dialog, 2, songfields::Field::Title), QStringLiteral("THREE"));
        press(dialog, "removePushButton");
        QTRY_COMPARE(after(dialog, 2, songfields::Field::Title), QStringLiteral("three"));
        press(dialog, "removePushButton");
        QTRY_COMPARE(after(dialog, 0, songfields::Field::Title), QStringLiteral("one"));
        QVERIFY(!part<QPushButton>(dialog, "applyPushButton")->isEnabled());
        QVERIFY(!part<QPushButton>(dialog, "removePushButton")->isEnabled());
    });
}

void TestSeveralTools::eachKindOfStepWorks()
{
    const QString list =
        m_songs->write(QStringLiteral("list.csv"), "file;genre\nother.mid;Listed\n");
    edit([&](EditSeveralDialog *dialog) {
        auto *const steps = part<QListWidget>(dialog, "stepsListWidget");
        auto *const forms = part<QStackedWidget>(dialog, "formsStackedWidget");
        const auto only = [&](EditStepForm::Kind kind) {
            while (steps->count() > 0)
                press(dialog, "removePushButton");
            dialog->addStep(kind);
            return qobject_cast<EditStepForm *>(forms->currentWidget());
        };
        EditStepForm *form = only(EditStepForm::Kind::Value);
        part<QComboBox>(form, "fieldComboBox")->setCurrentIndex(6); // the key
        QVERIFY(part<QComboBox>(form, "valueComboBox")->count() > 20);
        part<QComboBox>(form, "valueComboBox")->setEditText(QStringLiteral("Bb"));
        QTRY_COMPARE(after(dialog, 1, songfields::Field::Key), QStringLiteral("Bb"));

        form = only(EditStepForm::Kind::Replace);
        QTest::keyClicks(part<QLineEdit>(form, "fromLineEdit"), QStringLiteral("^(.)(.*)$"));
        QTest::keyClicks(part<QLineEdit>(form, "toLineEdit"), QStringLiteral("\\2\\1"));
        QTest::mouseClick(part<QCheckBox>(form, "regexCheckBox"), Qt::LeftButton, Qt::NoModifier,
                          QPoint(5, 5));
        QTRY_COMPARE(after(dialog, 0, songfields::Field::Title), QStringLiteral("neo"));

        form = only(EditStepForm::Kind::Swap);
        QTRY_COMPARE(after(dialog, 0, songfields::Field::Artist), QStringLiteral("one"));

        form = only(EditStepForm::Kind::FromList);
        QTRY_VERIFY(!part<QPushButton>(dialog, "applyPushButton")->isEnabled());
        form->setList(list);
        QTRY_COMPARE(after(dialog, 2, songfields::Field::Genre), QStringLiteral("Listed"));
        press(dialog, "applyPushButton");
    });
    QCOMPARE(infoOf(m_other).genre, QStringLiteral("Listed"));
}

void TestSeveralTools::badStepIsNamedAndNothingCanBeApplied()
{
    edit([&](EditSeveralDialog *dialog) {
        typePattern(dialog, QStringLiteral("%nothing"));
        QTRY_VERIFY(
            part<QLabel>(dialog, "summaryLabel")->text().contains(QLatin1String("%nothing")));
        QVERIFY(!part<QPushButton>(dialog, "applyPushButton")->isEnabled());
        QCOMPARE(after(dialog, 0, songfields::Field::Title), QStringLiteral("one"));
    });
}

void TestSeveralTools::songsThatDoNotFitAreListed()
{
    edit([&](EditSeveralDialog *dialog) {
        typePattern(dialog, QStringLiteral("%artist - %title"));
        auto *const shown = part<QComboBox>(dialog, "shownComboBox");
        QTRY_COMPARE(modelOf(dialog).preview().unfit(), 1);
        shown->setCurrentIndex(static_cast<int>(SeveralSongsModel::Shown::Unfit));
        QCOMPARE(modelOf(dialog).rowCount(), 1);
        QCOMPARE(modelOf(dialog).index(0, 0).data().toString(), QStringLiteral("other.mid"));
        QVERIFY(
            !modelOf(dialog).index(0, SeveralSongsModel::noteColumn()).data().toString().isEmpty());
        shown->setCurrentIndex(static_cast<int>(SeveralSongsModel::Shown::Changed));
        QCOMPARE(modelOf(dialog).rowCount(), 2);
    });
}

void TestSeveralTools::spaceTicksTheSelectedSongs()
{
    edit([&](EditSeveralDialog *dialog) {
        typePattern(dialog, QStringLiteral("%artist - %title"));
        QTRY_COMPARE(modelOf(dialog).chosenCount(), 2);
        auto *const table = part<QTableView>(dialog, "songsTableView");
        dialog->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(dialog));
        table->setFocus();
        table->selectAll();
        QTest::keyClick(table, Qt::Key_Space);
        QTRY_COMPARE(modelOf(dialog).chosenCount(), 0);
        QVERIFY(!part<QPushButton>(dialog, "applyPushButton")->isEnabled());
        press(dialog, "allPushButton");
        QCOMPARE(modelOf(dialog).chosenCount(), 2);
        press(dialog, "nonePushButton");
        QCOMPARE(modelOf(dialog).chosenCount(), 0);
    });
}

void TestSeveralTools::songThatCannotBeSavedIsNamedAndMarked()
{
    const QByteArray other = songbytes::midiFile({songbytes::track(songbytes::notes())});
    edit([&](EditSeveralDialog *dialog) {
        typePattern(dialog, QStringLiteral("%artist - %title"));
        QTRY_COMPARE(modelOf(dialog).chosenCount(), 2);
        QVERIFY(samplesongs::writeFile(m_volare, other));
        press(dialog, "applyPushButton");
    });
    QCOMPARE(m_answers->messages().size(), 1);
    QCOMPARE(samplesongs::readFile(m_volare), other);
    QCOMPARE(infoOf(m_aida).title, QStringLiteral("Aida"));
    QVERIFY(m_window->model()->saveFailure(rowOf(m_volare)) != SaveFailure::None);
    QCOMPARE(m_window->model()->title(rowOf(m_volare)), QString());
    QCOMPARE(m_window->model()->saveFailure(rowOf(m_aida)), SaveFailure::None);
}

void TestSeveralTools::stoppingLeavesTheOtherSongs()
{
    QStringList paths;
    for (int i = 0; i < 60; ++i)
        paths << m_songs->midi(QStringLiteral("A - %1.mid").arg(i), "old");
    m_window->setSelectedFiles(paths);
    m_window->importUserLibrary();
    m_answers->add([&](QWidget *window) {
        auto *const progress = qobject_cast<QProgressDialog *>(window);
        if (progress == nullptr)
            return false;
        progress->cancel();
        return true;
    });
    edit([&](EditSeveralDialog *dialog) {
        typePattern(dialog, QStringLiteral("%artist - %title"));
        QTRY_COMPARE(modelOf(dialog).chosenCount(), 60);
        press(dialog, "applyPushButton");
    });
    int written = 0;
    for (const QString &path : std::as_const(paths)) {
        const SongInfo info = infoOf(path);
        const bool isNew = info.artist == QLatin1String("A");
        QVERIFY(isNew || info.title == QLatin1String("old"));
        written += isNew ? 1 : 0;
        QCOMPARE(m_window->model()->title(rowOf(path)), info.title);
    }
    QVERIFY2(written < 60, "the work was not stopped");
}

void TestSeveralTools::historyTakesTheEditBack()
{
    const QByteArray volare = samplesongs::readFile(m_volare);
    const QByteArray aida = samplesongs::readFile(m_aida);
    edit([&](EditSeveralDialog *dialog) {
        typePattern(dialog, QStringLiteral("%artist - %title"));
        QTRY_COMPARE(modelOf(dialog).chosenCount(), 2);
        press(dialog, "applyPushButton");
    });
    QVERIFY(samplesongs::readFile(m_volare) != volare);
    takeLastBack();
    QCOMPARE(samplesongs::readFile(m_volare), volare);
    QCOMPARE(samplesongs::readFile(m_aida), aida);
    QCOMPARE(m_window->model()->title(rowOf(m_volare)), QStringLiteral("one"));
}

void TestSeveralTools::thousandsOfSongsAreShownWhileTyping()
{
    constexpr int count = 3000;
    for (int i = 0; i < count; ++i) {
        SongInfo info;
        info.fileName = QStringLiteral("/music/Artist %1 - Title %2.mid").arg(i % 50).arg(i);
        info.shortName = info.fileName.section(QLatin1Char('/'), -1);
        info.format = QStringLiteral("MIDI");
        QVERIFY(m_window->model()->addSong(info));
    }
    edit([&](EditSeveralDialog *dialog) {
        typePattern(dialog, QStringLiteral("%artist - %title"));
        QTRY_COMPARE(modelOf(dialog).preview().changed(), count + 2);
        QCOMPARE(after(dialog, count + 2, songfields::Field::Title), QStringLiteral("Title 2999"));
    });
}

int main(int argc, char *argv[])
{
    return runAppTest<TestSeveralTools>(argc, argv);
}
#include "test_severaltools.moc"
