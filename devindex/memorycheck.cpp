#include "devindex/memorycheck.h"

#include "devindex/devicetext.h"
#include "devindex/indexfiles.h"
#include "devindex/indexrecords.h"
#include "devindex/listedsong.h"
#include "devindex/memorywalk.h"
#include "devindex/playlistfiles.h"
#include "devindex/songinfoindex.h"
#include "devindex/unlistedsongs.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <algorithm>

namespace
{

/** No file of an index is larger, nor is a playlist of the songs of a whole memory. */
constexpr qint64 largestFile = qint64{SongInfoIndex::maxSongs} * PathRecord::size * 2;

constexpr char replacedCharacter = '?'; ///< its place in an order is not known

constexpr int unusedTypeBits = 0xF0;

/** Case is ignored character by character, as the player's lists are sorted. */
QString folded(const QString &text)
{
    QString lower = text;
    for (QChar &character : lower)
        character = character.toLower();
    return lower;
}

/** The bytes of a fixed field up to its first zero, and whether only zeros follow. */
QByteArray fieldText(const char *field, int size, bool &isPadded)
{
    const QByteArray bytes(field, size);
    const qsizetype end = bytes.indexOf('\0');
    const QByteArray padding = end < 0 ? QByteArray() : bytes.mid(end);
    isPadded = padding.count('\0') == padding.size();
    return end < 0 ? bytes : bytes.left(end);
}

bool isDigits(const QByteArray &bytes)
{
    return std::all_of(bytes.cbegin(), bytes.cend(), [](char c) { return c >= '0' && c <= '9'; });
}

} // namespace

MemoryCheck::MemoryCheck(const QString &root)
    : m_root(root.endsWith(QLatin1Char('/')) ? root.chopped(1) : root)
{
}

QList<MemoryCheck::Finding> MemoryCheck::run(const std::function<bool()> &isStopped)
{
    m_isStopped = isStopped;
    runChecks();
    return m_wasStopped ? QList<Finding>() : m_findings.all();
}

void MemoryCheck::runChecks()
{
    if (!isComplete())
        return;
    findSongFiles();
    if (stops())
        return;
    checkPaths();
    checkUnlisted();
    checkOrder();
    QList<int> counts;
    for (const bool mp3Only : {false, true}) {
        if (stops())
            return;
        checkTitles(mp3Only);
        counts.append(static_cast<int>(m_expected.size()));
        counts.append(checkGroups(indexfiles::artists.all, indexfiles::artists.list(mp3Only),
                                  indexfiles::artists.letters(mp3Only)));
        counts.append(checkGroups(indexfiles::genres.all, indexfiles::genres.list(mp3Only),
                                  indexfiles::genres.letters(mp3Only)));
    }
    checkHeads();
    checkCounts(counts);
    checkPlaylists();
}

void MemoryCheck::add(Kind kind, const QString &path, const QString &text)
{
    m_findings.add(kind, path, text);
}

QByteArray MemoryCheck::read(const QString &name)
{
    QFile file(m_root + QLatin1Char('/') + name);
    // A pipe or a device could be read for ever.
    if (!QFileInfo(file).isFile())
        return {};
    return file.open(QFile::ReadOnly) ? file.read(largestFile) : QByteArray();
}

/** The whole records of a file. */
QByteArray MemoryCheck::records(const QString &name, int size)
{
    QByteArray bytes = read(name);
    const qsizetype rest = bytes.size() % size;
    if (rest != 0)
        add(Kind::WrongSize, name,
            tr("%1 byte non sono un numero intero di record").arg(bytes.size()));
    bytes.chop(rest);
    return bytes;
}

bool MemoryCheck::isReadable(const QString &name) const
{
    const QString path = m_root + QLatin1Char('/') + name;
    return QFileInfo(path).isFile() && QFile(path).open(QFile::ReadOnly);
}

bool MemoryCheck::isComplete()
{
    for (const QLatin1String name : indexfiles::all) {
        if (!isReadable(name)) {
            add(Kind::NoIndex, name,
                tr("Il file manca o non è leggibile: la memoria non ha un database completo"));
            return false;
        }
    }
    return true;
}

