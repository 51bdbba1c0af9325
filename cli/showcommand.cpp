#include "cli/showcommand.h"

#include "cli/songpaths.h"
#include "formats/metasong.h"
#include "library/unreadablefile.h"
#include "storage/shownname.h"

ExitStatus ShowCommand::run()
{
    const std::optional<QList<QByteArray>> paths = SongPaths::given(m_request, m_terminal);
    if (!paths)
        return m_terminal.status();
    const auto progress =
        m_terminal.openProgress({}, tr("Lettura"), static_cast<int>(paths->size()));
    int done = 0;
    for (const QByteArray &path : *paths) {
        if (m_terminal.isStopped())
            break;
        show(path);
        progress->setValue(++done);
    }
    return m_terminal.status();
}

void ShowCommand::show(const QByteArray &bytes)
{
    const std::optional<QString> path = SongPaths::decode(bytes, m_terminal);
    if (!path) {
        m_writer.unreadable(shownName(bytes), SongPaths::notUtf8());
        return;
    }
    MetaSong song;
    if (!song.importFile(*path)) {
        const QString reason = UnreadableFile::examine(*path, song.wasInUse()).reasonText();
        m_terminal.fail(*path, reason);
        m_writer.unreadable(*path, reason);
        return;
    }
    SongInfo info;
    song.getSongInfo(info);
    m_writer.song(*path, info);
    m_terminal.countDone();
}
