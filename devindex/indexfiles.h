// The names of the files and folders that the player knows on its memory.
#pragma once

#include <QLatin1String>

#include <array>

namespace indexfiles
{

inline constexpr QLatin1String Path("index.idx");
inline constexpr QLatin1String Order("ordfile.idx");
inline constexpr QLatin1String Title("title.idx");
inline constexpr QLatin1String Artist("artist.idx");
inline constexpr QLatin1String Genre("genre.idx");
inline constexpr QLatin1String AlphaTitle("atitle.idx");
inline constexpr QLatin1String AlphaArtist("aartist.idx");
inline constexpr QLatin1String AlphaGenre("agenre.idx");
inline constexpr QLatin1String Mp3Title("title3.idx");
inline constexpr QLatin1String Mp3Artist("artist3.idx");
inline constexpr QLatin1String Mp3Genre("genre3.idx");
inline constexpr QLatin1String AlphaMp3Title("atitle3.idx");
inline constexpr QLatin1String AlphaMp3Artist("aartist3.idx");
inline constexpr QLatin1String AlphaMp3Genre("agenre3.idx");
inline constexpr QLatin1String Count("fsinfos.idx");

/** A complete index is all of these. */
inline constexpr std::array<QLatin1String, 15> All{
    Path,       Order,         Title,          Artist,        Genre,
    AlphaTitle, AlphaArtist,   AlphaGenre,     Mp3Title,      Mp3Artist,
    Mp3Genre,   AlphaMp3Title, AlphaMp3Artist, AlphaMp3Genre, Count};

/** The file of counts while it is being written. */
inline constexpr QLatin1String UnfinishedCount("temp1.idx");

/** Working files that index builds may have left behind. */
inline constexpr std::array<QLatin1String, 2> Temporary{UnfinishedCount,
                                                        QLatin1String("temp2.idx")};

/** Folders that belong to the player; songs are never looked for in them. */
inline constexpr QLatin1String EffectsFolder("sfx");
inline constexpr QLatin1String BridgeFolder("bridge");

inline constexpr QLatin1String PlaylistFolder("playlist");
inline constexpr QLatin1String PlaylistList("playlist/playlist.dat");

} // namespace indexfiles