void MemoryCheck::findSongFiles()
{
    const memorywalk::Found found = memorywalk::songs(m_root, [this] { return stops(); });
    for (const QString &folder : found.unreadFolders) {
        add(Kind::UnreadFolder, folder.isEmpty() ? QStringLiteral("/") : folder,
            tr("La cartella non può essere letta"));
        m_unread.append(folded(textFromIbm850(ibm850FromText(folder + QLatin1Char('/')))));
    }
    for (const QString &path : found.unusable)
        add(Kind::UnusableName, path, tr("Il nome non è in UTF-8"));
    for (const memorywalk::File &file : found.songs) {
        if (file.path.size() > PathRecord::maxPathLength) {
            add(Kind::TooLongPath, file.path,
                tr("Il percorso supera %1 caratteri").arg(PathRecord::maxPathLength));
            continue;
        }
        const QByteArray path = ibm850FromText(file.path);
        m_filePaths.append(file.path);
        m_files[path].append(file.stamp);
    }
}

/** True for a song in a folder that cannot be read: it may be there or not. */
bool MemoryCheck::isHidden(const QString &path) const
{
    const QString name = folded(path);
    return std::any_of(m_unread.cbegin(), m_unread.cend(),
                       [&name](const QString &folder) { return name.startsWith(folder); });
}

void MemoryCheck::checkPaths()
{
    const QByteArray bytes = records(indexfiles::path, PathRecord::size);
    const qsizetype count = bytes.size() / PathRecord::size;
    if (count > SongInfoIndex::maxSongs)
        add(Kind::TooManySongs, indexfiles::path, tr("Troppe song: %1").arg(count));
    m_songs.reserve(count);
    for (qsizetype number = 0; number < count && !stops(); ++number)
        checkPath(static_cast<int>(number), bytes.constData() + number * PathRecord::size);
}

void MemoryCheck::checkPath(int number, const char *record)
{
    const quint32 id = PathRecord::decode(record).id;
    bool isPadded = false;
    const QByteArray path =
        fieldText(record + PathRecord::textOffset, PathRecord::textSize, isPadded);
    const QString shown = textFromIbm850(path);
    if (qint64{id} <= m_lastId || id == SongInfoIndex::removedId)
        add(Kind::BadRecord, shown,
            tr("Il record %1 di %2 ha un numero di song sbagliato: %3")
                .arg(number)
                .arg(indexfiles::path)
                .arg(id));
    m_lastId = id;
    if (path.size() > PathRecord::maxPathLength || !isPadded)
        add(Kind::BadRecord, shown,
            tr("Il record %1 di %2 non finisce con zeri").arg(number).arg(indexfiles::path));
    if (!path.startsWith('/') || path.split('/').contains(".."))
        add(Kind::BadRecord, shown,
            tr("Il record %1 di %2 non è un percorso della memoria")
                .arg(number)
                .arg(indexfiles::path));
    if (m_paths.contains(path) && !path.contains(replacedCharacter))
        add(Kind::ListedTwice, shown, tr("La song è elencata due volte"));
    m_paths.insert(path);

    QByteArray digits(record + PathRecord::digitsOffset, PathRecord::digitsSize);
    if (!isDigits(digits)) {
        add(Kind::BadRecord, shown,
            tr("Il record %1 di %2 non ha una data").arg(number).arg(indexfiles::path));
        digits.fill('0');
    }
    const auto file = m_files.constFind(path);
    if (file == m_files.constEnd() && !isHidden(shown))
        add(Kind::MissingSong, shown, tr("Il file non c'è"));
    else if (file != m_files.constEnd() && !file->contains(digits))
        add(Kind::ChangedSong, shown, tr("Il file è stato modificato dopo l'aggiornamento"));
    else if (file != m_files.constEnd() && !path.contains(replacedCharacter))
        m_unchanged.append({id, path});
    m_songs.append({id, path});
    m_ids.insert(id);
}

void MemoryCheck::checkUnlisted()
{
    QList<QByteArray> listed;
    for (const Song &song : std::as_const(m_songs))
        listed.append(song.path);
    const QList<unlistedsongs::Song> songs = unlistedsongs::find(m_root, m_filePaths, listed);
    for (const unlistedsongs::Song &song : songs)
        add(Kind::UnlistedSong, textFromIbm850(ibm850FromText(song.path)),
            song.hasTwin ? tr("La song non è nel database: il nome differisce da un altro solo per "
                              "le maiuscole")
                         : tr("La song non è nel database"));
}

