// A memory with songs, an index and a playlist, for the tests of what changes songs on it.
#pragma once

#include "devindex/index.h"
#include "devindex/songchanges.h"
#include "support/indexedmemory.h"
#include "support/recordedprogress.h"

namespace listedmemory
{

using namespace indexedmemory;

inline QString text(const char *bytes)
{
    return QString::fromUtf8(bytes);
}

/** Songs with an index and a playlist of three of them. */
class ListedMemory : public DeviceMemory
{
public:
    ListedMemory()
    {
        fill(*this);
        add(text("pop/Ciao.cdg"), "pictures");
        if (!Index().createIndex(root()))
            qFatal("no index");
        add(text("playlist/playlist.dat"), QByteArray("\x01\x00", 2) + QByteArray(30, 'l'));
        QByteArray songs;
        for (const char *path : {"/pop/Volare.kar", "/Azzurro.mid", "/pop/Ciao.mp3"})
            songs += bigEndian(idOf(path), 4) + QByteArray(28, 'p');
        add(text("playlist/play0001.dat"), songs);
    }

    quint32 idOf(const QByteArray &path) const
    {
        const QByteArray bytes = read(text("index.idx"));
        for (qsizetype pos = 0; pos + 64 <= bytes.size(); pos += 64) {
            if (bytes.mid(pos + 4, 46) == path.leftJustified(46, '\0'))
                return quint32(quint8(bytes.at(pos + 2))) * 256 + quint8(bytes.at(pos + 3));
        }
        return 0xFFFFFFFF;
    }

    QStringList indexed() const { return pathRecords(*this); }
    bool has(const char *name) const { return QFileInfo::exists(path(text(name))); }
};

struct Job {
    ProgressRecord progress;
    QString root;

    SongChanges changes()
    {
        return SongChanges(root, [this](const QString &title, const QString &label, int maximum) {
            return std::make_unique<RecordedProgress>(progress, title, label, maximum);
        });
    }
};

} // namespace listedmemory
