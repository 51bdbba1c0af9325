#include "windows/memorylist.h"

#include "devindex/sizetext.h"
#include "library/settings.h"
#include "windows/filechooser.h"
#include "windows/plaintooltip.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QFileInfo>
#include <QLineEdit>
#include <QSettings>
#include <QSignalBlocker>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace
{

/**
 * The folder of a memory appears before the memory is mounted on it, and nothing tells when that
 * is done.
 */
constexpr int settlingMilliseconds = 700;

} // namespace

MemoryList::MemoryList(QWidget *parent)
    : QComboBox(parent)
{
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(24);
    m_settled.setSingleShot(true);
    m_settled.setInterval(settlingMilliseconds);
    connect(&m_settled, &QTimer::timeout, this, &MemoryList::refresh);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_settled,
            qOverload<>(&QTimer::start));
    connect(this, &QComboBox::activated, this,
            [this](int index) { take(itemData(index).toString()); });
}

void MemoryList::setPathField(QLineEdit *pathField)
{
    m_pathField = pathField;
    connect(m_pathField, &QLineEdit::textChanged, this, &MemoryList::showMemoryOfPath);
    m_pathField->setText(QSettings(settings::organisation, settings::application)
                             .value(settings::mediaRoot)
                             .toString());
}

void MemoryList::showPopup()
{
    refresh();
    QComboBox::showPopup();
}

void MemoryList::browseDir()
{
    const QString folder =
        filechooser::memoryFolder(window(), tr("Scegli cartella"), QStringLiteral("/home"));
    if (!folder.isEmpty())
        take(folder);
}

void MemoryList::changeEvent(QEvent *event)
{
    QComboBox::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        refresh();
}

void MemoryList::showEvent(QShowEvent *event)
{
    refresh();
    QComboBox::showEvent(event);
}

void MemoryList::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}

void MemoryList::refresh()
{
    if (view()->isVisible()) {
        m_settled.start(); // not while the list is open
        return;
    }
    watchMountDirectories();
    const QSignalBlocker quiet(this);
    clear();
    QList<MountedMemory> memories = m_volumes.memories();
    const QString last = m_volumes.memoryOf(QSettings(settings::organisation, settings::application)
                                                .value(settings::mediaRoot)
                                                .toString());
    std::stable_partition(memories.begin(), memories.end(),
                          [&last](const MountedMemory &memory) { return memory.path == last; });
    for (const MountedMemory &memory : std::as_const(memories)) {
        const bool knowsSize = memory.totalBytes > 0;
        addItem(knowsSize
                    ? tr("%1 – %2 liberi di %3")
                          .arg(memory.name, sizeText(memory.freeBytes), sizeText(memory.totalBytes))
                    : memory.name,
                memory.path);
        setItemData(count() - 1, plainToolTip(memory.path), Qt::ToolTipRole);
    }
    setPlaceholderText(memories.isEmpty() ? tr("Nessuna memoria collegata")
                                          : tr("Scegli una memoria"));
    showMemoryOfPath();
    update();
}

/** A mount directory that does not exist yet is noticed by its parent. */
void MemoryList::watchMountDirectories()
{
    const QStringList directories = m_volumes.mountDirectories();
    for (const QString &directory : directories) {
        const QString watched =
            QFileInfo(directory).isDir() ? directory : QFileInfo(directory).path();
        if (QFileInfo(watched).isDir() && !m_watcher.directories().contains(watched))
            m_watcher.addPath(watched);
    }
}

void MemoryList::showMemoryOfPath()
{
    if (m_pathField != nullptr)
        setCurrentIndex(findData(m_volumes.memoryOf(m_pathField->text())));
}

void MemoryList::take(const QString &folder)
{
    m_pathField->setText(folder);
    QSettings(settings::organisation, settings::application).setValue(settings::mediaRoot, folder);
}
