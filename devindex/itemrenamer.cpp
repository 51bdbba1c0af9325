#include "devindex/itemrenamer.h"

#include "devindex/renamedpath.h"
#include "devindex/songrenamer.h"

#include <QFileInfo>

#include <algorithm>

ItemRenamer::ItemRenamer(IndexState &state, IndexObserver &observer)
    : m_state(state)
    , m_observer(observer)
{
}

QString ItemRenamer::renameLong(const QString &path)
{
    if (isNamedWell(path) || songrenamer::liesOutside(m_state.rootPath, path))
        return path;
    return renameAsked(path);
}

QString ItemRenamer::renameLongInside(const QString &path)
{
    return isNamedWell(path) ? path : renameAsked(path);
}

bool ItemRenamer::isNamedWell(const QString &path) const
{
    return isShortName(path) || path.compare(m_state.rootPath, Qt::CaseInsensitive) == 0;
}

QString ItemRenamer::renameAsked(const QString &path)
{
    QString candidate = m_shortNames.candidateFor(QFileInfo(path));
    if (candidate.isEmpty())
        return leftOut(path);
    if (!ask(path, candidate))
        return path;
    const songrenamer::Result renamed = songrenamer::rename(path, candidate);
    if (renamed.outcome == songrenamer::Outcome::Unfinished) {
        m_observer.tellError(
            tr("File non rinominato, l'ultimo salvataggio non è stato completato: ") + path);
        return path;
    }
    m_unsure = m_unsure || !renamed.onMedium;
    if (renamed.outcome == songrenamer::Outcome::Failed)
        return leftOut(path);
    keep(path, candidate);
    return candidate;
}

/** Nothing can be used under this path. */
QString ItemRenamer::leftOut(const QString &path)
{
    m_observer.tellLeftOut(tr("Nome troppo lungo, il player non lo trova: ") + path);
    return {};
}

void ItemRenamer::keep(const QString &path, const QString &newPath)
{
    const qsizetype rootSize = m_state.rootPath.size();
    m_renames.append({path.mid(rootSize), newPath.mid(rootSize)});
    if (!m_playlists)
        m_playlists.emplace(m_state.rootPath);
    m_followed = m_playlists->follow(path.mid(rootSize), newPath.mid(rootSize)) && m_followed;
}

bool ItemRenamer::tellPlaylists() const
{
    PlaylistRenames playlists(m_state.rootPath);
    return std::all_of(m_renames.cbegin(), m_renames.cend(), [&playlists](const Rename &rename) {
        return playlists.follow(rename.path, rename.newPath);
    });
}

void ItemRenamer::renameEntries()
{
    if (m_renames.isEmpty())
        return;
    for (SongInfoIndex &entry : m_state.entries) {
        bool isRenamed = false;
        for (const Rename &rename : std::as_const(m_renames))
            isRenamed = renamedpath::follow(entry.path, rename.path, rename.newPath) || isRenamed;
        if (!isRenamed)
            continue;
        entry.fullPath = m_state.rootPath + entry.path;
        entry.date = 0; // a song without a title shows its name
        entry.time = 0;
        m_state.indexChanged = 1;
    }
}

void ItemRenamer::start()
{
    m_unsure = false;
    m_followed = true;
    m_renames.clear();
    m_playlists.reset();
}

bool ItemRenamer::ask(const QString &path, const QString &candidate)
{
    RememberedAnswer rename(m_state.renameAccepted != 0, m_state.askBeforeRename == 0);
    const bool accepted = rename.isYes([&] {
        const QString message =
            tr("verrà rinominato: ") + candidate + QLatin1String("\n\n") +
            tr("Se il file non viene rinominato, è possibile che non venga rilevato da Kavena.");
        return m_question ? m_question(path, message) : Answer::No;
    });
    m_state.renameAccepted = accepted ? 1 : 0;
    m_state.askBeforeRename = rename.isToAll() ? 0 : 1;
    return accepted;
}
