// Brings entries into the user's own catalogue, with questions and reports over a window.
#pragma once

#include "library/owncatalogue.h"
#include "library/songentries.h"

#include <QCoreApplication>
#include <QStringList>

#include <optional>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

/** What went wrong was told when the functions return; nothing means that nothing was added. */
class CatalogueAdding
{
    Q_DECLARE_TR_FUNCTIONS(CatalogueAdding)

public:
    /** Those of the songs at these paths that are entries now. */
    static std::optional<QStringList> addSongs(OwnCatalogue &catalogue, const QStringList &songs,
                                               QWidget *parent);

    /** How many entries of the table in this file were added. */
    static std::optional<qsizetype> importTable(OwnCatalogue &catalogue, const QString &path,
                                                QWidget *parent);

    /** True when the catalogue can be used; else the user was told why not. */
    static bool isUsable(const OwnCatalogue &catalogue, QWidget *parent);

private:
    /** The names of the entries that were put in. */
    static std::optional<QStringList> put(OwnCatalogue &catalogue,
                                          const QList<SongsDbRecord> &entries, QWidget *parent);
    static void tellFailures(const QList<SongEntries::Failure> &failures, QWidget *parent);
};
