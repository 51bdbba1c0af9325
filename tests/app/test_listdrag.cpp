// Songs that are dragged out of the list.
#include "support/apptest.h"
#include "support/columndriver.h"
#include "support/songfolder.h"
#include "support/userdriver.h"

#include <QDrag>
#include <QMouseEvent>
#include <QTableView>
#include <QTimer>

using namespace columndriver;

class TestListDrag : public AppFixture
{
    Q_OBJECT

private slots:
    void init() { AppFixture::init(); }
    void cleanup() { AppFixture::cleanup(); }

    void songDraggedOutIsACopy();
    void songLetGoOverItsOwnListChangesNothing();
    void nothingIsDraggedDuringAWorkflow();

private:
    const SongFolder m_songs;
};

void TestListDrag::songDraggedOutIsACopy()
{
    WindowUnderTest window;
    importTwo(window, m_songs);
    QVERIFY(window.table()->dragEnabled());
    QCOMPARE(window.table()->dragDropMode(), QAbstractItemView::DragOnly);
    QCOMPARE(window.table()->defaultDropAction(), Qt::CopyAction);
    QCOMPARE(window.model()->supportedDragActions(), Qt::DropActions(Qt::CopyAction));
}

void TestListDrag::songLetGoOverItsOwnListChangesNothing()
{
    if (QGuiApplication::platformName() == s("offscreen"))
        QSKIP("needs a display"); // on which another CTest test runs this one
    WindowUnderTest window;
    importTwo(window, m_songs);
    QWidget *const viewport = window.table()->viewport();
    const QPoint from = window.table()->visualRect(window.model()->index(0, 2)).center();
    bool wasDragged = false;
    QTimer letGo;
    connect(&letGo, &QTimer::timeout, &window, [&] {
        wasDragged = wasDragged || window.findChild<QDrag *>() != nullptr;
        QTest::mouseMove(window.windowHandle(), viewport->mapTo(&window, from) + QPoint(60, 40));
        QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {},
                            viewport->mapTo(&window, from) + QPoint(60, 40));
    });
    letGo.start(50);
    QTest::mousePress(viewport, Qt::LeftButton, {}, from);
    for (const int by : {20, 40, 60}) {
        const QPoint point = from + QPoint(by, 20);
        QMouseEvent move(QEvent::MouseMove, point, viewport->mapToGlobal(point), Qt::LeftButton,
                         Qt::LeftButton, {});
        QCoreApplication::sendEvent(viewport, &move);
    }
    letGo.stop();
    QVERIFY(wasDragged);
    QVERIFY(settled::processAll());
    QCOMPARE(window.shownNames(), (QStringList{s("b.mid"), s("a.mid")}));
    for (int row = 0; row < 2; ++row)
        QVERIFY(QFile::exists(window.model()->fileName(row)));
}

void TestListDrag::nothingIsDraggedDuringAWorkflow()
{
    WindowUnderTest window;
    importTwo(window, m_songs);
    bool enabled = true;
    ModalAnswers user;
    user.add([&](QWidget *modal) {
        enabled = window.table()->dragEnabled();
        modal->close();
        return true;
    });
    window.action("actionAbout")->trigger();
    QVERIFY(!enabled);
    QVERIFY(window.table()->dragEnabled());
}

int main(int argc, char *argv[])
{
    return runAppTest<TestListDrag>(argc, argv);
}

#include "test_listdrag.moc"
