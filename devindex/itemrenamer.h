// Gives files and folders of a memory names that are short enough for the player.
#pragma once

#include "devindex/indexstate.h"
#include "devindex/playlistrenames.h"
#include "devindex/shortname.h"
#include "library/answer.h"

#include <QCoreApplication>
#include <QList>
#include <QString>

#include <functional>
#include <optional>

/** Asks before it renames; the "all" answers are kept in the state. */
class ItemRenamer
{
    Q_DECLARE_TR_FUNCTIONS(Index)

public:
    /** Asks whether path may be renamed as the message says. */
    using Question = std::function<Answer(const QString &path, const QString &message)>;

    ItemRenamer(IndexState &state, IndexObserver &observer);

    /** Without a question nothing is renamed. */
    void setQuestion(Question question) { m_question = std::move(question); }

    /**
     * The path under which the item is to be used: unchanged, or new after it was renamed; empty
     * when it cannot be used. What lies outside the memory keeps its name.
     */
    QString renameLong(const QString &path);

    /** The same for an item that was reached from the root without a symbolic link. */
    QString renameLongInside(const QString &path);

    /** True when an item was renamed but the rename may not be on the medium yet. */
    bool isUnsure() const { return m_unsure; }

    /** False when a playlist could not be told of a rename. */
    bool havePlaylistsFollowed() const { return m_followed; }

    /** Tells the playlists' path files of all renames; false when one could not be written. */
    bool tellPlaylists() const;

    /** The state's entries, and so the playlists, keep the songs that were renamed. */
    void renameEntries();

    /** Forgets earlier renames, but not the answers. */
    void start();

private:
    QString renameAsked(const QString &path);
    /** As paths on the memory. */
    struct Rename {
        QString path;
        QString newPath;
    };

    QString leftOut(const QString &path);
    void keep(const QString &path, const QString &newPath);
    bool ask(const QString &path, const QString &candidate);
    bool isNamedWell(const QString &path) const;

    IndexState &m_state;
    IndexObserver &m_observer;
    Question m_question;
    ShortNames m_shortNames;
    bool m_unsure = false;
    bool m_followed = true;
    QList<Rename> m_renames;
    std::optional<PlaylistRenames> m_playlists;
};