void MemoryCheck::checkOrder()
{
    const QByteArray bytes = read(indexfiles::order);
    if (bytes.size() != m_songs.size() * OrderValue::size) {
        add(Kind::WrongSize, indexfiles::order,
            tr("La dimensione non corrisponde al numero di song"));
        return;
    }
    QList<quint16> order;
    for (qsizetype pos = 0; pos < bytes.size(); pos += OrderValue::size)
        order.append(qFromLittleEndian<quint16>(bytes.constData() + pos));
    QList<quint16> sorted = order;
    std::sort(sorted.begin(), sorted.end());
    for (qsizetype number = 0; number < sorted.size(); ++number) {
        if (sorted.at(number) != number) {
            add(Kind::WrongSongs, indexfiles::order, tr("Non elenca ogni song una volta"));
            return;
        }
    }
    QByteArray previous;
    for (const quint16 number : std::as_const(order)) {
        const QByteArray &path = m_songs.at(number).path;
        if (path.contains(replacedCharacter))
            continue;
        const QByteArray key = pathSortKey(textFromIbm850(path));
        if (key < previous)
            add(Kind::WrongOrder, indexfiles::order,
                tr("%1 è al posto sbagliato").arg(textFromIbm850(path)));
        previous = key;
    }
}

void MemoryCheck::checkSongBytes(const QString &name, int number, const char *record)
{
    bool isPadded = false;
    fieldText(record + SongRecord::titleOffset, SongRecord::titleSize, isPadded);
    if (!isPadded)
        add(Kind::BadRecord, name, tr("Il titolo del record %1 non finisce con zeri").arg(number));
    const int type = static_cast<quint8>(record[SongRecord::typeOffset]);
    if ((type & SongRecord::typeMask) > SongInfoIndex::Mf5 || (type & unusedTypeBits) != 0)
        add(Kind::BadRecord, name, tr("Il formato del record %1 non esiste").arg(number));
}

void MemoryCheck::checkSorted(const QString &name, int number, const QString &first,
                              const QString &second)
{
    const QLatin1Char unknown(replacedCharacter);
    if (!first.contains(unknown) && !second.contains(unknown) && folded(second) < folded(first))
        add(Kind::WrongOrder, name,
            tr("Il record %1, %2, è al posto sbagliato").arg(number).arg(second));
}

/** Leaves in m_expected the songs that belong into the lists. */
void MemoryCheck::checkTitles(bool mp3Only)
{
    const QString name = indexfiles::titles.list(mp3Only);
    const QByteArray bytes = records(name, SongRecord::size);
    QHash<quint32, QByteArray> seen;
    QList<quint32> songs;
    QList<Initial> initials;
    QString previous;
    for (qsizetype pos = 0; pos < bytes.size() && !stops(); pos += SongRecord::size) {
        const int number = static_cast<int>(pos / SongRecord::size);
        const char *const record = bytes.constData() + pos;
        checkSongBytes(name, number, record);
        const quint32 id = SongRecord::idOf(record);
        bool isPadded = false;
        const QString title = QString::fromLatin1(
            fieldText(record + SongRecord::titleOffset, SongRecord::titleSize, isPadded));
        if (seen.contains(id) || !m_ids.contains(id))
            add(Kind::ListedTwice, name,
                tr("La song %1 del record %2 è elencata due volte o non ha un file")
                    .arg(id)
                    .arg(number));
        if (number > 0)
            checkSorted(name, number, previous, title);
        if (!seen.contains(id))
            songs.append(id);
        seen.insert(id, QByteArray(record, SongRecord::size));
        initials.append({title, static_cast<quint32>(pos)});
        previous = title;
    }
    if (mp3Only) {
        m_expected.clear();
        for (auto song = m_titleRecords.cbegin(); song != m_titleRecords.cend(); ++song) {
            if ((song->back() & SongRecord::typeMask) == SongInfoIndex::Mp3)
                m_expected.insert(song.key());
        }
        for (const quint32 id : std::as_const(songs)) {
            if (m_titleRecords.value(id) != seen.value(id))
                add(Kind::BadRecord, name,
                    tr("La song %1 è diversa che in %2").arg(id).arg(indexfiles::title));
        }
    } else {
        m_expected = m_ids;
        m_titleRecords = seen;
    }
    if (QSet<quint32>(songs.cbegin(), songs.cend()) != m_expected)
        add(Kind::WrongSongs, name, tr("Non elenca ogni song una volta"));
    checkLetters(indexfiles::titles.letters(mp3Only), initials);
}

