// The memory window and the memory as a whole: duplicates, playlists, check and repair.
#include "support/openmemorywindow.h"

#include <QLineEdit>
#include <QListView>
#include <QTreeWidget>

using namespace openmemorywindow;

namespace
{

/** The texts of a tree's first column: those at the top, and behind each what hangs from it. */
QStringList lines(const QTreeWidget *tree)
{
    QStringList all;
    for (int top = 0; top < tree->topLevelItemCount(); ++top) {
        const QTreeWidgetItem *const item = tree->topLevelItem(top);
        all.append(item->text(0));
        for (int below = 0; below < item->childCount(); ++below)
            all.append(text("  ") + item->child(below)->text(0));
    }
    return all;
}

QStringList lines(const QListView *list)
{
    QStringList all;
    for (int row = 0; row < list->model()->rowCount(); ++row)
        all.append(list->model()->index(row, 0).data().toString());
    return all;
}

} // namespace

class TestMemoryWindowCare : public MemoryWindowFixture
{
    Q_OBJECT

private slots:
    void init() { MemoryWindowFixture::init(); }
    void cleanup() { MemoryWindowFixture::cleanup(); }

    void duplicatesAreUnticked();
    void tickedDuplicatesAreRemoved();
    void songInTwoGroupsHasOneTick();
    void removalOfAWholeGroupIsTold();

    void playlistsAndLostSongsAreShown();
    void lostSongsComeBack();

    void withoutAMemoryNothingIsSaidOfPlaylists();
    void whatIsNotKnownIsShownEmpty();
    void columnsFitTheirTextsAndTheTable();
    void stoppedWorkIsToldSo();
    void listedPlaylistWithoutAFileIsTold();

    void memoryInOrderIsToldSo();
    void findingsAreToldWithWhatHelps();
    void updateIsOnlyMadeWhenAsked();
    void whatTheIndexLacksIsOfferedBesideTheFacts();
    void rebuildAsksFirst();
    void damagedIndexLeavesOnlyTheRebuild();
    void hostileFilesAreShownAsFarAsTheyGo();

private:
    QTreeWidget *duplicates() const { return find<QTreeWidget>("duplicatesTreeWidget"); }
    QTreeWidget *checks() const { return find<QTreeWidget>("checkTreeWidget"); }

    /** Ticks the first line with this path by a click on its box. */
    void tick(const char *path) const
    {
        const QList<QTreeWidgetItem *> found =
            duplicates()->findItems(text(path), Qt::MatchExactly | Qt::MatchRecursive);
        QVERIFY2(!found.isEmpty(), path);
        duplicates()->scrollToItem(found.constFirst());
        const QRect place = duplicates()->visualItemRect(found.constFirst());
        QTest::mouseClick(duplicates()->viewport(), Qt::LeftButton, Qt::NoModifier,
                          QPoint(place.left() + 8, place.center().y()));
    }
};

void TestMemoryWindowCare::duplicatesAreUnticked()
{
    open();
    showPage(2);
    QCOMPARE(lines(duplicates()),
             QStringList({text("Stesso titolo e artista: AZZURRO – CELENTANO"),
                          text("  /pop/Azzurro2.mid"), text("  /songs/Azzurro.mid")}));
    click("pushButtonFindDuplicates");
    QCOMPARE(lines(duplicates()).filter(text("Lo stesso file")).size(), 2);
    QVERIFY(lines(duplicates()).contains(text("  /pop/Twin.mp3")));
    for (QTreeWidgetItemIterator item(duplicates()); *item != nullptr; ++item)
        QVERIFY((*item)->checkState(0) == Qt::Unchecked);
    QVERIFY(!find<QPushButton>("pushButtonRemoveDuplicates")->isEnabled());
    QVERIFY(stateOf("/pop/Twin.mp3").endsWith(text("doppia")));
}

