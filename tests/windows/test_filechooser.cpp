// The one kind of chooser for files and folders.
#include "library/settings.h"
#include "support/mountedcard.h"
#include "support/ownfolders.h"
#include "support/shorttext.h"
#include "support/userdriver.h"
#include "windows/filechooser.h"
#include "windows/transferdialogs.h"

#include <QFileDialog>

#include <functional>
#include <memory>

class TestFileChooser : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_card.reset(); }

    void allChoosersAreOfOneKind_data();
    void allChoosersAreOfOneKind();
    void memoryUsedLastIsOfferedFirst();
    void memoryThatIsNotThereIsNotOffered();
    void folderOnAMemoryBeginsAtTheOneUsedLast_data();
    void folderOnAMemoryBeginsAtTheOneUsedLast();
    void transferIsAUse();
    void chosenFileAndFilterAreReturned();
    void nothingChosenIsEmpty();

private:
    QString memory(const char *name) const
    {
        return m_card->mountDirectory() + QLatin1Char('/') + s(name);
    }

    /** Opens a chooser, looks at it and leaves it without a choice. */
    static void look(const std::function<void()> &open,
                     const std::function<void(const QFileDialog &)> &look)
    {
        bool seen = false;
        ModalAnswers user;
        user.add([&](QWidget *window) {
            auto *const dialog = qobject_cast<QFileDialog *>(window);
            if (dialog == nullptr)
                return false;
            look(*dialog);
            seen = true;
            dialog->reject();
            return true;
        });
        open();
        QVERIFY(seen);
    }

    /** The folders at the side of the chooser, those of the mount directory by their names. */
    QStringList side(const QFileDialog &dialog) const
    {
        QStringList places;
        for (const QUrl &url : dialog.sidebarUrls()) {
            const QString path = url.toLocalFile();
            places << (path.startsWith(m_card->mountDirectory()) ? QFileInfo(path).fileName()
                                                                 : path);
        }
        return places;
    }

    std::unique_ptr<MountedCard> m_card;
};

void TestFileChooser::init()
{
    OwnSettings::clear();
    m_card = std::make_unique<MountedCard>();
    for (const char *name : {"ALPHA", "STICK"})
        QVERIFY(QDir().mkpath(memory(name)));
}

void TestFileChooser::allChoosersAreOfOneKind_data()
{
    QTest::addColumn<int>("kind");
    for (int kind = 0; kind < 5; ++kind)
        QTest::addRow("%d", kind) << kind;
}

void TestFileChooser::allChoosersAreOfOneKind()
{
    QFETCH(int, kind);
    const QStringList filters{s("Songs (*.mid)"), s("All (*)")};
    const std::function<void()> open[] = {
        [&] { filechooser::openFile(nullptr, s("T"), m_card->music(), filters); },
        [&] { filechooser::openFiles(nullptr, s("T"), m_card->music(), filters); },
        [&] {
            filechooser::saveFile(nullptr, {s("T"), m_card->music(), filters, s("mid"), s("a")});
        },
        [&] { filechooser::folder(nullptr, s("T"), m_card->music()); },
        [&] { filechooser::memoryFolder(nullptr, s("T"), m_card->music()); }};
    look(open[kind], [&](const QFileDialog &dialog) {
        QCOMPARE(dialog.windowTitle(), s("T"));
        QCOMPARE(dialog.directory().path(), m_card->music());
        QVERIFY(dialog.testOption(QFileDialog::DontUseNativeDialog));
        QCOMPARE(side(dialog).mid(0, 3), (QStringList{s("ALPHA"), s("CARD"), s("STICK")}));
        QVERIFY(side(dialog).contains(QDir::homePath()));
        if (kind < 3)
            QCOMPARE(dialog.nameFilters(), filters);
    });
}

void TestFileChooser::memoryUsedLastIsOfferedFirst()
{
    OwnSettings::set(settings::mediaRoot, memory("STICK") + s("/songs/pop"));
    look([&] { filechooser::openFiles(nullptr, s("T"), QString(), {}); },
         [&](const QFileDialog &dialog) {
             QCOMPARE(side(dialog).mid(0, 3), (QStringList{s("STICK"), s("ALPHA"), s("CARD")}));
         });
}

