// The names of the files and folders that the player knows on its memory.
#pragma once

#include <QLatin1String>

#include <array>

namespace indexfiles
{

inline constexpr QLatin1String path("index.idx");
inline constexpr QLatin1String order("ordfile.idx");
inline constexpr QLatin1String title("title.idx");
inline constexpr QLatin1String artist("artist.idx");
inline constexpr QLatin1String genre("genre.idx");
inline constexpr QLatin1String alphaTitle("atitle.idx");
inline constexpr QLatin1String alphaArtist("aartist.idx");
inline constexpr QLatin1String alphaGenre("agenre.idx");
inline constexpr QLatin1String mp3Title("title3.idx");
inline constexpr QLatin1String mp3Artist("artist3.idx");
inline constexpr QLatin1String mp3Genre("genre3.idx");
inline constexpr QLatin1String alphaMp3Title("atitle3.idx");
inline constexpr QLatin1String alphaMp3Artist("aartist3.idx");
inline constexpr QLatin1String alphaMp3Genre("agenre3.idx");
inline constexpr QLatin1String count("fsinfos.idx");

/** A list, of all songs and of the MP3 songs, and where its first letters lead. */
struct ListNames {
    QLatin1String all;
    QLatin1String allLetters;
    QLatin1String mp3;
    QLatin1String mp3Letters;

    constexpr QLatin1String list(bool mp3Only) const { return mp3Only ? mp3 : all; }
    constexpr QLatin1String letters(bool mp3Only) const
    {
        return mp3Only ? mp3Letters : allLetters;
    }
};

inline constexpr ListNames titles{title, alphaTitle, mp3Title, alphaMp3Title};
inline constexpr ListNames artists{artist, alphaArtist, mp3Artist, alphaMp3Artist};
inline constexpr ListNames genres{genre, alphaGenre, mp3Genre, alphaMp3Genre};

/** A complete index is all of these. */
inline constexpr std::array<QLatin1String, 15> all{
    path,       order,         title,          artist,        genre,
    alphaTitle, alphaArtist,   alphaGenre,     mp3Title,      mp3Artist,
    mp3Genre,   alphaMp3Title, alphaMp3Artist, alphaMp3Genre, count};

/** The file of counts while it is being written. */
inline constexpr QLatin1String unfinishedCount("temp1.idx");

/** Working files that index builds may have left behind. */
inline constexpr std::array<QLatin1String, 2> temporary{unfinishedCount,
                                                        QLatin1String("temp2.idx")};

/** Folders that belong to the player; songs are never looked for in them. */
inline constexpr QLatin1String effectsFolder("sfx");
inline constexpr QLatin1String bridgeFolder("bridge");

inline constexpr QLatin1String playlistFolder("playlist");
inline constexpr QLatin1String playlistList("playlist/playlist.dat");

} // namespace indexfiles