void TestMemoryWindowCare::tickedDuplicatesAreRemoved()
{
    open();
    showPage(2);
    click("pushButtonFindDuplicates");
    tick("/pop/Twin.mp3");
    tick("/pop/Azzurro2.mid");
    Agreeing user;
    click("pushButtonRemoveDuplicates");
    QCOMPARE(user.said.size(), 1);
    QVERIFY(user.said.constFirst().startsWith(text("2 song verranno eliminate")));
    QVERIFY(user.said.constFirst().contains(text("/pop/Twin.mp3")));
    QVERIFY(!user.said.constFirst().contains(text("non rimane nessuna")));
    QVERIFY(!has("pop/Twin.mp3") && !has("pop/Azzurro2.mid"));
    QVERIFY(has("pop/Notag.mp3") && has("songs/Azzurro.mid"));
    QCOMPARE(updates(), 1);
    QVERIFY(lines(duplicates()).isEmpty());
}

void TestMemoryWindowCare::songInTwoGroupsHasOneTick()
{
    open();
    showPage(2);
    click("pushButtonFindDuplicates");
    tick("/songs/Azzurro.mid");
    int ticked = 0;
    for (QTreeWidgetItemIterator item(duplicates()); *item != nullptr; ++item) {
        if ((*item)->checkState(0) != Qt::Checked)
            continue;
        QCOMPARE((*item)->text(0), text("/songs/Azzurro.mid"));
        ++ticked;
    }
    QCOMPARE(ticked, 2); // same bytes, and same title and artist
    showPage(0);
    showPage(2);
    click("pushButtonFindDuplicates"); // the list is made anew, the tick stays
    QVERIFY(find<QPushButton>("pushButtonRemoveDuplicates")->isEnabled());
}

void TestMemoryWindowCare::removalOfAWholeGroupIsTold()
{
    open();
    showPage(2);
    click("pushButtonFindDuplicates");
    tick("/pop/Twin.mp3");
    tick("/pop/Notag.mp3");
    ModalAnswers user;
    QString question;
    user.add([&question](QWidget *window) {
        auto *const box = qobject_cast<QMessageBox *>(window);
        if (box == nullptr)
            return false;
        question = box->informativeText();
        QTest::mouseClick(box->button(QMessageBox::No), Qt::LeftButton);
        return true;
    });
    click("pushButtonRemoveDuplicates");
    QVERIFY2(question.endsWith(text("Attenzione: di 1 gruppi non rimane nessuna song!")),
             qPrintable(question));
    QVERIFY(has("pop/Twin.mp3") && has("pop/Notag.mp3"));
}

void TestMemoryWindowCare::playlistsAndLostSongsAreShown()
{
    filledmemory::changeBehindTheIndex(*m_card); // takes a song of the playlist away
    open();
    showPage(1);
    QCOMPARE(lines(find<QListView>("playlistsListView")),
             QStringList(text("Playlist 1 – 2 song, 1 perdute")));
    QCOMPARE(lines(find<QListView>("playlistSongsListView")),
             QStringList({text("1. NEL BLU – MODUGNO"), text("2. (song perduta)")}));
}

void TestMemoryWindowCare::lostSongsComeBack()
{
    // The last update noted the songs of the playlist by their paths; then the ids were lost.
    QVERIFY(Index().createIndex(m_card->root()));
    QVERIFY(QFileInfo::exists(m_card->path(text("playlist/play0001.pts"))));
    const QByteArray whole = m_card->read(text("playlist/play0001.dat"));
    QByteArray broken = whole;
    broken.replace(0, 4, QByteArray("\x00\x00\xFF\x00", 4));
    m_card->writeOnCard(text("playlist/play0001.dat"), broken);
    open();
    showPage(3);
    click("pushButtonCheck");
    QCOMPARE(checks()->topLevelItemCount(), 1);
    QVERIFY(lines(checks()).constFirst().startsWith(text("Song perdute nelle playlist")));
    QCOMPARE(checks()->topLevelItem(0)->text(1), text("Ripara le playlist"));
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Yes);
    click("pushButtonMend");
    QCOMPARE(user.messages().size(), 1); // the question
    QCOMPARE(message(), text("1 song sono di nuovo nelle playlist."));
    QCOMPARE(m_card->read(text("playlist/play0001.dat")), whole);
}

void TestMemoryWindowCare::withoutAMemoryNothingIsSaidOfPlaylists()
{
    m_card->isLeftBroken();
    open();
    QVERIFY(!find<QLabel>("playlistsLabel")->text().isEmpty());
    QVERIFY(QDir().rename(m_card->root(), m_card->music() + text("/pulled")));
    click("pushButtonReload");
    QCOMPARE(find<QLabel>("playlistsLabel")->text(), QString());
}

