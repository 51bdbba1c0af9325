// Where the fields lie in the header of an MFX song file; shared by readers and writers.
#pragma once

#include "storage/songlayout.h"

/** Numbers are little-endian, texts Latin-1 and padded with zero bytes. */
namespace mfxlayout
{
/** A field's offset from the start of the file and its size, in bytes. */
struct Field {
    qsizetype offset;
    qsizetype size;
};

inline constexpr Field fileSize = {songlayout::mfxFileSizePos, 4};
inline constexpr Field originalSize = {12, 4}; ///< of the MIDI data before their compression
inline constexpr Field tempo = {38, 2};        ///< beats per minute
inline constexpr Field longName = {42, 13};
inline constexpr Field copyright = {90, 20};
inline constexpr Field title = {122, 32};
inline constexpr Field editor = {154, 31};
inline constexpr Field flags = {185, 1};
inline constexpr Field author = {186, 32};
inline constexpr Field artist = {218, 32};
inline constexpr Field genre = {250, 32};

inline constexpr qsizetype headerSize = 512;      ///< of MF3 and MF4 files
inline constexpr qsizetype longHeaderSize = 1024; ///< of MF5 files
} // namespace mfxlayout
