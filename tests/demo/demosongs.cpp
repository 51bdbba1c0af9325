#include "demo/demosongs.h"

#include "support/mp3judges.h"
#include "support/samplesongs.h"
#include "support/tagsofothers.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace
{

constexpr int installedSongs = 4;

struct Tune {
    const char *file;
    const char *abc;
};

const Tune tunes[] = {
    {"GREENSLV.MID", "X:1\nT:Greensleeves\nM:6/8\nL:1/8\nK:Am\nA|c2d e>fe|d2B G>AB|c2A A>^GA|]\n"},
    {"SILENT.MID", "X:1\nT:Silent Night\nM:3/4\nL:1/8\nK:C\nG>AG E3|G>AG E3|d2d B3|c2c G3|]\n"},
    {"AMAZING.MID", "X:1\nT:Amazing Grace\nM:3/4\nL:1/4\nK:G\nD|G2B/G/|B2A|G2E|D2D|]\n"},
    {"JINGLE.MID", "X:1\nT:Jingle Bells\nM:4/4\nL:1/4\nK:G\nBBB2|BBB2|BdG>A|B4|]\n"},
    {"STALUCIA.MID", "X:1\nT:Santa Lucia\nM:3/8\nL:1/8\nK:C\nGGc|cBB|FFA|AGG|]\n"},
    {"ENTERTAI.MID", "X:1\nT:The Entertainer\nM:2/4\nL:1/8\nK:C\nDEcE|cEc2|cdec|dBcz|]\n"},
    {"DANUBIO.MID", "X:1\nT:The Blue Danube\nM:3/4\nL:1/4\nK:D\nDFA|A2a|a2f|f2D|]\n"},
    {"THESAINT.MID", "X:1\nT:The Saints\nM:4/4\nL:1/4\nK:F\nzFAB|c4|zFAB|c4|]\n"},
    {"SCARFAIR.MID", "X:1\nT:Scarborough Fair\nM:3/4\nL:1/4\nK:Dm\nD2D|A2A|E>FE|D3|]\n"},
    {"DANNYBOY.MID", "X:1\nT:Danny Boy\nM:4/4\nL:1/4\nK:Eb\nzDEF|G2FG|cBGF|E4|]\n"},
};
const Tune laterTune = {"BEAUTIFU.MID",
                        "X:1\nT:Beautiful Dreamer\nM:9/8\nL:1/8\nK:Eb\ne2d c2B|A2G G2F|E6|]\n"};

/** Songs whose names say more than their details, and one with texts that no player can show. */
bool makeMp3s(const QString &music, QStringList &songs)
{
    const struct {
        const char *file;
        const char *title;
    } named[] = {
        {"Enrico Caruso - O sole mio.mp3", "O Sole Mio"},
        {"Ludwig van Beethoven - Für Elise.mp3", "Für Elise"},
        {"Piano class - Scale in C.mp3", "Scale in C"},
    };
    bool ok = true;
    for (const auto &song : named) {
        songs << music + QString::fromUtf8(song.file);
        ok = ok &&
             samplesongs::makeMp3(songs.last(),
                                  {QString::fromUtf8(song.title), QStringLiteral("Demonstration"),
                                   QStringLiteral("Classical")},
                                  4);
    }
    const QByteArray sound = mp3judges::audioOf(samplesongs::readFile(songs.last()));
    songs << music + QStringLiteral("zvon.mp3");
    return ok && samplesongs::writeFile(songs.last(),
                                        tagsofothers::song(QString::fromUtf8("Čárový “zvon”"),
                                                           QString::fromUtf8("Řehoř"))
                                                .chopped(tagsofothers::audio().size()) +
                                            sound);
}

/** What is on the memory before the first transfer. */
bool makeMemory(const QString &card, const QStringList &songs)
{
    const QString there = card + QStringLiteral("/songs/");
    // One song that is not among those that are chosen, one with other contents, one that was
    // transferred under a shortened name.
    return QDir().mkpath(there) &&
           samplesongs::makeMidi(there + QStringLiteral("OLDSONG.MID"), tunes[0].abc) &&
           samplesongs::makeMidi(there + QStringLiteral("JINGLE.MID"), tunes[1].abc) &&
           QFile::copy(songs.constFirst(), there + QStringLiteral("5432go-1.mid"));
}

} // namespace

std::optional<QStringList> gatherDemoSongs(const QString &folder)
{
    const QString music = folder + QStringLiteral("/music/");
    const QString card = folder + QStringLiteral("/memories/CARD");
    QDir(music).removeRecursively();
    QDir(card).removeRecursively();
    bool ok = QDir().mkpath(music) && QDir().mkpath(folder + QStringLiteral("/backups"));
    QStringList songs;
    const QStringList midi = samplesongs::installedMidiFiles();
    for (int i = 0; i < installedSongs && i < midi.size(); ++i) {
        // One name stays too long for the player, to show the question about it.
        const QFileInfo song(midi[i]);
        songs << music + (i == 0 ? song.fileName()
                                 : song.completeBaseName().left(8) + QStringLiteral(".mid"));
        ok = ok && QFile::copy(midi[i], songs.last());
    }
    for (const Tune &tune : tunes) {
        songs << music + QString::fromLatin1(tune.file);
        ok = ok && samplesongs::makeMidi(songs.last(), tune.abc);
    }
    ok = makeMp3s(music, songs) && ok;
    for (int i = 0; i < 3 && i < midi.size(); ++i) {
        const QByteArray magic = "_MF" + QByteArray::number(i + 3);
        songs << music + QStringLiteral("packed%1.mf%2").arg(i).arg(i + 3);
        ok = ok && samplesongs::writeFile(
                       songs.last(),
                       samplesongs::mfxBytes(magic, samplesongs::readFile(midi[i]),
                                             {QFileInfo(midi[i]).completeBaseName(),
                                              QStringLiteral("OpenMSX"), QStringLiteral("Jazz")}));
    }
    ok = ok && samplesongs::makeMidi(laterDemoSong(folder), laterTune.abc);
    if (!ok || midi.size() < installedSongs || !makeMemory(card, songs))
        return {};
    return songs;
}

QString laterDemoSong(const QString &folder)
{
    return folder + QStringLiteral("/music/") + QString::fromLatin1(laterTune.file);
}
