#include "windows/librariesdialog.h"

#include "sound/soundmodule.h"

#include <QtGlobal>

LibrariesDialog::LibrariesDialog(QWidget *parent)
    : InfoTableDialog(tr("Librerie usate"), {tr("Nome"), tr("Licenza"), tr("A che cosa serve")},
                      {{QString(), rows()}}, parent)
{
}

QList<QStringList> LibrariesDialog::rows()
{
    QList<QStringList> all{
        {QStringLiteral("Qt ") + QString::fromLatin1(qVersion()), QStringLiteral("LGPL-3.0"),
         tr("finestre, testi e file")},
        {QStringLiteral("SQLite"), tr("dominio pubblico"), tr("catalogo, lista e cronologia")},
        {QStringLiteral("ICU"), QStringLiteral("Unicode-DFS-2016"),
         tr("lettere che il player non ha")},
        {QStringLiteral("TagLib"), QStringLiteral("LGPL-2.1 / MPL-1.1"), tr("tag dei file MP3")},
        {QStringLiteral("Zstandard"), QStringLiteral("BSD-3-Clause"),
         tr("compressione della cronologia")}};
    if (soundmodule::problem() != SoundProblem::NotBuilt) {
        all.append({QStringLiteral("Qt Multimedia"), QStringLiteral("LGPL-3.0"),
                    tr("ascolto delle song")});
        all.append({QStringLiteral("FluidSynth"), QStringLiteral("LGPL-2.1"),
                    tr("suono delle song MIDI e MFX")});
    }
    return all;
}
