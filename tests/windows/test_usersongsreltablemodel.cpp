// The model of the song table: rows, texts and sorting.
#include "support/modelfixture.h"
#include "windows/usersongsreltablemodel.h"

#include <QColor>
#include <QSignalSpy>
#include <QSqlError>
#include <QSqlRecord>
#include <QTest>

#include <algorithm>
#include <ctime>

using namespace modelfixture;

namespace
{

/** A song whose every field that a row shows is set. */
SongInfo fullSong()
{
    SongInfo info;
    info.format = s("MF4");
    info.title = s(" Title ");
    info.artist = s("Artist");
    info.genre = s("Genre");
    info.author = s("Author");
    info.length = 125;
    info.userBpm = 96;
    info.key = s("F#-");
    info.fileName = s("/music/full.mf4");
    info.shortName = s("full.mf4");
    return info;
}

} // namespace

class TestUserSongsRelTableModel : public ModelFixture
{
    Q_OBJECT

private slots:
    void init() { ModelFixture::init(); }
    void cleanup() { ModelFixture::cleanup(); }

    void columnNumbersFollowTheFieldNames();
    void headersAreLabelled();
    void addSongStoresARow();
    void lengthIsShownInMinutesAndSeconds_data();
    void lengthIsShownInMinutesAndSeconds();
    void updateRowRewritesTheMetadataOnly();
    void negativeTempoIsKeptByAddSongOnly();
    void statusIsStoredAndRead();
    void rowOutOfRangeReadsEmptyAndWritesNothing_data();
    void rowOutOfRangeReadsEmptyAndWritesNothing();
    void addSongFailsWithoutATable();
    void idCannotBeChanged();
    void rowsEnterThroughAddSongOnly();
    void secondModelLoadsTheSameRows();

    void statusCellHasItsColour_data();
    void statusCellHasItsColour();
    void otherCellsAreGrey();
    void changedStatusRepaintsTheWholeRow();

    void allRowsAreLoadedBeyondTheFirstBatch();
    void writingNeverMovesRows();
    void textsSortWithoutRegardToCase();
    void numbersAndLengthsSortByValue();
    void sortingIsStable();
    void noColumnMeansImportOrder();
    void selectKeepsTheOrderAskedFor();

    void removedRowLeavesNoBlankRow();
    void removingOutOfRangeDoesNothing();
    void clearedTableIsEmptyAfterSelect();
};

void TestUserSongsRelTableModel::columnNumbersFollowTheFieldNames()
{
    QCOMPARE(m_model->columnCount(), 13); // the fields and the folder
    QCOMPARE(m_model->colIdxFilename(), 9);
    QCOMPARE(m_model->colIdxStatus(), 11);
    QCOMPARE(m_model->colIdxFolder(), 12);
    QCOMPARE(m_model->editStrategy(), QSqlTableModel::OnFieldChange);
    QCOMPARE(m_model->tableName(), s("usersongs"));
}

void TestUserSongsRelTableModel::headersAreLabelled()
{
    m_model->setHeaderLabels();
    QStringList labels;
    for (int column = 0; column < m_model->columnCount(); ++column)
        labels.append(m_model->headerData(column, Qt::Horizontal).toString());
    QCOMPARE(
        labels.join(QLatin1Char('|')),
        s("Num|Formato|Titolo|Artista|Genere|Autore|Durata|Bpm|Tonalita'||Nome file||Cartella"));
    QCOMPARE(m_model->headerData(2, Qt::Horizontal, Qt::EditRole).toString(), s("Titolo"));
}

