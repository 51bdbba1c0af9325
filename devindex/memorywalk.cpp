#include "devindex/memorywalk.h"

#include "devindex/filestamp.h"
#include "devindex/folderrules.h"
#include "formats/songnames.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

namespace
{

class Walk
{
public:
    explicit Walk(const QString &root)
        : m_root(root)
    {
    }

    QList<memorywalk::File> run()
    {
        enter(m_root);
        return m_files;
    }

private:
    void enter(const QString &folder)
    {
        const QString canonical = QFileInfo(folder).canonicalFilePath();
        if (m_open.contains(canonical))
            return;
        m_open.insert(canonical);
        const QFileInfoList entries =
            QDir(folder).entryInfoList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
        for (const QFileInfo &entry : entries) {
            const QString name = entry.fileName();
            if (entry.isDir() && !isPlayerFolder(name) && !isSystemFolder(name))
                enter(entry.filePath());
            else if (entry.isFile() && songnames::isSongSuffix(entry.suffix()))
                m_files.append({entry.filePath().mid(m_root.size()), stamp(entry)});
        }
        m_open.remove(canonical);
    }

    static QByteArray stamp(const QFileInfo &file)
    {
        const FileStamp stamp = FileStamp::of(file.filePath()).value_or(FileStamp());
        return QByteArray::number(stamp.date).rightJustified(8, '0') +
               QByteArray::number(stamp.time).rightJustified(6, '0');
    }

    const QString m_root;
    QList<memorywalk::File> m_files;
    QSet<QString> m_open; ///< canonical paths of the folders that are being walked through
};

} // namespace

QList<memorywalk::File> memorywalk::songs(const QString &root)
{
    return Walk(root).run();
}
