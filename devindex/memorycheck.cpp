#include "devindex/memorycheck.h"

#include "devindex/devicetext.h"
#include "devindex/indexfiles.h"
#include "devindex/indexrecords.h"
#include "devindex/memorywalk.h"
#include "devindex/songinfoindex.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <algorithm>
#include <array>

namespace
{

/** No file of an index is larger, nor is a playlist of the songs of a whole memory. */
constexpr qint64 largestFile = qint64{SongInfoIndex::maxSongs} * PathRecord::size * 2;

constexpr int digitsSize = 14;
constexpr int pathSize = PathRecord::maxPathLength + 1;
constexpr quint32 noOffset = 0xFFFFFFFF;
constexpr char replacedCharacter = '?'; ///< its place in an order is not known

constexpr int fileTypeMask = 0x07;
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

QString mp3Name(const QString &base, bool mp3Only)
{
    return base + (mp3Only ? QStringLiteral("3.idx") : QStringLiteral(".idx"));
}

} // namespace

MemoryCheck::MemoryCheck(const QString &root)
    : m_root(root.endsWith(QLatin1Char('/')) ? root.chopped(1) : root)
{
}

QList<MemoryCheck::Finding> MemoryCheck::run(const std::function<bool()> &isStopped)
{
    const auto stops = [&isStopped] { return isStopped && isStopped(); };
    if (!isComplete())
        return m_findings;
    findSongFiles(isStopped);
    if (stops())
        return m_findings;
    checkPaths();
    checkUnlisted();
    checkOrder();
    QList<int> counts;
    for (const bool mp3Only : {false, true}) {
        if (stops())
            return m_findings;
        checkTitles(mp3Only);
        counts.append(static_cast<int>(m_expected.size()));
        counts.append(checkGroups(QStringLiteral("artist"), mp3Only));
        counts.append(checkGroups(QStringLiteral("genre"), mp3Only));
    }
    checkCounts(counts);
    checkPlaylists();
    return m_findings;
}

const char *MemoryCheck::nameOf(Kind kind)
{
    // In the order of the kinds.
    constexpr std::array names{
        "no-index",      "wrong-size",    "too-many-songs", "bad-record",
        "listed-twice",  "missing-song",  "changed-song",   "unlisted-song",
        "unread-folder", "unusable-name", "wrong-order",    "wrong-songs",
        "wrong-group",   "wrong-letter",  "wrong-counts",   "unknown-song-in-playlist"};
    return names.at(static_cast<std::size_t>(kind));
}

void MemoryCheck::add(Kind kind, const QString &path, const QString &text)
{
    m_findings.append({kind, path, text});
}

