// The first bytes of song files and the fields with their sizes, shared by all layers.
#pragma once

#include <QtGlobal>

namespace songlayout
{
inline constexpr qsizetype magicSize = 4;        ///< enough bytes to recognise every format
inline constexpr char midiMagic[] = "MThd";      ///< Standard MIDI File
inline constexpr char mfxMagic[] = "_MF";        ///< the digit of the variant follows
inline constexpr char id3Magic[] = "ID3";        ///< ID3v2 tag, in front of an MP3's audio
inline constexpr char midiTrackMagic[] = "MTrk"; ///< chunk of a MIDI file with a track

// A MIDI file is a row of chunks: four letters, the size of what follows (4, big-endian), and that.
inline constexpr qsizetype chunkSizePos = 4;
inline constexpr qsizetype chunkHeaderSize = 8;

/** What the first chunk of a MIDI file holds: format, number of tracks, time division (2 each). */
inline constexpr qsizetype midiHeadSize = 6;
inline constexpr qsizetype trackCountPos = 10; ///< in a MIDI file: number of tracks (2, big-endian)
inline constexpr qsizetype timeDivisionPos = 12; ///< in a MIDI file: what a tick is (2, big-endian)

// The tag in front of an MP3's audio: "ID3", version, revision, flags (1 each), the size of what
// follows (4, seven bits in each byte, big-endian), and that.
inline constexpr qsizetype id3HeaderSize = 10;
inline constexpr qsizetype id3VersionPos = 3;
inline constexpr qsizetype id3FlagsPos = 5;
inline constexpr qsizetype id3SizePos = 6;
inline constexpr int id3HasFooter = 0x10; ///< of version 4: the header again, behind the tag

/** Where an MFX file holds its whole size (4 bytes, little-endian). */
inline constexpr qsizetype mfxFileSizePos = 4;
} // namespace songlayout
