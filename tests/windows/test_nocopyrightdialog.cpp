// The four-answer confirmation dialog, driven as a user does.
#include "windows/nocopyrightdialog.h"

#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>

class TestNoCopyrightDialog : public QObject
{
    Q_OBJECT

private slots:
    void eachButtonGivesItsAnswer_data();
    void eachButtonGivesItsAnswer();
    void escapeAndClosingCountAsYes();
    void yesNoOnlyHidesTheAllButtons();
    void showsFileAndMessage();
    void dialogIsAsWideAsTheFileNameNeeds();
    void longFileNameLeavesTheButtonsOnScreen();
};

void TestNoCopyrightDialog::eachButtonGivesItsAnswer_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("answer");
    QTest::newRow("yes") << "yesPushButton" << 0;
    QTest::newRow("yes to all") << "yesAllPushButton" << 1;
    QTest::newRow("no") << "noPushButton" << 2;
    QTest::newRow("no to all") << "noAllPushButton" << 3;
}

void TestNoCopyrightDialog::eachButtonGivesItsAnswer()
{
    QFETCH(QString, button);
    QFETCH(int, answer);
    NoCopyrightDialog dialog;
    QTimer::singleShot(0, &dialog, [&] {
        QTest::mouseClick(dialog.findChild<QPushButton *>(button), Qt::LeftButton);
    });
    QCOMPARE(dialog.exec(), answer);
}

void TestNoCopyrightDialog::escapeAndClosingCountAsYes()
{
    NoCopyrightDialog escaped;
    QTimer::singleShot(0, &escaped, [&] { QTest::keyClick(&escaped, Qt::Key_Escape); });
    QCOMPARE(escaped.exec(), 0);

    NoCopyrightDialog closed;
    QTimer::singleShot(0, &closed, [&] { closed.close(); });
    QCOMPARE(closed.exec(), 0);
}

void TestNoCopyrightDialog::yesNoOnlyHidesTheAllButtons()
{
    NoCopyrightDialog dialog;
    dialog.setYesNoOnly(true);
    dialog.show();
    QVERIFY(dialog.findChild<QPushButton *>(QStringLiteral("yesPushButton"))->isVisible());
    QVERIFY(dialog.findChild<QPushButton *>(QStringLiteral("noPushButton"))->isVisible());
    QVERIFY(!dialog.findChild<QPushButton *>(QStringLiteral("yesAllPushButton"))->isVisible());
    QVERIFY(!dialog.findChild<QPushButton *>(QStringLiteral("noAllPushButton"))->isVisible());
    dialog.setYesNoOnly(false);
    QVERIFY(dialog.findChild<QPushButton *>(QStringLiteral("noAllPushButton"))->isVisible());
}

void TestNoCopyrightDialog::showsFileAndMessage()
{
    NoCopyrightDialog dialog;
    const auto *message = dialog.findChild<QLabel *>(QStringLiteral("label_2"));
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Richiesta conferma"));
    QCOMPARE(message->text(), QStringLiteral("Non è stato pubblicato da K-Ravo. Si vuole procedere "
                                             "comunque con le modifiche?"));
    dialog.setFilename(QStringLiteral("/music/Tanti & cari.mid"));
    dialog.setMessage(QStringLiteral("esiste già, vuoi sostituirlo?"));
    QEvent languageChange(QEvent::LanguageChange);
    QCoreApplication::sendEvent(&dialog, &languageChange);
    QCOMPARE(dialog.findChild<QLabel *>(QStringLiteral("fileNameLabel"))->text(),
             QStringLiteral("/music/Tanti & cari.mid"));
    QCOMPARE(message->text(), QStringLiteral("esiste già, vuoi sostituirlo?"));
}

void TestNoCopyrightDialog::dialogIsAsWideAsTheFileNameNeeds()
{
    NoCopyrightDialog shortName;
    const int width = shortName.width();
    shortName.setFilename(QStringLiteral("/music/short.mid"));
    QCOMPARE(shortName.width(), width);

    NoCopyrightDialog dialog;
    auto *const label = dialog.findChild<QLabel *>(QStringLiteral("fileNameLabel"));
    QString path = QStringLiteral("/music/");
    while (label->fontMetrics().horizontalAdvance(path) < width)
        path += QLatin1Char('w');
    const int widest = dialog.screen()->availableGeometry().width() * 2 / 3;
    dialog.setFilename(path);
    dialog.show();
    QCoreApplication::processEvents();
    QVERIFY(dialog.width() > width || width >= widest);
    QVERIFY(dialog.width() <= qMax(width, widest));
}

void TestNoCopyrightDialog::longFileNameLeavesTheButtonsOnScreen()
{
    // Names as long as file systems allow, without a blank to break the line at.
    const QString path = QStringLiteral("/music/") + QString(250, QLatin1Char('w'));
    NoCopyrightDialog dialog;
    dialog.setFilename(path);
    dialog.show();
    QCoreApplication::processEvents();
    QCOMPARE(dialog.findChild<QLabel *>(QStringLiteral("fileNameLabel"))->text(), path);
    QVERIFY2(dialog.minimumSizeHint().width() <= 800,
             QByteArray::number(dialog.minimumSizeHint().width()).constData());
    QVERIFY(dialog.width() <= dialog.screen()->availableGeometry().width());
}

QTEST_MAIN(TestNoCopyrightDialog)
#include "test_nocopyrightdialog.moc"
