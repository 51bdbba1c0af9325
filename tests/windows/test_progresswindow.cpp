// The progress dialog of long jobs, as a job and a user meet it.
#include "support/shorttext.h"
#include "windows/pacelabel.h"
#include "windows/progresswindow.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace
{
QPushButton *cancelButton(ProgressWindow &progress)
{
    return progress.dialog().findChild<QPushButton *>();
}

QString labelText(ProgressWindow &progress)
{
    return progress.dialog().findChild<QLabel *>()->text();
}

/** A click where the user would click, which a modal window above would swallow. */
void clickAsUser(QWidget *target)
{
    QWidget *const window = target->window();
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {},
                      target->mapTo(window, target->rect().center()));
}
} // namespace

class TestProgressWindow : public QObject
{
    Q_OBJECT

private slots:
    void isShownAtOnceWithItsTexts();
    void isShownWithoutAnythingToDo();
    void progressIsLabelledBeforeTheValueMoves();
    void labelTellsTheMaximumOfTheDialog();
    void paceHasALineOfItsOwn();
    void paceIsToldAfterSomeSeconds();
    void staysAtItsMaximum();
    void cancelButtonIsRemembered();
    void escapeIsRemembered();
    void jobThatGoesOnAfterCancelStaysBehindTheDialog();
    void cancelledDialogKeepsTheMainWindowShut_data();
    void cancelledDialogKeepsTheMainWindowShut();
    void mainWindowTakesNoClicks();
    void closesWhenTheJobEnds();
    void endOfTheJobIsNoCancellation();
};

void TestProgressWindow::isShownAtOnceWithItsTexts()
{
    QWidget parent;
    parent.show();
    ProgressWindow progress(s("Lettura file"), s("Importo la libreria..."), 7, &parent);
    QVERIFY(progress.dialog().isVisible());
    QCOMPARE(progress.dialog().windowTitle(), s("Lettura file"));
    QCOMPARE(labelText(progress), s("Importo la libreria..."));
    QCOMPARE(cancelButton(progress)->text(), s("Interrompi"));
    QCOMPARE(progress.dialog().minimum(), 0);
    QCOMPARE(progress.dialog().maximum(), 7);
    QCOMPARE(progress.dialog().value(), 0);
    QCOMPARE(progress.dialog().parentWidget(), &parent);
    QCOMPARE(progress.dialog().windowModality(), Qt::WindowModal);
    QVERIFY(!progress.wasCanceled());
}

void TestProgressWindow::isShownWithoutAnythingToDo()
{
    ProgressWindow progress(s("t"), s("l"), 0, nullptr);
    QVERIFY(progress.dialog().isVisible());
    progress.setValue(0);
    progress.updateProgress(1);
    QVERIFY(progress.dialog().isVisible());
}

void TestProgressWindow::progressIsLabelledBeforeTheValueMoves()
{
    ProgressWindow progress(s("t"), s("l"), 10, nullptr);
    QString labelAtMove;
    connect(progress.dialog().findChild<QProgressBar *>(), &QProgressBar::valueChanged, this,
            [&] { labelAtMove = labelText(progress); });
    progress.updateProgress(3);
    QCOMPARE(labelAtMove, s("3 di 10"));
    QCOMPARE(progress.dialog().value(), 3);
}

void TestProgressWindow::labelTellsTheMaximumOfTheDialog()
{
    ProgressWindow progress(s("t"), s("l"), 10, nullptr);
    progress.setMaximum(25);
    progress.updateProgress(4);
    QCOMPARE(labelText(progress), s("4 di 25"));
    progress.setValue(5);
    QCOMPARE(progress.dialog().value(), 5);
    QCOMPARE(labelText(progress), s("4 di 25"));
}

void TestProgressWindow::paceHasALineOfItsOwn()
{
    ProgressWindow progress(s("t"), s("Importo la libreria..."), 10, nullptr);
    auto *const label = progress.dialog().findChild<PaceLabel *>();
    auto *const pace = progress.dialog().findChild<QLabel *>(s("paceLabel"));
    const QSize before = progress.dialog().size();
    label->setPace(s("Song al secondo: 1234 – ancora 119 minuti circa"));
    QCOMPARE(labelText(progress), s("Importo la libreria..."));
    QCOMPARE(progress.dialog().size(), before);
    QVERIFY(pace->isVisible());
    QVERIFY(pace->width() >= pace->sizeHint().width());
    QVERIFY(pace->height() >= pace->fontMetrics().height());
    QVERIFY(label->rect().contains(pace->geometry()));
    QVERIFY(label->contentsRect().bottom() < pace->geometry().top());
    QVERIFY(label->contentsRect().height() >= label->fontMetrics().height());
}