void TestMemoryWindowCare::whatIsNotKnownIsShownEmpty()
{
    open();
    const auto row = shownPaths().indexOf(text("/pop/Notag.mp3"));
    QVERIFY(row >= 0);
    QCOMPARE(shown(1).at(row), QString());
    QCOMPARE(shown(2).at(row), QString());
    find<QLineEdit>("filterLineEdit")->setText(text("unknown"));
    QCOMPARE(shownPaths(), QStringList());
}

void TestMemoryWindowCare::columnsFitTheirTextsAndTheTable()
{
    open();
    constexpr int sizes = 7;
    for (const QString &size : shown(sizes))
        QVERIFY2(table()->fontMetrics().horizontalAdvance(size) + 6 <= table()->columnWidth(sizes),
                 qPrintable(size));
    for (const int width : {900, 3000}) {
        m_window->resize(width, m_window->height());
        QCoreApplication::processEvents();
        const int end = table()->columnViewportPosition(9) + table()->columnWidth(9);
        QVERIFY(end >= table()->viewport()->width());
        if (width == 3000)
            QCOMPARE(end, table()->viewport()->width());
    }
}

void TestMemoryWindowCare::stoppedWorkIsToldSo()
{
    open();
    BackgroundJob &job = m_window->job();
    connect(&job, &BackgroundJob::began, &job, [&job] { job.cancel(); });
    showPage(3);
    click("pushButtonCheck");
    QCOMPARE(message(), text("Il controllo è stato interrotto."));
    QVERIFY(find<QLabel>("checkLabel")->text() != text("La memoria è in ordine."));
    showPage(0);
    choose({text("/songs/Volare.kar")});
    UserDriver user;
    user.pick({m_card->music()});
    click("pushButtonCopy");
    QCOMPARE(message(), text("0 song copiate sul computer. La copia è stata interrotta."));
}

void TestMemoryWindowCare::listedPlaylistWithoutAFileIsTold()
{
    m_card->isLeftBroken();
    m_card->writeOnCard(text("playlist/playlist.dat"), "\x09" + QByteArray(31, '\0'));
    open();
    showPage(3);
    click("pushButtonCheck");
    const QStringList found = lines(checks());
    QVERIFY2(found.contains(text("Playlist che il player elenca, ma che non può leggere (1)")),
             qPrintable(found.join(QLatin1Char('|'))));
    QCOMPARE(checks()->topLevelItem(0)->text(1), text("eliminare la playlist sul player"));
}

void TestMemoryWindowCare::memoryInOrderIsToldSo()
{
    open();
    showPage(3);
    QVERIFY(!find<QPushButton>("pushButtonMend")->isEnabled());
    click("pushButtonCheck");
    QCOMPARE(find<QLabel>("checkLabel")->text(), text("La memoria è in ordine."));
    QCOMPARE(checks()->topLevelItemCount(), 0);
}

void TestMemoryWindowCare::findingsAreToldWithWhatHelps()
{
    filledmemory::changeBehindTheIndex(*m_card);
    open();
    showPage(3);
    click("pushButtonCheck");
    const QStringList found = lines(checks());
    QVERIFY(found.contains(text("Song che il player elenca, ma che non ci sono più (1)")));
    QVERIFY(found.contains(text("Song che il player non trova ancora (1)")));
    QVERIFY(found.contains(text("  /pop/New.mid: La song non è nel database")));
    for (int top = 0; top < checks()->topLevelItemCount(); ++top)
        QCOMPARE(checks()->topLevelItem(top)->text(1), text("Aggiorna"));
    QCOMPARE(updates(), 0); // looking changes nothing
}

void TestMemoryWindowCare::updateIsOnlyMadeWhenAsked()
{
    filledmemory::changeBehindTheIndex(*m_card);
    open();
    showPage(3);
    click("pushButtonUpdate");
    QCOMPARE(updates(), 1);
    QCOMPARE(message(), text("Il database è aggiornato."));
    QCOMPARE(stateOf("/pop/New.mid"), text("nel database"));
    QVERIFY(!shownPaths().contains(text("/songs/Azzurro.mid")));
}

