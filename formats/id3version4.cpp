#include "formats/id3version4.h"

#include "formats/bytetext.h"
#include "formats/id3frame.h"
#include "formats/id3walk.h"
#include "formats/mp3header.h"

#include <QRegularExpression>
#include <QStringConverter>
#include <QStringList>
#include <QtEndian>

#include <algorithm>
#include <iterator>

namespace
{

/** What is unpacked could be a thousand times as large as the packed bytes. */
constexpr qsizetype mostPackedBytes = 65536;

constexpr char utf16Encoding = 1;
constexpr char bigEndianEncoding = 2;
constexpr char unicodeEncoding = 3; ///< UTF-8

/**
 * The frames of version 4 that version 3 has with the same layout, and those that it does not have
 * but that everybody writes into its tags. CHAP and CTOC hold frames, each of which would have to
 * be converted.
 */
constexpr const char *commonFrames[] = {
    "AENC", "APIC", "COMM", "COMR", "ENCR", "ETCO", "GEOB", "GRID", "GRP1", "LINK", "MCDI", "MEDT",
    "MLLT", "MVIN", "MVNM", "OWNE", "PCNT", "PCST", "POPM", "POSS", "PRIV", "RBUF", "RVRB", "SYLT",
    "SYTC", "TALB", "TBPM", "TCAT", "TCMP", "TCOM", "TCON", "TCOP", "TDES", "TDLY", "TENC", "TEXT",
    "TFLT", "TGID", "TIT1", "TIT2", "TIT3", "TKEY", "TKWD", "TLAN", "TLEN", "TMED", "TOAL", "TOFN",
    "TOLY", "TOPE", "TOWN", "TPE1", "TPE2", "TPE3", "TPE4", "TPOS", "TPUB", "TRCK", "TRSN", "TRSO",
    "TSO2", "TSOA", "TSOC", "TSOP", "TSOT", "TSRC", "TSSE", "TXXX", "UFID", "USER", "USLT", "WCOM",
    "WCOP", "WFED", "WOAF", "WOAR", "WOAS", "WORS", "WPAY", "WPUB", "WXXX"};

bool isCommon(QByteArrayView id)
{
    return std::any_of(std::begin(commonFrames), std::end(commonFrames),
                       [id](const char *known) { return id == known; });
}

/** The content before it was unsynchronised and packed; nothing where that cannot be told. */
std::optional<QByteArray> unpacked(const Id3Walk::Frame &frame, bool tagIsUnsynchronised)
{
    constexpr quint8 known =
        Id3Walk::Compressed | Id3Walk::FrameUnsynchronised | Id3Walk::HasDataLength;
    constexpr qsizetype lengthSize = 4;
    if ((frame.format & ~known) != 0)
        return {};
    QByteArrayView packed = frame.content;
    QByteArrayView length;
    if ((frame.format & (Id3Walk::Compressed | Id3Walk::HasDataLength)) != 0) {
        if (packed.size() < lengthSize)
            return {};
        length = packed.first(lengthSize);
        packed = packed.sliced(lengthSize);
    }
    QByteArray content = packed.toByteArray();
    if (tagIsUnsynchronised || (frame.format & Id3Walk::FrameUnsynchronised) != 0) {
        const auto freed = withoutUnsynchronisation(packed);
        const bool changes = freed && freed->size() < packed.size();
        if (changes && packed.back() == '\xFF')
            return {}; // whoever unsynchronises would have put a zero here
        if (changes)
            content = *freed;
    }
    if ((frame.format & Id3Walk::Compressed) == 0)
        return content;
    const quint32 size = sizeInGroups(qFromBigEndian<quint32>(length.data()));
    if (content.size() > mostPackedBytes || size > 1024 * mostPackedBytes)
        return {};
    QByteArray stream(lengthSize, '\0');
    qToBigEndian(size, stream.data());
    content = qUncompress(stream + content);
    return content.size() == qsizetype{size} ? std::optional(content) : std::nullopt;
}

/** Reads a content piece by piece; what cannot be read is remembered. */
class ContentReader
{
public:
    explicit ContentReader(QByteArrayView content)
        : m_left(content)
    {
    }

