#include "sound/soundproblem.h"

QString SoundProblem::text(Kind kind)
{
    switch (kind) {
    case NotBuilt:
        return tr("Questa versione del programma è senza suono");
    case NoModule:
        return tr("La parte del programma che suona le song non è installata");
    case NoSoundFont:
        return tr("Manca un sound font per suonare le song MIDI (per esempio il pacchetto "
                  "timgm6mb-soundfont)");
    case BadSoundFont:
        return tr("Il sound font non può essere letto");
    case NoDevice:
        return tr("Non c'è un dispositivo audio");
    case DeviceFailed:
        return tr("Il dispositivo audio non risponde");
    case Unreadable:
        return tr("Il file non può essere letto");
    case InUse:
        return tr("Un altro programma sta salvando la song");
    case NoSong:
        return tr("Il file non è una song");
    case Damaged:
        return tr("La song è danneggiata");
    case TooLarge:
        return tr("La song è troppo grande per essere suonata");
    case TooLong:
        return tr("La song dura più di 6 ore");
    case NoMusic:
        return tr("Nella song non c'è niente da sentire");
    case None:
        break;
    }
    return {};
}

bool SoundProblem::concernsAll(Kind kind)
{
    return kind == NotBuilt || kind == NoModule || kind == NoDevice;
}

bool SoundProblem::mayPass(Kind kind)
{
    return kind == DeviceFailed || kind == Unreadable || kind == InUse;
}
