// Where in a backup each song goes, so that no two songs need the same name.
#pragma once

#include <QHash>
#include <QList>
#include <QMultiHash>
#include <QSet>
#include <QString>
#include <QStringList>

/**
 * The first song of a name goes into the backup's folder itself. Every further one goes into a
 * folder in there that is named after the folder that it comes from; where two such folders have
 * one name, the second gets a number. A song listed twice goes there once.
 *
 * Names that differ only in letter case, or in the way an accent is encoded, count as the same: on
 * memory cards and on macOS they are.
 */
class BackupPlan
{
public:
    /** Files for one folder of the backup. */
    struct Batch {
        QString folder; ///< below the backup's folder; empty for that folder itself
        QStringList files;
    };

    explicit BackupPlan(const QStringList &files);

    /** The backup's folder itself first, even without files; the songs keep their order. */
    const QList<Batch> &batches() const { return m_batches; }

private:
    void addToFolderOfItsOwn(const QString &file);
    QString freeFolderName(const QString &sourceFolder);

    QList<Batch> m_batches;
    QList<QSet<QString>> m_names;                    ///< what is taken in each batch's folder
    QMultiHash<QString, qsizetype> m_placesOfSource; ///< batches by the songs' own folders
    QHash<QString, int> m_lastNumber;                ///< last number behind a folder's name
};
