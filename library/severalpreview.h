// Finds what several steps make of many songs, without changing anything.
#pragma once

#include "formats/songinfo.h"
#include "formats/songstandin.h"
#include "library/changepreview.h"
#include "library/editstep.h"

#include <QList>
#include <QString>

#include <vector>

/** A song, and what an edit of several makes of it. */
struct SeveralSong {
    SongInfo before; ///< with its fileName and its format
    SongInfo wanted; ///< what the steps come to
    SongInfo after;  ///< what the song will hold of that
    QString reason;  ///< why a step did not fit it, in a few words for the user; else empty
    bool setsMarkers = false; ///< the markers of wanted are written, too

    bool isChanged() const { return setsMarkers || !SongStandIn::isSame(before, after); }

    /** What changes, each with the characters that it loses. */
    QList<ChangePreview::Change> changes() const;

    /** True when the song's format holds only the beginning of the new text. */
    bool isCut(ChangePreview::Field field) const;
};

class SeveralPreview
{
public:
    SeveralPreview() = default;

    /** The songs as they are now, each with its path and its format. */
    explicit SeveralPreview(const QList<SongInfo> &songs);

    /** Computes all songs anew. */
    void setSteps(const QList<EditStep> &steps);

    /**
     * Why the steps cannot be used, for the user, and which one it is; an empty text when they can.
     * No song is changed then.
     */
    const QString &problem() const { return m_problem; }
    int problemStep() const { return m_problemStep; }

    const std::vector<SeveralSong> &songs() const { return m_songs; }

    /** How many songs change, and how many a step did not fit. */
    int changed() const { return m_changed; }
    int unfit() const { return m_unfit; }

private:
    bool compute(SeveralSong &song, const QList<EditStep> &steps);
    void leaveUnchanged();

    SongStandIn m_standIn;
    std::vector<SeveralSong> m_songs;
    QString m_problem;
    int m_problemStep = -1;
    int m_changed = 0;
    int m_unfit = 0;
};
