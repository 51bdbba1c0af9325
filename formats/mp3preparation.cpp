#include "formats/mp3preparation.h"

#include "formats/bytetext.h"
#include "formats/closespelling.h"
#include "formats/id3frame.h"
#include "formats/id3version2.h"
#include "formats/id3version4.h"
#include "formats/id3walk.h"
#include "formats/metasong.h"
#include "formats/mp3edit.h"
#include "formats/mp3examination.h"
#include "formats/mp3song.h"
#include "formats/mp3tagfile.h"
#include "formats/songitems.h"
#include "formats/songreading.h"
#include "formats/songsaving.h"
#include "formats/tagtexts.h"
#include "formats/trailingtags.h"
#include "storage/songfilewriter.h"
#include "storage/songlayout.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

#include <algorithm>

namespace
{

constexpr char shortNames = 2;
constexpr char laterVersion = 4;

char versionOf(const QByteArray &tag)
{
    constexpr qsizetype versionPos = 3;
    return tag.startsWith(songlayout::id3Magic) && tag.size() > versionPos ? tag.at(versionPos)
                                                                           : '\0';
}

/** All bytes of a file that this program knows to be a song's own data. */
QByteArray digestOf(const QByteArray &start, const TrailingTags &behind, qint64 fileSize)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(start);
    hash.addData(behind.ape);
    hash.addData(behind.id3v1);
    hash.addData(QByteArray::number(fileSize));
    return hash.result();
}

/** Opens the file and reads its tags. */
struct OpenedFile {
    explicit OpenedFile(const QString &path)
        : file(path)
    {
        constexpr qint64 magicSize = 4;
        if (!SongFileWriter::recover(path) || !songreading::openSong(file) ||
            !Mp3Song::isMp3(path, file.peek(magicSize)))
            return;
        isLoaded = mp3tagfile::load(file, mp3tagfile::largestTag, tag, start);
        behind = TrailingTags::read(file);
    }

    QByteArray digest() const { return digestOf(start, behind, file.size()); }

    QFile file;
    Mp3Header tag;
    QByteArray start;
    TrailingTags behind;
    bool isLoaded = false;
};

/** The tag with all its frames, ready for those that the player reads. */
Mp3Header renewed(const Mp3Header &tag, const QByteArray &start)
{
    if (versionOf(tag.stream()) != laterVersion)
        return tag;
    const auto converted = tagOfVersion3(start);
    Mp3Header newTag;
    return converted && newTag.loadHeader(*converted) ? newTag : tag;
}

/**
 * Writes the texts. False when the tag does not say them then: damaged frames may lie over one
 * another, so that writing one of them changes another.
 */
bool writeTexts(Mp3Header &tag, const SongInfo &texts)
{
    const auto held = [](const QString &text) { return textFromBytes(bytesFromText(text)); };
    writeEditedItems(tag, texts);
    return tag.title() == held(texts.title) && tag.artist() == held(texts.artist) &&
           tag.genre() == held(texts.genre) && tag.author() == held(texts.author) &&
           tag.key() == held(texts.key);
}

/** True for a text in Unicode that was understood and has no characters. */
bool saysNothing(const Id3Walk::Frame &frame)
{
    constexpr char markedUtf16 = 1;
    if (frame.format != 0 || frame.content.size() < 3 || frame.content.front() != markedUtf16)
        return frame.content.isEmpty();
    QStringDecoder decoder(QStringConverter::Utf16);
    QString text = decoder.decode(frame.content.sliced(1));
    return !decoder.hasError() && text.remove(QChar::Null).trimmed().isEmpty();
}

/** A number in place of a genre's name. */
bool isGenreNumber(const QString &genre)
{
    QString number = genre;
    number.remove(QLatin1Char('(')).remove(QLatin1Char(')'));
    bool ok = false;
    (void)number.toUInt(&ok);
    return ok;
}

} // namespace

