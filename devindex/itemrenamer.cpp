#include "devindex/itemrenamer.h"

#include "devindex/songrenamer.h"

#include <QFileInfo>

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
        return {};
    if (!ask(path, candidate))
        return path;
    const songrenamer::Result renamed = songrenamer::rename(path, candidate);
    if (renamed.outcome == songrenamer::Outcome::Unfinished) {
        m_observer.tellError(
            tr("File non rinominato, l'ultimo salvataggio non è stato completato: ") + path);
        return path;
    }
    m_unsure = m_unsure || !renamed.onMedium;
    return renamed.outcome == songrenamer::Outcome::Failed ? QString() : candidate;
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
