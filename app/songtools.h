// The menu entries that work on many songs of the list at once.
#pragma once

#include "library/historyrecorder.h"

#include <QObject>
#include <QString>

class ActionGate;
class BusyState;
class QMainWindow;
class SeveralTools;
class SongHistory;
class SongList;
class SyncResult;
class TagPreparing;

QT_BEGIN_NAMESPACE
namespace Ui
{
class MainWindow;
}
QT_END_NAMESPACE

/** Makes one object a tool, each of which connects its own menu entries. */
class SongTools : public QObject
{
    Q_OBJECT

public:
    /** The window owns the object; the others must outlive it. */
    SongTools(QMainWindow *window, const Ui::MainWindow &form, SongList &songs, BusyState &busy,
              ActionGate &gate);

    /** For the workflows that write songs; the object must outlive it. */
    OpenHistory history();

    /** Where it is told what a synchronisation came to. */
    SyncResult &syncResult() { return *m_syncResult; }

    /** For the tags of a song that is going to be edited. */
    TagPreparing &tags() { return *m_tags; }

signals:
    /** A song's file has another name now; the list knows it. */
    void renamed(const QString &path, const QString &newPath);

private:
    // The window owns these.
    SongHistory *const m_history;
    SeveralTools *const m_several;
    TagPreparing *const m_tags;
    SyncResult *const m_syncResult;
};
