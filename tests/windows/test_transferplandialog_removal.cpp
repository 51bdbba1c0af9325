// The songs of a memory that are not in the list, in the window of a transfer plan: listed on
// request, ticked only by the user, and removed only after a question.
#include "support/plandialogfixture.h"

#include <QTextEdit>

using namespace planfixture;

class TestTransferPlanDialogRemoval : public PlanDialogFixture
{
    Q_OBJECT

private slots:
    void init() { PlanDialogFixture::init(); }
    void cleanup() { PlanDialogFixture::cleanup(); }

    void songsToRemoveAreListedOnRequestAndNotTicked();
    void songsThatAreHiddenAgainAreNotRemoved();
    void removalIsAskedWithCountAndNames();
    void manyNamesDoNotMakeALargeBox();
};

void TestTransferPlanDialogRemoval::songsToRemoveAreListedOnRequestAndNotTicked()
{
    open(inLine(), Purpose::Request);
    QCOMPARE(m_window->tree->model()->rowCount(), 1);
    QVERIFY(!m_window->others->isChecked());
    PlanWindow::click(m_window->others);
    QCOMPARE(m_window->groups().last(),
             s("Nella memoria, ma non nell'elenco: 2 | Resta | 65.5 kB"));
    for (const int row : {0, 1})
        QCOMPARE(m_window->song(1, row).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
    QCOMPARE(m_dialog->plan().count(Remedy::Remove), 0);

    // With the mouse on the box, with the space bar, and for the whole group.
    const QRect row = m_window->tree->visualRect(m_window->song(1, 0));
    QTest::mouseClick(m_window->tree->viewport(), Qt::LeftButton, {},
                      QPoint(row.left() + 10, row.center().y()));
    QCOMPARE(m_dialog->plan().count(Remedy::Remove), 1);
    m_window->select(m_window->song(1, 1));
    m_window->tree->setFocus();
    QTest::keyClick(m_window->tree, Qt::Key_Space);
    QCOMPARE(m_dialog->plan().count(Remedy::Remove), 2);
    QVERIFY(m_window->counts->text().contains(s("Rimosse: 2.")));
    m_window->select(m_window->group(1));
    QVERIFY(m_window->choose(s("Resta")));
    QCOMPARE(m_dialog->plan().count(Remedy::Remove), 0);
}

void TestTransferPlanDialogRemoval::songsThatAreHiddenAgainAreNotRemoved()
{
    open(inLine(), Purpose::Request);
    PlanWindow::click(m_window->others);
    m_window->select(m_window->group(1));
    QVERIFY(m_window->choose(s("Rimuovi dalla memoria")));
    QCOMPARE(m_dialog->plan().count(Remedy::Remove), 2);
    PlanWindow::click(m_window->others);
    QCOMPARE(m_dialog->plan().count(Remedy::Remove), 0);
    PlanWindow::click(m_window->carryOut); // without a question
    QCOMPARE(m_dialog->review(), Review::CarryOut);
}

void TestTransferPlanDialogRemoval::removalIsAskedWithCountAndNames()
{
    open(inLine(), Purpose::Request);
    PlanWindow::click(m_window->others);
    m_window->select(m_window->group(1));
    QVERIFY(m_window->choose(s("Rimuovi dalla memoria")));
    const QString question = s("Piano di trasferimento: Song da rimuovere dalla memoria: 2\n"
                               "Vengono cancellate per sempre, con le loro immagini karaoke. "
                               "Rimuoverle?\n\n/pop/old1.mid\n/pop/old2.mid");
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
        ModalAnswers user;
        user.add([&](QWidget *window) {
            if (qobject_cast<QMessageBox *>(window) == nullptr)
                return false;
            QTest::keyClick(window, key);
            return true;
        });
        PlanWindow::click(m_window->carryOut);
        QVERIFY(m_dialog->isVisible());
        QCOMPARE(m_dialog->review(), Review::Cancel);
    }
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Yes);
    PlanWindow::click(m_window->carryOut);
    QCOMPARE(user.messages(), QStringList(question));
    QCOMPARE(m_dialog->review(), Review::CarryOut);
    QCOMPARE(m_dialog->plan().count(Remedy::Remove), 2);
}

void TestTransferPlanDialogRemoval::manyNamesDoNotMakeALargeBox()
{
    for (int i = 0; i < 25; ++i)
        onCard(s("pop/s%1.mid").arg(i, 2, 10, QLatin1Char('0')), QByteArray::number(i));
    onCard(s("pop/<b>.mid"), "MARKUP");
    open(plan({song(s("new.mid"), "NEW")}, true), Purpose::Request);
    PlanWindow::click(m_window->others);
    m_window->select(m_window->group(1));
    QVERIFY(m_window->choose(s("Rimuovi dalla memoria")));
    ModalAnswers user;
    int lines = 0;
    QStringList details;
    Qt::TextFormat format = Qt::AutoText;
    QSize room;
    QSize size;
    user.add([&](QWidget *window) {
        auto *const box = qobject_cast<QMessageBox *>(window);
        if (box == nullptr)
            return false;
        lines = static_cast<int>(box->text().count(QLatin1Char('\n')));
        details = box->detailedText().split(QLatin1Char('\n'));
        format = box->textFormat();
        for (QAbstractButton *const button : box->buttons()) {
            if (box->buttonRole(button) == QMessageBox::ActionRole)
                QTest::mouseClick(button, Qt::LeftButton);
        }
        QTest::qWait(0);
        room = box->findChild<QTextEdit *>()->viewport()->size();
        size = box->size();
        QTest::keyClick(box, Qt::Key_Escape);
        return true;
    });
    PlanWindow::click(m_window->carryOut);
    QCOMPARE(lines, 3 + 10);
    QCOMPARE(details.size(), 26);
    QVERIFY(details.contains(s("/pop/<b>.mid")));
    QCOMPARE(format, Qt::PlainText);
    const QFontMetrics letters = m_dialog->fontMetrics();
    QVERIFY(room.width() >= 60 * letters.averageCharWidth());
    QVERIFY(room.height() >= 10 * letters.lineSpacing());
    QVERIFY(size.height() < 40 * letters.lineSpacing());
}

int main(int argc, char **argv)
{
    const OwnSettings ownSettings;
    const QApplication app(argc, argv);
    TestTransferPlanDialogRemoval test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_transferplandialog_removal.moc"
