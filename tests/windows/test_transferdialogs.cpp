// The transfer onto a memory through the real windows.
#include "devindex/transfer.h"
#include "support/mountedcard.h"
#include "support/ownfolders.h"
#include "support/transferfixture.h"
#include "support/userdriver.h"
#include "windows/nocopyrightdialog.h"
#include "windows/progresswindow.h"
#include "windows/transferdialogs.h"

#include <QTest>
#include <QTextEdit>

#include <memory>

using namespace transferfixture;

class TestTransferDialogs : public TransferFixture
{
    Q_OBJECT

private slots:
    void init() { TransferFixture::init(); }
    void cleanup() { TransferFixture::cleanup(); }

    void realWindowsDoTheWholeJob();
    void namesOfFailedSongsAreShownOnRequest();
    void namesOfSkippedSongsAreShownOnRequest();
    void roomQuestionsDefaultIsNo();
};

void TestTransferDialogs::realWindowsDoTheWholeJob()
{
    QWidget window;
    window.show();
    m_card->writeOnCard(QStringLiteral("pop/song1.mid"), MountedCard::midi("OLD"));
    UserDriver user;
    user.pick({m_card->path(QStringLiteral("pop"))});
    user.click<NoCopyrightDialog>(QStringLiteral("yesPushButton"));
    user.pressInMessageBoxes(QMessageBox::Ok);

    TransferDialogs dialogs(&window);
    Transfer job(dialogs, [&window](const QString &title, const QString &label, int maximum) {
        return std::make_unique<ProgressWindow>(title, label, maximum, &window);
    });
    QCOMPARE(job.transferFiles(someSongs(3)), Transfer::Outcome::Complete);
    QVERIFY(user.allPicked());
    QCOMPARE(user.messages(), QStringList({successText, countsText(3, 0, 0)}));
    QCOMPARE(m_card->read(QStringLiteral("pop/song1.mid")), MountedCard::midi("SONG 1"));
    QCOMPARE(m_card->indexedPaths().size(), 3);
    QVERIFY(QApplication::activeModalWidget() == nullptr);

    // A chooser that is cancelled, a folder that is refused, a file that fails.
    QCOMPARE(job.transferFiles(someSongs(3)), Transfer::Outcome::NotStarted);
    user.pick({m_card->music()});
    QCOMPARE(job.transferFiles(someSongs(3)), Transfer::Outcome::NotStarted);
    user.pick({m_card->path(QStringLiteral("pop"))});
    QCOMPARE(job.transferFiles({m_card->music() + QStringLiteral("/gone.mid")}),
             Transfer::Outcome::Incomplete);
    QCOMPARE(user.messages(), QStringList({successText, countsText(3, 0, 0), systemDiskText,
                                           failureText, countsText(0, 0, 1)}));
}

void TestTransferDialogs::namesOfFailedSongsAreShownOnRequest()
{
    TransferDialogs dialogs(nullptr);
    const QString text = QStringLiteral("Song non copiate (errori): 2");
    const QStringList failed = {QStringLiteral("<b>a.mid"), QStringLiteral("b.mid")};
    for (const QStringList &names : {QStringList(), failed}) {
        ModalAnswers user;
        QString shownText;
        bool offersNames = false;
        bool namesAtFirst = false;
        QString shownNames;
        user.add([&](QWidget *window) {
            auto *const box = qobject_cast<QMessageBox *>(window);
            auto *const list = box->findChild<QTextEdit *>();
            shownText = box->text();
            QAbstractButton *request = nullptr;
            for (QAbstractButton *const button : box->buttons()) {
                if (box->buttonRole(button) == QMessageBox::ActionRole)
                    request = button;
            }
            offersNames = request != nullptr;
            if (offersNames) {
                namesAtFirst = list->isVisible();
                QTest::mouseClick(request, Qt::LeftButton);
                shownNames = list->isVisible() ? list->toPlainText() : QString();
            }
            QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
            return true;
        });
        dialogs.tellCounts(QStringLiteral("Trasferimento"), text, names, {});
        QCOMPARE(shownText, text);
        QCOMPARE(offersNames, !names.isEmpty());
        QVERIFY(!namesAtFirst);
        QCOMPARE(shownNames, names.join(QLatin1Char('\n')));
    }
}

void TestTransferDialogs::namesOfSkippedSongsAreShownOnRequest()
{
    TransferDialogs dialogs(nullptr);
    ModalAnswers user;
    QString details;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    user.add([&](QWidget *window) {
        auto *const box = qobject_cast<QMessageBox *>(window);
        details = box->detailedText();
        icon = box->icon();
        QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
        return true;
    });
    dialogs.tellCounts(QStringLiteral("Trasferimento"), QStringLiteral("text"), {},
                       {QStringLiteral("a.mid: why"), QStringLiteral("%1.mid: why not")});
    QCOMPARE(details, QStringLiteral("a.mid: why\n%1.mid: why not"));
    QCOMPARE(icon, QMessageBox::Information);
    dialogs.tellCounts(QStringLiteral("Trasferimento"), QStringLiteral("text"),
                       {QStringLiteral("b.mid: la memoria è piena")},
                       {QStringLiteral("a.mid: why")});
    QCOMPARE(details, QStringLiteral("b.mid: la memoria è piena\na.mid: why"));
    QCOMPARE(icon, QMessageBox::Warning);
    dialogs.tellPresent({QStringLiteral("c.mid: where")});
    dialogs.tellCounts(QStringLiteral("Trasferimento"), QStringLiteral("text"), {},
                       {QStringLiteral("a.mid: why")});
    QCOMPARE(details, QStringLiteral("a.mid: why\nc.mid: where"));
    dialogs.tellCounts(QStringLiteral("Trasferimento"), QStringLiteral("text"), {},
                       {QStringLiteral("a.mid: why")});
    QCOMPARE(details, QStringLiteral("a.mid: why")); // they are told once
}

void TestTransferDialogs::roomQuestionsDefaultIsNo()
{
    TransferDialogs dialogs(nullptr);
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
        ModalAnswers user;
        QString shown;
        user.add([&shown, key](QWidget *window) {
            shown = window->windowTitle();
            QTest::keyClick(window, key);
            return true;
        });
        QVERIFY(!dialogs.askAnyway(QStringLiteral("Trasferimento"), QStringLiteral("mancano")));
        QCOMPARE(shown, QStringLiteral("Trasferimento"));
    }
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Yes);
    QVERIFY(dialogs.askAnyway(QStringLiteral("Trasferimento"), QStringLiteral("mancano")));
}

int main(int argc, char **argv)
{
    const OwnSettings ownSettings;
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication app(argc, argv);
    TestTransferDialogs test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_transferdialogs.moc"
