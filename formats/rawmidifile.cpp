#include "formats/rawmidifile.h"

#include "formats/bytetext.h"
#include "formats/midimetaevent.h"
#include "formats/miditrackwalk.h"
#include "storage/diagnostics.h"

#include <QtEndian>

#include <algorithm>
#include <limits>

namespace
{

// Header chunk and track chunk of a Standard MIDI File.
constexpr char HeaderChunk[] = "MThd";
constexpr char TrackChunk[] = "MTrk";
constexpr qsizetype ChunkNameSize = 4;
constexpr qsizetype ChunkLengthSize = 4;
constexpr qsizetype FormatPos = 8;
constexpr qsizetype TrackCountPos = 10;

// Data bytes of the maker's event: the sub-type, then the payload. A marker's payload is its bar
// and its text.
constexpr qsizetype SubTypeIndex = 0;
constexpr qsizetype PayloadIndex = 1;
constexpr qsizetype MarkerBarIndex = 1;
constexpr qsizetype MarkerTextIndex = 3;

// Data bytes of a key signature: sharps (positive) or flats (negative), then 1 for minor.
constexpr qsizetype SharpsIndex = 0;
constexpr qsizetype MinorIndex = 1;

constexpr int AnySubType = -1;
constexpr qsizetype MaxTextLength = 125;                 // characters that the player stores
constexpr int MaxSize = std::numeric_limits<int>::max(); // positions are handed out as int

struct KeySignature {
    qint8 sharps; // negative: flats
    QLatin1String major;
    QLatin1String minor;
};

constexpr KeySignature KeySignatures[] = {
    {7, QLatin1String("C#"), QLatin1String("A#-")},
    {6, QLatin1String("F#"), QLatin1String("D#-")},
    {5, QLatin1String("B"), QLatin1String("G#-")},
    {4, QLatin1String("E"), QLatin1String("C#-")},
    {3, QLatin1String("A"), QLatin1String("F#-")},
    {2, QLatin1String("D"), QLatin1String("B-")},
    {1, QLatin1String("G"), QLatin1String("E-")},
    {0, QLatin1String("C"), QLatin1String("A-")},
    {-1, QLatin1String("F"), QLatin1String("D-")},
    {-2, QLatin1String("Bb"), QLatin1String("G-")},
    {-3, QLatin1String("Eb"), QLatin1String("C-")},
    {-4, QLatin1String("Ab"), QLatin1String("F-")},
    {-5, QLatin1String("Db"), QLatin1String("Bb-")},
    {-6, QLatin1String("Gb"), QLatin1String("Eb-")},
    {-7, QLatin1String("Cb"), QLatin1String("Ab-")},
};

constexpr quint16 keyValue(qint8 sharps, bool minor)
{
    return static_cast<quint16>((static_cast<quint8>(sharps) << 8) | (minor ? 1 : 0));
}

struct KeyMaps {
    QMap<QString, quint16> values;
    QMap<quint16, QString> names;
};

KeyMaps makeKeyMaps()
{
    KeyMaps maps;
    for (const KeySignature &signature : KeySignatures) {
        maps.names.insert(keyValue(signature.sharps, false), signature.major);
        maps.names.insert(keyValue(signature.sharps, true), signature.minor);
    }
    for (auto name = maps.names.cbegin(); name != maps.names.cend(); ++name)
        maps.values.insert(name.value(), name.key());
    // Further names that the catalogue and users write; they are stored as a key that players
    // know. G sharp major would need eight sharps: the player takes it as E major.
    maps.values.insert(QStringLiteral("G#"), keyValue(4, false));
    maps.values.insert(QStringLiteral("Db-"), keyValue(4, true));
    maps.values.insert(QStringLiteral("D#"), keyValue(-3, false));
    return maps;
}

QByteArray encodeText(const QString &text)
{
    return bytesFromText(text.left(MaxTextLength));
}

QByteArray encodeKravo(RawMidiFile::kRavoMetaTypeEnum type, const QByteArray &payload)
{
    return MidiMetaEvent::encode(MidiMetaEvent::Kravo, static_cast<char>(type) + payload);
}

QByteArray encodeMarker(const QString &text, quint16 bar)
{
    const char bytes[] = {static_cast<char>(bar >> 8), static_cast<char>(bar & 0xFF)};
    return encodeKravo(RawMidiFile::KravoMarker,
                       QByteArray(bytes, sizeof bytes) + encodeText(text));
}

Marker decodeMarker(const MidiMetaEvent &event)
{
    Marker marker;
    marker.bar = static_cast<quint16>((event.dataAt(MarkerBarIndex) << 8) |
                                      event.dataAt(MarkerBarIndex + 1));
    const qsizetype textSize = std::max<qsizetype>(event.length() - MarkerTextIndex, 0);
    marker.text = textFromBytes(event.data(MarkerTextIndex, textSize));
    return marker;
}

qsizetype indexOfKravo(QByteArrayView bytes, qsizetype from, RawMidiFile::kRavoMetaTypeEnum type)
{
    qsizetype position = MidiMetaEvent::indexOf(bytes, MidiMetaEvent::Kravo, from);
    while (position >= 0) {
        if (MidiMetaEvent(bytes, position).dataAt(SubTypeIndex) == type)
            return position;
        position = MidiMetaEvent::indexOf(bytes, MidiMetaEvent::Kravo, position + 1);
    }
    return -1;
}

} // namespace

