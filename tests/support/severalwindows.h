// The windows of the edit of several songs with contents in them.
#pragma once

#include "windows/editseveraldialog.h"
#include "windows/renameseveraldialog.h"

#include <memory>

namespace severalwindows
{

/** Songs of each kind: one that the pattern fits, one that it does not, one with long texts. */
inline QList<SongInfo> songs(const SongInfo &example)
{
    SongInfo fitting = example;
    fitting.fileName = QStringLiteral("/music/Neapolitan/01 - Capua - O sole mio.mid");
    SongInfo unfit = example;
    unfit.fileName = QStringLiteral("/music/Vesuvio.mp3");
    unfit.format = QStringLiteral("MP3");
    SongInfo odd = example;
    odd.fileName =
        QStringLiteral("/music/Dvořák - ") + QString(60, QLatin1Char('x')) + QStringLiteral(".mf5");
    odd.format = QStringLiteral("MF5");
    return {fitting, unfit, odd};
}

inline std::unique_ptr<QWidget> edit(const SongInfo &example, EditStepForm::Kind kind)
{
    auto dialog = std::make_unique<EditSeveralDialog>(songs(example), OpenHistory());
    if (kind != EditStepForm::Kind::FromName)
        dialog->addStep(kind);
    return dialog;
}

inline std::unique_ptr<QWidget> rename(const SongInfo &example)
{
    return std::make_unique<RenameSeveralDialog>(songs(example), OpenHistory());
}

} // namespace severalwindows