void TestFileChooser::memoryThatIsNotThereIsNotOffered()
{
    OwnSettings::set(settings::mediaRoot, memory("PULLED"));
    look([&] { filechooser::openFiles(nullptr, s("T"), QString(), {}); },
         [&](const QFileDialog &dialog) {
             QCOMPARE(side(dialog).constFirst(), s("ALPHA"));
             QVERIFY(!side(dialog).contains(s("PULLED")));
         });
}

void TestFileChooser::folderOnAMemoryBeginsAtTheOneUsedLast_data()
{
    QTest::addColumn<QString>("last");
    QTest::addColumn<QString>("begin"); // empty: where the window wants it
    QTest::newRow("none") << QString() << QString();
    QTest::newRow("its root") << s("%1/STICK") << s("%1/STICK");
    QTest::newRow("a folder on it") << s("%1/STICK/songs") << s("%1/STICK");
    QTest::newRow("one that was pulled") << s("%1/PULLED") << QString();
    QTest::newRow("a folder of the computer") << s("%1/../music") << QString();
    QTest::newRow("the mount directory") << s("%1") << QString();
    QTest::newRow("no folder") << s("nonsense") << QString();
}

void TestFileChooser::folderOnAMemoryBeginsAtTheOneUsedLast()
{
    QFETCH(QString, last);
    QFETCH(QString, begin);
    OwnSettings::set(settings::mediaRoot, last.replace(s("%1"), m_card->mountDirectory()));
    begin = begin.isEmpty() ? m_card->music() : begin.replace(s("%1"), m_card->mountDirectory());
    look([&] { filechooser::memoryFolder(nullptr, s("T"), m_card->music()); },
         [&](const QFileDialog &dialog) { QCOMPARE(dialog.directory().path(), begin); });
}

void TestFileChooser::transferIsAUse()
{
    QDir().mkpath(memory("STICK") + s("/songs"));
    UserDriver user;
    user.pick({memory("STICK") + s("/songs")});
    user.pick({m_card->music()});
    TransferDialogs dialogs(nullptr);
    QCOMPARE(dialogs.chooseFolder(s("T"), m_card->music()), memory("STICK") + s("/songs"));
    QCOMPARE(OwnSettings::value(settings::mediaRoot).toString(), memory("STICK"));
    dialogs.chooseFolder(s("T"), m_card->music()); // no memory
    dialogs.chooseFolder(s("T"), m_card->music()); // no choice
    QCOMPARE(OwnSettings::value(settings::mediaRoot).toString(), memory("STICK"));
}

void TestFileChooser::chosenFileAndFilterAreReturned()
{
    const QString song = m_card->write(m_card->music() + s("/SONG.MID"), "x");
    UserDriver user;
    user.pick({song});
    user.pick({m_card->music() + s("/list")});
    QCOMPARE(filechooser::openFile(nullptr, s("T"), m_card->music(), {s("Songs (*.mid)")}), song);
    const auto [path, filter] = filechooser::saveFile(
        nullptr, {s("T"), m_card->music(), {s("One (*.m3u8)"), s("Two (*.m3u8)")}, s("m3u8"), {}});
    QCOMPARE(path, m_card->music() + s("/list.m3u8"));
    QCOMPARE(filter, s("One (*.m3u8)"));
}

void TestFileChooser::nothingChosenIsEmpty()
{
    const UserDriver user;
    const QString start = m_card->music();
    QVERIFY(filechooser::openFile(nullptr, s("T"), start, {}).isEmpty());
    QVERIFY(filechooser::openFiles(nullptr, s("T"), start, {}).isEmpty());
    QVERIFY(filechooser::folder(nullptr, s("T"), start).isEmpty());
    QVERIFY(filechooser::saveFile(nullptr, {s("T"), start, {s("A (*.a)")}, s("a"), s("b")})
                .path.isEmpty());
}

int main(int argc, char *argv[])
{
    const OwnSettings ownSettings;
    QApplication application(argc, argv);
    TestFileChooser test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_filechooser.moc"