void TestUserSongsRelTableModel::addSongStoresARow()
{
    QVERIFY(m_model->addSong(fullSong()));
    QVERIFY(m_model->addSong(SongInfo()));
    QCOMPARE(m_model->goodRowCount(), 2);
    const QStringList expected{
        s("1"),     s("MF4"), s(" Title "), s("Artist"),          s("Genre"),    s("Author"),
        s("02:05"), s("96"),  s("F#-"),     s("/music/full.mf4"), s("full.mf4"), s("0")};
    const QSqlRecord fields = m_model->record();
    for (int column = 0; column < fields.count(); ++column) {
        QCOMPARE(m_model->index(0, column).data().toString(), expected.at(column));
        QCOMPARE(m_model->index(0, column).data(Qt::EditRole).toString(), expected.at(column));
        QCOMPARE(stored(0, fields.fieldName(column)), expected.at(column));
    }
    QCOMPARE(m_model->record(0).value(s("title")).toString(), s(" Title "));
    QCOMPARE(m_model->fileName(0), s("/music/full.mf4"));
    QCOMPARE(m_model->shortName(0), s("full.mf4"));
    QCOMPARE(m_model->rowIndex(1), m_model->index(1, 0));
    QCOMPARE(stored(1, s("length")), s("00:00"));
}

void TestUserSongsRelTableModel::lengthIsShownInMinutesAndSeconds_data()
{
    QTest::addColumn<int>("seconds");
    QTest::addColumn<QString>("text");
    QTest::newRow("unknown") << -1 << "";
    QTest::newRow("zero") << 0 << "00:00";
    QTest::newRow("under a minute") << 59 << "00:59";
    QTest::newRow("minutes") << 125 << "02:05";
    QTest::newRow("three digits") << 6000 << "100:00";
    QTest::newRow("largest") << 2147483647 << "35791394:07";
}

void TestUserSongsRelTableModel::lengthIsShownInMinutesAndSeconds()
{
    QFETCH(int, seconds);
    QFETCH(QString, text);
    const int column = m_model->fieldIndex(s("length"));
    SongInfo info;
    info.length = seconds;
    QVERIFY(m_model->addSong(info));
    QCOMPARE(m_model->index(0, column).data().toString(), text);
    info.length = 1;
    m_model->updateRow(0, info);
    QCOMPARE(m_model->index(0, column).data().toString(), s("00:01"));
    info.length = seconds;
    m_model->updateRow(0, info);
    QCOMPARE(m_model->index(0, column).data().toString(), text);
    QCOMPARE(stored(0, s("length")), text);
}

void TestUserSongsRelTableModel::updateRowRewritesTheMetadataOnly()
{
    QVERIFY(m_model->addSong(song(s("first"))));
    QVERIFY(m_model->addSong(song(s("second"))));
    m_model->setStatus(1, Database::StatusNotSynced);
    m_model->updateRow(1, fullSong());
    const QStringList fields{s("type"),     s("title"),     s("artist"),  s("genre"),
                             s("author"),   s("length"),    s("userbpm"), s("key"),
                             s("filename"), s("shortname"), s("status")};
    const QStringList expected{s("MIDI"),          s(" Title "), s("Artist"), s("Genre"),
                               s("Author"),        s("02:05"),   s("96"),     s("F#-"),
                               s("/music/second"), s("second"),  s("3")};
    for (int i = 0; i < fields.size(); ++i) {
        QCOMPARE(m_model->index(1, i + 1).data().toString(), expected.at(i));
        QCOMPARE(stored(1, fields.at(i)), expected.at(i));
    }
    QCOMPARE(titles(), s("first  Title "));
}

void TestUserSongsRelTableModel::negativeTempoIsKeptByAddSongOnly()
{
    SongInfo info;
    info.userBpm = -1;
    QVERIFY(m_model->addSong(info));
    const QModelIndex tempo = m_model->index(0, m_model->fieldIndex(s("userbpm")));
    QCOMPARE(tempo.data().toInt(), -1);
    m_model->updateRow(0, info);
    QCOMPARE(tempo.data().toInt(), 0);
    QCOMPARE(stored(0, s("userbpm")), s("0"));
}

void TestUserSongsRelTableModel::statusIsStoredAndRead()
{
    addTitles(s("a b"));
    QCOMPARE(m_model->status(1), 0);
    for (const Database::statusEnum status :
         {Database::StatusSynced, Database::StatusEdited, Database::StatusNotSynced}) {
        m_model->setStatus(1, status);
        QCOMPARE(m_model->status(1), static_cast<int>(status));
        QCOMPARE(stored(1, s("status")).toInt(), static_cast<int>(status));
        QCOMPARE(m_model->status(0), 0);
    }
}

