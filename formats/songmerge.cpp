#include "formats/songmerge.h"

#include "formats/mp3edit.h"

#include <optional>

namespace
{

/** The text fields of an MFX header are filled with dashes where the song has no such item. */
bool isDash(const QString &text)
{
    return text == QLatin1String("-") || text == QLatin1String("--");
}

bool isEmptyOrDash(const QString &text)
{
    return text.isEmpty() || isDash(text);
}

/** The song's title is the beginning of the catalogue's: it was cut at some time. */
bool isShortened(const QString &title, const QString &catalogueTitle)
{
    return catalogueTitle.toUpper().startsWith(title.toUpper());
}

/** The artist that the catalogue gives to a song; none when the song's artist is to stay. */
std::optional<QString> mergedArtist(bool hasArtist, const QString &artist, const SongInfo &info)
{
    const QString &preferred = info.altArtist.isEmpty() ? info.artist : info.altArtist;
    if (!hasArtist)
        return preferred;
    if (artist == info.altArtist)
        return std::nullopt;
    return artist == info.artist ? preferred : info.artist;
}

/**
 * Writes the items that the song lacks. What it has is asked before the first one is written: the
 * readers search plain bytes and could take a written text for an event of another kind.
 */
template <typename Tags>
void fillItems(Tags &tags, const SongInfo &info, bool setsTitle)
{
    const std::optional<QString> artist = mergedArtist(tags.hasArtist(), tags.artist(), info);
    const bool setsAuthor = !tags.hasAuthor();
    const bool setsGenre = !tags.hasGenre();
    const bool setsUserBpm = !tags.hasUserBpm() && info.userBpm >= 0 && info.isKravo;
    const bool setsKey = !tags.hasKey() && info.isKravo;
    const bool setsLength = !tags.hasLength() && info.length >= 0 && info.isKravo;

    if (setsTitle)
        tags.setTitle(info.title);
    if (artist)
        tags.setArtist(*artist);
    if (setsAuthor)
        tags.setAuthor(info.author);
    if (setsGenre)
        tags.setGenre(info.genre);
    if (setsUserBpm)
        tags.setUserBpm(info.userBpm);
    if (setsKey)
        tags.setKey(info.key);
    if (setsLength)
        tags.setLength(info.length);
}

} // namespace

SongMerge::SongMerge(const SongInfo &info, Source source)
    : m_info(info)
    , m_source(source)
{
}

void SongMerge::into(RawMidiFile &midi) const
{
    if (m_source == Source::User)
        edit(midi);
    else
        fill(midi);
}

void SongMerge::into(MfxHeader &header, RawMidiFile &midi) const
{
    if (m_source == Source::User) {
        edit(header, midi);
    } else {
        fill(header);
        fillPayload(midi);
    }
    if (!m_info.markers.isEmpty())
        header.setFlag(MfxHeader::MarkersFlag);
}

void SongMerge::into(Mp3Header &tag) const
{
    if (m_source == Source::User)
        writeEditedItems(tag, m_info);
    else
        fillItems(tag, m_info, !tag.hasTitle());
    if (!tag.hasKavenaEditParam())
        tag.setKavenaEditParam();
}

void SongMerge::edit(RawMidiFile &midi) const
{
    midi.setTitle(m_info.title);
    midi.setArtist(m_info.artist);
    midi.setAuthor(m_info.author);
    midi.setGenre(m_info.genre);
    midi.setUserBpm(m_info.userBpm);
    midi.setKey(m_info.key);
    midi.setLength(m_info.length);
}

void SongMerge::edit(MfxHeader &header, RawMidiFile &midi) const
{
    header.setTitle(m_info.title);
    header.setArtist(m_info.artist);
    header.setAuthor(m_info.author);
    header.setGenre(m_info.genre);
    header.setTempo(m_info.userBpm);
    midi.setKey(m_info.key);
    midi.setLength(m_info.length);
}

void SongMerge::fill(RawMidiFile &midi) const
{
    const bool setsTitle = !midi.hasTitle() || isShortened(midi.title(), m_info.title);
    const bool setsMarkers = !midi.hasMarkers();
    fillItems(midi, m_info, setsTitle);
    if (setsMarkers)
        addMarkers(midi, m_info.markers);
}

void SongMerge::fill(MfxHeader &header) const
{
    if (isEmptyOrDash(header.title()))
        header.setTitle(m_info.title);
    fillArtist(header);
    if (isEmptyOrDash(header.author()))
        header.setAuthor(m_info.author);
    if (isEmptyOrDash(header.genre()))
        header.setGenre(m_info.genre);
    if (!header.hasValidTempo() && m_info.userBpm >= 0)
        header.setTempo(m_info.userBpm);
}

void SongMerge::fillArtist(MfxHeader &header) const
{
    const QString artist = header.artist();
    // A dash as the artist is replaced by the alternative artist even where that is empty: the
    // player then shows no artist. An alternative artist that is a dash itself is written like any
    // other.
    if (isDash(artist) && artist != m_info.altArtist) {
        header.setArtist(m_info.altArtist);
        return;
    }
    const auto merged = mergedArtist(header.hasArtist(), artist, m_info);
    if (merged)
        header.setArtist(*merged);
}

void SongMerge::fillPayload(RawMidiFile &midi) const
{
    const bool setsKey = !midi.hasKey() && m_info.isKravo;
    const bool setsLength = !midi.hasLength() && m_info.length >= 0 && m_info.isKravo;
    const bool setsMarkers = !midi.hasMarkers();
    if (setsKey)
        midi.setKey(m_info.key);
    if (setsLength)
        midi.setLength(m_info.length);
    if (setsMarkers)
        addMarkers(midi, m_info.markers);
}

void SongMerge::replaceMarkers(RawMidiFile &midi, const QList<Marker> &markers)
{
    midi.removeHeadMetaevent(RawMidiFile::KravoMarker, false);
    addMarkers(midi, markers);
}

/** Writing markers removes the author; a song must not lose its author by getting markers. */
void SongMerge::addMarkers(RawMidiFile &midi, const QList<Marker> &markers)
{
    if (markers.isEmpty())
        return;
    const bool hadAuthor = midi.hasAuthor();
    const QString author = midi.author();
    midi.setMarkersList(markers);
    const bool authorStays = midi.hasAuthor() && midi.author() == author;
    if (hadAuthor && !authorStays)
        midi.setAuthor(author);
}
