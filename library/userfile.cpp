#include "library/userfile.h"

#include "formats/metasong.h"
#include "formats/songnames.h"
#include "library/unreadablefile.h"
#include "storage/wholefile.h"
#include "storage/writeproblem.h"

#include <QFile>
#include <QFileInfo>

namespace
{

/** An SQLite file, as are the user's catalogue and history, or the picture of a song. */
bool isKept(const QFileInfo &file)
{
    const QString picture = QStringLiteral("cdg");
    if (file.suffix().compare(picture, Qt::CaseInsensitive) == 0 ||
        QFileInfo(file.canonicalFilePath()).suffix().compare(picture, Qt::CaseInsensitive) == 0)
        return true;
    const QByteArray database("SQLite format 3");
    QFile bytes(file.filePath());
    return file.isFile() && bytes.open(QFile::ReadOnly) && bytes.read(database.size()) == database;
}

} // namespace

UserFile::Reading UserFile::read(const QString &path, qint64 maxBytes)
{
    const std::optional<QByteArray> bytes = readWholeFile(path, maxBytes);
    if (bytes)
        return {*bytes, {}};
    const UnreadableFile file = UnreadableFile::examine(path);
    switch (file.reason) {
    case UnreadableFile::Reason::Missing:
    case UnreadableFile::Reason::NoFile:
    case UnreadableFile::Reason::Locked:
        return {{}, file.reasonText()};
    default:
        break;
    }
    return {{},
            QFileInfo(path).size() > maxBytes ? tr("Il file è troppo grande")
                                              : tr("Il file non può essere letto")};
}

QString UserFile::whyKept(const QString &path)
{
    const QFileInfo file(path);
    if (songnames::isSongName(path) || songnames::isSongName(file.canonicalFilePath()) ||
        (file.isFile() && MetaSong::hasKnownFormat(path)))
        return tr("Il file è una song e non viene sostituito");
    if (isKept(file))
        return tr("Il file è di un altro tipo e non viene sostituito");
    return {};
}

QString UserFile::whyNotWritten(const QString &path, qint64 size)
{
    switch (WriteProblem::find(WriteProblem::Medium::of(QFileInfo(path).absolutePath()), size)) {
    case WriteProblem::Full:
        return tr("Non c'è abbastanza spazio");
    case WriteProblem::ReadOnly:
    case WriteProblem::NotPermitted:
        return tr("Nella cartella non si può scrivere");
    case WriteProblem::Gone:
        return tr("La cartella non esiste");
    case WriteProblem::Unknown:
        break;
    }
    return tr("Il file non può essere scritto");
}

QString UserFile::write(const QString &path, const QByteArray &bytes)
{
    QString refusal = whyKept(path);
    if (!refusal.isEmpty())
        return refusal;
    return writeWholeFile(path, bytes) ? QString() : whyNotWritten(path, bytes.size());
}
