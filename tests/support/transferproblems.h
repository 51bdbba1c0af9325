// Transfers onto memories that are full, protected or pulled, for their tests.
#pragma once

#include "devindex/transfer.h"
#include "library/answer.h"
#include "support/copyingprogress.h"
#include "support/mountedcard.h"

#include <memory>

namespace transferproblems
{

inline const QString protectedText = QStringLiteral("La memoria è protetta da scrittura.\n"
                                                    "Togliere la protezione e riprovare.");
inline const QString fullText = QStringLiteral("La memoria è piena.\nLiberare spazio e riprovare.");
inline const QString rootFolderText =
    QStringLiteral("Non è possibile copiare i file sulla cartella principale, "
                   "creare o selezionare una sottocartella");

/** Chooses the folder, keeps what is there, and remembers what it was told. */
class ListeningUser : public TransferUser
{
public:
    QString chooseFolder(const QString &, const QString &) override { return folder; }
    Answer askReplace(const QString &) override { return Answer::No; }
    Answer askRename(const QString &, const QString &) override { return Answer::NoToAll; }
    bool askAnyway(const QString &, const QString &) override { return true; }
    void warn(const QString &, const QString &text) override { warnings.append(text); }
    void inform(const QString &, const QString &) override {}
    void showFailure(const QString &, const QString &) override {}
    void tellCounts(const QString &, const QString &text, const QStringList &failedLines,
                    const QStringList &skippedLines) override
    {
        counts = text;
        failed = failedLines;
        skipped = skippedLines;
    }

    QString folder;
    QStringList warnings;
    QString counts;
    QStringList failed;
    QStringList skipped;
};

class ProblemFixture : public QObject
{
protected:
    void init();
    void cleanup() { m_card.reset(); }

    Transfer::Outcome transfer(const QStringList &files);
    QString song(const QString &name, qsizetype size = 0) const;

    std::unique_ptr<MountedCard> m_card;
    ListeningUser m_user;
    std::function<void(int)> m_onUpdate;
};

inline void ProblemFixture::init()
{
    m_card = std::make_unique<MountedCard>();
    m_user.folder = m_card->root();
    m_user.warnings.clear();
    m_user.failed.clear();
    m_user.skipped.clear();
    m_onUpdate = {};
}

inline Transfer::Outcome ProblemFixture::transfer(const QStringList &files)
{
    const OpenProgress openProgress = [this](const QString &, const QString &, int) {
        auto progress = std::make_unique<CopyingProgress>();
        progress->onUpdate = m_onUpdate;
        return std::unique_ptr<Progress>(std::move(progress));
    };
    return Transfer(m_user, openProgress).transferFiles(files);
}

/** A song in the music folder, filled up to the size. */
inline QString ProblemFixture::song(const QString &name, qsizetype size) const
{
    const QByteArray bytes = MountedCard::midi(name.toUtf8());
    return m_card->writeMusic(name,
                              bytes + QByteArray(qMax(qsizetype(0), size - bytes.size()), 'x'));
}

} // namespace transferproblems
