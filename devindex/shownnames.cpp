#include "devindex/shownnames.h"

namespace
{

/** The file's name, and with that of its folder. */
QStringList shortForms(const QString &path)
{
    const QLatin1Char slash('/');
    return {path.section(slash, -1), path.section(slash, -2)};
}

} // namespace

ShownNames::ShownNames(const QStringList &paths)
{
    for (const QString &path : paths) {
        const QStringList forms = shortForms(path);
        for (const QString &form : forms)
            m_paths[form.toCaseFolded()].insert(path);
    }
}

QString ShownNames::of(const QString &path) const
{
    const QStringList forms = shortForms(path);
    for (const QString &form : forms) {
        const auto found = m_paths.constFind(form.toCaseFolded());
        const qsizetype own = found != m_paths.cend() && found->contains(path) ? 1 : 0;
        if (found == m_paths.cend() || found->size() == own)
            return form;
    }
    return path;
}
