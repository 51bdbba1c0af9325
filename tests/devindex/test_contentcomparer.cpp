// Whether two files hold the same bytes, and what a medium gives back of a copy.
#include "devindex/contentcomparer.h"
#include "devindex/readback.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using Result = ContentComparer::Result;

class TestContentComparer : public QObject
{
    Q_OBJECT

private slots:
    void equalBytesAreTheSame_data();
    void equalBytesAreTheSame();
    void oneByteMakesTheDifference();
    void laterComparisonsOfAFileAreRightToo();
    void filesThatCannotBeReadAreTold();
    void filesWithoutASizeAreNotRead();
    void copyIsReadBackAgainstItsSource();

private:
    QString write(const QString &name, const QByteArray &bytes)
    {
        QFile file(m_folder.filePath(name));
        if (!file.open(QFile::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write a file");
        return file.fileName();
    }

    QTemporaryDir m_folder;
};

void TestContentComparer::equalBytesAreTheSame_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {0, 1, 262143, 262144, 262145, 1000000})
        QTest::addRow("%d", size) << size;
}

void TestContentComparer::equalBytesAreTheSame()
{
    QFETCH(int, size);
    const QString one = write(QStringLiteral("one"), QByteArray(size, 'x'));
    const QString other = write(QStringLiteral("other"), QByteArray(size, 'x'));
    QCOMPARE(ContentComparer().compare(one, other), Result::Same);
}

void TestContentComparer::oneByteMakesTheDifference()
{
    const QByteArray bytes(600000, 'x');
    const QString one = write(QStringLiteral("one"), bytes);
    for (const int place : {0, 262143, 262144, 599999}) {
        QByteArray changed = bytes;
        changed[place] = 'y';
        QCOMPARE(ContentComparer().compare(one, write(QStringLiteral("other"), changed)),
                 Result::Different);
    }
    QCOMPARE(ContentComparer().compare(one, write(QStringLiteral("longer"), bytes + 'x')),
             Result::Different);
}

void TestContentComparer::laterComparisonsOfAFileAreRightToo()
{
    ContentComparer comparer;
    const QString one = write(QStringLiteral("one"), "abc");
    const QString same = write(QStringLiteral("same"), "abc");
    const QString other = write(QStringLiteral("other"), "abd");
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(comparer.compare(one, other), Result::Different);
        QCOMPARE(comparer.compare(one, same), Result::Same);
        QCOMPARE(comparer.compare(other, same), Result::Different);
    }
}

void TestContentComparer::filesThatCannotBeReadAreTold()
{
    const QString one = write(QStringLiteral("one"), "abc");
    const QString gone = m_folder.filePath(QStringLiteral("gone"));
    QCOMPARE(ContentComparer().compare(gone, one), Result::Unreadable);
    QCOMPARE(ContentComparer().compare(m_folder.path(), one), Result::Unreadable);
    QCOMPARE(ContentComparer().compare(one, gone), Result::Different);
    QCOMPARE(ContentComparer().compare(one, m_folder.path()), Result::Different);
}

void TestContentComparer::filesWithoutASizeAreNotRead()
{
    // The system makes its bytes while it is read; others of its kind never end.
    const QString endless = QStringLiteral("/proc/self/status");
    QFile status(endless);
    QVERIFY(status.open(QIODevice::ReadOnly));
    QCOMPARE(status.size(), 0);
    QVERIFY(!status.readAll().isEmpty());
    QFile empty(m_folder.filePath(QStringLiteral("empty.mid")));
    QVERIFY(empty.open(QIODevice::WriteOnly));
    QCOMPARE(ContentComparer().compare(endless, empty.fileName()), ContentComparer::Result::Same);
}

void TestContentComparer::copyIsReadBackAgainstItsSource()
{
    const QString source = write(QStringLiteral("source"), "abc");
    QVERIFY(readBackMatches(write(QStringLiteral("good"), "abc"), source));
    QVERIFY(!readBackMatches(write(QStringLiteral("bad"), "abd"), source));
    QVERIFY(!readBackMatches(m_folder.filePath(QStringLiteral("gone")), source));
    QVERIFY(!readBackMatches(source, m_folder.filePath(QStringLiteral("gone"))));
}

QTEST_GUILESS_MAIN(TestContentComparer)
#include "test_contentcomparer.moc"
