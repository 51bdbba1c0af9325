#include "storage/writeproblem.h"

#include "storage/devicenames.h"

#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include <algorithm>
#include <array>

namespace
{

/** The file systems of cards and sticks, which know the rules of FAT for names. */
bool hasFatNames(const QByteArray &fileSystem)
{
    static const QByteArrayList types = {"vfat",    "msdos", "fat",   "exfat",
                                         "fuseblk", "ntfs",  "ntfs3", "ufsd"};
    return types.contains(fileSystem.toLower());
}

bool isForbiddenCharacter(QChar character)
{
    return character.unicode() < 0x20 || QStringLiteral("\"*:<>?\\|").contains(character);
}

/** The forbidden characters of a name, each once; control characters cannot be shown. */
QString forbiddenCharacters(const QString &name)
{
    QString found;
    for (const QChar character : name) {
        if (isForbiddenCharacter(character) && character.isPrint() && !found.contains(character))
            found += found.isEmpty() ? QString(character) : QLatin1Char(' ') + QString(character);
    }
    return found;
}

/** A name that stands for a device of the computer, or that ends in a way that FAT drops. */
bool isReservedName(const QString &name)
{
    return devicenames::isDevice(name) || name.endsWith(QLatin1Char('.')) ||
           name.endsWith(QLatin1Char(' '));
}

/** True when every byte of the file can be read. Others than regular files could be endless. */
bool isReadable(const QFileInfo &info)
{
    QFile file(info.filePath());
    if (!info.isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return false;
    std::array<char, 65536> buffer{};
    qint64 left = info.size();
    while (left > 0) {
        const qint64 count = file.read(buffer.data(), buffer.size());
        if (count <= 0)
            return false;
        left -= count;
    }
    return true;
}

} // namespace

WriteProblem::Medium WriteProblem::Medium::of(const QString &folder)
{
    const QFileInfo info(folder);
    if (!info.isDir())
        return {};
    const QStorageInfo storage(folder);
    Medium medium;
    medium.exists = true;
    medium.readOnly = storage.isReadOnly();
    medium.permitted = info.isWritable() && info.isExecutable();
    medium.available = storage.isValid() ? storage.bytesAvailable() : -1;
    medium.fileSystem = storage.fileSystemType();
    return medium;
}

WriteProblem::Kind WriteProblem::find(const Medium &medium, qint64 bytes)
{
    if (!medium.exists)
        return Gone;
    if (medium.readOnly)
        return ReadOnly;
    if (medium.available >= 0 && medium.available < bytes)
        return Full;
    return medium.permitted ? Unknown : NotPermitted;
}

QString WriteProblem::sentence(Kind kind)
{
    switch (kind) {
    case Gone:
        return tr("La memoria non c'è più. È stata estratta?");
    case ReadOnly:
        return tr("La memoria è protetta da scrittura.\nTogliere la protezione e riprovare.");
    case Full:
        return tr("La memoria è piena.\nLiberare spazio e riprovare.");
    case NotPermitted:
        return tr("Manca il permesso di scrivere sulla memoria.");
    case Unknown:
        break;
    }
    return tr("Non è possibile scrivere sulla memoria.");
}

QString WriteProblem::whyNotCopied(const QString &source, const QString &target,
                                   const Medium &medium)
{
    const QFileInfo song(source);
    if (!song.exists())
        return tr("il file non c'è più");
    const QString name = target.section(QLatin1Char('/'), -1);
    const Kind kind = find(medium, song.size());
    if (kind == Gone || kind == ReadOnly)
        return fewWords(kind);
    if (QFileInfo(target).isDir())
        return tr("una cartella ha già questo nome");
    QString nameProblem = whyNotNamed(name, medium);
    if (!nameProblem.isEmpty())
        return nameProblem;
    return kind == Unknown && !isReadable(song) ? tr("il file non può essere letto")
                                                : fewWords(kind);
}

QString WriteProblem::whyNotNamed(const QString &name, const Medium &medium)
{
    constexpr qsizetype longestName = 255;
    const bool fatNames = hasFatNames(medium.fileSystem);
    if ((fatNames ? name.size() : name.toUtf8().size()) > longestName)
        return tr("il nome è troppo lungo");
    return fatNames ? whyNotNamed(name) : QString();
}

QString WriteProblem::whyNotCopied(const QString &source, const QString &target)
{
    return whyNotCopied(source, target, Medium::of(QFileInfo(target).path()));
}

QString WriteProblem::fewWords(Kind kind)
{
    switch (kind) {
    case Gone:
        return tr("la cartella non c'è più (la memoria è stata estratta?)");
    case ReadOnly:
        return tr("la memoria è protetta da scrittura");
    case Full:
        return tr("la memoria è piena");
    case NotPermitted:
        return tr("manca il permesso di scrivere");
    case Unknown:
        break;
    }
    return tr("non può essere scritto");
}

/** What a memory with the names of FAT has against this name; empty when nothing. */
QString WriteProblem::whyNotNamed(const QString &name)
{
    const QString characters = forbiddenCharacters(name);
    if (!characters.isEmpty())
        return tr("la memoria non ammette questi caratteri nel nome: %1").arg(characters);
    if (isReservedName(name) || std::any_of(name.begin(), name.end(), isForbiddenCharacter))
        return tr("la memoria non ammette questo nome");
    return {};
}
