// The form of the diagnostic lines that every layer writes.
#include "storage/diagnostics.h"
#include "support/logcapture.h"

#include <QLoggingCategory>
#include <QTest>

namespace
{

QtMsgType lastType = QtFatalMsg;

void keepType(QtMsgType type, const QMessageLogContext &, const QString &)
{
    lastType = type;
}

} // namespace

class TestDiagnostics : public QObject
{
    Q_OBJECT

private slots:
    void aBlankFollowsEveryItem();
    void aLabelThatEndsInABlankGivesTwo();
    void anEmptyMessageIsOneBlank();
    void stringsStandInQuotesWithNothingEscaped();
    void numbersAreDecimal();
    void booleansAreWords();
    void labelsAreUtf8();
    void oneLineForEachStatement();
    void levelsAreHandedOver();
    void filterRulesDoNotSwitchTheLinesOff();
};

void TestDiagnostics::aBlankFollowsEveryItem()
{
    const LogCapture log;
    logDebug() << "[Index] songs:" << 3 << "of" << 5;
    QCOMPARE(log.lines(), QStringList{QStringLiteral("[Index] songs: 3 of 5 ")});
}

void TestDiagnostics::aLabelThatEndsInABlankGivesTwo()
{
    const LogCapture log;
    logDebug() << "[UPDATE] rowIdx: " << 3;
    QCOMPARE(log.lines(), QStringList{QStringLiteral("[UPDATE] rowIdx:  3 ")});
}

void TestDiagnostics::anEmptyMessageIsOneBlank()
{
    const LogCapture log;
    logDebug() << "";
    QCOMPARE(log.lines(), QStringList{QStringLiteral(" ")});
}

void TestDiagnostics::stringsStandInQuotesWithNothingEscaped()
{
    const LogCapture log;
    logDebug() << "file:" << QStringLiteral("C:\\songs\\\"è\" €.mid") << QString();
    QCOMPARE(log.lines(), QStringList{QStringLiteral("file: \"C:\\songs\\\"è\" €.mid\" \"\" ")});
}

void TestDiagnostics::numbersAreDecimal()
{
    const LogCapture log;
    logDebug() << -1 << quint32(4294967295U) << qint64(-9223372036854775807LL - 1)
               << quint64(18446744073709551615ULL) << quint8(200) << quint16(65535);
    QCOMPARE(log.lines(),
             QStringList{QStringLiteral(
                 "-1 4294967295 -9223372036854775808 18446744073709551615 200 65535 ")});
}

void TestDiagnostics::booleansAreWords()
{
    const LogCapture log;
    logDebug() << true << false;
    QCOMPARE(log.lines(), QStringList{QStringLiteral("true false ")});
}

void TestDiagnostics::labelsAreUtf8()
{
    const LogCapture log;
    logDebug() << "caffè";
    QCOMPARE(log.lines(), QStringList{QStringLiteral("caffè ")});
}

void TestDiagnostics::oneLineForEachStatement()
{
    const LogCapture log;
    logDebug() << "first";
    logWarning() << "second";
    QCOMPARE(log.lines(), (QStringList{QStringLiteral("first "), QStringLiteral("second ")}));
}

void TestDiagnostics::levelsAreHandedOver()
{
    const QtMessageHandler previous = qInstallMessageHandler(&keepType);
    logDebug() << "debug";
    const QtMsgType ofDebug = lastType;
    logWarning() << "warning";
    const QtMsgType ofWarning = lastType;
    qInstallMessageHandler(previous);
    QCOMPARE(ofDebug, QtDebugMsg);
    QCOMPARE(ofWarning, QtWarningMsg);
}

void TestDiagnostics::filterRulesDoNotSwitchTheLinesOff()
{
    QLoggingCategory::setFilterRules(QStringLiteral("*=false"));
    const LogCapture log;
    logDebug() << "still here";
    QLoggingCategory::setFilterRules(QString());
    QCOMPARE(log.lines(), QStringList{QStringLiteral("still here ")});
}

QTEST_APPLESS_MAIN(TestDiagnostics)
#include "test_diagnostics.moc"
