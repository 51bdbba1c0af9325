#include "library/musicoffer.h"

#include "formats/metasong.h"
#include "formats/midimeasure.h"
#include "library/keepalive.h"
#include "library/musicfill.h"

#include <QElapsedTimer>

namespace
{

/** More marked places than that are words or chords rather than the sections of a song. */
constexpr qsizetype mostSections = 100;

/** So many markers are shown in a line. */
constexpr qsizetype shownMarkers = 8;

bool isMp3(const SongInfo &info)
{
    return info.format == MetaSong::getFormatString(SongInfo::FileMp3);
}

} // namespace

songfields::Field MusicOffer::field(Value value)
{
    switch (value) {
    case Length:
        return songfields::Field::Length;
    case Tempo:
        return songfields::Field::Tempo;
    case Key:
        return songfields::Field::Key;
    case Markers:
        break;
    }
    return songfields::Field::Markers;
}

MusicOffer MusicOffer::of(const QString &path)
{
    MusicOffer offer;
    MetaSong song;
    if (!song.importFile(path)) {
        offer.m_before.fileName = path;
        offer.m_unreadable = UnreadableFile::examine(path, song.wasInUse());
        return offer;
    }
    song.getSongInfo(offer.m_before);
    const SongMeasure measure = song.measure();
    offer.m_found = musicfill::replaced(offer.m_before, measure);
    offer.m_isKeyGuessed = measure.isKeyGuessed;
    offer.m_hasMoreMarkers = measure.markers.size() >= midimeasure::mostMarkers;
    for (const Value value : values)
        offer.compare(value);
    return offer;
}

void MusicOffer::compare(Value value)
{
    const QString present = text(m_before, value);
    const bool isOther =
        value == Markers ? m_before.markers != m_found.markers : present != text(m_found, value);
    if (isOther)
        (present.isEmpty() ? m_filling : m_replacing) |= value;
    else if (present.isEmpty() && isMeasurable(value))
        m_unmeasurable |= value;
}

QList<MusicOffer> MusicOffer::ofSongs(const QStringList &paths, Progress &progress)
{
    QList<MusicOffer> offers;
    offers.reserve(paths.size());
    while (offers.size() < paths.size() && !progress.wasCanceled()) {
        // A thread for each of thousands of small songs would cost more than the songs.
        KeepAlive::workInBackground([&] {
            QElapsedTimer timer;
            timer.start();
            do
                offers.append(of(paths.at(offers.size())));
            while (offers.size() < paths.size() &&
                   !timer.hasExpired(KeepAlive::progressMilliseconds));
            return true;
        });
        progress.updateProgress(static_cast<int>(offers.size()));
    }
    return offers;
}

MusicOffer::Values MusicOffer::advised() const
{
    Values wanted = m_filling;
    wanted.setFlag(Key, wanted.testFlag(Key) && !m_isKeyGuessed);
    wanted.setFlag(Markers, wanted.testFlag(Markers) && m_found.markers.size() <= mostSections);
    return wanted;
}

QString MusicOffer::text(const SongInfo &info, Value value)
{
    if (value != Markers)
        return songfields::text(info, field(value));
    if (info.markers.isEmpty())
        return {};
    const QString shown = ChangePreview::markersText(info.markers.mid(0, shownMarkers));
    return QStringLiteral("%1: %2%3")
        .arg(QString::number(info.markers.size()), shown,
             info.markers.size() > shownMarkers ? QStringLiteral(", ...") : QString());
}

QString MusicOffer::longTextFound(Value value) const
{
    return value == Markers ? ChangePreview::markersText(m_found.markers) : QString();
}

/** The audio of an MP3 says how long it is, and no more. */
bool MusicOffer::isMeasurable(Value value) const
{
    return value == Length || (value != Markers && !isMp3(m_before));
}

QString MusicOffer::note() const
{
    if (m_unreadable)
        return m_unreadable->reasonText();
    return m_hasMoreMarkers ? tr("Troppi marker: gli ultimi mancano") : QString();
}

void MusicOffer::take(SongInfo &info, Value value) const
{
    switch (value) {
    case Length:
        info.length = m_found.length;
        break;
    case Tempo:
        info.userBpm = m_found.userBpm;
        break;
    case Key:
        info.key = m_found.key;
        break;
    case Markers:
        info.markers = m_found.markers;
        break;
    }
}

SeveralSong MusicOffer::with(Values wanted, const SongStandIn &standIn) const
{
    wanted &= m_filling | m_replacing;
    SeveralSong song{m_before, m_before, m_before, {}};
    for (const Value value : values) {
        if (wanted.testFlag(value))
            take(song.wanted, value);
    }
    if (!SongStandIn::isSame(m_before, song.wanted))
        song.after = standIn.held(m_before, song.wanted);
    song.after.markers = song.wanted.markers;
    song.setsMarkers = wanted.testFlag(Markers);
    return song;
}
