#include "devindex/copiesfrommemory.h"

#include <QFileInfo>
#include <QSet>

#include <utility>

CopiesFromMemory::CopiesFromMemory(const QString &root, FileCopier::AskReplace askReplace)
    : m_root(root)
    , m_copier(std::move(askReplace))
{
}

QString CopiesFromMemory::whyNotInto(const QString &folder) const
{
    const QString target = QFileInfo(folder).canonicalFilePath();
    const QString memory = QFileInfo(m_root).canonicalFilePath();
    if (target.isEmpty() || !QFileInfo(target).isDir())
        return tr("La cartella non esiste.");
    if (target == memory || target.startsWith(memory + QLatin1Char('/')))
        return tr("La cartella è nella memoria stessa: sceglierne una del computer.");
    return {};
}

FileCopier::Report CopiesFromMemory::copy(const QStringList &paths, const QString &folder,
                                          Progress &progress)
{
    QStringList sources;
    QList<FileCopier::Failure> sameNames;
    QSet<QString> names;
    for (const QString &path : paths) {
        const QString name = path.section(QLatin1Char('/'), -1).toCaseFolded();
        if (names.contains(name))
            sameNames.append({path, tr("un'altra song scelta ha lo stesso nome")});
        else
            sources.append(m_root + path);
        names.insert(name);
    }
    int copied = 0;
    m_copier.copyFiles(sources, folder, copied, progress);
    FileCopier::Report report = m_copier.report();
    report.failed += sameNames;
    return report;
}