RawMidiFile::RawMidiFile()
{
    populateKeyMaps();
}

bool RawMidiFile::loadData(const QByteArray &bytes)
{
    if (bytes.size() > MaxSize || !bytes.startsWith(HeaderChunk))
        return false;
    const qsizetype track = bytes.indexOf(TrackChunk);
    if (track < 0 || track + ChunkNameSize + ChunkLengthSize > bytes.size())
        return false;
    // "MThd" and a whole chunk header are 12 bytes: format and track count are there.
    const quint16 format = qFromBigEndian<quint16>(bytes.constData() + FormatPos);
    if (format > 1)
        return false;

    m_data = bytes;
    m_fileType = format == 0 ? SongInfo::FileMidi0 : SongInfo::FileMidi1;
    m_trackCount = qFromBigEndian<quint16>(bytes.constData() + TrackCountPos);
    m_trackLengthPos = static_cast<quint32>(track + ChunkNameSize);
    m_trackStart = static_cast<quint32>(track + ChunkNameSize + ChunkLengthSize);
    m_trackLength = qFromBigEndian<quint32>(bytes.constData() + m_trackLengthPos);
    return true;
}

QString RawMidiFile::title() const
{
    QString text;
    extractMetaevent(text, static_cast<char>(MidiMetaEvent::TrackName));
    return text;
}

QString RawMidiFile::genre() const
{
    return kravoText(KravoGenre);
}

QString RawMidiFile::artist() const
{
    return kravoText(KravoArtist);
}

QString RawMidiFile::author() const
{
    return kravoText(KravoAuthor);
}

int RawMidiFile::length() const
{
    return countFromText(kravoText(KravoLength));
}

int RawMidiFile::userBpm() const
{
    return countFromText(kravoText(KravoUserBpm));
}

QList<Marker> RawMidiFile::markersList() const
{
    QList<Marker> markers;
    extractMarkersList(markers);
    return markers;
}

QString RawMidiFile::key() const
{
    QString name;
    extractKey(name);
    return name;
}

bool RawMidiFile::hasTitle() const
{
    return MidiMetaEvent::indexOf(m_data, MidiMetaEvent::TrackName, m_trackStart) >= 0;
}

bool RawMidiFile::hasGenre() const
{
    return has(KravoGenre);
}

bool RawMidiFile::hasArtist() const
{
    return has(KravoArtist);
}

bool RawMidiFile::hasAuthor() const
{
    return has(KravoAuthor);
}

bool RawMidiFile::hasLength() const
{
    return has(KravoLength);
}

bool RawMidiFile::hasUserBpm() const
{
    return has(KravoUserBpm);
}

bool RawMidiFile::hasMarkers() const
{
    return has(KravoMarker);
}

bool RawMidiFile::hasKey() const
{
    return MidiMetaEvent::indexOf(m_data, MidiMetaEvent::KeySignature, m_trackStart) >= 0;
}

bool RawMidiFile::isKravo() const
{
    QString copyright;
    if (extractMetaevent(copyright, static_cast<char>(MidiMetaEvent::CopyrightNotice)) < 0)
        return false;
    copyright = copyright.toUpper();
    return copyright.contains(QLatin1String("K-RAVO")) ||
           copyright.contains(QLatin1String("TORVELIX"));
}

