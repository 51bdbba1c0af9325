// The songs of a memory as the program's song list: the same bytes as the list that is saved.
#pragma once

#include "cli/peoplewriter.h"

class CsvWriter : public PeopleWriter
{
public:
    /** The output must outlive the writer. */
    explicit CsvWriter(StandardOutput &output);

    void beginList() override;
    void listed(const SongInfoIndex &song) override;

private:
    StandardOutput &m_output;
};
