#include "sound/soundfont.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

QStringList soundfont::folders()
{
    QStringList found;
#ifdef Q_OS_MACOS
    found.append(QCoreApplication::applicationDirPath() + QStringLiteral("/../Resources"));
#endif
    const QStringList data = QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
    for (const QString &folder : data) {
        for (const char *const name : {"/soundfonts", "/sounds/sf2", "/sounds/sf3"})
            found.append(folder + QLatin1String(name));
    }
    return found;
}

QString soundfont::find(const QString &chosen)
{
    return findIn(folders(), chosen);
}

QString soundfont::findIn(const QStringList &folders, const QString &chosen)
{
    if (!chosen.isEmpty() && QFileInfo(chosen).isFile())
        return chosen;
    for (const bool isDefault : {true, false}) {
        const QString name = isDefault ? QStringLiteral("default*") : QStringLiteral("*");
        for (const QString &folder : folders) {
            const QStringList files = QDir(folder).entryList(
                {name + QStringLiteral(".sf2"), name + QStringLiteral(".sf3")},
                QDir::Files | QDir::Readable, QDir::Name);
            if (!files.isEmpty())
                return folder + QLatin1Char('/') + files.constFirst();
        }
    }
    return {};
}
