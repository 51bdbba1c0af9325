// What the user does with single songs in the memory window.
#pragma once

#include "devindex/filecopier.h"
#include "devindex/memorysongs.h"
#include "devindex/songchanges.h"
#include "formats/songinfo.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

class Database;
class DataEditDialog;
class MemoryCare;
class MemoryWindow;
class ShownNames;

/**
 * Asks first, then has the work done as the window's job: several songs cost one update of the
 * index. A song whose file is not the one that was listed any more is left as it is.
 */
class MemorySongWork : public QObject
{
    Q_OBJECT

public:
    /** The window owns the object; the database and the care must outlive it. */
    MemorySongWork(MemoryWindow *window, MemoryCare &care, const Database &database);
    ~MemorySongWork() override;

private:
    struct Picked {
        QStringList paths;                   ///< on the memory
        QList<SongChanges::Failure> changed; ///< what another program has changed meanwhile
    };

    void edit(const QList<qsizetype> &songs);
    void editInfo(const QList<MemorySong> &songs, const SongInfo &info);
    void rename(qsizetype song);
    void remove(const QList<qsizetype> &songs, int groupsWithoutRest);
    void copy(const QList<qsizetype> &songs);
    void show(qsizetype song);

    QList<MemorySong> filesOf(const QList<qsizetype> &songs) const;
    bool confirmRemoval(const QList<MemorySong> &songs, int groupsWithoutRest);
    void tellCopied(const FileCopier::Report &report, const ShownNames &names, bool isStopped,
                    const QString &refusal);
    void warn(const QString &text, const QStringList &details = {});
    static QString whyChanged();
    static QString load(const QString &root, MemorySong &listed, SongInfo &info);
    static Picked pick(const QList<MemorySong> &songs);

    MemoryWindow &m_window;
    MemoryCare &m_care;
    const Database &m_database;
    DataEditDialog *const m_dialog;
};
