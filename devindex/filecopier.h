// Copies song files into a folder: onto a memory, or into a backup.
#pragma once

#include "devindex/foldernames.h"
#include "library/answer.h"
#include "library/keepalive.h"
#include "library/progress.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QList>
#include <QMultiHash>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

QT_BEGIN_NAMESPACE
class QFile;
QT_END_NAMESPACE

class BackgroundWork;
class CopyBatch;
class ShownNames;

/**
 * One object copies one list of files. It asks before it replaces a file and remembers the "all"
 * answers; it has no window of its own.
 *
 * An MP3 is copied with its companion: the karaoke pictures in the file of the same name that ends
 * in ".cdg". Nothing of a failed copy stays behind, a file that is to be replaced stays as it is
 * until its successor is whole (unless there is no room for both), and a file is never copied onto
 * itself, by whatever path the target leads to it.
 */
class FileCopier
{
    Q_DECLARE_TR_FUNCTIONS(MainWindow)

public:
    /** Asks whether the target may be replaced. */
    using AskReplace = std::function<Answer(const QString &target)>;

    /** A file that was not copied, and why in a few words. */
    struct Failure {
        QString source;
        QString reason;
    };

    /** What became of the files of a list. */
    struct Report {
        int copied = 0;       ///< also when the user stopped it later
        QStringList skipped;  ///< the sources of the files that the user kept
        QStringList replaced; ///< sources whose copies were replaced by later ones of their name
        QList<Failure> failed;

        /** The failed files for the user, a line each: the name and the reason. */
        QStringList failedLines(const ShownNames &names) const;
    };

    /** A file that is to be copied, and the name that it gets. */
    struct Order {
        QString source;
        QString target;
        bool replace = false; ///< what lies there, and its companion, without a question
    };

    enum class State { NotReached, Copied, Skipped, Replaced, Failed };

    /** What became of an order. */
    struct Song {
        QString source;
        QString target;
        State state = State::NotReached;
        QString reason; ///< why it failed
    };

    explicit FileCopier(AskReplace askReplace);
    ~FileCopier();
    Q_DISABLE_COPY_MOVE(FileCopier)

    /**
     * Copies the files into the folder dest, in their order. A file that lies there already counts
     * as copied; one that the user keeps counts as neither copied nor failed. An MP3 whose
     * companion cannot be copied counts as failed, although the MP3 itself has arrived. Every file
     * that counts as copied is on the medium when this returns.
     *
     * The progress is asked before each file whether to stop, and told the number of files looked
     * at after each attempt to copy one.
     *
     * @param copied the number of files that are in place at the end; 0 when the user stopped it
     * @return true when no file failed; false too when the user stopped it, in which case the
     *         files copied so far stay
     */
    bool copyFiles(const QStringList &files, const QString &dest, int &copied, Progress &progress);

    /**
     * The same with names of one's own: all targets must lie in the folder dest, and no two may be
     * one file.
     */
    bool copyAs(const QList<Order> &orders, const QString &dest, Progress &progress);

    /**
     * Each copy is read back from the medium before it gets its name; one that differs from its
     * source has failed and is gone, and what it was to replace stays. Off unless it is set.
     */
    void setReadBack(bool on) { m_readBack = on; }

    /**
     * A name that differs only in letter case from one in the folder is taken for that one, as it
     * is on a memory and by the player. Off unless it is set: elsewhere both may have to be kept.
     */
    void setIgnoresCase(bool on) { m_ignoresCase = on; }

    /** What became of each file in the last call of copyFiles() or copyAs(). */
    const Report &report() const { return m_report; }

    /** The same, in the order of the list. */
    const QList<Song> &songs() const { return m_songs; }

    /**
     * The bytes by which the files in dest grow at most when the files are copied there. Sizes are
     * rounded up to clusters of 32 KiB, the largest that a memory card is formatted with. Files in
     * place need nothing, and a file that would be replaced gives back what it takes.
     */
    static qint64 roomNeeded(const QStringList &files, const QString &dest);

private:
    enum class Copy { Done, NoSource, NoRoom, Failed };

    bool copyAll(const QList<Order> &orders, Progress &progress);
    QString placeOf(const Order &order) const;
    bool isInList(const QString &target);
    void findReplaced();
    bool isPending(const QString &target) const;
    void beginSettling();
    void endSettling();
    void settle();
    bool copySong(int song, const QString &source, const QString &target, bool replace);
    bool copyFile(int song, const QString &source, const QString &target, bool replace);
    static bool giveUp(const QString &target);
    Copy copyBytes(const QString &source, const QString &target, QFile &part);
    qint64 readChunk(QFile &in, qint64 left);
    static QString whyNotCopied(const QString &source, const QString &target, bool replace);

    const AskReplace m_askReplace;
    RememberedAnswer m_replace;
    bool m_readBack = false;
    bool m_ignoresCase = false;
    Report m_report;
    QList<Song> m_songs;                                   ///< what became of each file of the list
    std::optional<QMultiHash<QString, QString>> m_inPlace; ///< files of the list, by nameKey()
    std::optional<FolderNames> m_names;                    ///< of the folder, if case is ignored
    QSet<int> m_displacing; ///< songs that took their place, those that failed later among them
    QString m_dest;
    std::unique_ptr<CopyBatch> m_batch;             ///< that is being filled
    std::unique_ptr<CopyBatch> m_settling;          ///< the one before, or none
    std::unique_ptr<BackgroundWork> m_settlingWork; ///< what settles it
    QByteArray m_buffer;
    KeepAlive m_keepAlive;
};
