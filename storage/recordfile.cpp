#include "storage/recordfile.h"

#include "storage/safefile.h"

#include <QFileInfo>

RecordWriter::RecordWriter(const QString &path)
    : m_file(path)
{
}

bool RecordWriter::open()
{
    return m_file.open(QIODevice::WriteOnly);
}

bool RecordWriter::append(const char *bytes, qint64 size)
{
    return m_file.write(bytes, size) == size;
}

bool RecordWriter::close()
{
    const bool flushed = flushToMedium(m_file);
    m_file.close();
    return flushed && m_file.error() == QFileDevice::NoError;
}

bool readRecords(const QString &path, int recordSize, int maxRecords, QByteArray &bytes)
{
    bytes.clear();
    QFile file(path);
    // Only a regular file can be read without the risk of waiting for ever.
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return false;
    const qint64 limit = qint64(recordSize) * maxRecords;
    if (file.size() > limit || file.size() % recordSize != 0)
        return false;
    const qint64 size = file.size();
    bytes = file.read(size);
    if (bytes.size() == size)
        return true;
    bytes.clear();
    return false;
}
