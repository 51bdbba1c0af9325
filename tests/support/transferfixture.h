// The transfer onto a memory with answers handed in, for its tests.
#pragma once

#include "devindex/transfer.h"
#include "library/answer.h"
#include "support/copyingprogress.h"
#include "support/mountedcard.h"

#include <QTest>

#include <memory>

namespace transferfixture
{

inline const QString systemDiskText =
    QStringLiteral("Trasferimento: Non è possibile copiare i file sul disco di sistema");
inline const QString rootFolderText =
    QStringLiteral("Trasferimento: Non è possibile copiare i file sulla cartella principale, "
                   "creare o selezionare una sottocartella");
inline const QString reservedText = QStringLiteral(
    "Trasferimento: Non è possibile utilizzare le cartelle BRIDGE, SFX e PLAYLIST perchè sono "
    "riservate per funzionalità specifiche di Kavena, selezionare un'altra cartella");
inline const QString successText =
    QStringLiteral("Trasferimento: Tutti i file sono stati copiati correttamente");
inline const QString failureText =
    QStringLiteral("Trasferimento: Non è stato possibile copiare uno o più file");

inline QString countsText(int copied, int skipped, int failed)
{
    return QStringLiteral("Trasferimento: Song copiate: %1\nSong saltate: %2\n"
                          "Song non copiate (errori): %3")
        .arg(copied)
        .arg(skipped)
        .arg(failed);
}

/** Answers as it was told, and keeps what was asked and said. */
class ScriptedQuestions : public TransferUser
{
public:
    QString chooseFolder(const QString &title, const QString &startFolder) override
    {
        chooserTitle = title;
        chooserStart = startFolder;
        return folder;
    }
    Answer askReplace(const QString &target) override
    {
        replaceAsked.append(target);
        return replaceAnswer;
    }
    Answer askRename(const QString &path, const QString &message) override
    {
        renameAsked.append(path + QStringLiteral(": ") + message);
        return renameAnswer;
    }
    bool askAnyway(const QString &title, const QString &question) override
    {
        roomAsked.append(title + QStringLiteral(": ") + question);
        return anyway;
    }
    void warn(const QString &title, const QString &text) override
    {
        warnings.append(title + QStringLiteral(": ") + text);
    }
    void inform(const QString &title, const QString &text) override
    {
        successes.append(title + QStringLiteral(": ") + text);
    }
    void showFailure(const QString &title, const QString &text) override
    {
        failures.append(title + QStringLiteral(": ") + text);
        if (onEnd)
            onEnd();
    }
    void tellPresent(const QStringList &songs) override { presentLines = songs; }
    void tellCounts(const QString &title, const QString &text, const QStringList &failed,
                    const QStringList &skipped) override
    {
        skippedLines = skipped;
        saidBeforeCounts = successes + failures;
        counts.append(title + QStringLiteral(": ") + text);
        failedNames = failed;
    }

    bool saidNothing() const
    {
        return warnings.isEmpty() && successes.isEmpty() && failures.isEmpty() && counts.isEmpty();
    }

    QString folder;
    Answer replaceAnswer = Answer::No;
    Answer renameAnswer = Answer::No;
    bool anyway = false;
    QString chooserTitle;
    QString chooserStart;
    QStringList replaceAsked;
    QStringList renameAsked;
    QStringList roomAsked;
    QStringList warnings;
    QStringList successes;
    QStringList failures;
    QStringList counts;
    QStringList failedNames;
    QStringList skippedLines;
    QStringList presentLines;
    QStringList saidBeforeCounts;
    std::function<void()> onEnd;
};

/** What one progress was, after it is gone. */
struct OpenedProgress {
    QString title;
    QString label;
    int maximumAtFirst = -1;
    QList<int> maxima;
    QList<int> values;
    QList<int> updates;
    bool closed = false;
};

/** A progress that writes down what it is told, to be read when it is closed. */
class NotedProgress : public CopyingProgress
{
public:
    explicit NotedProgress(std::shared_ptr<OpenedProgress> notes)
        : m_notes(std::move(notes))
    {
    }
    ~NotedProgress() override
    {
        m_notes->values = values;
        m_notes->updates = updates;
        m_notes->closed = true;
    }
    void setMaximum(int steps) override { m_notes->maxima.append(steps); }

private:
    const std::shared_ptr<OpenedProgress> m_notes;
};

/** A mounted memory, songs, and scripted answers. */
class TransferFixture : public QObject
{
protected:
    void init();
    void cleanup();

    OpenProgress openProgress();
    Transfer::Outcome transfer(const QStringList &files);
    QStringList someSongs(int count = 3) const;

    std::unique_ptr<MountedCard> m_card;
    std::unique_ptr<ScriptedQuestions> m_questions;
    QList<std::shared_ptr<OpenedProgress>> m_opened;
    std::function<void(CopyingProgress &, int)> m_onUpdate;
    qint64 m_freeBytes = 1000000000;
};

inline void TransferFixture::init()
{
    m_card = std::make_unique<MountedCard>();
    m_questions = std::make_unique<ScriptedQuestions>();
    m_questions->folder = m_card->path(QStringLiteral("pop"));
    QVERIFY(QDir().mkdir(m_questions->folder));
    m_opened.clear();
    m_onUpdate = {};
    m_freeBytes = 1000000000;
}

inline void TransferFixture::cleanup()
{
    m_questions.reset();
    m_card.reset();
}

inline OpenProgress TransferFixture::openProgress()
{
    return [this](const QString &title, const QString &label, int maximum) {
        auto notes = std::make_shared<OpenedProgress>();
        notes->title = title;
        notes->label = label;
        notes->maximumAtFirst = maximum;
        m_opened.append(notes);
        auto progress = std::make_unique<NotedProgress>(notes);
        if (m_onUpdate) {
            CopyingProgress *const raw = progress.get();
            progress->onUpdate = [this, raw](int done) { m_onUpdate(*raw, done); };
        }
        return std::unique_ptr<Progress>(std::move(progress));
    };
}

inline Transfer::Outcome TransferFixture::transfer(const QStringList &files)
{
    Transfer job(*m_questions, openProgress(), [this](const QString &) { return m_freeBytes; });
    return job.transferFiles(files);
}

inline QStringList TransferFixture::someSongs(int count) const
{
    QStringList files;
    for (int i = 0; i < count; ++i) {
        files.append(m_card->writeMusic(QStringLiteral("song%1.mid").arg(i),
                                        MountedCard::midi("SONG " + QByteArray::number(i))));
    }
    return files;
}

} // namespace transferfixture
