// One JSON object on a line for each item; the manual page documents the names.
#pragma once

#include "cli/writer.h"

class StandardOutput;

class JsonWriter : public Writer
{
public:
    /** The output must outlive the writer. */
    explicit JsonWriter(StandardOutput &output)
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

    /** The name of a change's field in the JSON lines. */
    static const char *fieldName(ChangePreview::Field field);

    /** The name of a kind of jobs. */
    static const char *kindName(HistoryJob::Kind kind);

    /** A state as the lines name it. */
    static const char *stateName(TransferPlan::State state);

private:
    StandardOutput &m_output;
};
