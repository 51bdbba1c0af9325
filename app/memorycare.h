// What the memory window does with a memory as a whole.
#pragma once

#include "devindex/songchanges.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>

class MemoryWindow;

/** Each piece of work runs as the window's job; what came of it is told in the window. */
class MemoryCare : public QObject
{
    Q_OBJECT

public:
    /** The window owns the object. */
    explicit MemoryCare(MemoryWindow *window);

    /**
     * Reads the memory that is chosen and shows it, then the message; as soon as no other work runs
     * and no question is open, which could be about songs that are shown now.
     */
    void read(const QString &message = {});

    /** Reads the files of the memory to find those with the same bytes. */
    void compareFiles();

    /** Holds index, playlists and files against each other; changes nothing. */
    void check();

    void updateIndex();
    void rebuildIndex();
    void mendPlaylists();
    void eject();

    /**
     * Starts work that changes the memory, tells what went wrong, and reads the memory again. The
     * message is made from the report of what was done.
     */
    void change(const std::function<SongChanges::Report(SongChanges &changes)> &work,
                const std::function<QString(const SongChanges::Report &report)> &message);

    /** False, after a message, when the memory is gone. */
    bool isThere();

private:
    bool confirm(const QString &text);
    void tell(const SongChanges::Report &report);
    void warn(const QString &text);

    MemoryWindow &m_window;
    QString m_readRoot; ///< of the memory that is being read; else empty
    QTimer m_later;     ///< runs while a memory that was asked for has to wait
    QString m_laterMessage;
};
