// The import summary.
#include "support/germantexts.h"
#include "windows/proceeddialog.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace
{

QString counts(const ProceedDialog &dialog)
{
    return dialog.findChild<QLabel *>(QStringLiteral("msgLabel"))->text();
}

} // namespace

class TestProceedDialog : public QObject
{
    Q_OBJECT

private slots:
    void textsAreThoseOfTheForm();
    void countsExaminedFoundAndSigned();
    void tickMeansNotToShowAgain();
    void escapeAndClosingReject();
    void buttonsAreBoundToNothing_data();
    void buttonsAreBoundToNothing();
    void followsALanguageChange();
};

void TestProceedDialog::textsAreThoseOfTheForm()
{
    const ProceedDialog dialog;
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Riassunto importazione"));
    QCOMPARE(dialog.findChild<QLabel *>(QStringLiteral("label_2"))->text(),
             QStringLiteral("Si vuole procedere alla sincronizzazione automatica con il "
                            "database?"));
    QCOMPARE(dialog.findChild<QCheckBox *>(QStringLiteral("checkBoxShowAgain"))->text(),
             QStringLiteral("Non mostrare più messaggi sul copyright"));
    QCOMPARE(dialog.findChild<QPushButton *>(QStringLiteral("yesPushButton"))->text(),
             QStringLiteral("Si"));
    QCOMPARE(dialog.findChild<QPushButton *>(QStringLiteral("noPushButton"))->text(),
             QStringLiteral("No"));
}

void TestProceedDialog::countsExaminedFoundAndSigned()
{
    ProceedDialog dialog;
    dialog.setFilesCount(3, 1, 2);
    QCOMPARE(counts(dialog), QStringLiteral("Sono stati esaminti 5 files, trovate 3 songs di cui 1 "
                                            "di (c)K-Ravo"));
}

void TestProceedDialog::tickMeansNotToShowAgain()
{
    const ProceedDialog dialog;
    auto *const box = dialog.findChild<QCheckBox *>(QStringLiteral("checkBoxShowAgain"));
    QVERIFY(!box->isChecked());
    QVERIFY(dialog.getShowAgainValue());
    box->click();
    QVERIFY(!dialog.getShowAgainValue());
}

void TestProceedDialog::escapeAndClosingReject()
{
    ProceedDialog escaped;
    QTimer::singleShot(0, &escaped, [&] { QTest::keyClick(&escaped, Qt::Key_Escape); });
    QCOMPARE(escaped.exec(), int(QDialog::Rejected));

    ProceedDialog closed;
    QTimer::singleShot(0, &closed, [&] { closed.close(); });
    QCOMPARE(closed.exec(), int(QDialog::Rejected));
}

void TestProceedDialog::buttonsAreBoundToNothing_data()
{
    QTest::addColumn<QString>("button");
    QTest::newRow("yes") << "yesPushButton";
    QTest::newRow("no") << "noPushButton";
}

void TestProceedDialog::buttonsAreBoundToNothing()
{
    QFETCH(QString, button);
    ProceedDialog dialog;
    bool stayedOpen = false;
    QTimer::singleShot(0, &dialog, [&] {
        QTest::mouseClick(dialog.findChild<QPushButton *>(button), Qt::LeftButton);
        QTest::keyClick(&dialog, Qt::Key_Return);
        stayedOpen = dialog.isVisible();
        dialog.close();
    });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QVERIFY(stayedOpen);
}

void TestProceedDialog::followsALanguageChange()
{
    ProceedDialog dialog;
    dialog.setFilesCount(3, 1, 2);
    dialog.findChild<QCheckBox *>(QStringLiteral("checkBoxShowAgain"))->setChecked(true);
    const GermanTexts german;
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Eingelesene Songs"));
    QCOMPARE(counts(dialog),
             QStringLiteral("Untersuchte Dateien: 5, gefundene Songs: 3, davon von © K-Ravo: 1"));
    QVERIFY(!dialog.getShowAgainValue());
}

QTEST_MAIN(TestProceedDialog)
#include "test_proceeddialog.moc"
