#include "formats/id3version2.h"

#include "formats/id3frame.h"

#include <QtEndian>

#include <algorithm>
#include <array>

namespace
{

// A frame of version 2: identifier, size (3 bytes), content.
constexpr qsizetype oldIdSize = 3;
constexpr qsizetype oldHeaderSize = 6;

struct Successor {
    char oldId[oldIdSize + 1];
    char newId[Id3FrameLayout::idSize + 1];
};

// The standard's own list, without the few whose layout changed, and what iTunes added.
constexpr Successor successors[] = {
    {"BUF", "RBUF"}, {"CNT", "PCNT"}, {"COM", "COMM"}, {"CRA", "AENC"}, {"EQU", "EQUA"},
    {"ETC", "ETCO"}, {"GEO", "GEOB"}, {"IPL", "IPLS"}, {"MCI", "MCDI"}, {"MLL", "MLLT"},
    {"PIC", "APIC"}, {"POP", "POPM"}, {"REV", "RVRB"}, {"RVA", "RVAD"}, {"SLT", "SYLT"},
    {"STC", "SYTC"}, {"TAL", "TALB"}, {"TBP", "TBPM"}, {"TCM", "TCOM"}, {"TCO", "TCON"},
    {"TCR", "TCOP"}, {"TDA", "TDAT"}, {"TDY", "TDLY"}, {"TEN", "TENC"}, {"TFT", "TFLT"},
    {"TIM", "TIME"}, {"TKE", "TKEY"}, {"TLA", "TLAN"}, {"TLE", "TLEN"}, {"TMT", "TMED"},
    {"TOA", "TOPE"}, {"TOF", "TOFN"}, {"TOL", "TOLY"}, {"TOR", "TORY"}, {"TOT", "TOAL"},
    {"TP1", "TPE1"}, {"TP2", "TPE2"}, {"TP3", "TPE3"}, {"TP4", "TPE4"}, {"TPA", "TPOS"},
    {"TPB", "TPUB"}, {"TRC", "TSRC"}, {"TRD", "TRDA"}, {"TRK", "TRCK"}, {"TSI", "TSIZ"},
    {"TSS", "TSSE"}, {"TT1", "TIT1"}, {"TT2", "TIT2"}, {"TT3", "TIT3"}, {"TXT", "TEXT"},
    {"TXX", "TXXX"}, {"TYE", "TYER"}, {"UFI", "UFID"}, {"ULT", "USLT"}, {"WAF", "WOAF"},
    {"WAR", "WOAR"}, {"WAS", "WOAS"}, {"WCM", "WCOM"}, {"WCP", "WCOP"}, {"WPB", "WPUB"},
    {"WXX", "WXXX"}, {"GP1", "GRP1"}, {"TCP", "TCMP"}, {"TS2", "TSO2"}, {"TSA", "TSOA"},
    {"TSC", "TSOC"}, {"TSP", "TSOP"}, {"TST", "TSOT"},
};

bool isOldId(QByteArrayView bytes)
{
    return std::all_of(bytes.cbegin(), bytes.cend(),
                       [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); });
}

/** Empty for a frame that version 3 has no counterpart of, or only one of another layout. */
QByteArray successorOf(QByteArrayView oldId)
{
    const auto *const found =
        std::find_if(std::begin(successors), std::end(successors),
                     [oldId](const Successor &successor) { return oldId == successor.oldId; });
    return found == std::end(successors) ? QByteArray() : QByteArray(found->newId);
}

/** A picture's kind is three letters behind the encoding in version 2, a MIME type in version 3. */
QByteArray pictureContent(const QByteArray &content)
{
    constexpr qsizetype kindPos = 1;
    constexpr qsizetype kindSize = 3;
    const QByteArray kind = content.mid(kindPos, kindSize);
    QByteArray type = "image/" + (kind == "JPG" ? QByteArrayLiteral("jpeg") : kind.toLower());
    if (kind == "-->") // an address takes the place of the picture
        type = kind;
    return content.left(kindPos) + type + '\0' + content.mid(kindPos + kindSize);
}

QByteArray newFrame(const QByteArray &id, const QByteArray &content)
{
    QByteArray frame = id + QByteArray(Id3FrameLayout::headerSize - id.size(), '\0');
    qToBigEndian(static_cast<quint32>(content.size()), frame.data() + Id3FrameLayout::sizePos);
    return frame + content;
}

} // namespace

std::optional<QByteArray> framesOfVersion3(QByteArrayView framesOfVersion2)
{
    QByteArray frames;
    QByteArrayView left = framesOfVersion2;
    while (!left.isEmpty() && left.front() != '\0') {
        if (left.size() < oldHeaderSize || !isOldId(left.first(oldIdSize)))
            return std::nullopt;
        const QByteArray id = successorOf(left.first(oldIdSize));
        const std::array<char, sizeof(quint32)> field{'\0', left[3], left[4], left[5]};
        const qsizetype size = qFromBigEndian<quint32>(field.data());
        if (size > left.size() - oldHeaderSize)
            return std::nullopt;
        const QByteArray content = left.sliced(oldHeaderSize, size).toByteArray();
        if (!id.isEmpty())
            frames += newFrame(id, id == "APIC" ? pictureContent(content) : content);
        left = left.sliced(oldHeaderSize + size);
    }
    return frames;
}

bool hasSuccessor(QByteArrayView id)
{
    return !successorOf(id).isEmpty();
}
