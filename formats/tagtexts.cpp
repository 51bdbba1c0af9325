#include "formats/tagtexts.h"

#include "formats/bytetext.h"
#include "formats/id3frame.h"
#include "formats/id3walk.h"
#include "formats/mp3header.h"

#include <algorithm>
#include <iterator>
#include <taglib/apetag.h>
#include <taglib/id3v1tag.h>
#include <taglib/id3v2tag.h>
#include <taglib/mpegfile.h>
#include <taglib/tbytevectorstream.h>
#include <taglib/textidentificationframe.h>

namespace
{

constexpr qsizetype largestFrame = 65536;
constexpr qsizetype largestPackedFrame = 4096; ///< unpacked it may be a thousand times as large
constexpr qsizetype longestText = 1000;

constexpr const char *readFrames[] = {"TIT2", "TPE1", "TCON", "TCOM", "TKEY", "TBPM", "TLEN",
                                      "TT2",  "TP1",  "TCO",  "TCM",  "TKE",  "TBP",  "TLE"};

QString fromTagLib(const TagLib::String &text)
{
    return QString::fromUtf8(text.toCString(true)).left(longestText).trimmed();
}

QString joined(const TagLib::StringList &texts)
{
    QStringList all;
    for (const TagLib::String &text : texts) {
        const QString one = fromTagLib(text);
        if (!one.isEmpty() && !all.contains(one))
            all.append(one);
    }
    return all.join(QLatin1Char('/')).left(longestText);
}

/** What a tag says; empty for a frame that it does not have. */
QString frameText(const TagLib::ID3v2::Tag &tag, const char *id)
{
    const TagLib::ID3v2::FrameList &frames = tag.frameList(id);
    if (frames.isEmpty())
        return {};
    const auto *const text =
        dynamic_cast<const TagLib::ID3v2::TextIdentificationFrame *>(frames.front());
    return text == nullptr ? QString() : joined(text->fieldList());
}

/** A whole number of beats; some programs write decimals. */
int tempoOf(const QString &text)
{
    bool ok = false;
    const double tempo = text.toDouble(&ok);
    return ok && tempo >= 1 && tempo < 1000 ? qRound(tempo) : 0;
}

SongInfo textsOf(const TagLib::ID3v2::Tag &tag)
{
    SongInfo info;
    info.title = frameText(tag, Id3FrameId::title);
    info.artist = frameText(tag, Id3FrameId::artist);
    info.genre = fromTagLib(tag.genre()); // numbers of genres by their names
    info.author = frameText(tag, Id3FrameId::author);
    info.key = frameText(tag, Id3FrameId::key);
    info.userBpm = tempoOf(frameText(tag, Id3FrameId::userBpm));
    info.length =
        countFromText(frameText(tag, Id3FrameId::length)) / Mp3Header::millisecondsPerSecond;
    return info;
}

SongInfo textsOf(const TagLib::APE::Tag &tag)
{
    const TagLib::APE::ItemListMap &items = tag.itemListMap();
    const auto text = [&items](const char *name) {
        const auto found = items.find(name);
        return found == items.end() || found->second.type() != TagLib::APE::Item::Text
                   ? QString()
                   : joined(found->second.values());
    };
    SongInfo info;
    info.title = text("TITLE");
    info.artist = text("ARTIST");
    info.genre = text("GENRE");
    info.author = text("COMPOSER");
    info.key = text("INITIALKEY");
    info.userBpm = tempoOf(text("BPM"));
    return info;
}

/**
 * False for a frame without a text, at which TagLib would stop, and for one in a group, of which
 * TagLib would take the group's number for the encoding, or encrypted.
 */
bool hasReadableText(const Id3Walk::Frame &frame, int version)
{
    constexpr quint8 groupedOrEncrypted3 = 0x20 | 0x40;
    constexpr quint8 groupedOrEncrypted4 = Id3Walk::GroupIdentity | Id3Walk::Encrypted;
    constexpr qsizetype dataLengthSize = 4;
    const bool isVersion4 = version == 4;
    const bool hasDataLength = isVersion4 && (frame.format & Id3Walk::HasDataLength) != 0;
    return frame.content.size() > (hasDataLength ? dataLengthSize : 0) &&
           (frame.format & (isVersion4 ? groupedOrEncrypted4 : groupedOrEncrypted3)) == 0;
}

/** The tag with only the frames that are read, so that nothing else can take time or memory. */
QByteArray reducedTag(QByteArrayView tag)
{
    const Id3Walk walk(tag);
    QByteArray frames;
    for (const Id3Walk::Frame &frame : walk.frames()) {
        const bool isRead = std::any_of(std::begin(readFrames), std::end(readFrames),
                                        [&frame](const char *id) { return frame.id == id; });
        const qsizetype most = frame.format == 0 ? largestFrame : largestPackedFrame;
        if (isRead && hasReadableText(frame, walk.version()) && frame.whole.size() <= most)
            frames += frame.whole.toByteArray();
    }
    if (frames.isEmpty() ||
        frames.size() > 2 * static_cast<qsizetype>(std::size(readFrames)) * largestFrame)
        return {};
    // In version 4 the frames are as they were; in the others the zeros behind FF are gone.
    constexpr char unsynchronised = '\x80';
    const bool staysSo = walk.version() == 4 && walk.hasUnsynchronisationFlag();
    QByteArray reduced("ID3", 3);
    reduced += static_cast<char>(walk.version());
    reduced += '\0';
    reduced += staysSo ? unsynchronised : '\0';
    for (int shift = 21; shift >= 0; shift -= 7)
        reduced.append(static_cast<char>(frames.size() >> shift & 0x7F));
    return reduced + frames;
}

bool hasTexts(const SongInfo &info)
{
    return !info.title.isEmpty() || !info.artist.isEmpty();
}

/** Takes over what is not known yet. */
void fill(SongInfo &info, const SongInfo &other)
{
    for (QString SongInfo::*const text : {&SongInfo::title, &SongInfo::artist, &SongInfo::genre,
                                          &SongInfo::author, &SongInfo::key}) {
        if ((info.*text).isEmpty())
            info.*text = other.*text;
    }
    if (info.userBpm == 0)
        info.userBpm = other.userBpm;
}

SongInfo textsOf(const TagLib::ID3v1::Tag &tag)
{
    SongInfo info;
    info.title = fromTagLib(tag.title());
    info.artist = fromTagLib(tag.artist());
    info.genre = fromTagLib(tag.genre());
    return info;
}

} // namespace

SongInfo textsOfTags(QByteArrayView tag, const TrailingTags &behind)
{
    // The silence in the place of the audio keeps the tags apart.
    const QByteArray bytes = reducedTag(tag) + QByteArray(512, '\0') + behind.ape + behind.id3v1;
    TagLib::ByteVectorStream stream(
        TagLib::ByteVector(bytes.constData(), static_cast<unsigned int>(bytes.size())));
    TagLib::MPEG::File file(&stream, TagLib::ID3v2::FrameFactory::instance(), false);
    SongInfo info;
    if (file.hasID3v2Tag())
        info = textsOf(*file.ID3v2Tag());
    if (!hasTexts(info) && file.hasAPETag())
        fill(info, textsOf(*file.APETag()));
    if (!hasTexts(info) && file.hasID3v1Tag())
        fill(info, textsOf(*file.ID3v1Tag()));
    return info;
}
