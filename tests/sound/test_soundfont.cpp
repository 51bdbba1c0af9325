// Which sound font is taken.
#include "sound/soundfont.h"
#include "support/samplesongs.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using samplesongs::writeFile;

class TestSoundFont : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void theChosenOneComesFirst();
    void chosenOneThatIsGoneIsReplaced();
    void theDefaultOfTheSystemComesBeforeOthers();
    void otherFilesAreNoSoundFonts();
    void debiansFoldersAreSearched();

private:
    QString make(const QString &name)
    {
        const QString path = m_folder->filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        if (!writeFile(path, "RIFF"))
            qFatal("cannot write");
        return path;
    }
    QStringList folders() const
    {
        return {m_folder->filePath(QStringLiteral("sf2")),
                m_folder->filePath(QStringLiteral("sf3"))};
    }

    QScopedPointer<QTemporaryDir> m_folder;
};

void TestSoundFont::init()
{
    m_folder.reset(new QTemporaryDir);
}

void TestSoundFont::theChosenOneComesFirst()
{
    make(QStringLiteral("sf2/a.sf2"));
    const QString mine = make(QStringLiteral("mine/x.sf2"));
    QCOMPARE(soundfont::findIn(folders(), mine), mine);
}

void TestSoundFont::chosenOneThatIsGoneIsReplaced()
{
    const QString installed = make(QStringLiteral("sf2/a.sf2"));
    QCOMPARE(soundfont::findIn(folders(), m_folder->filePath(QStringLiteral("gone.sf2"))),
             installed);
    QCOMPARE(soundfont::findIn(folders(), m_folder->path()), installed);
}

void TestSoundFont::theDefaultOfTheSystemComesBeforeOthers()
{
    make(QStringLiteral("sf2/a.sf2"));
    const QString usual = make(QStringLiteral("sf3/default-GM.sf3"));
    QCOMPARE(soundfont::findIn(folders(), QString()), usual);
}

void TestSoundFont::otherFilesAreNoSoundFonts()
{
    make(QStringLiteral("sf2/readme.txt"));
    QCOMPARE(soundfont::findIn(folders(), QString()), QString());
}

void TestSoundFont::debiansFoldersAreSearched()
{
    QVERIFY(soundfont::folders().contains(QStringLiteral("/usr/share/sounds/sf2")));
    QVERIFY(soundfont::folders().contains(QStringLiteral("/usr/share/sounds/sf3")));
}

QTEST_APPLESS_MAIN(TestSoundFont)
#include "test_soundfont.moc"
