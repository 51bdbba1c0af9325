#include "devindex/foldernames.h"

#include "devindex/namekey.h"
#include "storage/safefile.h"

#include <QDir>

#include <algorithm>
#include <utility>

FolderNames::FolderNames(QString folder)
    : m_folder(std::move(folder))
{
    const QStringList names = QDir(m_folder).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Unsorted);
    for (const QString &name : names)
        addName(name);
}

QString FolderNames::existing(const QString &path) const
{
    if (isTaken(path))
        return path;
    const QString wanted = path.section(QLatin1Char('/'), -1);
    const QStringList names = m_names.values(nameKey(wanted));
    const auto found = std::find_if(names.cbegin(), names.cend(), [&](const QString &name) {
        return name.compare(wanted, Qt::CaseInsensitive) == 0 &&
               isTaken(m_folder + QLatin1Char('/') + name);
    });
    return found == names.cend() ? QString() : m_folder + QLatin1Char('/') + *found;
}

void FolderNames::add(const QString &path)
{
    addName(path.section(QLatin1Char('/'), -1));
}

void FolderNames::addName(const QString &name)
{
    const QString key = nameKey(name);
    if (!m_names.contains(key, name))
        m_names.insert(key, name);
}
