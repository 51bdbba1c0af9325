#include "sound/midisource.h"

#include "sound/pcm.h"

#include <algorithm>
#include <utility>

namespace
{

constexpr int kindMask = 0xF0;
constexpr int noteOff = 0x80;
constexpr int noteOn = 0x90;

/** The last notes fade away behind the song's end, but a broken one could sound for ever. */
constexpr qint64 longestTail = pcm::frames(3);

/** More notes than a synthesizer has voices need not begin at once; they would only take time. */
constexpr int mostNotesAtOnce = 512;

} // namespace

MidiSource::MidiSource(MidiScore score, std::unique_ptr<Synthesizer> synthesizer)
    : m_score(std::move(score))
    , m_synthesizer(std::move(synthesizer))
    , m_end(pcm::frames(m_score.length()))
{
}

qsizetype MidiSource::read(qint16 *samples, qsizetype frames, int /*longestWait*/)
{
    qsizetype done = 0;
    while (done < frames) {
        sendEvents();
        const bool isTail = m_position >= m_end;
        if (isTail && (m_position >= m_end + longestTail || !m_synthesizer->isSounding()))
            break;
        qint64 next = isTail ? m_end + longestTail : m_end;
        if (m_next < m_score.events().size())
            next = std::min(next, m_score.events()[m_next].time);
        const auto count =
            static_cast<qsizetype>(std::min(qint64{frames - done}, next - m_position));
        m_synthesizer->render(samples + done * pcm::channels, count);
        m_position += count;
        done += count;
    }
    return done;
}

/** Sends all events whose time has come. */
void MidiSource::sendEvents()
{
    int begun = 0;
    for (; m_next < m_score.events().size() && m_score.events()[m_next].time <= m_position;
         ++m_next) {
        const MidiScore::Event &event = m_score.events()[m_next];
        const bool begins = (event.status & kindMask) == noteOn && event.second > 0;
        if (!begins || ++begun <= mostNotesAtOnce)
            send(event);
    }
}

void MidiSource::send(const MidiScore::Event &event)
{
    if (event.exclusive >= 0)
        m_synthesizer->sendSystemExclusive(m_score.exclusives().at(event.exclusive));
    else
        m_synthesizer->send(event.status, event.first, event.second);
}

void MidiSource::seek(qint64 frame)
{
    m_synthesizer->reset();
    m_position = std::clamp(frame, qint64{0}, m_end);
    // The settings of the instruments until there count; the notes are over.
    for (m_next = 0; m_next < m_score.events().size() && m_score.events()[m_next].time < m_position;
         ++m_next) {
        const MidiScore::Event &event = m_score.events()[m_next];
        const int kind = event.status & kindMask;
        if (kind != noteOn && kind != noteOff)
            send(event);
    }
}
