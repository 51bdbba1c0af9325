// Any bytes as a MIDI file: readers never fail, writers change their own events and nothing else.
#include "formats/rawmidifile.h"
#include "fuzzing.h"

#include <QSet>

#include <functional>
#include <optional>

namespace
{

using Kind = RawMidiFile::kRavoMetaTypeEnum;

constexpr int makerType = 0x4B;
constexpr int lengthFieldSize = 4;

/** The events that a writer replaces: a meta type and, for the maker's events, the sub-type. */
struct Target {
    int type = 0;
    int subType = -1;
};

quint8 at(const QByteArray &bytes, qsizetype pos)
{
    return pos < bytes.size() ? static_cast<quint8>(bytes.at(pos)) : quint8(0);
}

/** The event as it has to be written: delta time 0, FF, type, length, data. */
QByteArray eventOf(const Target &target, const QByteArray &payload)
{
    const QByteArray data =
        target.subType < 0 ? payload : static_cast<char>(target.subType) + payload;
    return QByteArray("\x00\xFF", 2) + static_cast<char>(target.type) +
           static_cast<char>(data.size()) + data;
}

// A strict reader of tracks, which shares nothing with the code under test -----------------------

struct Event {
    quint64 time = 0;
    QByteArray delta;
    QByteArray bytes;
    quint8 subType = 0; ///< the byte behind the length, even if that is 0

    bool operator==(const Event &other) const
    {
        return time == other.time && delta == other.delta && bytes == other.bytes;
    }
    bool isFor(const Target &target) const
    {
        return delta == QByteArray(1, '\0') && at(bytes, 0) == 0xFF &&
               at(bytes, 1) == target.type && at(bytes, 2) < 0x80 &&
               (target.subType < 0 || subType == target.subType);
    }
};

class TrackReader
{
public:
    TrackReader(const QByteArray &bytes, qsizetype pos, qsizetype end)
        : m_bytes(bytes.left(end))
        , m_pos(pos)
    {
    }

    /** The events, if the track is well-formed to its end; "end of track" may be missing. */
    std::optional<QList<Event>> read()
    {
        QList<Event> events;
        quint64 time = 0;
        while (m_pos < m_bytes.size()) {
            Event event;
            const qsizetype start = m_pos;
            const qint64 delta = quantity();
            if (delta < 0)
                return std::nullopt;
            event.delta = m_bytes.mid(start, m_pos - start);
            event.time = time += static_cast<quint64>(delta);
            const qsizetype eventStart = m_pos;
            if (!skipEvent() || m_pos > m_bytes.size())
                return std::nullopt;
            event.bytes = m_bytes.mid(eventStart, m_pos - eventStart);
            event.subType = at(m_bytes, eventStart + 3);
            events.append(event);
        }
        return events;
    }

private:
    qint64 quantity()
    {
        qint64 value = 0;
        for (int i = 0; i < 4 && m_pos < m_bytes.size(); ++i) {
            const quint8 byte = at(m_bytes, m_pos++);
            value = value << 7 | (byte & 0x7F);
            if (byte < 0x80)
                return value;
        }
        return -1;
    }

    bool skipCounted()
    {
        if (at(m_bytes, m_pos) == 0x80)
            return false; // begins with zeros, as nobody writes it
        const qint64 count = quantity();
        m_pos += std::max<qint64>(count, 0);
        return count >= 0;
    }

    bool skipEvent()
    {
        if (m_pos >= m_bytes.size())
            return false;
        quint8 status = at(m_bytes, m_pos);
        if (status >= 0x80)
            ++m_pos;
        else
            status = m_running;
        if (status == 0xFF) {
            const quint8 type = at(m_bytes, m_pos++);
            if (type != makerType)
                return type < 0x80 && skipCounted();
            const qsizetype length = at(m_bytes, m_pos); // in one byte, whatever it is
            m_pos += 1 + length;
            return true;
        }
        if (status == 0xF0 || status == 0xF7)
            return skipCounted();
        if (status < 0x80 || status > 0xEF)
            return false;
        m_running = status;
        for (int left = (status & 0xE0) == 0xC0 ? 1 : 2; left > 0; --left) {
            if (at(m_bytes, m_pos++) >= 0x80)
                return false;
        }
        return true;
    }

