#include "devindex/checkfindings.h"

#include <algorithm>
#include <array>
#include <climits>

const char *CheckFinding::nameOf(Kind kind)
{
    // In the order of the kinds.
    constexpr std::array names{"no-index",        "wrong-size",    "too-many-songs",
                               "bad-record",      "listed-twice",  "missing-song",
                               "changed-song",    "other-song",    "unlisted-song",
                               "too-long-path",   "unread-folder", "unusable-name",
                               "wrong-order",     "wrong-songs",   "wrong-group",
                               "wrong-letter",    "wrong-counts",  "unknown-song-in-playlist",
                               "missing-playlist"};
    return names.at(static_cast<std::size_t>(kind));
}

void CheckFindings::add(CheckFinding::Kind kind, const QString &path, const QString &text)
{
    const int key = static_cast<int>(kind);
    if (++m_counts[key] > mostOfAKind)
        return;
    m_lastPlace[key] = m_findings.size();
    m_findings.append({kind, path, text});
}

QList<CheckFinding> CheckFindings::all() const
{
    QList<CheckFinding> findings = m_findings;
    for (auto last = m_lastPlace.cbegin(); last != m_lastPlace.cend(); ++last) {
        const qint64 more = m_counts.value(last.key()) - mostOfAKind;
        if (more <= 0)
            continue;
        CheckFinding &finding = findings[last.value()];
        finding.count += more;
        finding.text += QLatin1Char(' ') + tr("(e altri %n di questo tipo)", "",
                                              static_cast<int>(std::min(more, qint64{INT_MAX})));
    }
    return findings;
}
