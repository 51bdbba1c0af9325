#include "devindex/songslist.h"

SongsListWriter::SongsListWriter(const QString &fileName)
    : m_file(fileName)
{
    // In a folder where no file can be made, an existing list can still be written over.
    m_file.setDirectWriteFallback(true);
}

bool SongsListWriter::open()
{
    return m_file.open(QIODevice::WriteOnly);
}

bool SongsListWriter::writeLine(const QStringList &fields)
{
    QByteArray line;
    for (const QString &field : fields)
        line += field.toUtf8() + ';';
    line += '\n';
    return m_file.write(line) == line.size();
}

bool SongsListWriter::commit()
{
    // A commit alone would put a file in place whose last bytes did not fit on the disk.
    if (!m_file.flush())
        m_file.cancelWriting();
    return m_file.commit();
}
