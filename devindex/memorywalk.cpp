#include "devindex/memorywalk.h"

#include "devindex/folderlisting.h"
#include "devindex/folderrules.h"

#include <QSet>

namespace
{

class Walk
{
public:
    Walk(const QString &root, const std::function<bool()> &isStopped)
        : m_root(root)
        , m_isStopped(isStopped)
    {
    }

    memorywalk::Found run()
    {
        enter(m_root, false);
        return m_found;
    }

private:
    void enter(const QString &folder, bool throughLink)
    {
        if (m_isStopped && m_isStopped())
            return;
        const FolderListing listing = FolderListing::of(folder);
        if (listing.isUnreadable && !isRepairFolder(folder.section(QLatin1Char('/'), -1)))
            m_found.unreadFolders.append(folder.mid(m_root.size()));
        if (listing.id.isEmpty() || m_open.contains(listing.id))
            return;
        // As for the index: links that lead to each other's folders have endless ways through them.
        if (throughLink && m_linked.contains(listing.id))
            return;
        if (throughLink)
            m_linked.insert(listing.id);
        m_open.insert(listing.id);
        for (const QString &name : listing.unusableNames)
            m_found.unusable.append(folder.mid(m_root.size()) + QLatin1Char('/') + name);
        for (const FolderItem &item : listing.items) {
            const QString path = folder + QLatin1Char('/') + item.name;
            if (item.isFolder && !isPlayerFolder(item.name) && !isSystemFolder(item.name))
                enter(path, throughLink || item.isLink);
            else if (item.isSong)
                m_found.songs.append(
                    {path.mid(m_root.size()), text(item.stamp.value_or(FileStamp()))});
        }
        m_open.remove(listing.id);
    }

    static QByteArray text(const FileStamp &stamp)
    {
        return QByteArray::number(stamp.date).rightJustified(8, '0') +
               QByteArray::number(stamp.time).rightJustified(6, '0');
    }

    const QString m_root;
    const std::function<bool()> &m_isStopped;
    memorywalk::Found m_found;
    QSet<FolderId> m_open;   ///< the folders that are being walked through
    QSet<FolderId> m_linked; ///< that were entered through a link
};

} // namespace

memorywalk::Found memorywalk::songs(const QString &root, const std::function<bool()> &isStopped)
{
    return Walk(root, isStopped).run();
}
