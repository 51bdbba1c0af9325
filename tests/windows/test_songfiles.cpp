// The files behind the rows of the song table: their folder, and rows that are dragged out.
#include "support/modelfixture.h"
#include "windows/usersongsreltablemodel.h"

#include <QFile>
#include <QFileInfo>
#include <QMimeData>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <memory>

using namespace modelfixture;

class TestSongFiles : public ModelFixture
{
    Q_OBJECT

private slots:
    void init() { ModelFixture::init(); }
    void cleanup() { ModelFixture::cleanup(); }

    void folderIsThatOfThePath();
    void draggedRowsAreCopiesOfTheirFiles();
};

void TestSongFiles::folderIsThatOfThePath()
{
    for (const char *path : {"/music/z/a.mid", "/music/b.mid", "/c.mid", "d.mid"}) {
        SongInfo info = song(s(path));
        info.fileName = s(path);
        QVERIFY(m_model->addSong(info));
    }
    const int folder = m_model->colIdxFolder();
    QStringList folders;
    for (int row = 0; row < m_model->rowCount(); ++row)
        folders << m_model->index(row, folder).data().toString();
    QCOMPARE(folders, (QStringList{s("/music/z"), s("/music"), s("/"), s("")}));
    QVERIFY(!m_model->setData(m_model->index(0, folder), s("/elsewhere")));
    m_model->sort(folder, Qt::AscendingOrder);
    QCOMPARE(titles(), s("d.mid /c.mid /music/b.mid /music/z/a.mid"));

    QSignalSpy changed(m_model.get(), &QAbstractItemModel::dataChanged);
    QVERIFY(m_model->setData(m_model->index(0, m_model->colIdxFilename()), s("/new/d.mid")));
    QCOMPARE(changed.at(0).at(1).toModelIndex().column(), folder);
    QCOMPARE(m_model->index(0, folder).data().toString(), s("/new"));
}

void TestSongFiles::draggedRowsAreCopiesOfTheirFiles()
{
    const QTemporaryDir folder;
    for (const char *name : {"a.mid", "b.MP3", "b.cdg", "c.cdg"}) {
        QFile file(folder.filePath(s(name)));
        QVERIFY(file.open(QFile::WriteOnly));
    }
    for (const char *name : {"a.mid", "b.MP3", "gone.mid"}) {
        SongInfo info = song(s(name));
        info.fileName = folder.filePath(s(name));
        QVERIFY(m_model->addSong(info));
    }
    QCOMPARE(m_model->supportedDragActions(), Qt::DropActions(Qt::CopyAction));
    QVERIFY(m_model->flags(m_model->index(0, 2)).testFlag(Qt::ItemIsDragEnabled));
    const auto dragged = [this](const QList<int> &rows) {
        QModelIndexList cells;
        for (const int row : rows) {
            cells << m_model->index(row, 2) << m_model->index(row, 3);
        }
        const std::unique_ptr<QMimeData> data(m_model->mimeData(cells));
        QStringList names;
        if (data) {
            for (const QUrl &url : data->urls())
                names << QFileInfo(url.toLocalFile()).fileName();
        }
        return names;
    };
    QCOMPARE(dragged({0}), QStringList{s("a.mid")});
    QCOMPARE(dragged({1, 0}), (QStringList{s("b.MP3"), s("b.cdg"), s("a.mid")}));
    QCOMPARE(dragged({2}), QStringList());
    QVERIFY(m_model->mimeData({m_model->index(2, 2)}) == nullptr); // nothing to drag
}

QTEST_MAIN(TestSongFiles)
#include "test_songfiles.moc"