std::optional<Mp3Preparation> Mp3Preparation::of(const QString &path)
{
    OpenedFile opened(path);
    if (!opened.isLoaded)
        return {};
    Mp3Preparation made;
    made.m_path = path;
    made.m_digest = opened.digest();
    made.m_shown.fileName = path;
    made.m_shown.shortName = QFileInfo(path).fileName();
    made.m_shown.format = MetaSong::getFormatString(SongInfo::FileMp3);
    readItems(opened.tag, made.m_shown);
    made.m_shown.troubles = examineTags(opened.start, opened.tag, opened.file);
    made.m_said = textsOfTags(opened.start, opened.behind);
    Mp3Header tag = renewed(opened.tag, opened.start);
    made.propose(opened.start, opened.tag, tag);
    made.m_keepsVersion = versionOf(tag.stream()) == laterVersion;
    if (made.troubles() != TagTroubles())
        made.m_canBeWritten = versionOf(tag.stream()) != shortNames &&
                              writeTexts(tag, made.m_proposed) &&
                              !opened.start.startsWith(tag.stream());
    if (versionOf(opened.start) == shortNames) {
        const Id3Walk walk(opened.start);
        for (const Id3Walk::Frame &frame : walk.frames()) {
            if (!hasSuccessor(frame.id))
                made.m_lostFrames.append(QString::fromLatin1(frame.id));
        }
    }
    return made;
}

/** newTag is the tag with the frames that would be written. */
void Mp3Preparation::propose(const QByteArray &start, const Mp3Header &tag, const Mp3Header &newTag)
{
    m_proposed = m_shown;
    if (troubles() == TagTroubles())
        return;
    const Id3Walk walk(start);
    const Id3Walk framesRead(tag.stream());
    SongInfo unchanged;
    readItems(newTag, unchanged);
    // What reads right now stays as it reads, and what is not understood stays as it is.
    const auto offer = [&](const char *id, QString SongInfo::*text) {
        const bool isWrong = frameReadsWrong(walk, id);
        if (!isWrong && !(m_shown.*text).isEmpty())
            return;
        const QString spelled = closeSpelling(m_said.*text);
        const Id3Walk::Frame *const frame = framesRead.first(id);
        const bool isKept =
            isWrong && spelled.isEmpty() && frame != nullptr && !saysNothing(*frame);
        m_proposed.*text = isKept ? unchanged.*text : spelled;
        if (isKept)
            m_keptFrames.append(QLatin1String(id));
    };
    offer(Id3FrameId::title, &SongInfo::title);
    offer(Id3FrameId::artist, &SongInfo::artist);
    offer(Id3FrameId::genre, &SongInfo::genre);
    offer(Id3FrameId::author, &SongInfo::author);
    offer(Id3FrameId::key, &SongInfo::key);
    if (isGenreNumber(m_shown.genre) && !m_said.genre.isEmpty())
        m_proposed.genre = closeSpelling(m_said.genre);
    if (m_shown.userBpm == 0)
        m_proposed.userBpm = m_said.userBpm;
    if (m_shown.length == 0)
        m_proposed.length = m_said.length;
}

SaveFailure Mp3Preparation::write(const SongInfo &texts) const
{
    OpenedFile opened(m_path);
    if (!opened.isLoaded)
        return loadFailureOf(m_path);
    if (opened.digest() != m_digest)
        return SaveFailure::InUse;
    Mp3Header tag = renewed(opened.tag, opened.start);
    if (versionOf(tag.stream()) == shortNames || !writeTexts(tag, texts))
        return SaveFailure::Unreadable;
    if (troubles() != TagTroubles() && opened.start.startsWith(tag.stream()))
        return SaveFailure::Unreadable;
    const qint64 oldSize = opened.tag.getId3TagSize(opened.start);
    const qint64 size = tag.stream().size() - Mp3Header::headerSize;
    if (size > std::max(mp3tagfile::largestReadTag, oldSize) &&
        oldSize <= mp3tagfile::largestReadTag)
        return SaveFailure::TooLarge;
    MetaSong::removeReadOnlyFlag(m_path);
    return songsaving::replaceHead(m_path, tag.stream(), opened.file,
                                   opened.tag.getAudioDataStartPos());
}
