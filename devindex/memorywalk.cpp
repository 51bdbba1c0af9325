#include "devindex/memorywalk.h"

#include "devindex/folderlisting.h"
#include "devindex/folderrules.h"

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
        const FolderListing listing = FolderListing::of(folder);
        if (listing.id.isEmpty() || m_open.contains(listing.id))
            return;
        m_open.insert(listing.id);
        for (const FolderItem &item : listing.items) {
            const QString path = folder + QLatin1Char('/') + item.name;
            if (item.isFolder && !isPlayerFolder(item.name) && !isSystemFolder(item.name))
                enter(path);
            else if (item.isSong)
                m_files.append({path.mid(m_root.size()), text(item.stamp.value_or(FileStamp()))});
        }
        m_open.remove(listing.id);
    }

    static QByteArray text(const FileStamp &stamp)
    {
        return QByteArray::number(stamp.date).rightJustified(8, '0') +
               QByteArray::number(stamp.time).rightJustified(6, '0');
    }

    const QString m_root;
    QList<memorywalk::File> m_files;
    QSet<FolderId> m_open; ///< the folders that are being walked through
};

} // namespace

QList<memorywalk::File> memorywalk::songs(const QString &root)
{
    return Walk(root).run();
}