void TestProgressWindow::paceIsToldAfterSomeSeconds()
{
    ProgressWindow progress(s("t"), s("l"), 1000000, nullptr);
    const auto *const pace = progress.dialog().findChild<QLabel *>(s("paceLabel"));
    QElapsedTimer age;
    age.start();
    int done = 0;
    QVERIFY(QTest::qWaitFor(
        [&] {
            progress.updateProgress(++done);
            return !pace->text().isEmpty();
        },
        30000));
    QVERIFY(age.elapsed() >= JobPace::silentMilliseconds - 100);
    QVERIFY2(pace->text().startsWith(s("Song al secondo: ")), qPrintable(pace->text()));
    QVERIFY(pace->text().contains(s("ancora")));
    QCOMPARE(labelText(progress), QStringLiteral("%1 di 1000000").arg(done));
}

void TestProgressWindow::staysAtItsMaximum()
{
    ProgressWindow progress(s("t"), s("l"), 2, nullptr);
    progress.updateProgress(1);
    clickAsUser(cancelButton(progress));
    QVERIFY(progress.wasCanceled());
    progress.updateProgress(2);
    QCoreApplication::processEvents();
    QVERIFY(progress.dialog().isVisible());
    QCOMPARE(progress.dialog().value(), 2);
    QVERIFY(progress.wasCanceled());
}

void TestProgressWindow::cancelButtonIsRemembered()
{
    ProgressWindow progress(s("t"), s("l"), 5, nullptr);
    progress.setValue(2);
    QVERIFY(!progress.wasCanceled());
    clickAsUser(cancelButton(progress));
    QVERIFY(progress.wasCanceled());
}

void TestProgressWindow::escapeIsRemembered()
{
    ProgressWindow progress(s("t"), s("l"), 5, nullptr);
    QVERIFY(QTest::qWaitForWindowActive(&progress.dialog()));
    QTest::keyClick(progress.dialog().windowHandle(), Qt::Key_Escape);
    QVERIFY(progress.wasCanceled());
}

void TestProgressWindow::jobThatGoesOnAfterCancelStaysBehindTheDialog()
{
    ProgressWindow progress(s("t"), s("l"), 5, nullptr);
    progress.setValue(2);
    clickAsUser(cancelButton(progress));
    progress.setValue(3);
    QVERIFY(progress.dialog().isVisible());
    QCOMPARE(progress.dialog().value(), 3);
    QVERIFY(progress.wasCanceled());
}

void TestProgressWindow::cancelledDialogKeepsTheMainWindowShut_data()
{
    QTest::addColumn<bool>("byButton");
    QTest::newRow("cancel button") << true;
    QTest::newRow("close box") << false;
}

void TestProgressWindow::cancelledDialogKeepsTheMainWindowShut()
{
    QFETCH(bool, byButton);
    QWidget parent;
    parent.resize(400, 300);
    auto *const button = new QPushButton(&parent);
    button->resize(400, 300);
    parent.show();
    QVERIFY(QTest::qWaitForWindowExposed(&parent));
    QSignalSpy clicked(button, &QPushButton::clicked);
    ProgressWindow progress(s("t"), s("l"), 5, &parent);
    progress.setValue(2);
    if (byButton)
        clickAsUser(cancelButton(progress));
    else
        progress.dialog().close();
    // A job that cannot be stopped, or not at once: it may take long before the next step shows.
    QCoreApplication::processEvents();
    QVERIFY(progress.dialog().isVisible());
    QCOMPARE(QApplication::activeModalWidget(), &progress.dialog());
    clickAsUser(button);
    QCOMPARE(clicked.size(), 0);
    QVERIFY(progress.wasCanceled());
}

void TestProgressWindow::mainWindowTakesNoClicks()
{
    QWidget parent;
    parent.resize(400, 300);
    auto *const button = new QPushButton(&parent);
    button->resize(400, 300);
    parent.show();
    QVERIFY(QTest::qWaitForWindowExposed(&parent));
    QSignalSpy clicked(button, &QPushButton::clicked);
    {
        ProgressWindow progress(s("t"), s("l"), 5, &parent);
        clickAsUser(button);
        progress.setValue(5);
        clickAsUser(button);
        QCOMPARE(clicked.size(), 0);
    }
    clickAsUser(button);
    QCOMPARE(clicked.size(), 1);
}

void TestProgressWindow::closesWhenTheJobEnds()
{
    QWidget parent;
    parent.show();
    {
        ProgressWindow progress(s("t"), s("l"), 5, &parent);
        progress.setValue(5);
        QCOMPARE(QApplication::activeModalWidget(), &progress.dialog());
    }
    QVERIFY(QApplication::activeModalWidget() == nullptr);
    QVERIFY(parent.findChildren<QProgressDialog *>().isEmpty());
    QVERIFY(parent.isVisible());
}

void TestProgressWindow::endOfTheJobIsNoCancellation()
{
    auto progress = std::make_unique<ProgressWindow>(s("t"), s("l"), 5, nullptr);
    progress->setValue(5);
    QSignalSpy canceled(&progress->dialog(), &QProgressDialog::canceled);
    QSignalSpy lastClosed(qApp, &QGuiApplication::lastWindowClosed);
    progress.reset();
    QCoreApplication::processEvents();
    QCOMPARE(canceled.size(), 0);
    QCOMPARE(lastClosed.size(), 0);
}

QTEST_MAIN(TestProgressWindow)
#include "test_progresswindow.moc"