    bool isAtEnd() const { return m_left.isEmpty(); }
    bool failed() const { return m_failed; }
    QByteArray rest() { return bytes(m_left.size()); }

    QByteArray bytes(qsizetype size)
    {
        m_failed = m_failed || size > m_left.size();
        const QByteArrayView taken = m_left.first(std::min(size, m_left.size()));
        m_left = m_left.sliced(taken.size());
        return taken.toByteArray();
    }

    /** With its zero byte. */
    QByteArray terminatedBytes() { return bytes(m_left.indexOf('\0') + 1); }

    /** The text up to its zero, or to the end where there is none. */
    QString text(char encoding, bool &isTerminated)
    {
        const qsizetype unit = encoding == unicodeEncoding ? 1 : 2;
        qsizetype end = 0;
        while (end + unit <= m_left.size() && !isZero(m_left.sliced(end, unit)))
            end += unit;
        isTerminated = end + unit <= m_left.size();
        if (!isTerminated)
            end = m_left.size();
        // A mark of the byte order is a character like others here.
        QStringDecoder decoder(
            encoding == unicodeEncoding ? QStringConverter::Utf8 : QStringConverter::Utf16BE,
            QStringConverter::Flag::ConvertInitialBom | QStringConverter::Flag::Stateless);
        QString text = decoder.decode(m_left.first(end));
        m_failed = m_failed || decoder.hasError();
        m_left = m_left.sliced(isTerminated ? end + unit : end);
        return text;
    }

private:
    static bool isZero(QByteArrayView unit)
    {
        return std::all_of(unit.cbegin(), unit.cend(), [](char c) { return c == 0; });
    }

    QByteArrayView m_left;
    bool m_failed = false;
};

/** A content whose encoding version 3 does not have, taken apart. */
struct EncodedContent {
    struct Text {
        QString text;
        bool isTerminated = true;
    };

    QByteArray before; ///< between the encoding and the texts
    QList<Text> texts;
    QByteArray behind;

    void read(ContentReader &reader, char encoding)
    {
        Text next;
        next.text = reader.text(encoding, next.isTerminated);
        texts.append(next);
    }

    void readAll(ContentReader &reader, char encoding)
    {
        while (!reader.isAtEnd())
            read(reader, encoding);
    }