void TestMemoryWindowCare::whatTheIndexLacksIsOfferedBesideTheFacts()
{
    const auto isOffered = [this] { return find<QPushButton>("pushButtonRemedy")->isVisible(); };
    open();
    QVERIFY(!isOffered()); // the index is complete
    filledmemory::changeBehindTheIndex(*m_card);
    click("pushButtonReload");
    QVERIFY(isOffered());
    QCOMPARE(find<QPushButton>("pushButtonRemedy")->text(), text("Aggiorna il database"));
    click("pushButtonRemedy");
    QCOMPARE(updates(), 1);
    QCOMPARE(message(), text("Il database è aggiornato."));
    QVERIFY(!isOffered());

    m_card->writeOnCard(text("title.idx"), "half a record");
    click("pushButtonReload");
    QCOMPARE(find<QPushButton>("pushButtonRemedy")->text(), text("Rigenera il database..."));
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Yes);
    click("pushButtonRemedy");
    QCOMPARE(user.messages().size(), 1);
    QCOMPARE(message(), text("Il database è stato rigenerato."));
    QVERIFY(!isOffered());
}

void TestMemoryWindowCare::rebuildAsksFirst()
{
    open();
    showPage(3);
    {
        ModalAnswers user;
        user.pressInMessageBoxes(QMessageBox::No);
        click("pushButtonRebuild");
        QCOMPARE(user.messages().size(), 1);
        QCOMPARE(updates(), 0);
    }
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Yes);
    click("pushButtonRebuild");
    QCOMPARE(updates(), 1);
    QCOMPARE(message(), text("Il database è stato rigenerato."));
}

void TestMemoryWindowCare::damagedIndexLeavesOnlyTheRebuild()
{
    m_card->writeOnCard(text("title.idx"), "half a record");
    open();
    QCOMPARE(shownPaths().size(), 6);
    QVERIFY(find<QLabel>("labelFacts")->text().contains(text("database danneggiato")));
    choose({text("/songs/Volare.kar")});
    for (const char *button : {"pushButtonEdit", "pushButtonRename", "pushButtonRemove"}) {
        QVERIFY(!find<QPushButton>(button)->isEnabled());
        QVERIFY(!find<QPushButton>(button)->toolTip().isEmpty());
    }
    QVERIFY(find<QPushButton>("pushButtonCopy")->isEnabled());
    showPage(3);
    click("pushButtonCheck");
    QVERIFY(!lines(checks()).filter(text("Il database è danneggiato")).isEmpty());
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Yes);
    click("pushButtonRebuild");
    QVERIFY(find<QLabel>("labelFacts")->text().endsWith(text("completo")));
    QVERIFY(find<QPushButton>("pushButtonRemove")->isEnabled());
}

void TestMemoryWindowCare::hostileFilesAreShownAsFarAsTheyGo()
{
    m_card->isLeftBroken();
    QByteArray index = m_card->read(text("index.idx"));
    index.replace(4, 46, QByteArray("/../../etc/<b>passwd</b>.mid").leftJustified(46, '\0'));
    m_card->writeOnCard(text("index.idx"), index);
    m_card->writeOnCard(text("playlist/playlist.dat"), QByteArray(320, '\xFF'));
    m_card->writeOnCard(text("playlist/play0001.dat"), QByteArray(70, '\x01'));
    open();
    QCOMPARE(stateOf("/../../etc/<b>passwd</b>.mid"), text("il file non c'è più"));
    choose({text("/../../etc/<b>passwd</b>.mid")});
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Ok);
    click("pushButtonRemove");
    QCOMPARE(user.messages().size(), 1); // there is no such file
    showPage(1);
    QCOMPARE(lines(find<QListView>("playlistsListView")).size(), 1);
    QVERIFY(lines(find<QListView>("playlistsListView"))
                .constFirst()
                .endsWith(text("non si può leggere")));
    showPage(3);
    click("pushButtonCheck");
    QVERIFY(checks()->topLevelItemCount() > 0);
}

int main(int argc, char *argv[])
{
    return runAppTest<TestMemoryWindowCare>(argc, argv);
}

#include "test_memorywindow_care.moc"
