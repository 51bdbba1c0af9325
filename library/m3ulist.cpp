#include "library/m3ulist.h"

#include "library/userfile.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QStringDecoder>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace
{

constexpr char byteOrderMark[] = "\xEF\xBB\xBF";
constexpr qsizetype shownOfStrangeLine = 60;

QString decodedLine(const QByteArray &line)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = decoder(line);
    return decoder.hasError() ? QString::fromLatin1(line) : text;
}

/** Something before "://" that only the address of a page or a stream has. */
bool isAddress(const QString &line)
{
    const qsizetype end = line.indexOf(QLatin1String("://"));
    return end > 1 && std::all_of(line.cbegin(), line.cbegin() + end, [](QChar character) {
               return character.isLetterOrNumber() && character.unicode() < 0x80;
           });
}

/** The absolute path that a line leads to; empty when it leads to no file of this computer. */
QString pathOf(const QString &line, const QString &folder)
{
    QString path = line;
    if (isAddress(line)) {
        const QUrl url(line);
        const bool isHere = url.host().isEmpty() || url.host() == QLatin1String("localhost");
        path = url.scheme() == QLatin1String("file") && isHere ? url.path(QUrl::FullyDecoded)
                                                               : QString();
    }
    if (path.isEmpty() || path.contains(QChar(u'\0')))
        return {};
    // Qt takes a path that begins with ":" for something inside the program.
    const bool isAbsolute = !path.startsWith(QLatin1Char(':')) && QDir::isAbsolutePath(path);
    return QDir::cleanPath(isAbsolute ? path : folder + QLatin1Char('/') + path);
}

/** True when the text comes back from a line of a list as it is. */
bool survivesInLine(const QString &path)
{
    const bool isBroken = std::any_of(path.cbegin(), path.cend(), [](QChar character) {
        return character == QLatin1Char('\n') || character == QLatin1Char('\r');
    });
    const bool isBlank = path.trimmed().isEmpty();
    return !isBroken && !isBlank && !isAddress(path) &&
           path.toUtf8().size() <= M3uList::longestLine;
}

} // namespace

M3uList M3uList::parse(const QByteArray &bytes, const QString &folder)
{
    M3uList list;
    QSet<QString> known;
    qsizetype place = bytes.startsWith(byteOrderMark) ? qsizetype(sizeof byteOrderMark) - 1 : 0;
    while (place < bytes.size()) {
        // Either of the two ends a line, so that "\r\n" leaves an empty line behind.
        const auto isEnd = [](char byte) { return byte == '\n' || byte == '\r'; };
        const auto *const end = std::find_if(bytes.cbegin() + place, bytes.cend(), isEnd);
        const qsizetype size = end - bytes.cbegin() - place;
        const QByteArray line = bytes.mid(place, std::min(size, longestLine + 1));
        place += size + 1;
        if (line.startsWith('#') || line.trimmed().isEmpty())
            continue;
        const QString decoded = decodedLine(line);
        const QString path = size > longestLine ? QString() : pathOf(decoded, folder);
        if (list.songs.size() + list.strange.size() >= mostSongs) {
            list.isCut = true;
            break;
        }
        if (path.isEmpty()) {
            list.strange.append(decoded.left(shownOfStrangeLine));
        } else if (!known.contains(path)) {
            known.insert(path);
            list.songs.append(path);
        }
    }
    return list;
}

M3uList M3uList::read(const QString &path, QString &problem)
{
    const UserFile::Reading file = UserFile::read(path, mostBytes);
    problem = file.problem;
    M3uList list = parse(file.bytes, QFileInfo(path).absolutePath());
    for (QString &song : list.songs) {
        if (!song.contains(QLatin1Char('\\')) || QFileInfo::exists(song))
            continue;
        const QString withSlashes =
            QDir::cleanPath(QString(song).replace(QLatin1Char('\\'), QLatin1Char('/')));
        if (QFileInfo::exists(withSlashes))
            song = withSlashes;
    }
    list.songs.removeDuplicates();
    return list;
}

QByteArray M3uList::text(const QStringList &songs, const QString &folder, Paths paths)
{
    QByteArray text = "#EXTM3U\n";
    for (const QString &song : songs) {
        QString line = paths == Paths::Relative ? QDir(folder).relativeFilePath(song) : song;
        if (line.startsWith(QLatin1Char('#')) || line.startsWith(QChar(0xFEFF)))
            line.prepend(QLatin1String("./"));
        if (!survivesInLine(line))
            line = QString::fromLatin1(QUrl::fromLocalFile(song).toEncoded());
        text += line.toUtf8() + '\n';
    }
    return text;
}

QString M3uList::write(const QString &path, const QStringList &songs, Paths paths)
{
    return UserFile::write(path, text(songs, QFileInfo(path).absolutePath(), paths));
}