    /** In ISO-8859-1 where that holds all texts. */
    QByteArray written() const
    {
        const bool isLatin1 = std::all_of(texts.cbegin(), texts.cend(), [](const Text &text) {
            return charactersOutsideLatin1(text.text).isEmpty();
        });
        QByteArray content(1, isLatin1 ? '\0' : utf16Encoding);
        content += before;
        for (const Text &text : texts) {
            QStringEncoder encoder(QStringConverter::Utf16LE, QStringConverter::Flag::Stateless);
            content += isLatin1 ? text.text.toLatin1() : QByteArray("\xFF\xFE");
            if (!isLatin1)
                content += QByteArray(encoder.encode(text.text));
            if (text.isTerminated)
                content += QByteArray(isLatin1 ? 1 : 2, '\0');
        }
        return content + behind;
    }
};

/** The content in an encoding that version 3 has; nothing where the layout is not known. */
std::optional<QByteArray> recoded(QByteArrayView id, const QByteArray &content)
{
    constexpr qsizetype languageSize = 3;
    const bool isText = id.startsWith('T');
    const bool hasLanguage = id == "COMM" || id == "USLT" || id == "USER";
    const bool hasObject = id == "APIC" || id == "GEOB";
    const bool hasEncoding = isText || hasLanguage || hasObject || id == "WXXX" || id == "SYLT" ||
                             id == "OWNE" || id == "COMR" || id == "IPLS";
    if (!hasEncoding || content.isEmpty())
        return content;
    const char encoding = content.front();
    if (encoding != bigEndianEncoding && encoding != unicodeEncoding)
        return content;
    ContentReader reader(QByteArrayView(content).sliced(1));
    EncodedContent parts;
    if (isText || id == "IPLS") {
        parts.readAll(reader, encoding);
    } else if (hasLanguage) {
        parts.before = reader.bytes(languageSize);
        parts.readAll(reader, encoding);
    } else if (id == "WXXX") {
        parts.read(reader, encoding);
        parts.behind = reader.rest();
    } else if (id == "APIC") {
        parts.before = reader.terminatedBytes();
        parts.before += reader.bytes(1); // what it shows
        parts.read(reader, encoding);
        parts.behind = reader.rest();
    } else if (id == "GEOB") {
        parts.before = reader.terminatedBytes();
        parts.read(reader, encoding);
        parts.read(reader, encoding);
        parts.behind = reader.rest();
    } else {
        return {};
    }
    return reader.failed() ? std::nullopt : std::optional(parts.written());
}

QByteArray frameOfVersion3(QByteArrayView id, const QByteArray &content, quint8 status)
{
    QByteArray frame = id.toByteArray() + QByteArray(Id3FrameLayout::headerSize - id.size(), '\0');
    qToBigEndian(static_cast<quint32>(content.size()), frame.data() + Id3FrameLayout::sizePos);
    // The same three bits, which stand one place further to the left.
    frame[Id3FrameLayout::headerSize - 2] = static_cast<char>((status & 0x70U) << 1);
    return frame + content;
}

/** The text of a date, in whatever encoding; anything else gives a text that is no date. */
QString asciiText(const QByteArray &content)
{
    const auto plain = recoded("TDRC", content);
    if (!plain || plain->isEmpty())
        return {};
    const QByteArrayView bytes = QByteArrayView(*plain).sliced(1);
    QString text = QString::fromLatin1(bytes);
    if (plain->front() == utf16Encoding)
        text = QStringDecoder(QStringConverter::Utf16).decode(bytes);
    if (text.endsWith(QChar::Null))
        text.chop(1);
    return text;
}

/** A moment as year and day, if it is no more than these. */
std::optional<QByteArray> dateFrames(const QByteArray &content, quint8 status)
{
    static const QRegularExpression form(QStringLiteral("\\A(\\d{4})(?:-(\\d{2})-(\\d{2}))?\\z"));
    const QRegularExpressionMatch match = form.match(asciiText(content));
    if (!match.hasMatch())
        return {};
    const auto part = [&match](int number) { return match.captured(number).toLatin1(); };
    QByteArray frames = frameOfVersion3("TYER", '\0' + part(1), status);
    if (match.hasCaptured(2))
        frames += frameOfVersion3("TDAT", '\0' + part(3) + part(2), status);
    return frames;
}

std::optional<QByteArray> yearFrame(const QByteArray &content, quint8 status)
{
    const auto date = dateFrames(content, status);
    const auto year = frameOfVersion3("TYER", QByteArray(5, '0'), status);
    if (!date || date->size() != year.size())
        return {};
    return "TORY" + date->mid(Id3FrameLayout::idSize);
}

std::optional<QByteArray> converted(const Id3Walk::Frame &frame, bool tagIsUnsynchronised)
{
    const auto content = unpacked(frame, tagIsUnsynchronised);
    if (!content)
        return {};
    if (frame.id == "TDRC")
        return dateFrames(*content, frame.status);
    if (frame.id == "TDOR")
        return yearFrame(*content, frame.status);
    const QByteArrayView id = frame.id == "TIPL" ? QByteArrayView("IPLS") : frame.id;
    if (id != "IPLS" && !isCommon(id))
        return {};
    const auto known = recoded(id, *content);
    return known ? std::optional(frameOfVersion3(id, *known, frame.status)) : std::nullopt;
}

} // namespace

std::optional<QByteArray> tagOfVersion3(QByteArrayView tagOfVersion4)
{
    constexpr qsizetype largest = 0x0FFFFFFF;
    const Id3Walk walk(tagOfVersion4);
    if (walk.version() != 4 || !walk.isSound())
        return {};
    QByteArray frames;
    for (const Id3Walk::Frame &frame : walk.frames()) {
        const auto next = converted(frame, walk.hasUnsynchronisationFlag());
        if (!next || frames.size() + next->size() > largest)
            return {};
        frames += *next;
    }
    QByteArray tag("ID3\3\0\0", 6);
    for (int shift = 21; shift >= 0; shift -= 7)
        tag.append(static_cast<char>(frames.size() >> shift & 0x7F));
    return tag + frames;
}
