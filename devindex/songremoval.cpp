#include "devindex/songremoval.h"

#include "devindex/folderrules.h"
#include "formats/songnames.h"
#include "library/companion.h"
#include "storage/diagnostics.h"
#include "storage/safefile.h"
#include "storage/songjournal.h"
#include "storage/writeproblem.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>

namespace
{

const QChar pathSlash = QLatin1Char('/');

bool isSongFolder(const QString &name)
{
    return !name.startsWith(QLatin1Char('.')) && !isReservedFolder(name) && !isSystemFolder(name);
}

/** The parts of a path on the memory; empty for one that does not lead straight to a song. */
QStringList partsOf(const QString &path)
{
    const QStringList parts = path.split(pathSlash);
    const bool isStraight =
        parts.size() > 1 && parts.constFirst().isEmpty() &&
        std::none_of(parts.cbegin() + 1, parts.cend(), [](const QString &part) {
            return part.isEmpty() || part.startsWith(QLatin1Char('.')) || part.contains(QChar(0));
        });
    return isStraight ? parts.mid(1) : QStringList();
}

/** So many files are open at the same time; on a Mac a program may have 256. */
constexpr std::size_t mostKept = 100;

} // namespace

SongRemoval::SongRemoval(const QString &root)
    : m_root(root)
{
}

SongRemoval::~SongRemoval() = default;

QString SongRemoval::folderOf(const QString &path)
{
    return path.left(path.lastIndexOf(pathSlash));
}

QString SongRemoval::whyNot(const QString &path) const
{
    const QStringList parts = partsOf(path);
    if (parts.isEmpty() || !songnames::isSongName(path))
        return tr("non è una song della memoria");
    if (!std::all_of(parts.cbegin(), parts.cend() - 1, isSongFolder))
        return tr("è in una cartella riservata");
    QString place = m_root;
    for (const QString &part : parts) {
        place += pathSlash + part;
        if (QFileInfo(place).isSymLink())
            return tr("ci porta un collegamento: potrebbe trovarsi fuori dalla memoria");
    }
    const QFileInfo song(place);
    if (!song.exists())
        return tr("il file non c'è");
    return song.isFile() ? QString() : tr("non è una song della memoria");
}

QString SongRemoval::remove(const QString &path)
{
    QString refusal = whyNot(path);
    if (!refusal.isEmpty())
        return refusal;
    const QString song = m_root + path;
    const QString companion = companionOf(song);
    if (!removeFile(song)) {
        logWarning() << "[SongRemoval::remove] Impossible to remove" << song;
        const auto problem =
            WriteProblem::find(WriteProblem::Medium::of(QFileInfo(song).path()), 0);
        return problem == WriteProblem::Unknown ? tr("non è stato possibile eliminarla")
                                                : WriteProblem::fewWords(problem);
    }
    m_folders.insert(folderOf(path));
    SongJournal::removeAllOf(song);
    // Pictures that stayed would be shown with the next song of this name.
    if (companion.isEmpty() || removeFile(companion))
        return {};
    logWarning() << "[SongRemoval::remove] Impossible to remove" << companion;
    return tr("la song è stata eliminata, ma non le sue immagini: %1")
        .arg(QFileInfo(companion).fileName());
}

/** Removes a regular file. */
bool SongRemoval::removeFile(const QString &path)
{
    const QFileInfo file(path);
    if (!file.isFile() || file.isSymLink())
        return false;
    m_kept.push_back(keepBytesOf(path));
    if (QFile::remove(path))
        return true;
    m_kept.pop_back();
    return false;
}

QString SongRemoval::notConfirmed()
{
    return tr("la memoria non ha confermato l'eliminazione");
}

bool SongRemoval::isFull() const
{
    return m_kept.size() >= mostKept;
}

QSet<QString> SongRemoval::flush()
{
    QSet<QString> failed;
    for (const QString &folder : std::as_const(m_folders)) {
        if (!flushPath(m_root + folder))
            failed.insert(folder);
    }
    m_folders.clear();
    m_kept.clear();
    return failed;
}
