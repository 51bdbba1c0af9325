#include "formats/songsaving.h"

#include "storage/diagnostics.h"
#include "storage/songfilewriter.h"

namespace
{

const char *messageFor(SongFileWriter::Outcome outcome)
{
    switch (outcome) {
    case SongFileWriter::Outcome::CannotOpen:
        return "[MetaSong::saveToFile] Impossible to write to file. Maybe it's write protected? "
               "Aborting!";
    case SongFileWriter::Outcome::CannotWrite:
        return "[MetaSong::saveToFile] Impossible to write to file.";
    case SongFileWriter::Outcome::CannotSeek:
        return "[MetaSong::saveToFile] Impossible to seek file.";
    case SongFileWriter::Outcome::CannotCopy:
        return "[MetaSong::saveToFile] Impossible to copy part of file.";
    case SongFileWriter::Outcome::CannotReplace:
        return "[MetaSong::saveToFile] Impossible to replace the old file.";
    case SongFileWriter::Outcome::Done:
        break;
    }
    return "";
}

SaveFailure resultOf(SongFileWriter::Outcome outcome, const SongFileWriter &writer,
                     const QString &path)
{
    if (outcome == SongFileWriter::Outcome::Done)
        return SaveFailure::None;
    logDebug() << messageFor(outcome);
    return saveFailureFrom(writer.systemError(), path);
}

} // namespace

SaveFailure songsaving::rewrite(const QString &path, const std::function<QByteArray()> &bytes)
{
    SongFileWriter writer(path);
    if (!writer.open())
        return resultOf(SongFileWriter::Outcome::CannotOpen, writer, path);
    const bool written = writer.replaceBytes(bytes());
    return resultOf(written ? SongFileWriter::Outcome::Done : SongFileWriter::Outcome::CannotWrite,
                    writer, path);
}

SaveFailure songsaving::replaceHead(const QString &path, const QByteArray &head, QFile &source,
                                    qint64 sourcePos)
{
    SongFileWriter writer(path);
    const auto outcome = writer.replaceThroughTemporary(head, source, sourcePos);
    return resultOf(outcome, writer, path);
}
