// What the music of a song offers for it, beside what the song says of itself.
#pragma once

#include "formats/songinfo.h"
#include "library/progress.h"
#include "library/severalpreview.h"
#include "library/songfields.h"
#include "library/unreadablefile.h"

#include <QCoreApplication>
#include <QFlags>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

class MusicOffer
{
    Q_DECLARE_TR_FUNCTIONS(MusicOffer)

public:
    enum Value : quint8 { Length = 1, Tempo = 2, Key = 4, Markers = 8 };
    Q_DECLARE_FLAGS(Values, Value)

    /** The values in the order in which they are shown. */
    static constexpr Value values[] = {Length, Tempo, Key, Markers};

    /** The value's field in an edit. */
    static songfields::Field field(Value value);

    /** Reads and measures a song; one that cannot be read offers nothing. */
    static MusicOffer of(const QString &path);

    /**
     * Of each song in turn, until the user stops; what was measured by then. Runs on a thread of
     * its own while the windows' events are processed here.
     */
    static QList<MusicOffer> ofSongs(const QStringList &paths, Progress &progress);

    /** The song as it is, with its path and its format. */
    const SongInfo &before() const { return m_before; }

    /** What the song lacks and the music says. */
    Values filling() const { return m_filling; }

    /** What the song says otherwise than the music. */
    Values replacing() const { return m_replacing; }

    /** What most users will want: not a guess, nor texts that are too many to be sections. */
    Values advised() const;

    bool isGuess(Value value) const { return value == Key && m_isKeyGuessed; }

    /** The value as the user reads it; empty where the song lacks it or the music does not tell. */
    QString textBefore(Value value) const { return text(m_before, value); }
    QString textFound(Value value) const { return text(m_found, value); }

    /** All markers that the value has; none for the other values. */
    QString longTextFound(Value value) const;

    /** What the song lacks and its music should tell but does not. */
    Values unmeasurable() const { return m_unmeasurable; }

    /** What there is to be said of the whole song, in a few words; empty if nothing. */
    QString note() const;

    /** The song with these of the offered values. */
    SeveralSong with(Values values, const SongStandIn &standIn) const;

private:
    static QString text(const SongInfo &info, Value value);
    void take(SongInfo &info, Value value) const;
    bool isMeasurable(Value value) const;
    void compare(Value value);

    SongInfo m_before;
    SongInfo m_found; ///< what the song says where the music does not tell
    Values m_filling;
    Values m_replacing;
    Values m_unmeasurable;
    bool m_isKeyGuessed = false;
    bool m_hasMoreMarkers = false; ///< than are offered
    std::optional<UnreadableFile> m_unreadable;
};
Q_DECLARE_OPERATORS_FOR_FLAGS(MusicOffer::Values)
