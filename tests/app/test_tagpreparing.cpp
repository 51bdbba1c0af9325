// MP3 songs whose texts the player cannot show, in the main window: their rows, the button in the
// status bar, the menu entry, and the offer before one of them is edited.
#include "library/history.h"
#include "library/userhistory.h"
#include "support/apptest.h"
#include "support/mainwindowdriver.h"
#include "support/modalanswers.h"
#include "support/samplesongs.h"
#include "support/tagsofothers.h"
#include "windows/dataeditdialog.h"
#include "windows/preparetagsdialog.h"

#include <QMessageBox>
#include <QTreeWidget>

class TestTagPreparing : public AppFixture
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void rowTellsThatThePlayerCannotShowItsTexts();
    void markDoesNotChangeColourAndStatus();
    void buttonInTheStatusBarCountsTheSongsAndOpensThem();
    void menuEntryPreparesAndTheRowsFollow();
    void listWithoutSuchSongsIsSaid();
    void songIsPreparedBeforeItsFirstEdit();
    void songIsEditedAsItIsAndNotAskedAboutAgain();
    void cancellingTheOfferEditsNothing();
    void otherSongsAreEditedWithoutAQuestion();

private:
    int row(const char *name) const
    {
        return static_cast<int>(m_window->shownNames().indexOf(QString::fromLatin1(name)));
    }
    QString tip(const char *name) const
    {
        return m_window->model()->rowIndex(row(name)).data(Qt::ToolTipRole).toString();
    }
    QPushButton *button() const { return m_window->child<QPushButton>("tagsPushButton"); }

    /** Presses the button of this role in the question. */
    void answerOffer(QMessageBox::ButtonRole role)
    {
        m_user->add([this, role](QWidget *window) {
            auto *const box = qobject_cast<QMessageBox *>(window);
            if (box == nullptr)
                return false;
            ++m_questions;
            for (QAbstractButton *const candidate : box->buttons()) {
                if (box->buttonRole(candidate) == role)
                    candidate->click();
            }
            return true;
        });
    }

    /** Counts the windows for preparing and presses the button in each. */
    void inPreparing(const char *name)
    {
        m_user->add([this, name](QWidget *window) {
            if (qobject_cast<PrepareTagsDialog *>(window) == nullptr)
                return false;
            m_shown.append(window->findChild<QTreeWidget *>()->topLevelItemCount());
            window->findChild<QPushButton *>(QString::fromLatin1(name))->click();
            return true;
        });
    }

    /** Counts the edit dialogs and closes them. */
    void inEditing()
    {
        m_user->add([this](QWidget *window) {
            auto *const dialog = qobject_cast<DataEditDialog *>(window);
            if (dialog == nullptr)
                return false;
            ++m_edits;
            dialog->reject();
            return true;
        });
    }
    void edit(const char *name) const
    {
        emit m_window->table()->doubleClicked(m_window->model()->index(row(name), 2));
    }

    std::unique_ptr<SongFolder> m_folder;
    std::unique_ptr<WindowUnderTest> m_window;
    std::unique_ptr<ModalAnswers> m_user;
    QString m_czech;
    int m_questions = 0;
    int m_edits = 0;
    QList<int> m_shown;
};

void TestTagPreparing::init()
{
    AppFixture::init();
    QVERIFY(mainwindowdriver::writeCatalogue());
    m_folder = std::make_unique<SongFolder>();
    m_czech = m_folder->write(QStringLiteral("czech.mp3"),
                              tagsofothers::song(QString::fromUtf8("Čárový")));
    const QString old = m_folder->write(QStringLiteral("old.mp3"), tagsofothers::oldSong());
    m_window = std::make_unique<WindowUnderTest>();
    m_window->setSelectedFiles({m_folder->midi(QStringLiteral("a.mid"), "A"),
                                m_folder->mp3(QStringLiteral("plain.mp3"), "Plain"), m_czech, old});
    m_window->importUserLibrary();
    QCOMPARE(m_window->model()->goodRowCount(), 4);
    m_user = std::make_unique<ModalAnswers>();
    m_questions = 0;
    m_edits = 0;
    m_shown.clear();
}

void TestTagPreparing::cleanup()
{
    m_user.reset();
    m_window.reset();
    m_folder.reset();
    AppFixture::cleanup();
}

void TestTagPreparing::rowTellsThatThePlayerCannotShowItsTexts()
{
    UserSongsRelTableModel &model = *m_window->model();
    QVERIFY(tip("czech.mp3").contains(QStringLiteral("codifica")));
    QVERIFY(tip("old.mp3").contains(QStringLiteral("versione")));
    QCOMPARE(tip("plain.mp3"), QString());
    QCOMPARE(tip("a.mid"), QString());
    const QModelIndex czech = model.rowIndex(row("czech.mp3"));
    QCOMPARE(czech.data(Qt::AccessibleDescriptionRole).toString(), tip("czech.mp3"));
    // A song that could not be saved has both texts.
    model.setSaveFailure(row("czech.mp3"), SaveFailure::DiskFull);
    const QStringList lines = tip("czech.mp3").split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 2);
    QVERIFY(lines.at(0).startsWith(QStringLiteral("Non salvata")));
}

