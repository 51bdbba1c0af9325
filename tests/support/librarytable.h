// A user library for tests: a catalogue, the table, and song files in a folder of their own.
#pragma once

#include "formats/metasong.h"
#include "library/database.h"
#include "library/songtable.h"
#include "support/catalogue.h"
#include "support/samplesongs.h"
#include "support/scratchfolder.h"

#include <optional>

/**
 * Works in a temporary folder, which is the working directory while the object lives. A catalogue
 * is written first (or any file under its name), then open() starts the database on it, then songs
 * are added.
 */
template <class Table>
class LibraryWith
{
public:
    LibraryWith() = default;
    explicit LibraryWith(const QList<catalogue::Row> &rows)
        : LibraryWith()
    {
        m_good = catalogue::write(catalogue::overrideFile, rows) && open();
    }
    Q_DISABLE_COPY_MOVE(LibraryWith)

    /** True when the catalogue was written and the database opened. */
    bool isGood() const { return m_good; }

    bool open()
    {
        m_good = database.init();
        if (m_good)
            m_model.emplace(nullptr, database.userLibraryDb());
        return m_good;
    }

    Table &model() { return *m_model; }

    QString path(const QString &name = QString()) const
    {
        return QDir(m_folder.path()).filePath(name);
    }

    /** Writes the file and adds its row as the import does; false when it is no song. */
    bool add(const QString &name, const QByteArray &bytes)
    {
        MetaSong song;
        if (!samplesongs::writeFile(path(name), bytes) || !song.importFile(path(name)))
            return false;
        SongInfo info;
        song.getSongInfo(info);
        info.fileName = path(name);
        info.shortName = name;
        return m_model->addSong(info);
    }

    QByteArray bytes(const QString &name) const { return samplesongs::readFile(path(name)); }

    /** What the file says of itself now; an empty record when it cannot be read. */
    SongInfo song(const QString &name) const
    {
        SongInfo info;
        MetaSong song;
        if (song.importFile(path(name)))
            song.getSongInfo(info);
        return info;
    }

    /** The text of a row's cell, by the name of its field. */
    QString cell(int row, const char *field)
    {
        const int column = m_model->fieldIndex(QString::fromLatin1(field));
        return m_model->rowIndex(row).siblingAtColumn(column).data().toString();
    }

    QList<int> statuses()
    {
        QList<int> all;
        for (int row = 0; row < m_model->goodRowCount(); ++row)
            all.append(m_model->status(row));
        return all;
    }

private:
    ScratchFolder m_folder;

public:
    Database database;

private:
    std::optional<Table> m_model; ///< goes before the database that it shows
    bool m_good = false;
};

using LibraryTable = LibraryWith<SongTable>;