void RawMidiFile::setTitle(const QString &title)
{
    const char type = static_cast<char>(MidiMetaEvent::TrackName);
    removeHeadMetaevent(type, false);
    insertMetaevent(encodeText(title), type, static_cast<int>(m_trackStart));
}

void RawMidiFile::setGenre(const QString &genre)
{
    replaceKravoText(KravoGenre, genre);
}

void RawMidiFile::setArtist(const QString &artist)
{
    replaceKravoText(KravoArtist, artist);
}

void RawMidiFile::setAuthor(const QString &author)
{
    replaceKravoText(KravoAuthor, author);
}

void RawMidiFile::setLength(int seconds)
{
    replaceKravoText(KravoLength, QString::number(seconds));
}

void RawMidiFile::setUserBpm(int bpm)
{
    replaceKravoText(KravoUserBpm, QString::number(bpm));
}

void RawMidiFile::setMarkersList(const QList<Marker> &markers)
{
    removeHeadMetaevent(KravoAuthor, false);
    // In one piece: marker by marker, a long list would move the whole file once for each.
    QByteArray events;
    for (const Marker &marker : markers)
        events += encodeMarker(marker.text, marker.bar);
    insertEvents(events, m_trackStart);
}

void RawMidiFile::setKey(const QString &key)
{
    const char type = static_cast<char>(MidiMetaEvent::KeySignature);
    removeHeadMetaevent(type, false);
    if (key.isEmpty())
        return;
    QString name = key;
    name.remove(QLatin1Char(' '));
    const auto value = m_keyValues.constFind(name);
    if (value == m_keyValues.cend()) {
        logDebug() << "[RawMidiFile::setKey] WARNING: unknown key:" << name
                   << ". Metaevent not added !!!";
        return;
    }
    const char payload[] = {static_cast<char>(*value >> 8), static_cast<char>(*value & 0xFF)};
    insertMetaevent(QByteArray(payload, sizeof payload), type, static_cast<int>(m_trackStart));
}

int RawMidiFile::extractMetaevent(QString &text, char type) const
{
    text.clear();
    const qsizetype position =
        MidiMetaEvent::indexOf(m_data, static_cast<quint8>(type), m_trackStart);
    if (position >= 0) {
        const MidiMetaEvent event(m_data, position);
        text = textFromBytes(event.data(0, event.signedLength()));
    }
    return static_cast<int>(position);
}

int RawMidiFile::extractMetaevent(QString &text, kRavoMetaTypeEnum type) const
{
    text.clear();
    const qsizetype position = indexOfKravo(m_data, m_trackStart, type);
    if (position >= 0) {
        const MidiMetaEvent event(m_data, position);
        text = textFromBytes(event.data(PayloadIndex, event.signedLength() - PayloadIndex));
    }
    return static_cast<int>(position);
}

int RawMidiFile::indexOfKravoMetaevent(const QByteArray &bytes, int from,
                                       kRavoMetaTypeEnum type) const
{
    return static_cast<int>(indexOfKravo(bytes, from, type));
}

int RawMidiFile::insertMetaevent(const QByteArray &payload, char type, int pos)
{
    return insertEvents(MidiMetaEvent::encode(static_cast<quint8>(type), payload), pos);
}

int RawMidiFile::insertMetaevent(const QByteArray &payload, kRavoMetaTypeEnum type, int pos)
{
    return insertEvents(encodeKravo(type, payload), pos);
}

int RawMidiFile::removeHeadMetaevent(char type, bool onlyFirst)
{
    return removeHeadEvents(static_cast<quint8>(type), AnySubType, onlyFirst);
}

int RawMidiFile::removeHeadMetaevent(kRavoMetaTypeEnum type, bool onlyFirst)
{
    return removeHeadEvents(MidiMetaEvent::Kravo, type, onlyFirst);
}

int RawMidiFile::insertMarker(const QString &text, unsigned short bar)
{
    return insertEvents(encodeMarker(text, bar), m_trackStart);
}

int RawMidiFile::dbgInsertMarker(const QString &text, unsigned short bar)
{
    return insertMarker(text, bar);
}

int RawMidiFile::extractMarkersList(QList<Marker> &markers) const
{
    markers.clear();
    const qsizetype first = indexOfKravo(m_data, m_trackStart, KravoMarker);
    for (qsizetype position = first; position >= 0;) {
        const MidiMetaEvent event(m_data, position);
        markers.append(decodeMarker(event));
        position = indexOfKravo(m_data, event.end(), KravoMarker);
    }
    return static_cast<int>(first);
}

