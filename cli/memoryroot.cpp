#include "cli/memoryroot.h"

#include "cli/songpaths.h"
#include "cli/terminal.h"
#include "devindex/mountedvolumes.h"

#include <QFileInfo>

std::optional<QString> memoryRootOf(const QByteArray &argument, Terminal &terminal)
{
    const std::optional<QString> path = SongPaths::decode(argument, terminal);
    if (!path)
        return {};
    const QString absolute = QFileInfo(*path).absoluteFilePath();
    if (!QFileInfo(absolute).isDir()) {
        terminal.refuse(*path, QCoreApplication::translate("IndexDialog",
                                                           "Il percorso selezionato non esiste"));
        return {};
    }
    const QString memory = MountedVolumes().getRootDrivePath(absolute);
    QString root = memory.isEmpty() ? absolute : memory;
    if (root.size() > 1 && root.endsWith(QLatin1Char('/')))
        root.chop(1);
    return root;
}
