// A library whose jobs are kept in a history, for the tests of it.
#pragma once

#include "library/historyrecorder.h"
#include "library/historyundo.h"
#include "support/countingprogress.h"
#include "support/editfixture.h"
#include "support/librarytable.h"
#include "support/songfilemaker.h"
#include "support/syncfixture.h"

#include <QMap>

namespace historyfixture
{

inline QByteArray mp3(const QByteArray &title)
{
    return songbytes::id3Tag(songbytes::id3Frame("TIT2", title) +
                             songbytes::id3Frame("PRIV", QByteArray("x\0\xFF", 3))) +
           songfilemaker::audio;
}

/** Three songs, one of each format, that the catalogue knows, and one that it does not. */
class KeptLibrary
{
public:
    KeptLibrary()
        : library({syncfixture::row("A", "ONE"), syncfixture::row("B", "TWO"),
                   syncfixture::row("C", "THREE")})
        , store(library.path(QStringLiteral("data/history.sqlite")))
    {
        const QList<QPair<const char *, QByteArray>> files{
            {"a.mid", syncfixture::midi(syncfixture::titled("first"))},
            {"b.mp3", mp3("second")},
            {"c.mf5", samplesongs::mfxBytes("_MF5", syncfixture::midi(), {})},
            {"d.mid", syncfixture::midi(syncfixture::titled("unknown"))}};
        isGood = library.isGood();
        for (const auto &[name, content] : files)
            isGood = isGood && library.add(QLatin1String(name), content);
        original = bytes();
    }

    OpenHistory opener()
    {
        return [this](HistoryJob::Kind kind) {
            return std::make_unique<HistoryRecorder>(store, kind, [this](const QString &reason) {
                reasons.append(reason);
                return goesOnWithout;
            });
        };
    }

    bool synchronise()
    {
        syncfixture::Run run(library);
        run.synchronisation.setHistory(opener());
        return run.synchronisation.run(false);
    }

    /** Edits the row's song by hand. */
    bool edit(int row, const std::function<void(SongEdit &)> &change)
    {
        editfixture::Editing editing(library);
        editing.editor.setHistory(opener());
        editing.changeTo(change);
        return editing.editor.edit(row);
    }

    /** Takes the whole job back. */
    HistoryUndo::Report takeBack(const HistoryJob &job, bool alsoChanged = false,
                                 const QStringList &known = {})
    {
        HistoryUndo undo(store);
        undo.setKnownSongs(known);
        HistoryRecorder recorder(
            store, HistoryJob::Kind::TakeBack, [](const QString &) { return false; }, job.number);
        CountingProgress progress;
        return undo.takeBack(store.songs(job.number), alsoChanged, recorder, progress);
    }

    QMap<QString, QByteArray> bytes() const
    {
        QMap<QString, QByteArray> all;
        for (const char *name : {"a.mid", "b.mp3", "c.mf5", "d.mid"})
            all.insert(QLatin1String(name), library.bytes(QLatin1String(name)));
        return all;
    }

    LibraryTable library;
    HistoryStore store;
    QMap<QString, QByteArray> original;
    QStringList reasons; ///< why there could be no history
    bool goesOnWithout = false;
    bool isGood = false;
};

} // namespace historyfixture