void RawMidiFile::updateTrackSize()
{
    if (m_fileType == SongInfo::FileUnknown)
        return;
    qToBigEndian(m_trackLength, m_data.data() + m_trackLengthPos);
}

void RawMidiFile::populateKeyMaps()
{
    static const KeyMaps maps = makeKeyMaps();
    m_keyValues = maps.values;
    m_keyNames = maps.names;
}

QStringList RawMidiFile::getKeysList() const
{
    return m_keyNames.values();
}

int RawMidiFile::extractKey(QString &key) const
{
    key.clear();
    const qsizetype position =
        MidiMetaEvent::indexOf(m_data, MidiMetaEvent::KeySignature, m_trackStart);
    if (position < 0)
        return static_cast<int>(position);
    const MidiMetaEvent event(m_data, position);
    if (!event.holdsData(MinorIndex))
        return static_cast<int>(position);

    const quint8 sharps = event.dataAt(SharpsIndex);
    const quint8 minor = event.dataAt(MinorIndex);
    const auto name = m_keyNames.constFind(static_cast<quint16>((sharps << 8) | minor));
    if (name != m_keyNames.cend()) {
        key = *name;
        return static_cast<int>(position);
    }
    const auto hex = [](quint8 byte) {
        return QStringLiteral("%1").arg(byte, 2, 16, QLatin1Char('0'));
    };
    logDebug() << "[RawMidiFile::extractKey] WARNING: unknown key metaevent"
               << QStringLiteral("[sf=%1|mi=%2]").arg(hex(sharps), hex(minor).toUpper())
               << "in MIDI file.";
    return static_cast<int>(position);
}

bool RawMidiFile::has(kRavoMetaTypeEnum type) const
{
    return indexOfKravo(m_data, m_trackStart, type) >= 0;
}

QString RawMidiFile::kravoText(kRavoMetaTypeEnum type) const
{
    QString text;
    extractMetaevent(text, type);
    return text;
}

void RawMidiFile::replaceKravoText(kRavoMetaTypeEnum type, const QString &text)
{
    removeHeadMetaevent(type, false);
    insertMetaevent(encodeText(text), type, static_cast<int>(m_trackStart));
}

int RawMidiFile::insertEvents(const QByteArray &events, qsizetype pos)
{
    if (m_fileType == SongInfo::FileUnknown || pos < m_trackStart || pos > m_data.size())
        return 0;
    // A length field that wrapped around would cut the music off, so such a file is left alone.
    if (events.size() > MaxSize - m_data.size() ||
        events.size() > std::numeric_limits<quint32>::max() - m_trackLength)
        return 0;
    m_data.insert(pos, events);
    m_trackLength += static_cast<quint32>(events.size());
    updateTrackSize();
    return static_cast<int>(events.size());
}

int RawMidiFile::removeHeadEvents(quint8 type, int subType, bool onlyFirst)
{
    const qsizetype trackEnd =
        std::min<qsizetype>(static_cast<qsizetype>(m_trackStart) + m_trackLength, m_data.size());
    const QByteArrayView bytes(m_data);
    MidiTrackWalk walk(bytes, m_trackStart);
    QByteArray kept; // what stays, up to keptEnd: one pass, however many events there are
    qsizetype keptEnd = 0;
    qsizetype from = m_trackStart;
    while (true) {
        const qsizetype position = MidiMetaEvent::indexOfAtDeltaZero(bytes, type, from);
        if (position < 0 || position >= trackEnd)
            break;
        from = position + 1;
        const MidiMetaEvent event(bytes, position + 1);
        if (subType != AnySubType && event.dataAt(SubTypeIndex) != subType)
            continue;
        if (event.signedLength() < 0 || event.end() > trackEnd || walk.liesWithinEvent(position))
            continue;
        kept += bytes.sliced(keptEnd, position - keptEnd);
        from = keptEnd = event.end();
        if (onlyFirst)
            break;
    }
    if (keptEnd == 0)
        return 0;
    kept += bytes.sliced(keptEnd);
    const qsizetype removed = m_data.size() - kept.size();
    m_data = kept;
    m_trackLength -= static_cast<quint32>(removed);
    updateTrackSize();
    return static_cast<int>(removed);
}
