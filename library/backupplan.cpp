#include "library/backupplan.h"

#include "library/companion.h"

#include <utility>

namespace
{

QString key(const QString &name)
{
    return name.normalized(QString::NormalizationForm_C).toCaseFolded();
}

/** The names that a copied song needs in its folder: its own, and that of its karaoke pictures. */
QSet<QString> namesOf(const QString &file)
{
    const QString name = file.section(QLatin1Char('/'), -1);
    QSet<QString> names{key(name)};
    const QString companion = companionOf(file);
    if (!companion.isEmpty())
        names.insert(key(companionTarget(companion, name)));
    return names;
}

/** A folder's name that every file system accepts. */
QString acceptable(QString name)
{
    for (QChar &character : name) {
        if (character < QLatin1Char(' ') || QStringLiteral("\\/:*?\"<>|").contains(character))
            character = QLatin1Char('_');
    }
    while (name.endsWith(QLatin1Char('.')) || name.endsWith(QLatin1Char(' ')))
        name.chop(1);
    return name.isEmpty() ? QStringLiteral("songs") : name;
}

} // namespace

BackupPlan::BackupPlan(const QStringList &files)
    : m_batches{Batch()}
    , m_names{{}}
{
    QSet<QString> seen;
    QStringList others;
    for (const QString &file : files) {
        if (seen.contains(file))
            continue;
        seen.insert(file);
        const QSet<QString> names = namesOf(file);
        if (m_names.first().intersects(names)) {
            others.append(file);
            continue;
        }
        m_names.first().unite(names);
        m_batches.first().files.append(file);
    }
    // Only now is it known which names are taken by files, so that no folder can have them.
    for (const QString &file : std::as_const(others))
        addToFolderOfItsOwn(file);
}

void BackupPlan::addToFolderOfItsOwn(const QString &file)
{
    const QString source = file.section(QLatin1Char('/'), 0, -2);
    const QSet<QString> names = namesOf(file);
    // "Song.mid" and "SONG.mid" can come from one folder: it then needs more than one.
    const QList<qsizetype> places = m_placesOfSource.values(source);
    for (const qsizetype place : places) {
        if (m_names.at(place).intersects(names))
            continue;
        m_names[place].unite(names);
        m_batches[place].files.append(file);
        return;
    }
    m_placesOfSource.insert(source, m_batches.size());
    m_batches.append({freeFolderName(source.section(QLatin1Char('/'), -1)), {file}});
    m_names.append(names);
}

QString BackupPlan::freeFolderName(const QString &sourceFolder)
{
    const QString name = acceptable(sourceFolder);
    QString free = name;
    // Thousands of folders can have one name.
    int &number = m_lastNumber.insert(key(name), m_lastNumber.value(key(name), 1)).value();
    while (m_names.first().contains(key(free)))
        free = QStringLiteral("%1 (%2)").arg(name, QString::number(++number));
    m_names.first().insert(key(free));
    return free;
}
