// What the arguments ask for.
#pragma once

#include "devindex/index.h"
#include "library/editstep.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

struct Request {
    enum class Command {
        None, ///< no command: --help or --version alone
        Show,
        Set,
        Sync,
        Transfer,
        IndexUpdate,
        IndexRebuild,
        IndexCheck,
        List,
        Remove,
        Eject,
        CatalogueFind,
        CatalogueAdd,
        CatalogueExport,
        CatalogueImport,
        History,
        Undo,
        Edit,
        Tags,
        Measure,
        Play,
        Render
    };

    enum class Form { People, Json, Csv };

    /** The items that the user gave; the others stay as they are in the song. */
    struct Edit {
        std::optional<QString> title;
        std::optional<QString> artist;
        std::optional<QString> genre;
        std::optional<QString> author;
        std::optional<QString> key;
        std::optional<qint32> bpm;
        std::optional<qint32> length; ///< seconds

        bool isEmpty() const
        {
            return !title && !artist && !genre && !author && !key && !bpm && !length;
        }
    };

    Command command = Command::None;
    bool help = false;
    bool version = false;
    Form form = Form::People;
    QList<QByteArray> paths; ///< files, folders or the memory, as they were given
    bool pathsFromStandardInput = false;
    Edit edit;
    bool dryRun = false;
    bool apply = false;  ///< else the changes are only shown
    bool verify = false; ///< copies are read back
    bool inLine = false; ///< the memory gets what the list has, and only that
    bool remove = false;
    std::optional<QByteArray> backup;
    QByteArray to;
    QByteArray soundFont;        ///< empty: an installed one
    std::optional<bool> replace; ///< nothing: the user is asked
    std::optional<bool> rename;
    std::optional<bool> changeUnsigned;
    std::optional<bool> confirm;
    std::optional<bool> withoutHistory;
    std::optional<bool> changed; ///< whether songs that were changed since are taken back too
    std::optional<qint64> job;   ///< to be taken back; nothing: the last one
    bool duplicates = false;
    bool anyFolder = false; ///< also one that looks like no memory is changed
    Index::SORT_MODE sort = Index::SortByTitle;
    QList<EditStep> steps;           ///< of an edit of several songs
    std::optional<QString> newNames; ///< the pattern of the files' new names
    bool shortNames = false;         ///< only such names as the player can show
    QString text;                    ///< what to search the catalogue for
};
