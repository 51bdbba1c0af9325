// The data in words and columns, for people.
#pragma once

#include "cli/writer.h"

#include <QCoreApplication>

class StandardOutput;

/** Files that cannot be read are named on standard error only. */
class PeopleWriter : public Writer
{
    Q_DECLARE_TR_FUNCTIONS(PeopleWriter)

public:
    /** The output must outlive the writer. */
    explicit PeopleWriter(StandardOutput &output)
        : m_output(output)
    {
    }

    void song(const QString &path, const SongInfo &info) override;
    void unreadable(const QString &path, const QString &reason) override;
    void changes(const QString &path, bool found, const QList<ChangePreview::Change> &changes,
                 CatalogueSource source) override;
    void renamed(const QString &path, const QString &newName) override;
    void tags(const Mp3Preparation &preparation, bool isWritten) override;
    void measured(const QString &path, const SongMeasure &measure,
                  const QList<ChangePreview::Change> &written) override;
    void listed(const SongInfoIndex &song) override;
    void duplicate(int group, Same same, const MemorySong &song) override;
    void removed(const QString &path, const QString &reason) override;
    void ejected(const QString &memory, bool isEjected, const QString &text) override;
    void finding(const MemoryCheck::Finding &finding) override;
    void planned(const TransferPlan::Item &item) override;
    void planSum(const TransferPlan &plan) override;
    void job(const HistoryJob &job, bool isTakenBack) override;
    void takenBack(const QString &path, const QString &reason) override;
    void catalogueSong(const SongsDbRecord &song, CatalogueSource source) override;

private:
    void line(const QString &text);
    void item(const QString &label, const QString &text);
    void changeLines(const QList<ChangePreview::Change> &changes);
    void number(const QString &label, qint32 number);
    void markers(const QList<Marker> &markers);
    static QString stateLabel(TransferPlan::State state);

    StandardOutput &m_output;
    int m_group = 0; ///< of the song written last
};
