// Songs that cannot be saved, for tests.
#pragma once

#include "library/answer.h"
#include "library/runreport.h"
#include "library/songeditor.h"
#include "library/synchronisation.h"
#include "support/librarytable.h"
#include "support/recordedprogress.h"
#include "support/shorttext.h"
#include "support/smallmedium.h"
#include "support/songbytes.h"

namespace unsavedsongs
{

/** The catalogue's row for the file, with data that the file does not hold. */
inline catalogue::Row known(const QString &filename)
{
    catalogue::Row row;
    row.filename = filename;
    row.title = s("CATALOGUE ") + filename;
    row.artist = s("DOE JOHN");
    row.altartist = s("JOHN DOE");
    row.genre = s("SWING");
    row.author = s("SMITH");
    row.length = 200;
    row.bpm = 96;
    row.key = s("A -");
    return row;
}

inline QByteArray midi(const QByteArray &title)
{
    using namespace songbytes;
    return midiFile({track(metaEvent(0x03, title) + notes())});
}

/** A library whose songs A.mid, B.mid and C.mid, known to the catalogue, lie on a small medium. */
template <class Table>
class LibraryOnMediumWith
{
public:
    LibraryOnMediumWith()
        : medium(256)
        , table({known(s("A")), known(s("B")), known(s("C"))})
    {
        for (const char *name : {"A.mid", "B.mid", "C.mid"}) {
            SongInfo info;
            info.fileName = medium.path(s(name));
            info.shortName = s(name);
            info.title = s(name);
            info.format = s("MIDI");
            if (!samplesongs::writeFile(info.fileName, midi(name)) || !model().addSong(info))
                qFatal("Cannot write %s", name);
        }
    }

    Table &model() { return table.model(); }
    QString path(const char *name) const { return medium.path(s(name)); }

    QList<SaveFailure> marks()
    {
        QList<SaveFailure> all;
        for (int row = 0; row < model().goodRowCount(); ++row)
            all << model().saveFailure(row);
        return all;
    }

    Synchronisation synchronisation()
    {
        return {table.database, model(), [] { return true; },
                [](const QString &) { return Answer::Yes; }, recordedBy(progress)};
    }

    /** An editor whose user makes the title a long one, and the genre that of all songs. */
    SongEditor editor(bool genreToAll)
    {
        const auto change = [genreToAll](const SongInfo &info) {
            SongEdit edit;
            edit.info = info;
            edit.info.title = QString(100, QLatin1Char('x'));
            edit.info.genre = s("Polka");
            edit.genreToAll = genreToAll;
            return std::optional<SongEdit>(edit);
        };
        return {model(), change, [] { return false; }, recordedBy(progress)};
    }

    SmallMedium medium;
    LibraryWith<Table> table;
    ProgressRecord progress;
};

using LibraryOnMedium = LibraryOnMediumWith<SongTable>;

inline const QString full = RunReport::reasonText(SaveFailure::DiskFull);
inline constexpr SaveFailure saved = SaveFailure::None;

} // namespace unsavedsongs