    const QByteArray m_bytes;
    qsizetype m_pos;
    quint8 m_running = 0;
};

std::optional<QList<Event>> firstTrack(const RawMidiFile &midi)
{
    const qsizetype end = qsizetype{midi.trackStart()} + midi.trackLength();
    if (end > midi.stream().size())
        return std::nullopt;
    return TrackReader(midi.stream(), midi.trackStart(), end).read();
}

// The rules --------------------------------------------------------------------------------------

void requireInvariant(const RawMidiFile &midi)
{
    FUZZ_REQUIRE(fuzzing::bigEndianAt(midi.stream(), midi.trackLengthPos()) == midi.trackLength());
    FUZZ_REQUIRE(midi.trackStart() == midi.trackLengthPos() + lengthFieldSize);
}

bool isEventAt(const QByteArray &bytes, qsizetype pos, const Target &target)
{
    return at(bytes, pos) == 0 && at(bytes, pos + 1) == 0xFF && at(bytes, pos + 2) == target.type &&
           at(bytes, pos + 3) < 0x80 && pos + 4 + at(bytes, pos + 3) <= bytes.size() &&
           (target.subType < 0 || at(bytes, pos + 4) == target.subType);
}

/**
 * True when the new bytes are the old ones without some whole events of the target in the first
 * track. All ways to leave events out are followed at once; a way is a place in the old bytes and
 * how many of them were left out before it.
 */
bool lacksOnlyEvents(const QByteArray &before, const QByteArray &after, qsizetype trackEnd,
                     const Target &target)
{
    QSet<std::pair<qsizetype, qsizetype>> seen;
    QList<std::pair<qsizetype, qsizetype>> ways{{0, 0}};
    while (!ways.isEmpty()) {
        auto [pos, omitted] = ways.takeLast();
        while (pos < before.size()) {
            if (pos < trackEnd && isEventAt(before, pos, target)) {
                if (seen.contains({pos, omitted}))
                    break;
                seen.insert({pos, omitted});
                const qsizetype size = 4 + at(before, pos + 3);
                ways.append({pos + size, omitted + size});
            }
            if (pos - omitted >= after.size() || before.at(pos) != after.at(pos - omitted))
                break;
            ++pos;
        }
        if (pos == before.size() && omitted == before.size() - after.size())
            return true;
    }
    return false;
}

/** Runs a writer that removes all events of the target and puts new ones at the track's head. */
void runWriter(RawMidiFile &midi, const Target &target, const QByteArray &inserted,
               const std::function<void()> &write)
{
    const RawMidiFile old = midi;
    const QByteArray before = old.stream().mid(old.trackStart());
    const std::optional<QList<Event>> eventsBefore = firstTrack(old);
    write();
    requireInvariant(midi);
    FUZZ_REQUIRE(midi.trackStart() == old.trackStart());
    FUZZ_REQUIRE(midi.stream().left(midi.trackLengthPos()) ==
                 old.stream().left(old.trackLengthPos()));
    FUZZ_REQUIRE(midi.trackLength() - old.trackLength() ==
                 static_cast<quint32>(midi.stream().size() - old.stream().size()));

    // The new events are left out only where the track's length field could not count them.
    const QByteArray after = midi.stream().mid(midi.trackStart());
    const bool isNear = quint64{old.trackLength()} + quint64(inserted.size()) > 0xFFFFFFFFU;
    const bool isInserted =
        after.startsWith(inserted) &&
        lacksOnlyEvents(before, after.mid(inserted.size()), old.trackLength(), target);
    FUZZ_REQUIRE(isInserted ||
                 (isNear && lacksOnlyEvents(before, after, old.trackLength(), target)));

    if (!eventsBefore || isNear)
        return;
    QList<Event> expected = *TrackReader(inserted, 0, inserted.size()).read();
    for (const Event &event : *eventsBefore) {
        if (!event.isFor(target))
            expected.append(event);
    }
    const std::optional<QList<Event>> eventsAfter = firstTrack(midi);
    FUZZ_REQUIRE(eventsAfter && *eventsAfter == expected);
}

void readAll(const RawMidiFile &midi)
{
    FUZZ_REQUIRE(midi.hasTitle() || midi.title().isEmpty());
    FUZZ_REQUIRE(midi.hasGenre() || midi.genre().isEmpty());
    FUZZ_REQUIRE(midi.hasArtist() || midi.artist().isEmpty());
    FUZZ_REQUIRE(midi.hasAuthor() || midi.author().isEmpty());
    FUZZ_REQUIRE(midi.length() >= 0 && (midi.hasLength() || midi.length() == 0));
    FUZZ_REQUIRE(midi.userBpm() >= 0 && (midi.hasUserBpm() || midi.userBpm() == 0));
    FUZZ_REQUIRE(midi.hasMarkers() == !midi.markersList().isEmpty());
    FUZZ_REQUIRE(midi.key().isEmpty() ||
                 (midi.hasKey() && midi.getKeysList().contains(midi.key())));
    midi.isKravo();
}

QByteArray textOf(const QString &text)
{
    return text.left(125).toLatin1();
}

void writeTexts(RawMidiFile &midi, const SongInfo &info)
{
    const Target title{0x03};
    runWriter(midi, title, eventOf(title, textOf(info.title)), [&] { midi.setTitle(info.title); });
    const Target genre{makerType, 1};
    runWriter(midi, genre, eventOf(genre, textOf(info.genre)), [&] { midi.setGenre(info.genre); });
    const Target artist{makerType, 2};
    runWriter(midi, artist, eventOf(artist, textOf(info.artist)),
              [&] { midi.setArtist(info.artist); });
    const Target author{makerType, 3};
    runWriter(midi, author, eventOf(author, textOf(info.author)),
              [&] { midi.setAuthor(info.author); });
}

void writeNumbers(RawMidiFile &midi, const SongInfo &info)
{
    const Target length{makerType, 4};
    runWriter(midi, length, eventOf(length, QByteArray::number(info.length)),
              [&] { midi.setLength(info.length); });
    const Target userBpm{makerType, 5};
    runWriter(midi, userBpm, eventOf(userBpm, QByteArray::number(info.userBpm)),
              [&] { midi.setUserBpm(info.userBpm); });
}

void writeKey(RawMidiFile &midi, const QString &name)
{
    const Target key{0x59};
    QByteArray inserted;
    RawMidiFile probe; // a song with nothing else in it tells the key's event
    if (probe.loadData(QByteArray("MThd\0\0\0\x06\0\0\0\x01\0\x60MTrk\0\0\0\0", 22))) {
        probe.setKey(name);
        inserted = probe.stream().mid(22);
    }
    FUZZ_REQUIRE(inserted.isEmpty() || inserted.size() == 6);
    runWriter(midi, key, inserted, [&] { midi.setKey(name); });
}

void writeMarkers(RawMidiFile &midi, const QList<Marker> &markers)
{
    QByteArray inserted;
    for (const Marker &marker : markers) {
        const char bar[] = {static_cast<char>(marker.bar >> 8), static_cast<char>(marker.bar)};
        inserted += eventOf({makerType, 6}, QByteArray(bar, sizeof bar) + textOf(marker.text));
    }
    // It is the author events that make room for markers.
    runWriter(midi, {makerType, 3}, inserted, [&] { midi.setMarkersList(markers); });
}

/** The single steps, with whatever type and place. */
void runSteps(RawMidiFile &midi, quint8 type, qint32 pos, const QByteArray &payload)
{
    const RawMidiFile old = midi;
    QString text;
    midi.extractMetaevent(text, static_cast<char>(type));
    const auto kind = static_cast<Kind>(type % 8);
    midi.extractMetaevent(text, kind);
    FUZZ_REQUIRE(midi.indexOfKravoMetaevent(midi.stream(), pos, kind) < midi.stream().size());

    const int inserted = midi.insertMetaevent(payload, static_cast<char>(type), pos);
    QByteArray expected = old.stream();
    if (inserted > 0) {
        FUZZ_REQUIRE(quint32(pos) >= old.trackStart() && pos <= expected.size());
        expected.insert(pos, eventOf({type, -1}, payload));
    }
    FUZZ_REQUIRE(midi.stream().mid(midi.trackStart()) == expected.mid(old.trackStart()));
    FUZZ_REQUIRE(midi.trackLength() == old.trackLength() + static_cast<quint32>(inserted));
    requireInvariant(midi);

    const qsizetype before = midi.stream().size();
    const int removed = midi.removeHeadMetaevent(static_cast<char>(type), (pos & 1) != 0);
    FUZZ_REQUIRE(removed >= 0 && midi.stream().size() == before - removed);
    requireInvariant(midi);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzzing::Input input(data, size);
    const SongInfo info = input.songInfo();
    const quint8 type = input.byte();
    const qint32 pos = input.number();
    const QByteArray payload = input.shortBytes();
    const QByteArray bytes = input.rest();

    RawMidiFile midi;
    if (!midi.loadData(bytes)) {
        FUZZ_REQUIRE(midi.stream().isEmpty() && midi.fileType() == SongInfo::FileUnknown);
        readAll(midi);
        midi.setTitle(info.title);
        FUZZ_REQUIRE(midi.stream().isEmpty());
        return 0;
    }
    FUZZ_REQUIRE(midi.stream() == bytes);
    requireInvariant(midi);
    readAll(midi);
    writeTexts(midi, info);
    writeNumbers(midi, info);
    writeKey(midi, info.key);
    writeMarkers(midi, info.markers);
    readAll(midi);
    runSteps(midi, type, pos, payload);
    readAll(midi);
    return 0;
}
