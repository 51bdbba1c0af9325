#include "sound/soundmodule.h"

#include "sound/soundparts.h"
#include "storage/diagnostics.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QPluginLoader>
#include <QStringList>

namespace
{

/** The file of the module; empty when it is not installed. */
QString modulePath()
{
    const QString here = QCoreApplication::applicationDirPath() + QLatin1Char('/');
    // Installed, in a bundle, and where it was built.
    const QStringList places{here + QStringLiteral(KAVENA_SOUND_FROM_PROGRAM),
                             here + QStringLiteral("../PlugIns"),
                             here + QStringLiteral("../sound/module")};
    for (const QString &place : places) {
        QString path = place + QStringLiteral("/" KAVENA_SOUND_FILE);
        if (QFileInfo(path).isFile())
            return path;
    }
    return {};
}

} // namespace

SoundProblem::Kind soundmodule::problem()
{
    constexpr bool isBuilt = KAVENA_HAS_SOUND != 0;
    if (!isBuilt)
        return SoundProblem::NotBuilt;
    static const bool isInstalled = !modulePath().isEmpty();
    return isInstalled ? SoundProblem::None : SoundProblem::NoModule;
}

SoundParts *soundmodule::parts()
{
    static SoundParts *const loaded = []() -> SoundParts * {
        if (problem() != SoundProblem::None)
            return nullptr;
        QPluginLoader loader(modulePath());
        auto *const found = qobject_cast<SoundParts *>(loader.instance());
        if (found == nullptr)
            logDebug() << "[SoundModule] cannot be loaded:" << loader.errorString();
        return found;
    }();
    return loaded;
}
