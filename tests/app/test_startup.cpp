// Start-up: the settings of a first run, the log and its banner, the choice of the language.
#include "app/startup.h"
#include "app/translation.h"
#include "formats/diagnostics.h"
#include "support/ownfolders.h"

#include <QCoreApplication>
#include <QTranslator>

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

/** What the log holds, line by line, without the time stamps. */
QStringList logLines()
{
    QFile log(QStringLiteral("log.txt"));
    if (!log.open(QIODevice::ReadOnly))
        return {};
    constexpr int stampLength = 21;
    QStringList lines;
    const QList<QByteArray> raw = log.readAll().split('\n');
    for (const QByteArray &line : raw) {
        if (!line.isEmpty())
            lines << QString::fromUtf8(line).mid(stampLength);
    }
    return lines;
}

const QStringList banner{
    QStringLiteral(
        "D| |==============================================================================| "),
    QStringLiteral(
        "D| V ========================  Log start  ======================================= V "),
    QStringLiteral("D| (c)K-Ravo Kavena PC "),
    QStringLiteral("D| Version:  1.76 "),
    QStringLiteral("D| Build:    Oct  1 2012 - 09:39:03 "),
    QStringLiteral("D|  "),
};

bool write(const QString &fileName, const QByteArray &bytes)
{
    QFile file(fileName);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QString programText(const char *text)
{
    return QCoreApplication::translate("MainWindow", text);
}

/** A text of Qt's own dialogs. */
QString qtText()
{
    return QCoreApplication::translate("QPlatformTheme", "Cancel");
}

} // namespace

class TestStartup : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        OwnSettings::clear();
        m_folder.reset(new OwnWorkingFolder);
    }
    void cleanup()
    {
        qInstallMessageHandler(nullptr);
        m_folder.reset();
    }

    void firstRunIsGermanAndStoresIt();
    void firstRunWritesNoLog();
    void germanInstallsQtsTextsToo();
    void everyOtherLanguageIsEnglish_data();
    void everyOtherLanguageIsEnglish();
    void everyTranslationIsEmbedded_data();
    void everyTranslationIsEmbedded();
    void eachStartAppendsItsBanner();
    void clearedLogHoldsOnlyThisRun();
    void logIsNotClearedWhileItIsOff();
    void clearingAMissingLogIsFine();
    void limitForFileSizesLetsAWriteFailAndNotTheProgram();

private:
    QScopedPointer<OwnWorkingFolder> m_folder;
};

void TestStartup::firstRunIsGermanAndStoresIt()
{
    QTranslator program;
    QTranslator qt;
    Startup startup;
    QVERIFY(!OwnSettings::value(settings::language).isValid());
    startup.setUpTranslation(program, qt);
    QCOMPARE(OwnSettings::value(settings::language).toString(), QStringLiteral("de"));
    QCOMPARE(programText("Esci"), QStringLiteral("&Beenden"));
    QCOMPARE(programText("Kavena PC"), QStringLiteral("RB27 Utility"));
}

void TestStartup::firstRunWritesNoLog()
{
    const Startup startup;
    startup.setUpLog();
    logDebug() << "abc";
    QVERIFY(QDir().isEmpty());
}

void TestStartup::germanInstallsQtsTextsToo()
{
    OwnSettings::set(settings::language, QStringLiteral("de"));
    QTranslator program;
    QTranslator qt;
    Startup().setUpTranslation(program, qt);
    QCOMPARE(programText("Esci"), QStringLiteral("&Beenden"));
    QCOMPARE(qtText(), QStringLiteral("Abbrechen"));
}

void TestStartup::everyOtherLanguageIsEnglish_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("English") << "en";
    QTest::newRow("Italian") << "it";
    QTest::newRow("unknown") << "fr";
    QTest::newRow("empty") << "";
}

void TestStartup::everyOtherLanguageIsEnglish()
{
    QFETCH(QString, language);
    OwnSettings::set(settings::language, language);
    QTranslator program;
    QTranslator qt;
    Startup().setUpTranslation(program, qt);
    QCOMPARE(programText("Esci"), QStringLiteral("&Quit"));
    QCOMPARE(programText("Kavena PC"), QStringLiteral("RB27 Utility"));
    QCOMPARE(qtText(), QStringLiteral("Cancel"));
    QVERIFY(qt.isEmpty());
    QCOMPARE(OwnSettings::value(settings::language).toString(), language);
}

void TestStartup::everyTranslationIsEmbedded_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name :
         {"quorvane_de", "quorvane_en", "kavenapc_en", "kavenapc_it", "qt_de", "qt_it"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestStartup::everyTranslationIsEmbedded()
{
    QFETCH(QString, name);
    QTranslator translator;
    QVERIFY(translator.load(QStringLiteral(":/trans/") + name));
    QVERIFY(!translator.isEmpty());
}

void TestStartup::eachStartAppendsItsBanner()
{
    OwnSettings::set(settings::logEnabled, true);
    Startup().setUpLog();
    QCOMPARE(logLines(), banner);
    logDebug() << "of the first run";
    Startup().setUpLog();
    QCOMPARE(logLines(), banner + QStringList{QStringLiteral("D| of the first run ")} + banner);
}

void TestStartup::clearedLogHoldsOnlyThisRun()
{
    OwnSettings::set(settings::logEnabled, true);
    OwnSettings::set(settings::logClear, true);
    QVERIFY(write(QStringLiteral("log.txt"), "of an old run\n"));
    Startup().setUpLog();
    QCOMPARE(logLines(), banner);
}

void TestStartup::logIsNotClearedWhileItIsOff()
{
    OwnSettings::set(settings::logClear, true);
    QVERIFY(write(QStringLiteral("log.txt"), "[01-10-2012 09:39:03]W| abc\n"));
    Startup().setUpLog();
    QCOMPARE(logLines(), QStringList{QStringLiteral("W| abc")});
}

void TestStartup::clearingAMissingLogIsFine()
{
    OwnSettings::set(settings::logEnabled, true);
    OwnSettings::set(settings::logClear, true);
    Startup().setUpLog();
    QCOMPARE(logLines(), banner);
}

void TestStartup::limitForFileSizesLetsAWriteFailAndNotTheProgram()
{
    // In a child process: the limit and what the program does about the signal stay with it.
    constexpr int writeFailed = 7;
    const auto childEndsWith = [](bool startsUp) {
        const pid_t child = fork();
        if (child == 0) {
            std::signal(SIGXFSZ, SIG_DFL);
            if (startsUp)
                Startup();
            rlimit limit{};
            getrlimit(RLIMIT_FSIZE, &limit);
            limit.rlim_cur = 100;
            setrlimit(RLIMIT_FSIZE, &limit);
            QFile song(QStringLiteral("song.mid"));
            const bool written = song.open(QIODevice::WriteOnly | QIODevice::Unbuffered) &&
                                 song.write(QByteArray(200, 'x')) == 200;
            _exit(written ? 0 : writeFailed);
        }
        int status = 0;
        waitpid(child, &status, 0);
        return status;
    };
    const int withoutStartup = childEndsWith(false);
    QVERIFY(WIFSIGNALED(withoutStartup));
    QCOMPARE(WTERMSIG(withoutStartup), SIGXFSZ);
    const int withStartup = childEndsWith(true);
    QVERIFY(WIFEXITED(withStartup));
    QCOMPARE(WEXITSTATUS(withStartup), writeFailed);
}

int main(int argc, char *argv[])
{
    const OwnSettings ownSettings;
    QCoreApplication application(argc, argv);
    TestStartup test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_startup.moc"
