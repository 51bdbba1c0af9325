// An index that another program wrote, for tests of damaged ones.
#pragma once

#include "support/logcapture.h"
#include "support/songbytes.h"

#include <optional>

namespace foreignmemory
{

using namespace songbytes;

inline const QByteArray plainSong =
    midiFile({track(metaEvent(3, "Song") + kravoEvent(2, "Artist") + notes())});

/** Keeps the log of a test out of the output. */
class HostileIndexFixture : public QObject
{
protected:
    void init() { m_log.emplace(); }
    void cleanup() { m_log.reset(); }

    std::optional<LogCapture> m_log;
};

} // namespace foreignmemory
