#include "formats/rawmidifile.h"

#include "formats/bytetext.h"
#include "formats/midikeys.h"
#include "formats/midimetaevent.h"
#include "formats/miditrackwalk.h"
#include "formats/publisher.h"
#include "storage/diagnostics.h"
#include "storage/songlayout.h"

#include <QtEndian>

#include <algorithm>
#include <limits>

namespace
{

// The first chunk of a Standard MIDI File.
constexpr qsizetype formatPos = 8;

// Data bytes of the maker's event: the sub-type, then the payload. A marker's payload is its bar
// and its text.
constexpr qsizetype subTypeIndex = 0;
constexpr qsizetype payloadIndex = 1;
constexpr qsizetype markerBarIndex = 1;
constexpr qsizetype markerTextIndex = 3;

// Data bytes of a key signature: sharps (positive) or flats (negative), then 1 for minor.
constexpr qsizetype sharpsIndex = 0;
constexpr qsizetype minorIndex = 1;

constexpr int anySubType = -1;
constexpr qsizetype maxTextLength = 125;                 // characters that the player stores
constexpr int maxSize = std::numeric_limits<int>::max(); // positions are handed out as int

QByteArray encodeText(const QString &text)
{
    return bytesFromText(text.left(maxTextLength));
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
    marker.bar = static_cast<quint16>((event.dataAt(markerBarIndex) << 8) |
                                      event.dataAt(markerBarIndex + 1));
    const qsizetype textSize = std::max<qsizetype>(event.length() - markerTextIndex, 0);
    marker.text = textFromBytes(event.data(markerTextIndex, textSize));
    return marker;
}

qsizetype indexOfKravo(QByteArrayView bytes, qsizetype from, RawMidiFile::kRavoMetaTypeEnum type)
{
    qsizetype position = MidiMetaEvent::indexOf(bytes, MidiMetaEvent::Kravo, from);
    while (position >= 0) {
        if (MidiMetaEvent(bytes, position).dataAt(subTypeIndex) == type)
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
    using namespace songlayout;
    if (bytes.size() > maxSize || !bytes.startsWith(midiMagic))
        return false;
    const qsizetype track = bytes.indexOf(midiTrackMagic);
    if (track < 0 || track + chunkHeaderSize > bytes.size())
        return false;
    // "MThd" and a whole chunk header are 12 bytes: format and track count are there.
    const quint16 format = qFromBigEndian<quint16>(bytes.constData() + formatPos);
    if (format > 1)
        return false;

    m_data = bytes;
    m_fileType = format == 0 ? SongInfo::FileMidi0 : SongInfo::FileMidi1;
    m_trackCount = qFromBigEndian<quint16>(bytes.constData() + trackCountPos);
    m_trackLengthPos = static_cast<quint32>(track + chunkSizePos);
    m_trackStart = static_cast<quint32>(track + chunkHeaderSize);
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
    return publisher::isNamedIn(copyright, publisher::name) ||
           publisher::isNamedIn(copyright, publisher::midiName);
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
        text = textFromBytes(event.data(payloadIndex, event.signedLength() - payloadIndex));
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
    return removeHeadEvents(static_cast<quint8>(type), anySubType, onlyFirst);
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
    m_keyValues = midikeys::values();
    m_keyNames = midikeys::names();
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
    if (!event.holdsData(minorIndex))
        return static_cast<int>(position);

    const quint8 sharps = event.dataAt(sharpsIndex);
    const quint8 minor = event.dataAt(minorIndex);
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
    if (events.size() > maxSize - m_data.size() ||
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
        if (subType != anySubType && event.dataAt(subTypeIndex) != subType)
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