void TestUserSongsRelTableModel::rowOutOfRangeReadsEmptyAndWritesNothing_data()
{
    QTest::addColumn<int>("row");
    QTest::newRow("no row") << -1;
    QTest::newRow("behind the last") << 2;
    QTest::newRow("far behind") << 2147483647;
}

void TestUserSongsRelTableModel::rowOutOfRangeReadsEmptyAndWritesNothing()
{
    QFETCH(int, row);
    addTitles(s("a b"));
    m_model->updateRow(row, fullSong());
    m_model->setStatus(row, Database::StatusEdited);
    QCOMPARE(m_model->status(row), 0);
    QCOMPARE(m_model->fileName(row), QString());
    QCOMPARE(m_model->shortName(row), QString());
    QVERIFY(!m_model->rowIndex(row).isValid());
    QVERIFY(!m_model->data(m_model->rowIndex(row), Qt::BackgroundRole).isValid());
    QVERIFY(!m_model->setData(m_model->rowIndex(row), s("x")));
    QCOMPARE(titles(), s("a b"));
    QCOMPARE(m_model->status(0) + m_model->status(1), 0);
}

void TestUserSongsRelTableModel::addSongFailsWithoutATable()
{
    addTitles(s("a"));
    QVERIFY(QSqlQuery(m_database->userLibraryDb()).exec(s("drop table usersongs")));
    QVERIFY(!m_model->addSong(fullSong()));
    QVERIFY(m_model->lastError().isValid());
    QCOMPARE(titles(), s("a"));
    m_model->updateRow(0, fullSong());
    QVERIFY(!m_model->removeRow(0));
    QVERIFY(!m_model->select());
    QCOMPARE(titles(), s("a"));
}

void TestUserSongsRelTableModel::idCannotBeChanged()
{
    addTitles(s("a b"));
    QVERIFY(!m_model->setData(m_model->index(0, 0), 2));
    QVERIFY(!m_model->setData(m_model->index(0, 2), s("x"), Qt::DisplayRole));
    QCOMPARE(m_model->index(0, 0).data().toInt(), 1);
    QCOMPARE(titles(), s("a b"));
}

void TestUserSongsRelTableModel::rowsEnterThroughAddSongOnly()
{
    QVERIFY(!m_model->insertRecord(-1, m_model->record()));
    QVERIFY(!m_model->insertRow(0));
    QCOMPARE(m_model->goodRowCount(), 0);
}

void TestUserSongsRelTableModel::secondModelLoadsTheSameRows()
{
    addTitles(s("a b c"));
    m_model->setStatus(2, Database::StatusEdited);
    UserSongsRelTableModel other(nullptr, m_database->userLibraryDb());
    QCOMPARE(other.goodRowCount(), 3);
    QCOMPARE(other.fileName(0), s("/music/a"));
    QCOMPARE(other.status(2), 2);
}

void TestUserSongsRelTableModel::statusCellHasItsColour_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QColor>("even");
    QTest::addColumn<QColor>("odd");
    const QColor evenGrey(200, 200, 200);
    const QColor oddGrey(230, 230, 230);
    QTest::newRow("new") << 0 << evenGrey << oddGrey;
    QTest::newRow("synced") << 1 << QColor(100, 225, 100) << QColor(130, 255, 130);
    QTest::newRow("edited") << 2 << QColor(225, 225, 100) << QColor(255, 255, 130);
    QTest::newRow("not synced") << 3 << QColor(225, 100, 100) << QColor(255, 130, 130);
    QTest::newRow("unknown") << 7 << evenGrey << oddGrey;
    QTest::newRow("negative") << -1 << evenGrey << oddGrey;
}

void TestUserSongsRelTableModel::statusCellHasItsColour()
{
    QFETCH(int, status);
    QFETCH(QColor, even);
    QFETCH(QColor, odd);
    addTitles(s("a b"));
    for (int row = 0; row < 2; ++row) {
        m_model->setStatus(row, static_cast<Database::statusEnum>(status));
        const QModelIndex cell = m_model->index(row, m_model->colIdxStatus());
        const QColor expected = row == 0 ? even : odd;
        QCOMPARE(m_model->data(cell, Qt::BackgroundRole).value<QColor>(), expected);
        QCOMPARE(m_model->data(cell, Qt::ForegroundRole).value<QColor>(), expected);
        QCOMPARE(m_model->data(cell).toInt(), status);
    }
}

