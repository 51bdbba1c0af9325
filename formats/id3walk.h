// The frames of an ID3v2 tag as they stand in it, for those who look at all of them.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>

#include <optional>

/**
 * Steps from frame to frame of a tag of version 2, 3 or 4. The bytes that it is made of must
 * outlive it; nothing outside them is read, whatever the tag says.
 */
class Id3Walk
{
public:
    /** Bits of the second flag byte of a frame of version 4. */
    enum FormatFlag4 : quint8 {
        GroupIdentity = 0x40,
        Compressed = 0x08,
        Encrypted = 0x04,
        FrameUnsynchronised = 0x02,
        HasDataLength = 0x01
    };

    struct Frame {
        QByteArrayView id;      ///< three letters in version 2, else four
        quint8 status = 0;      ///< the first flag byte; version 2 has none
        quint8 format = 0;      ///< the second one
        bool sizeIsOdd = false; ///< a reader of version 3 takes the size for another number
        QByteArrayView content;

        /** With its header. */
        QByteArrayView whole;
    };

    /**
     * A tag with its ten bytes of header; what follows its end is not looked at. Bytes that are no
     * tag have version 0 and no frames.
     */
    explicit Id3Walk(QByteArrayView tag);

    int version() const { return m_version; }

    /** The tag says that a zero was put behind every FF, and there are such zeros. */
    bool isUnsynchronised() const { return m_isUnsynchronised; }

    /** The flag of the whole tag by which it says so, true or not. */
    bool hasUnsynchronisationFlag() const { return m_hasFlag; }

    /** All frames up to the padding, or up to the first one that is damaged. */
    const QList<Frame> &frames() const { return m_frames; }

    /** True when no frame is damaged. */
    bool isSound() const { return m_isSound; }

    /** The first frame of the name; null when there is none. */
    const Frame *first(QByteArrayView id) const;

private:
    void walk(QByteArrayView frames);
    std::optional<Frame> frameAt(QByteArrayView rest) const;
    qsizetype extendedHeader(QByteArrayView frames, quint8 flags) const;

    QByteArray m_freed; ///< the frames of version 2 or 3 without the zeros behind FF
    int m_version = 0;
    bool m_isUnsynchronised = false;
    bool m_hasFlag = false;
    bool m_isSound = false;
    QList<Frame> m_frames;
};
