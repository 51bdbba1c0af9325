// Frames of ID3v2 tags: how they are written, and whether one holds more than its plain text.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

/**
 * A frame of version 3 and 4: identifier, size (4 bytes, big-endian), two flag bytes; then, counted
 * by the size, the content, which in a text frame is the encoding byte and the text.
 */
namespace Id3FrameLayout
{
constexpr int idSize = 4;
constexpr int sizePos = idSize;
constexpr int headerSize = 10;
constexpr int encodingPos = headerSize;
constexpr int textPos = encodingPos + 1;
} // namespace Id3FrameLayout

/** The identifiers of the frames with the song's data. */
namespace Id3FrameId
{
constexpr char title[] = "TIT2";
constexpr char artist[] = "TPE1";
constexpr char genre[] = "TCON";
constexpr char author[] = "TCOM";
constexpr char key[] = "TKEY";
constexpr char userBpm[] = "TBPM";
constexpr char length[] = "TLEN"; ///< in milliseconds
constexpr char copyright[] = "TCOP";
constexpr char edit[] = "MEDT"; ///< the mark of a file that this program has edited
} // namespace Id3FrameId

/**
 * The size that four bytes, given as a big-endian number, hold in groups of seven bits, as version
 * 4 writes them. The number itself if one of the bytes has its eighth bit set.
 */
quint32 sizeInGroups(quint32 plain);

/** True for four capital letters or digits, as every frame begins. */
bool isFrameId(QByteArrayView bytes);

/**
 * A text frame as the player reads it: no flags, ISO-8859-1, no terminator. The identifier has 4
 * characters, the text less than 2^28 bytes. groupsSize: the size has groups of seven bits, the
 * form of version 4.
 */
QByteArray encodedTextFrame(const QByteArray &id, const QByteArray &text, bool groupsSize);

/**
 * True when nothing is lost if this frame is replaced by an encodedTextFrame with its text (8-bit,
 * up to the first zero). False for a frame that is compressed, encrypted or grouped, in another
 * encoding (UTF-8 that is ASCII is fine), or of several texts. A frame that is cut off or empty
 * counts as an empty text.
 */
bool isPlainText(QByteArrayView frame);

/**
 * True when nothing is lost if this frame's number is rounded to whole units (1000 where
 * milliseconds become seconds): its plain text is empty, or a number that is not negative and a
 * multiple of the unit.
 */
bool isPlainNumber(QByteArrayView frame, int unit);

/**
 * The bytes of a tag behind its header, or of a frame, before a zero was put behind every FF that
 * something could take for MPEG audio. Nothing when the bytes still hold what could be taken for
 * MPEG audio: the tag's flag was wrong then.
 */
std::optional<QByteArray> withoutUnsynchronisation(QByteArrayView bytes);
