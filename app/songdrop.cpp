#include "app/songdrop.h"

#include "formats/songnames.h"
#include "windows/busystate.h"

#include <QApplication>
#include <QDropEvent>
#include <QFileInfo>
#include <QFileOpenEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace
{

constexpr int openEventsMilliseconds = 150;

QStringList localPaths(const QMimeData *data)
{
    QStringList paths;
    for (const QUrl &url : data->urls()) {
        const QString path = url.toLocalFile();
        if (!path.isEmpty())
            paths << path;
    }
    return paths;
}

bool isFromOutside(const QDropEvent *event)
{
    return event->source() == nullptr;
}

bool mayHoldSongs(const QStringList &paths)
{
    return std::any_of(paths.cbegin(), paths.cend(), [](const QString &path) {
        return songnames::isSongName(path) || QFileInfo(path).isDir();
    });
}

} // namespace

SongDrop::SongDrop(QWidget *window, const BusyState &busy)
    : QObject(window)
    , m_window(window)
    , m_busy(busy)
    , m_sending(this)
{
    m_sending.setSingleShot(true);
    connect(&m_sending, &QTimer::timeout, this, &SongDrop::send);
    m_window->setAcceptDrops(true);
    m_window->installEventFilter(this);
    qApp->installEventFilter(this); // Qt sends the events of the program's icon to qApp
}

bool SongDrop::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window)
        return filterWindow(event) || QObject::eventFilter(watched, event);
    if (event->type() != QEvent::FileOpen || watched != qApp)
        return QObject::eventFilter(watched, event);
    const QString path = static_cast<const QFileOpenEvent *>(event)->file();
    if (!m_busy && !path.isEmpty())
        collect({path}, openEventsMilliseconds);
    return true;
}

bool SongDrop::filterWindow(QEvent *event)
{
    switch (event->type()) {
    case QEvent::DragEnter: {
        auto *const enter = static_cast<QDropEvent *>(event);
        m_takesDrag = isFromOutside(enter) && mayHoldSongs(localPaths(enter->mimeData()));
        answer(enter, m_takesDrag && !m_busy);
        emit dragged(m_takesDrag && !m_busy);
        return true;
    }
    case QEvent::DragLeave:
        emit dragged(false);
        return false;
    case QEvent::DragMove:
        answer(static_cast<QDropEvent *>(event), m_takesDrag && !m_busy);
        return true;
    case QEvent::Drop: {
        auto *const drop = static_cast<QDropEvent *>(event);
        const QStringList paths = localPaths(drop->mimeData());
        const bool accepted = !m_busy && isFromOutside(drop) && mayHoldSongs(paths);
        answer(drop, accepted);
        emit dragged(false);
        if (accepted) {
            m_isAddition = drop->modifiers().testFlag(Qt::ControlModifier);
            collect(paths, 0);
        }
        return true;
    }
    default:
        return false;
    }
}

void SongDrop::answer(QDropEvent *event, bool accepted) const
{
    event->setDropAction(accepted ? Qt::CopyAction : Qt::IgnoreAction);
    event->setAccepted(accepted);
}

void SongDrop::collect(const QStringList &paths, int waitMilliseconds)
{
    m_collected << paths;
    m_sending.start(waitMilliseconds);
}

void SongDrop::send()
{
    const QStringList paths = m_collected;
    const bool isAddition = std::exchange(m_isAddition, false);
    m_collected.clear();
    if (!m_busy && mayHoldSongs(paths))
        emit dropped(paths, isAddition);
}