int MemoryCheck::checkGroups(QLatin1String kind, QLatin1String name, QLatin1String letters)
{
    m_state = {};
    m_state.kind = kind;
    const QByteArray bytes = records(name, SongRecord::size);
    for (qsizetype pos = 0; pos < bytes.size() && !stops(); pos += SongRecord::size) {
        const int number = static_cast<int>(pos / SongRecord::size);
        const char *const record = bytes.constData() + pos;
        if (GroupHeader::isHeader(record))
            checkGroupHeader(name, number, record);
        else
            checkGroupedSong(name, number, record);
    }
    if (m_state.left > 0)
        add(Kind::WrongGroup, name, tr("Song mancanti alla fine: %1").arg(m_state.left));
    if (m_state.seen != m_expected)
        add(Kind::WrongSongs, name, tr("Non elenca ogni song una volta"));
    checkLetters(letters, m_state.initials);
    return m_state.groups;
}

void MemoryCheck::checkGroupHeader(const QString &name, int number, const char *record)
{
    const GroupHeader header = GroupHeader::decode(record);
    bool isPadded = false;
    const QString text = QString::fromLatin1(
        fieldText(record + GroupHeader::textOffset, GroupHeader::textSize, isPadded));
    if (m_state.left > 0)
        add(Kind::WrongGroup, name,
            tr("Song mancanti prima del gruppo %1: %2").arg(text).arg(m_state.left));
    if (header.previousCount != m_state.lastCount)
        add(Kind::WrongGroup, name,
            tr("Il gruppo %1 conta male le song del gruppo precedente: %2 invece di %3")
                .arg(text)
                .arg(header.previousCount)
                .arg(m_state.lastCount));
    if (header.count == 0 || !isPadded || record[GroupHeader::zeroOffset] != '\0')
        add(Kind::BadRecord, name,
            tr("L'inizio del gruppo nel record %1 è danneggiato").arg(number));
    const bool isKnown = !text.contains(QLatin1Char(replacedCharacter));
    if (m_state.hasGroup && isKnown && folded(m_state.group) == folded(text))
        add(Kind::ListedTwice, name, tr("Il gruppo %1 c'è due volte").arg(text));
    if (m_state.hasGroup)
        checkSorted(name, number, m_state.group, text);
    m_state.initials.append({text, static_cast<quint32>(number * GroupHeader::size)});
    m_state.group = text;
    m_state.hasGroup = true;
    m_state.hasTitle = false;
    ++m_state.groups;
    m_state.lastCount = m_state.left = header.count;
}

void MemoryCheck::checkGroupedSong(const QString &name, int number, const char *record)
{
    checkSongBytes(name, number, record);
    const quint32 id = SongRecord::idOf(record);
    bool isPadded = false;
    const QString title = QString::fromLatin1(
        fieldText(record + SongRecord::titleOffset, SongRecord::titleSize, isPadded));
    if (m_state.left == 0)
        add(Kind::WrongGroup, name,
            tr("Il record %1 è una song in più di quelle del suo gruppo").arg(number));
    m_state.left = std::max(0, m_state.left - 1);
    if (m_state.seen.contains(id) ||
        m_titleRecords.value(id) != QByteArray(record, SongRecord::size))
        add(Kind::BadRecord, name,
            tr("La song %1 del record %2 è elencata due volte o è diversa che in %3")
                .arg(id)
                .arg(number)
                .arg(indexfiles::title));
    m_state.seen.insert(id);
    QHash<quint32, QString> &groups = m_groupOf[m_state.kind];
    if (!groups.contains(id))
        groups.insert(id, m_state.group);
    if (folded(groups.value(id)) != folded(m_state.group))
        add(Kind::WrongGroup, name,
            tr("La song %1 è in un altro gruppo che in %2").arg(id).arg(m_state.kind));
    if (m_state.hasTitle)
        checkSorted(name, number, m_state.title, title);
    m_state.title = title;
    m_state.hasTitle = true;
}

