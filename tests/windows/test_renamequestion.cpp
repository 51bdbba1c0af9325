// The question whether a long name is shortened, as its window asks it.
#include "devindex/index.h"
#include "support/devicememory.h"
#include "support/modalanswers.h"
#include "support/scannedmemory.h"
#include "support/songbytes.h"
#include "windows/confirmation.h"
#include "windows/nocopyrightdialog.h"

#include <QLabel>
#include <QTest>

using namespace songbytes;
using namespace scannedmemory;

class TestRenameQuestion : public QObject
{
    Q_OBJECT

private slots:
    void questionIsShownInTheConfirmationDialog();
};

void TestRenameQuestion::questionIsShownInTheConfirmationDialog()
{
    const DeviceMemory memory;
    const QString full = memory.add(QStringLiteral("My Long Song Name.mid"), plainSong);
    Index index;
    index.setRenameQuestion(&confirmation::ask);
    index.rootPath = memory.root();
    QStringList shown;
    ModalAnswers answers;
    answers.add([&shown](QWidget *window) {
        auto *const dialog = qobject_cast<NoCopyrightDialog *>(window);
        if (dialog == nullptr)
            return false;
        for (const char *label : {"fileNameLabel", "label_2"})
            shown.append(dialog->findChild<QLabel *>(QString::fromUtf8(label))->text());
        dialog->done(NoCopyrightDialog::NoAll);
        return true;
    });
    QCOMPARE(index.renameLongFileName(full), full);
    QCOMPARE(shown.size(), 2);
    QCOMPARE(shown.first(), full);
    QVERIFY(shown.last().startsWith(QStringLiteral("verrà rinominato: ")));
    QCOMPARE(int(index.askBeforeRename), 0);
    QCOMPARE(int(index.renameAccepted), 0);
}

QTEST_MAIN(TestRenameQuestion)

#include "test_renamequestion.moc"
