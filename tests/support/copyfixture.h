// Copies of song files, for their tests.
#pragma once

#include "devindex/filecopier.h"
#include "library/answer.h"
#include "support/copyingprogress.h"
#include "support/faults.h"
#include "support/journalbytes.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

namespace copyfixture
{

/** A folder of songs, a destination, and answers handed in. */
class CopyFixture : public QObject
{
protected:
    void init();
    void cleanup();

    QString write(const QString &name, const QByteArray &bytes);
    QByteArray read(const QString &name) const;
    QString path(const QString &name) const { return m_folder->filePath(name); }
    FileCopier::AskReplace answering(QList<Answer> answers);
    bool copy(const QStringList &files, QList<Answer> answers = {});

    std::unique_ptr<QTemporaryDir> m_folder;
    CopyingProgress *m_progress = nullptr;
    QString m_dest;
    QStringList m_asked;
    int m_copied = -1;
};

inline void CopyFixture::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    m_dest = path(QStringLiteral("dest"));
    QVERIFY(QDir().mkdir(m_dest));
    QVERIFY(QDir().mkdir(path(QStringLiteral("lib"))));
    m_progress = new CopyingProgress;
    m_asked.clear();
    m_copied = -1;
}

inline void CopyFixture::cleanup()
{
    delete m_progress;
    m_progress = nullptr;
    m_folder.reset();
}

/** Writes a file below the test's folder and returns its path. */
inline QString CopyFixture::write(const QString &name, const QByteArray &bytes)
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("Cannot write the test file %s", qPrintable(name));
    return file.fileName();
}

inline QByteArray CopyFixture::read(const QString &name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

/** Gives the answers in turn and remembers what was asked; a question too many fails the test. */
inline FileCopier::AskReplace CopyFixture::answering(QList<Answer> answers)
{
    return [this, answers](const QString &target) mutable {
        m_asked.append(target);
        if (answers.isEmpty()) {
            QTest::qFail("asked once too often", __FILE__, __LINE__);
            return Answer::No;
        }
        return answers.takeFirst();
    };
}

inline bool CopyFixture::copy(const QStringList &files, QList<Answer> answers)
{
    FileCopier copier(answering(std::move(answers)));
    return copier.copyFiles(files, m_dest, m_copied, *m_progress);
}

} // namespace copyfixture
