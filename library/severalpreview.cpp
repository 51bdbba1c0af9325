#include "library/severalpreview.h"

#include "formats/bytetext.h"

QList<ChangePreview::Change> SeveralSong::changes() const
{
    QList<ChangePreview::Change> found = ChangePreview::changes(before, after);
    ChangePreview::nameLostCharacters(found, wanted);
    return found;
}

bool SeveralSong::isCut(ChangePreview::Field field) const
{
    const QString whole = textFromBytes(bytesFromText(songfields::text(wanted, field)));
    const QString kept = songfields::text(after, field);
    return kept.size() < whole.size() && whole.startsWith(kept) && !kept.isEmpty();
}

SeveralPreview::SeveralPreview(const QList<SongInfo> &songs)
{
    m_songs.reserve(static_cast<size_t>(songs.size()));
    for (const SongInfo &song : songs)
        m_songs.push_back({song, song, song, {}});
}

void SeveralPreview::setSteps(const QList<EditStep> &steps)
{
    m_changed = 0;
    m_unfit = 0;
    m_problem.clear();
    m_problemStep = -1;
    for (int step = 0; step < steps.size() && m_problem.isEmpty(); ++step) {
        m_problem = steps.at(step).problem();
        m_problemStep = m_problem.isEmpty() ? -1 : step;
    }
    for (SeveralSong &song : m_songs) {
        if (!m_problem.isEmpty() || !compute(song, steps))
            break;
        m_changed += song.isChanged() ? 1 : 0;
        m_unfit += song.reason.isEmpty() ? 0 : 1;
    }
    if (!m_problem.isEmpty())
        leaveUnchanged();
}

/** False when a step cannot be used. */
bool SeveralPreview::compute(SeveralSong &song, const QList<EditStep> &steps)
{
    song.wanted = song.before;
    song.reason.clear();
    for (int step = 0; step < steps.size(); ++step) {
        const EditStep::Result result = steps.at(step).apply(song.wanted, song.before.fileName);
        if (result.outcome == EditStep::Outcome::TooHard) {
            m_problem = result.reason;
            m_problemStep = step;
            return false;
        }
        if (song.reason.isEmpty())
            song.reason = result.reason;
    }
    song.after = SongStandIn::isSame(song.before, song.wanted)
                     ? song.before
                     : m_standIn.held(song.before, song.wanted);
    return true;
}

void SeveralPreview::leaveUnchanged()
{
    m_changed = 0;
    m_unfit = 0;
    for (SeveralSong &song : m_songs) {
        song.wanted = song.before;
        song.after = song.before;
        song.reason.clear();
    }
}