void MemoryCheck::checkLetters(const QString &name, const QList<Initial> &initials)
{
    const QByteArray bytes = read(name);
    if (bytes.size() != AlphaTable::size) {
        add(Kind::WrongSize, name,
            tr("%1 byte invece di %2").arg(bytes.size()).arg(AlphaTable::size));
        return;
    }
    QHash<QString, quint32> first;
    QHash<quint32, QString> texts;
    for (const Initial &initial : initials) {
        texts.insert(initial.offset, initial.text);
        const QString letter = initial.text.left(1).toUpper();
        if (!letter.isEmpty() && !first.contains(letter))
            first.insert(letter, initial.offset);
    }
    constexpr qsizetype slotSize = sizeof(quint32);
    for (int slot = 0; slot < AlphaTable::size / slotSize; ++slot) {
        const QString letter(QChar(AlphaTable::firstCode + slot));
        const auto offset = qFromBigEndian<quint32>(bytes.constData() + slot * slotSize);
        const bool isUnknown = letter == QLatin1Char(replacedCharacter);
        const bool isWrong =
            isUnknown ? offset != AlphaTable::emptySlot && !texts.value(offset).startsWith(letter)
                      : offset != first.value(letter, AlphaTable::emptySlot);
        if (isWrong)
            add(Kind::WrongLetter, name, tr("L'iniziale %1 porta al posto sbagliato").arg(letter));
    }
}

/** A file with other content and the old time of change shows in no time. */
void MemoryCheck::checkHeads()
{
    const QHash<quint32, QString> artistOf = m_groupOf.value(indexfiles::artists.all);
    const QHash<quint32, QString> genreOf = m_groupOf.value(indexfiles::genres.all);
    for (const Song &song : std::as_const(m_unchanged)) {
        if (stops())
            return;
        const QString path = textFromIbm850(song.path);
        const ListedSong listed{m_titleRecords.value(song.id), artistOf.value(song.id),
                                genreOf.value(song.id)};
        if (!listed.shows(m_root + path))
            add(Kind::OtherSong, path, tr("Il database non mostra ciò che il file dice"));
    }
}

void MemoryCheck::checkCounts(const QList<int> &counts)
{
    CountRecord expected;
    for (qsizetype i = 0; i < counts.size(); ++i)
        expected.values.at(static_cast<std::size_t>(i)) = static_cast<quint32>(counts.at(i));
    const CountRecord::Bytes bytes = expected.encode();
    if (read(indexfiles::count) != QByteArray(bytes.data(), CountRecord::size))
        add(Kind::WrongCounts, indexfiles::count,
            tr("I numeri di song, interpreti e generi non sono quelli degli elenchi"));
}

void MemoryCheck::checkPlaylists()
{
    const QByteArray bytes = records(indexfiles::playlistList, PlaylistListRecord::size);
    QSet<quint16> seen;
    for (qsizetype pos = 0; pos < bytes.size() && !stops(); pos += PlaylistListRecord::size) {
        const quint16 number = PlaylistListRecord::number(bytes.constData() + pos);
        if (seen.contains(number))
            continue;
        seen.insert(number);
        checkPlaylist(PlaylistFiles::songsName(number));
    }
}

void MemoryCheck::checkPlaylist(const QString &name)
{
    if (!isReadable(name)) {
        add(Kind::MissingPlaylist, name, tr("Il file della playlist manca o non è leggibile"));
        return;
    }
    const QByteArray bytes = records(name, PlaylistSongRecord::size);
    for (qsizetype pos = 0; pos < bytes.size() && !stops(); pos += PlaylistSongRecord::size) {
        if (!m_ids.contains(PlaylistSongRecord::id(bytes.constData() + pos)))
            add(Kind::UnknownSongInPlaylist, name,
                tr("La song %1 della playlist non è nella memoria")
                    .arg(pos / PlaylistSongRecord::size + 1));
    }
}
