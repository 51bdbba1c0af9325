#include "windows/filechooser.h"

#include "devindex/mountedvolumes.h"
#include "library/settings.h"

#include <QDir>
#include <QFileDialog>
#include <QSettings>
#include <QStandardPaths>
#include <QUrl>

#include <utility>

namespace
{

constexpr int sideLetters = 20;

/** Empty when it is not mounted now. */
QString memoryUsedLast(const MountedVolumes &volumes)
{
    const QSettings settings(settings::organisation, settings::application);
    const QString memory = volumes.memoryOf(settings.value(settings::mediaRoot).toString());
    return volumes.isMemory(memory) ? memory : QString();
}

QList<QUrl> sidePlaces()
{
    const MountedVolumes volumes;
    QStringList places{memoryUsedLast(volumes)};
    const QList<MountedMemory> memories = volumes.memories();
    for (const MountedMemory &memory : memories)
        places.append(memory.path);
    places << QDir::homePath() << QStandardPaths::writableLocation(QStandardPaths::MusicLocation);
    places.removeDuplicates();
    QList<QUrl> urls;
    for (const QString &place : std::as_const(places)) {
        if (!place.isEmpty() && QDir(place).exists())
            urls.append(QUrl::fromLocalFile(place));
    }
    urls.append(QUrl(QStringLiteral("file:"))); // the whole computer
    return urls;
}

class Chooser : public QFileDialog
{
public:
    Chooser(QWidget *parent, const QString &title, const QString &start)
        : QFileDialog(parent, title, start)
    {
        setOption(DontUseNativeDialog);
        setSidebarUrls(sidePlaces());
        // Wide enough for the names of memories.
        if (auto *const side = findChild<QWidget *>(QStringLiteral("sidebar")))
            side->setMinimumWidth(sideLetters * fontMetrics().averageCharWidth());
    }

    QStringList choice() { return exec() == Accepted ? selectedFiles() : QStringList(); }
};

} // namespace

QString filechooser::openFile(QWidget *parent, const QString &title, const QString &start,
                              const QStringList &filters)
{
    Chooser chooser(parent, title, start);
    chooser.setFileMode(QFileDialog::ExistingFile);
    chooser.setNameFilters(filters);
    return chooser.choice().value(0);
}

QStringList filechooser::openFiles(QWidget *parent, const QString &title, const QString &start,
                                   const QStringList &filters)
{
    Chooser chooser(parent, title, start);
    chooser.setFileMode(QFileDialog::ExistingFiles);
    chooser.setNameFilters(filters);
    return chooser.choice();
}

filechooser::SavingChoice filechooser::saveFile(QWidget *parent, const Saving &saving)
{
    Chooser chooser(parent, saving.title, saving.start);
    chooser.setAcceptMode(QFileDialog::AcceptSave);
    chooser.setNameFilters(saving.filters);
    // The question about an existing file must be asked for the name that is written.
    chooser.setDefaultSuffix(saving.suffix);
    if (!saving.name.isEmpty())
        chooser.selectFile(saving.name);
    const QString path = chooser.choice().value(0);
    return {path, chooser.selectedNameFilter()};
}

QString filechooser::folder(QWidget *parent, const QString &title, const QString &start)
{
    Chooser chooser(parent, title, start);
    chooser.setFileMode(QFileDialog::Directory);
    chooser.setOption(QFileDialog::ShowDirsOnly);
    return chooser.choice().value(0);
}

QString filechooser::memoryFolder(QWidget *parent, const QString &title, const QString &start)
{
    const QString memory = memoryUsedLast(MountedVolumes());
    return folder(parent, title, memory.isEmpty() ? start : memory);
}

void filechooser::keepMemoryOf(const QString &folder)
{
    const QString memory = MountedVolumes().memoryOf(folder);
    if (!memory.isEmpty())
        QSettings(settings::organisation, settings::application)
            .setValue(settings::mediaRoot, memory);
}
