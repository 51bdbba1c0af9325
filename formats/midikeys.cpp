#include "formats/midikeys.h"

namespace
{

struct KeySignature {
    qint8 sharps; // negative: flats
    QLatin1String major;
    QLatin1String minor;
};

constexpr KeySignature signatures[] = {
    {7, QLatin1String("C#"), QLatin1String("A#-")},
    {6, QLatin1String("F#"), QLatin1String("D#-")},
    {5, QLatin1String("B"), QLatin1String("G#-")},
    {4, QLatin1String("E"), QLatin1String("C#-")},
    {3, QLatin1String("A"), QLatin1String("F#-")},
    {2, QLatin1String("D"), QLatin1String("B-")},
    {1, QLatin1String("G"), QLatin1String("E-")},
    {0, QLatin1String("C"), QLatin1String("A-")},
    {-1, QLatin1String("F"), QLatin1String("D-")},
    {-2, QLatin1String("Bb"), QLatin1String("G-")},
    {-3, QLatin1String("Eb"), QLatin1String("C-")},
    {-4, QLatin1String("Ab"), QLatin1String("F-")},
    {-5, QLatin1String("Db"), QLatin1String("Bb-")},
    {-6, QLatin1String("Gb"), QLatin1String("Eb-")},
    {-7, QLatin1String("Cb"), QLatin1String("Ab-")},
};

struct KeyMaps {
    QMap<QString, quint16> values;
    QMap<quint16, QString> names;
};

KeyMaps makeKeyMaps()
{
    KeyMaps maps;
    for (const KeySignature &signature : signatures) {
        maps.names.insert(midikeys::value(signature.sharps, false), signature.major);
        maps.names.insert(midikeys::value(signature.sharps, true), signature.minor);
    }
    for (auto name = maps.names.cbegin(); name != maps.names.cend(); ++name)
        maps.values.insert(name.value(), name.key());
    // Other names that the catalogue and users write; each is stored as a key that the player
    // knows. G sharp major would need eight sharps: the player takes it as E major.
    maps.values.insert(QStringLiteral("G#"), midikeys::value(4, false));
    maps.values.insert(QStringLiteral("Db-"), midikeys::value(4, true));
    maps.values.insert(QStringLiteral("D#"), midikeys::value(-3, false));
    return maps;
}

const KeyMaps &keyMaps()
{
    static const KeyMaps maps = makeKeyMaps();
    return maps;
}

} // namespace

const QMap<QString, quint16> &midikeys::values()
{
    return keyMaps().values;
}

const QMap<quint16, QString> &midikeys::names()
{
    return keyMaps().names;
}
