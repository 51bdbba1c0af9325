#include "cli/writer.h"

#include "formats/metasong.h"

QString formatName(const SongInfoIndex &song)
{
    switch (song.fileType) {
    case SongInfoIndex::Midi:
        return MetaSong::getFormatString(SongInfo::FileMidi0);
    case SongInfoIndex::Mp3:
        return MetaSong::getFormatString(SongInfo::FileMp3);
    case SongInfoIndex::Mf3:
        return MetaSong::getFormatString(SongInfo::FileMf3);
    case SongInfoIndex::Mf4:
        return MetaSong::getFormatString(SongInfo::FileMf4);
    case SongInfoIndex::Mf5:
        return MetaSong::getFormatString(SongInfo::FileMf5);
    default:
        return MetaSong::getFormatString(SongInfo::FileUnknown);
    }
}