void TestUserSongsRelTableModel::otherCellsAreGrey()
{
    addTitles(s("a b"));
    for (int row = 0; row < 2; ++row) {
        m_model->setStatus(row, Database::StatusSynced);
        for (int column = 0; column < m_model->colIdxStatus(); ++column) {
            const QModelIndex cell = m_model->index(row, column);
            QCOMPARE(m_model->data(cell, Qt::BackgroundRole).value<QColor>(),
                     row == 0 ? QColor(200, 200, 200) : QColor(230, 230, 230));
            QVERIFY(!m_model->data(cell, Qt::ForegroundRole).isValid());
            QVERIFY(!m_model->data(cell, Qt::ToolTipRole).isValid());
        }
    }
}

void TestUserSongsRelTableModel::changedStatusRepaintsTheWholeRow()
{
    addTitles(s("a b"));
    QSignalSpy changed(m_model.get(), &QAbstractItemModel::dataChanged);
    m_model->setStatus(1, Database::StatusSynced);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.at(0).at(0).toModelIndex(), m_model->index(1, 0));
    QCOMPARE(changed.at(0).at(1).toModelIndex(), m_model->index(1, m_model->columnCount() - 1));
}

void TestUserSongsRelTableModel::allRowsAreLoadedBeyondTheFirstBatch()
{
    m_tester.reset();
    for (int i = 0; i < 600; ++i)
        QVERIFY(m_model->addSong(song(QString::number(i))));
    QVERIFY(m_model->select());
    QVERIFY(!m_model->canFetchMore());
    QCOMPARE(m_model->goodRowCount(), 600);
    m_model->setStatus(599, Database::StatusSynced);
    m_model->updateRow(598, fullSong());
    QCOMPARE(m_model->status(599), 1);
    QCOMPARE(stored(599, s("status")), s("1"));
    QCOMPARE(stored(599, s("title")), s("599"));
    QCOMPARE(stored(598, s("title")), s(" Title "));
    QVERIFY(m_model->addSong(song(s("next"))));
    QCOMPARE(m_model->fileName(600), s("/music/next"));
}

void TestUserSongsRelTableModel::writingNeverMovesRows()
{
    addTitles(s("b a d c"));
    const int column = m_model->fieldIndex(s("title"));
    m_model->sort(column, Qt::AscendingOrder);
    QCOMPARE(titles(), s("a b c d"));
    for (int row = 0; row < m_model->goodRowCount(); ++row) {
        SongInfo info = song(m_model->shortName(row));
        info.title = QString(QChar('z' - row));
        m_model->updateRow(row, info);
        m_model->setStatus(row, Database::StatusEdited);
    }
    QCOMPARE(titles(), s("z y x w"));
    QCOMPARE(m_model->fileName(3), s("/music/d"));
    QVERIFY(m_model->addSong(song(s("m"))));
    QCOMPARE(titles(), s("z y x w m"));
    m_model->sort(column, Qt::AscendingOrder);
    QCOMPARE(titles(), s("m w x y z"));
}

void TestUserSongsRelTableModel::textsSortWithoutRegardToCase()
{
    addTitles(s("banana Cherry apple Date"));
    m_model->sort(m_model->fieldIndex(s("title")), Qt::AscendingOrder);
    QCOMPARE(titles(), s("apple banana Cherry Date"));
    m_model->sort(m_model->fieldIndex(s("title")), Qt::DescendingOrder);
    QCOMPARE(titles(), s("Date Cherry banana apple"));
}

void TestUserSongsRelTableModel::numbersAndLengthsSortByValue()
{
    for (const int value : {125, 9, 6000, -1, 100}) {
        SongInfo info = song(QString::number(value));
        info.userBpm = value;
        info.length = value;
        QVERIFY(m_model->addSong(info));
    }
    for (const QString &field : {s("userbpm"), s("length")}) {
        m_model->sort(m_model->fieldIndex(field), Qt::AscendingOrder);
        QCOMPARE(titles(), s("-1 9 100 125 6000"));
        m_model->sort(m_model->fieldIndex(field), Qt::DescendingOrder);
        QCOMPARE(titles(), s("6000 125 100 9 -1"));
    }
}