QByteArray MemoryCheck::read(const QString &name)
{
    QFile file(m_root + QLatin1Char('/') + name);
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

bool MemoryCheck::isComplete()
{
    for (const QLatin1String name : indexfiles::all) {
        const QString path = m_root + QLatin1Char('/') + name;
        if (!QFileInfo(path).isFile() || !QFile(path).open(QFile::ReadOnly)) {
            add(Kind::NoIndex, name,
                tr("Il file manca o non è leggibile: la memoria non ha un "
                   "database completo"));
            return false;
        }
    }
    return true;
}

// The path file and the order of paths -----------------------------------------------------------

void MemoryCheck::findSongFiles(const std::function<bool()> &isStopped)
{
    const memorywalk::Found found = memorywalk::songs(m_root, isStopped);
    for (const QString &folder : found.unreadFolders) {
        add(Kind::UnreadFolder, folder.isEmpty() ? QStringLiteral("/") : folder,
            tr("La cartella non può essere letta"));
        m_unread.append(folded(textFromIbm850(ibm850FromText(folder + QLatin1Char('/')))));
    }
    for (const QString &path : found.unusable)
        add(Kind::UnusableName, path, tr("Il nome non è in UTF-8"));
    for (const memorywalk::File &file : found.songs) {
        if (file.path.size() > PathRecord::maxPathLength)
            continue;
        const QByteArray path = ibm850FromText(file.path);
        if (!m_files.contains(path))
            m_filePaths.append(path);
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
    for (qsizetype number = 0; number < count; ++number)
        checkPath(static_cast<int>(number), bytes.constData() + number * PathRecord::size);
}

void MemoryCheck::checkPath(int number, const char *record)
{
    const quint32 id = PathRecord::decode(record).id;
    bool isPadded = false;
    const QByteArray path = fieldText(record + sizeof(quint32), pathSize, isPadded);
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

    QByteArray digits(record + PathRecord::size - digitsSize, digitsSize);
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
    m_songs.append({id, path});
    m_ids.insert(id);
}

void MemoryCheck::checkUnlisted()
{
    // The player tells no upper case from lower case: one of such files is enough.
    QSet<QString> listed;
    for (const QByteArray &path : std::as_const(m_paths))
        listed.insert(folded(textFromIbm850(path)));
    for (const QByteArray &path : std::as_const(m_filePaths)) {
        const QString shown = textFromIbm850(path);
        if (!listed.contains(folded(shown)))
            add(Kind::UnlistedSong, shown, tr("La song non è nel database"));
    }
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

// Title, artist and genre files ------------------------------------------------------------------

void MemoryCheck::checkSongBytes(const QString &name, int number, const char *record)
{
    bool isPadded = false;
    fieldText(record + sizeof(quint32), SongRecord::titleSize, isPadded);
    if (!isPadded)
        add(Kind::BadRecord, name, tr("Il titolo del record %1 non finisce con zeri").arg(number));
    const int type = static_cast<quint8>(record[SongRecord::size - 1]);
    if ((type & fileTypeMask) > SongInfoIndex::Mf5 || (type & unusedTypeBits) != 0)
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
    const QString name = mp3Name(QStringLiteral("title"), mp3Only);
    const QByteArray bytes = records(name, SongRecord::size);
    QHash<quint32, QByteArray> seen;
    QList<quint32> songs;
    QList<Initial> initials;
    QString previous;
    for (qsizetype pos = 0; pos < bytes.size(); pos += SongRecord::size) {
        const int number = static_cast<int>(pos / SongRecord::size);
        const char *const record = bytes.constData() + pos;
        checkSongBytes(name, number, record);
        const quint32 id = SongRecord::idOf(record);
        bool isPadded = false;
        const QString title = QString::fromLatin1(
            fieldText(record + sizeof(quint32), SongRecord::titleSize, isPadded));
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
            if ((song->back() & fileTypeMask) == SongInfoIndex::Mp3)
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
    checkLetters(QLatin1Char('a') + name, initials);
}

int MemoryCheck::checkGroups(const QString &kind, bool mp3Only)
{
    const QString name = mp3Name(kind, mp3Only);
    m_state = {};
    m_state.kind = kind;
    const QByteArray bytes = records(name, SongRecord::size);
    for (qsizetype pos = 0; pos < bytes.size(); pos += SongRecord::size) {
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
    checkLetters(QLatin1Char('a') + name, m_state.initials);
    return m_state.groups;
}

void MemoryCheck::checkGroupHeader(const QString &name, int number, const char *record)
{
    const GroupHeader header = GroupHeader::decode(record);
    bool isPadded = false;
    const QString text =
        QString::fromLatin1(fieldText(record + sizeof(quint32), GroupHeader::textSize, isPadded));
    if (m_state.left > 0)
        add(Kind::WrongGroup, name,
            tr("Song mancanti prima del gruppo %1: %2").arg(text).arg(m_state.left));
    if (header.previousCount != m_state.lastCount)
        add(Kind::WrongGroup, name,
            tr("Il gruppo %1 conta male le song del gruppo precedente: %2 invece di %3")
                .arg(text)
                .arg(header.previousCount)
                .arg(m_state.lastCount));
    if (header.count == 0 || !isPadded || record[GroupHeader::size - 2] != '\0')
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
    const QString title =
        QString::fromLatin1(fieldText(record + sizeof(quint32), SongRecord::titleSize, isPadded));
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
            tr("La song %1 è in un altro gruppo che in %2")
                .arg(id)
                .arg(mp3Name(m_state.kind, false)));
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
        const QString letter(QChar(0x20 + slot));
        const auto offset = qFromBigEndian<quint32>(bytes.constData() + slot * slotSize);
        const bool isUnknown = letter == QLatin1Char(replacedCharacter);
        const bool isWrong = isUnknown
                                 ? offset != noOffset && !texts.value(offset).startsWith(letter)
                                 : offset != first.value(letter, noOffset);
        if (isWrong)
            add(Kind::WrongLetter, name, tr("L'iniziale %1 porta al posto sbagliato").arg(letter));
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

// Playlists --------------------------------------------------------------------------------------

void MemoryCheck::checkPlaylists()
{
    const QByteArray bytes = records(indexfiles::playlistList, PlaylistListRecord::size);
    for (qsizetype pos = 0; pos < bytes.size(); pos += PlaylistListRecord::size) {
        const quint16 number = PlaylistListRecord::number(bytes.constData() + pos);
        checkPlaylist(indexfiles::playlistFolder +
                      QStringLiteral("/play%1.dat").arg(number, 4, 10, QLatin1Char('0')));
    }
}

void MemoryCheck::checkPlaylist(const QString &name)
{
    const QByteArray bytes = records(name, PlaylistSongRecord::size);
    for (qsizetype pos = 0; pos < bytes.size(); pos += PlaylistSongRecord::size) {
        const quint32 id = PlaylistSongRecord::id(bytes.constData() + pos);
        if (!m_ids.contains(id))
            add(Kind::UnknownSongInPlaylist, name,
                tr("La song %1 della playlist non è nella memoria")
                    .arg(pos / PlaylistSongRecord::size + 1));
    }
}
