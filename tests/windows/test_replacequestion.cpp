// The question whether a file is replaced, as its window asks it.
#include "devindex/filecopier.h"
#include "support/copyfixture.h"
#include "support/modalanswers.h"
#include "windows/confirmation.h"
#include "windows/nocopyrightdialog.h"

#include <QLabel>
#include <QTest>

using namespace copyfixture;

class TestReplaceQuestion : public CopyFixture
{
    Q_OBJECT

private slots:
    void init() { CopyFixture::init(); }
    void cleanup() { CopyFixture::cleanup(); }

    void questionShowsTargetAndText();
    void closingTheQuestionReplaces();
};

void TestReplaceQuestion::questionShowsTargetAndText()
{
    const QString source = write(QStringLiteral("lib/a.mid"), "new");
    write(QStringLiteral("dest/a.mid"), "old");
    QString shownFile;
    QString shownText;
    ModalAnswers answers;
    answers.add([&](QWidget *window) {
        auto *const dialog = qobject_cast<NoCopyrightDialog *>(window);
        if (dialog == nullptr)
            return false;
        shownFile = dialog->findChild<QLabel *>(QStringLiteral("fileNameLabel"))->text();
        shownText = dialog->findChild<QLabel *>(QStringLiteral("label_2"))->text();
        QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("noPushButton")),
                          Qt::LeftButton);
        return true;
    });
    FileCopier copier(&confirmation::askToReplace);
    QVERIFY(copier.copyFiles({source}, m_dest, m_copied, *m_progress));
    QCOMPARE(m_copied, 0);
    QCOMPARE(shownFile, m_dest + QStringLiteral("/a.mid"));
    QCOMPARE(shownText, QStringLiteral("esiste già, vuoi sostituirlo?"));
    QCOMPARE(read(QStringLiteral("dest/a.mid")), QByteArray("old"));
}

void TestReplaceQuestion::closingTheQuestionReplaces()
{
    const QString source = write(QStringLiteral("lib/a.mid"), "new");
    write(QStringLiteral("dest/a.mid"), "old");
    ModalAnswers answers;
    answers.add([](QWidget *window) {
        QTest::keyClick(window, Qt::Key_Escape);
        return true;
    });
    FileCopier copier(&confirmation::askToReplace);
    QVERIFY(copier.copyFiles({source}, m_dest, m_copied, *m_progress));
    QCOMPARE(read(QStringLiteral("dest/a.mid")), QByteArray("new"));
}

QTEST_MAIN(TestReplaceQuestion)

#include "test_replacequestion.moc"