void TestUserSongsRelTableModel::sortingIsStable()
{
    for (int i = 0; i < 100; ++i) { // enough for a sort that is not stable to show it
        SongInfo info = song(QStringLiteral("%1").arg(i, 2, 10, QLatin1Char('0')));
        info.artist = i % 3 == 0 ? s("First") : s("Second");
        QVERIFY(m_model->addSong(info));
    }
    QStringList first;
    QStringList second;
    for (const QString &title : titles().split(QLatin1Char(' ')))
        (title.toInt() % 3 == 0 ? first : second).append(title);
    const int artist = m_model->fieldIndex(s("artist"));
    m_model->sort(artist, Qt::AscendingOrder);
    QCOMPARE(titles(), (first + second).join(QLatin1Char(' ')));
    m_model->sort(artist, Qt::DescendingOrder);
    QCOMPARE(titles(), (second + first).join(QLatin1Char(' ')));

    m_model->sort(m_model->fieldIndex(s("title")), Qt::DescendingOrder);
    m_model->sort(artist, Qt::AscendingOrder);
    std::reverse(first.begin(), first.end());
    std::reverse(second.begin(), second.end());
    QCOMPARE(titles(), (first + second).join(QLatin1Char(' ')));
}

void TestUserSongsRelTableModel::noColumnMeansImportOrder()
{
    addTitles(s("c b a"));
    m_model->sort(m_model->fieldIndex(s("title")), Qt::AscendingOrder);
    m_model->sort(-1, Qt::DescendingOrder);
    QCOMPARE(titles(), s("c b a"));
    m_model->sort(m_model->columnCount(), Qt::DescendingOrder);
    QCOMPARE(titles(), s("c b a"));
}

void TestUserSongsRelTableModel::selectKeepsTheOrderAskedFor()
{
    addTitles(s("c a"));
    m_model->sort(m_model->fieldIndex(s("title")), Qt::DescendingOrder);
    addTitles(s("d b"));
    QCOMPARE(titles(), s("c a d b"));
    QVERIFY(m_model->select());
    QCOMPARE(titles(), s("d c b a"));
}

void TestUserSongsRelTableModel::removedRowLeavesNoBlankRow()
{
    addTitles(s("a b c d"));
    QVERIFY(m_model->removeRow(1));
    QCOMPARE(titles(), s("a c d"));
    QVERIFY(m_model->select());
    QCOMPARE(titles(), s("a c d"));
    QVERIFY(m_model->removeRows(1, 2));
    QCOMPARE(titles(), s("a"));
    QVERIFY(m_model->addSong(song(s("e"))));
    QCOMPARE(titles(), s("a e"));
    QCOMPARE(stored(1, s("title")), s("e"));
}

void TestUserSongsRelTableModel::removingOutOfRangeDoesNothing()
{
    addTitles(s("a b"));
    QVERIFY(!m_model->removeRow(-1));
    QVERIFY(!m_model->removeRow(2));
    QVERIFY(!m_model->removeRows(1, 2));
    QVERIFY(!m_model->removeRows(0, 0));
    QVERIFY(!m_model->removeRows(1, 2147483647));
    QVERIFY(!m_model->removeRow(0, m_model->index(0, 0)));
    QCOMPARE(titles(), s("a b"));
}

void TestUserSongsRelTableModel::clearedTableIsEmptyAfterSelect()
{
    addTitles(s("a b"));
    QVERIFY(m_database->clearUserLibraryDb());
    QVERIFY(m_model->select());
    QCOMPARE(m_model->goodRowCount(), 0);
    addTitles(s("c"));
    QCOMPARE(titles(), s("c"));
    QCOMPARE(m_model->status(0), 0);
}

QTEST_MAIN(TestUserSongsRelTableModel)

#include "test_usersongsreltablemodel.moc"
