#include "cli/csvwriter.h"

#include "cli/standardoutput.h"
#include "devindex/songlistline.h"

CsvWriter::CsvWriter(StandardOutput &output)
    : PeopleWriter(output)
    , m_output(output)
{
}

void CsvWriter::beginList()
{
    m_output.write(songListHeader());
}

void CsvWriter::listed(const SongInfoIndex &song)
{
    m_output.write(songListLine({song.title, song.artist, song.genre, song.path}));
}
