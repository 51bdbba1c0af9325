// The window that fills in what the music says, with contents in it.
#pragma once

#include "support/midievents.h"
#include "support/songfolder.h"
#include "windows/fillfrommusicdialog.h"

#include <memory>

namespace fillwindow
{

inline std::unique_ptr<QWidget> with(const QList<MusicOffer> &offers)
{
    return std::make_unique<FillFromMusicDialog>(FillFromMusicDialog::Songs{offers, {}, {}},
                                                 OpenHistory());
}

/** Songs that lack something, one with other values, one with a guessed key, one that is endless.
 */
inline std::unique_ptr<QWidget> some()
{
    using namespace midievents;
    using songbytes::kravoEvent;
    using songbytes::midiFile;
    using songbytes::track;
    const SongFolder folder;
    const QByteArray key = metaEvent(0x59, QByteArray("\x02\x00", 2));
    const QByteArray music = text(6, "Intro") + bpm(90) + after(8 * quarter, text(7, "Verse 1")) +
                             after(32 * quarter, text(6, "Chorus 1")) + pause(262 * quarter);
    QByteArray tune;
    for (int i = 0; i < 40; ++i)
        tune += note(0, QList<int>{60, 64, 67, 72, 65}.at(i % 5), quarter);
    const QList<QPair<const char *, QByteArray>> songs{
        {"01 - Capua - O sole mio.mid", key + music},
        {"Azzurro.mid", kravoEvent(4, "200") + kravoEvent(5, "77") + music},
        {"Volare.mid", tune},
        {"A whole evening.mid", key + bpm(60) + pause(14400 * quarter)},
        {"Damaged.mid", "MThd"}};
    QList<MusicOffer> offers;
    for (const auto &[name, bytes] : songs)
        offers << MusicOffer::of(folder.write(QString::fromUtf8(name),
                                              bytes == "MThd" ? bytes : midiFile({track(bytes)})));
    return with(offers);
}

inline std::unique_ptr<QWidget> nothing()
{
    return with({});
}

} // namespace fillwindow