void TestTagPreparing::markDoesNotChangeColourAndStatus()
{
    UserSongsRelTableModel &model = *m_window->model();
    const auto colour = [&](const char *name) {
        return model.rowIndex(row(name))
            .siblingAtColumn(model.colIdxStatus())
            .data(Qt::BackgroundRole)
            .value<QColor>();
    };
    for (const char *name : {"czech.mp3", "plain.mp3"}) {
        QCOMPARE(model.status(row(name)), int{Database::StatusNew});
        QCOMPARE(colour(name), UserSongsRelTableModel::statusColour(0, row(name)));
    }
    // The sign makes the column wider, which is how a row shows it.
    const QTableView *const table = m_window->table();
    const int column = model.colIdxType();
    const auto width = [&](const char *name) {
        QStyleOptionViewItem option;
        option.initFrom(table);
        return table->itemDelegate()->sizeHint(option, model.index(row(name), column)).width();
    };
    QVERIFY(width("czech.mp3") > width("plain.mp3"));
}

void TestTagPreparing::buttonInTheStatusBarCountsTheSongsAndOpensThem()
{
    QTRY_VERIFY(button()->isVisible());
    QCOMPARE(button()->text(), QStringLiteral("2 tag da preparare..."));
    inPreparing("closePushButton");
    QTest::mouseClick(button(), Qt::LeftButton);
    QCOMPARE(m_shown, QList<int>{2});
    QVERIFY(m_window->model()->removeRow(row("old.mp3")));
    QTRY_COMPARE(button()->text(), QStringLiteral("1 tag da preparare..."));
    QVERIFY(m_window->model()->removeRow(row("czech.mp3")));
    QTRY_VERIFY(!button()->isVisible());
}

void TestTagPreparing::menuEntryPreparesAndTheRowsFollow()
{
    m_window->model()->setStatus(row("czech.mp3"), Database::StatusSynced);
    inPreparing("applyPushButton");
    m_window->action("actionPrepareTags")->trigger();
    QCOMPARE(m_shown, QList<int>{2});
    QCOMPARE(m_window->model()->title(row("czech.mp3")), QString::fromUtf8("Cárový"));
    QCOMPARE(m_window->model()->status(row("czech.mp3")), int{Database::StatusSynced});
    QCOMPARE(tip("czech.mp3"), QString());
    QTRY_VERIFY(!button()->isVisible());
    HistoryStore store(HistoryStore::defaultPath());
    QCOMPARE(store.open(), HistoryStore::State::Ready);
    QCOMPARE(store.jobs().size(), 1);
    QCOMPARE(store.jobs().at(0).kind, HistoryJob::Kind::Tags);
}

void TestTagPreparing::listWithoutSuchSongsIsSaid()
{
    for (const char *name : {"old.mp3", "czech.mp3"})
        QVERIFY(m_window->model()->removeRow(row(name)));
    m_user->pressInMessageBoxes(QMessageBox::Ok);
    m_window->action("actionPrepareTags")->trigger();
    QCOMPARE(m_user->messages().size(), 1);
}

void TestTagPreparing::songIsPreparedBeforeItsFirstEdit()
{
    answerOffer(QMessageBox::AcceptRole);
    inPreparing("applyPushButton");
    inEditing();
    edit("czech.mp3");
    QCOMPARE(m_questions, 1);
    QCOMPARE(m_shown, QList<int>{1});
    QCOMPARE(m_edits, 1);
    QCOMPARE(m_window->model()->title(row("czech.mp3")), QString::fromUtf8("Cárový"));
    edit("czech.mp3");
    QCOMPARE(m_questions, 1); // there is nothing to prepare any more
    QCOMPARE(m_edits, 2);
}

void TestTagPreparing::songIsEditedAsItIsAndNotAskedAboutAgain()
{
    const QByteArray before = samplesongs::readFile(m_czech);
    answerOffer(QMessageBox::DestructiveRole);
    inPreparing("applyPushButton");
    inEditing();
    edit("czech.mp3");
    edit("czech.mp3");
    QCOMPARE(m_questions, 1);
    QCOMPARE(m_edits, 2);
    QCOMPARE(m_shown, QList<int>());
    QCOMPARE(samplesongs::readFile(m_czech), before);
}

void TestTagPreparing::cancellingTheOfferEditsNothing()
{
    const QByteArray before = samplesongs::readFile(m_czech);
    answerOffer(QMessageBox::RejectRole);
    inEditing();
    edit("czech.mp3");
    QCOMPARE(m_questions, 1);
    QCOMPARE(m_edits, 0);
    // Nor does a preparation that is given up.
    m_user = std::make_unique<ModalAnswers>();
    answerOffer(QMessageBox::AcceptRole);
    inPreparing("closePushButton");
    inEditing();
    edit("czech.mp3");
    QCOMPARE(m_questions, 2);
    QCOMPARE(m_shown, QList<int>{1});
    QCOMPARE(m_edits, 0);
    QCOMPARE(samplesongs::readFile(m_czech), before);
}

void TestTagPreparing::otherSongsAreEditedWithoutAQuestion()
{
    answerOffer(QMessageBox::RejectRole);
    inEditing();
    edit("plain.mp3");
    edit("a.mid");
    QCOMPARE(m_questions, 0);
    QCOMPARE(m_edits, 2);
}

int main(int argc, char *argv[])
{
    return runAppTest<TestTagPreparing>(argc, argv);
}
#include "test_tagpreparing.moc"
