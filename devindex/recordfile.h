// Files of fixed-size records on the memory: written with every step checked, read within bounds.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <array>

/**
 * Writes one file, record after record. After the first failure nothing more is written; the caller
 * stops at once. A file is complete only when close() said so: a full or removed memory may show
 * itself as late as that.
 */
class RecordWriter
{
public:
    explicit RecordWriter(const QString &path);

    QString path() const { return m_file.fileName(); }

    /** Creates the file, or empties the one that is there. */
    bool open();

    bool append(const char *bytes, qint64 size);
    bool append(const QByteArray &bytes) { return append(bytes.constData(), bytes.size()); }

    template <std::size_t Size>
    bool append(const std::array<char, Size> &record)
    {
        return append(record.data(), static_cast<qint64>(Size));
    }

    /** Where the next record will stand. */
    qint64 offset() const { return m_file.pos(); }

    /** Brings everything to the medium and closes; false if that fails. */
    bool close();

private:
    QFile m_file;
};

/**
 * Reads a whole file of records into bytes. False, with bytes empty, when the file cannot be read,
 * ends within a record or holds more than maxRecords: no more than that is ever taken into memory.
 */
bool readRecords(const QString &path, int recordSize, int maxRecords, QByteArray &bytes);
