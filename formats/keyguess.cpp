#include "formats/keyguess.h"

#include "formats/midikeys.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace
{

// How well each note, counted from the tonic, fits a key. The probe tone ratings of C. L. Krumhansl
// and E. J. Kessler, "Tracing the dynamic changes in perceived tonal organization in a spatial
// representation of musical keys", Psychological Review 89 (1982). The key whose ratings correlate
// best with the lengths of the notes is taken, as in C. L. Krumhansl, "Cognitive Foundations of
// Musical Pitch" (1990).
constexpr PitchClassLengths majorProfile{6.35, 2.23, 3.48, 2.33, 4.38, 4.09,
                                         2.52, 5.19, 2.39, 3.66, 2.29, 2.88};
constexpr PitchClassLengths minorProfile{6.33, 2.68, 3.52, 5.38, 2.60, 3.53,
                                         2.54, 4.75, 3.98, 2.69, 3.34, 3.17};
constexpr int pitchClasses = 12;

double meanOf(const PitchClassLengths &values)
{
    return std::accumulate(values.cbegin(), values.cend(), 0.0) / pitchClasses;
}

/** Pearson's coefficient, times a number that is the same for all tonics. */
double correlation(const PitchClassLengths &lengths, const PitchClassLengths &profile, int tonic)
{
    const double meanLength = meanOf(lengths);
    const double meanRating = meanOf(profile);
    double product = 0;
    double ratings = 0;
    for (int note = 0; note < pitchClasses; ++note) {
        const double rating = profile.at(static_cast<std::size_t>(note)) - meanRating;
        const auto place = static_cast<std::size_t>((tonic + note) % pitchClasses);
        product += (lengths.at(place) - meanLength) * rating;
        ratings += rating * rating;
    }
    return product / std::sqrt(ratings);
}

/** The key with the fewest sharps or flats that has this tonic. */
QString keyName(int tonic, bool isMinor)
{
    // Each fifth upwards from C is one sharp more; a minor key has the signature of the major key
    // three half-tones above.
    constexpr int fifth = 7;
    constexpr int mostSharps = 6;
    int sharps = (tonic + (isMinor ? 3 : 0)) * fifth % pitchClasses;
    if (sharps > mostSharps)
        sharps -= pitchClasses;
    return midikeys::names().value(midikeys::value(static_cast<qint8>(sharps), isMinor));
}

} // namespace

QString guessedKey(const PitchClassLengths &lengths)
{
    const auto [shortest, longest] = std::minmax_element(lengths.cbegin(), lengths.cend());
    if (*longest - *shortest <= 0)
        return {};
    QString best;
    double bestFit = 0;
    for (int tonic = 0; tonic < pitchClasses; ++tonic) {
        for (const bool isMinor : {false, true}) {
            const double fit = correlation(lengths, isMinor ? minorProfile : majorProfile, tonic);
            if (best.isEmpty() || fit > bestFit) {
                bestFit = fit;
                best = keyName(tonic, isMinor);
            }
        }
    }
    return best;
}
