#include "formats/metasong.h"

#include "formats/songreading.h"
#include "storage/diagnostics.h"
#include "storage/songfilewriter.h"
#include "storage/songlayout.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#ifdef Q_OS_MACOS
#include <QProcess>
#endif

/** A song, not loaded yet, of the format that begins so. */
MetaSong::Song MetaSong::songBeginningWith(const QByteArray &start, const QString &path)
{
    if (start == songlayout::midiMagic)
        return MidiSong();
    if (start.startsWith(songlayout::mfxMagic))
        return MfxFile();
    if (Mp3Song::isMp3(path, start))
        return Mp3Song();
    return NoSong();
}

bool MetaSong::importFile(const QString &path)
{
    *this = MetaSong();
    QFile file(path);
    // The program may have ended in the middle of the song's last save.
    const SongFileWriter::Recovery recovered = SongFileWriter::tryToRecover(path);
    m_isInUse = recovered == SongFileWriter::Recovery::InUse;
    if (recovered != SongFileWriter::Recovery::Done)
        return false;
    if (!songreading::openSong(file)) {
        logDebug() << "[MetaSong::importFile] Impossible to read file:" << path;
        return false;
    }

    const qint64 size = file.size();
    const QDateTime time = file.fileTime(QFile::FileModificationTime);
    m_song = songBeginningWith(file.peek(songlayout::magicSize), path);
    const bool isLoaded = std::visit([&file](auto &song) { return song.load(file); }, m_song);
    // Another program that saves the song in place leaves a mixture in memory.
    const bool isInUse = file.size() != size ||
                         file.fileTime(QFile::FileModificationTime) != time ||
                         SongFileWriter::isBeingSaved(path);
    if (!isLoaded || isInUse) {
        *this = MetaSong();
        m_isInUse = isInUse;
        return false;
    }
    m_fileName = path;
    return true;
}

bool MetaSong::hasKnownFormat(const QString &path)
{
    QFile file(path);
    return songreading::openSong(file) && hasKnownFormat(file);
}

bool MetaSong::hasKnownFormat(QFile &file)
{
    const Song song = songBeginningWith(file.peek(songlayout::magicSize), file.fileName());
    return !std::holds_alternative<NoSong>(song);
}

bool MetaSong::takesLongToImport(const QString &path)
{
    constexpr qint64 large = 1000000;
    const bool isReadWhole = !path.endsWith(QLatin1String(".mp3"), Qt::CaseInsensitive);
    return isReadWhole && QFileInfo(path).size() > large;
}

void MetaSong::getSongInfo(SongInfo &info) const
{
    info.clear();
    info.format =
        getFormatString(std::visit([](const auto &song) { return song.fileType(); }, m_song));
    info.fileName = m_fileName;
    info.shortName = QFileInfo(m_fileName).fileName();
    std::visit([&info](const auto &song) { song.read(info); }, m_song);
}

SongMeasure MetaSong::measure() const
{
    return std::visit([](const auto &song) { return song.measure(); }, m_song);
}

void MetaSong::setSongInfo(const SongInfo &info, bool manual)
{
    logDebug() << "[MetaSong] setSongInfo,"
               << "manual: " << manual;
    const SongMerge merge(info, manual ? SongMerge::Source::User : SongMerge::Source::Catalogue);
    std::visit([&merge](auto &song) { song.merge(merge); }, m_song);
}

void MetaSong::setMarkers(const QList<Marker> &markers)
{
    std::visit([&markers](auto &song) { song.setMarkers(markers); }, m_song);
}

SaveFailure MetaSong::save(const QString &path)
{
    if (!isComplete()) {
        logDebug() << "[MetaSong::saveToFile] UNKNOWN format (or data corrupted) in memory, "
                      "aborting";
        return SaveFailure::Other;
    }
    if (!canBeReadAgain()) {
        logDebug() << "[MetaSong::saveToFile] Too much data for the format, aborting";
        return SaveFailure::TooLarge;
    }
    removeReadOnlyFlag(path);
    return std::visit([&path](auto &song) { return song.save(path); }, m_song);
}

bool MetaSong::isComplete() const
{
    return std::visit([](const auto &song) { return song.isComplete(); }, m_song);
}

/** A file beyond the limits that an import has could never be opened again. */
bool MetaSong::canBeReadAgain() const
{
    return std::visit([](const auto &song) { return song.canBeReadAgain(); }, m_song);
}

void MetaSong::dbgAddMarker(const QString &text, unsigned short bar)
{
    logDebug() << "[MetaSong] addMarker";
    logDebug() << "Marker added, len= "
               << std::visit([&](auto &song) { return song.addMarker(text, bar); }, m_song);
    logDebug() << "-----------------------------------";
    logDebug() << "";
}

QString MetaSong::getFormatString(SongInfo::fileTypeEnum type)
{
    switch (type) {
    case SongInfo::FileMidi0:
    case SongInfo::FileMidi1:
        return QStringLiteral("MIDI");
    case SongInfo::FileMf3:
        return QStringLiteral("MF3");
    case SongInfo::FileMf4:
        return QStringLiteral("MF4");
    case SongInfo::FileMf5:
        return QStringLiteral("MF5");
    case SongInfo::FileMp3:
        return QStringLiteral("MP3");
    case SongInfo::FileUnknown:
        break;
    }
    return QStringLiteral("UNKNOWN");
}

QStringList MetaSong::getKeysList()
{
    return RawMidiFile().getKeysList();
}

void MetaSong::removeReadOnlyFlag(const QString &path)
{
#ifdef Q_OS_MACOS
    constexpr int longestWait = 60000;
    QProcess chflags;
    chflags.start(QStringLiteral("chflags"), {QStringLiteral("nouchg"), path});
    if (chflags.waitForFinished(longestWait))
        logDebug() << "remove read only flag: OK";
    else
        logDebug() << "remove read only flag: ERROR";
#else
    Q_UNUSED(path)
#endif
}
