#include "library/unreadablefile.h"

#include "formats/metasong.h"
#include "library/runreport.h"

#include <QFile>
#include <QFileInfo>

namespace
{

UnreadableFile::Reason reasonFor(const QString &path)
{
    using Reason = UnreadableFile::Reason;
    const QFileInfo item(path);
    if (!item.exists())
        return Reason::Missing;
    if (!item.isFile())
        return Reason::NoFile;
    if (!QFile(path).open(QFile::ReadOnly))
        return Reason::Locked;
    if (item.size() == 0)
        return Reason::Empty;
    return MetaSong::hasKnownFormat(path) ? Reason::Damaged : Reason::UnknownFormat;
}

} // namespace

UnreadableFile UnreadableFile::examine(const QString &path, bool isInUse)
{
    return {path, isInUse ? Reason::InUse : reasonFor(path)};
}

QString UnreadableFile::reasonText() const
{
    switch (reason) {
    case Reason::Missing:
        return tr("Il file non esiste");
    case Reason::NoFile:
        return tr("Non è un file normale");
    case Reason::Locked:
        return tr("Il file non può essere aperto");
    case Reason::InUse:
        return RunReport::reasonText(SaveFailure::InUse);
    case Reason::Empty:
        return tr("Il file è vuoto");
    case Reason::UnknownFormat:
        return tr("Formato non riconosciuto");
    case Reason::Damaged:
        break;
    }
    return tr("Il file è danneggiato");
}
