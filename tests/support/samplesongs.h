// Real songs for tests and the demonstration: installed MIDI files, MP3 made by lame, MIDI made by
// abc2midi, MFX packed from MIDI files.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace samplesongs
{

/** What a song says of itself; empty items are left out. */
struct Tags {
    QString title;
    QString artist;
    QString genre;
};

/** The MIDI files of the installed game music, sorted by name; empty when it is not installed. */
QStringList installedMidiFiles();

/** Synthesises a short tune and lets lame make an MP3 of it with these ID3 tags. */
bool makeMp3(const QString &path, const Tags &tags, int seconds = 2);

/** Lets abc2midi make a MIDI file of a tune in ABC notation (header lines T: and so on included).
 */
bool makeMidi(const QString &path, const QByteArray &abc);

/** An MFX song file of this magic ("_MF3", "_MF4" or "_MF5") that holds the MIDI data. */
QByteArray mfxBytes(const QByteArray &magic, const QByteArray &midi, const Tags &tags);

QByteArray readFile(const QString &path);
bool writeFile(const QString &path, const QByteArray &bytes);

} // namespace samplesongs
