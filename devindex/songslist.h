// The list of a memory's songs as a text table.
#pragma once

#include <QSaveFile>
#include <QString>
#include <QStringList>

/**
 * Writes lines of fields, each field closed by ";", in UTF-8 and without a byte-order mark. Fields
 * are not quoted. The file takes its name only when it is whole: until then, and after a failure, a
 * file of that name stays as it was.
 */
class SongsListWriter
{
public:
    explicit SongsListWriter(const QString &fileName);

    bool open();
    bool writeLine(const QStringList &fields);

    /** Puts the file in its place; false when a part of it could not be written. */
    bool commit();

private:
    QSaveFile m_file;
};
