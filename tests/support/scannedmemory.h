// What the tests of the scan of a memory share.
#pragma once

#include "devindex/index.h"
#include "library/answer.h"
#include "support/devicememory.h"
#include "support/songbytes.h"

namespace scannedmemory
{

using namespace songbytes;

inline const QByteArray plainSong = midiFile({track(notes())});

inline QStringList pathsOf(const Index &index)
{
    QStringList paths;
    for (const SongInfoIndex &entry : index.entries)
        paths.append(entry.path);
    return paths;
}

/** An index of this memory that answers every question about a name with the given answers. */
class AskedIndex : public Index
{
public:
    explicit AskedIndex(const DeviceMemory &memory, const QList<Answer> &answers = {})
        : m_answers(answers)
    {
        rootPath = memory.root();
        setRenameQuestion([this](const QString &path, const QString &message) {
            questions.append(path + QLatin1Char('|') + message);
            return m_answers.isEmpty() ? Answer::Yes : m_answers.takeFirst();
        });
    }

    QStringList questions;

private:
    QList<Answer> m_answers;
};

} // namespace scannedmemory
